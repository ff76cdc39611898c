#include "rewrite/project_writer.h"

#include <unordered_map>
#include <unordered_set>
#include <utility>
#include "model/conversion.h"

#include "messages/messages.h"
#include "model/project_state.h"
#include "platform/byte_text.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"
#include "platform/profile.h"
#include "platform/program_error.h"
#include "platform/text_buffer.h"
#include "rewrite/containment.h"
#include "rewrite/ordered_replace.h"

namespace tamrix::modRewrite {
namespace {

constexpr const char* kProjectCaption = "Rewriting Project File";
constexpr const char* kImagesCaption = "Copying \\images Folder";
// More occurrences of one generated name than this means the file was converted before.
constexpr int kMaxOccurrences = 10;

using modMessages::GetMessageString;
using modUtilities::FileNameNoPath;
using modUtilities::FilePathOnly;

}  // namespace

bool TopicTargetIsSafe(const CTopicFile& topic) {
    if (FindSeparator(topic.NewFileName) != std::string::npos) return false;
    return IsSafeRelativeName(topic.NewNamePath());
}

void SettleNewFileNames(Conversion& wizard) {
    if (!wizard.Globals.TopicFiles) return;
    for (const auto& topic : *wizard.Globals.TopicFiles) {
        if (topic->Context.empty()) {
            topic->NewFileName = topic->AutoFileName;
        } else if (IsWindowsFileName(topic->Context)) {
            topic->NewFileName = topic->Context + ".htm";
        } else {
            topic->NewFileName = topic->AutoFileName;
            RefuseTopicID(wizard, topic->AutoNamePath, topic->Context);
        }
    }
    KeepClashingNames(wizard);
}

void KeepClashingNames(Conversion& wizard) {
    // Who writes each file, by folder and name folded to one case as Windows sees them.
    std::unordered_map<std::string, CTopicFile*> writer;
    auto fileOf = [](const CTopicFile& topic) { return Fold(topic.NewNamePath()); };
    auto kept = [](const CTopicFile& topic) { return topic.NewFileName == topic.AutoFileName; };
    // Names that stay cannot move, so they are placed first.
    for (const auto& topic : *wizard.Globals.TopicFiles)
        if (kept(*topic)) writer.emplace(fileOf(*topic), topic.get());
    // A topic sent back to its old name may evict a renamed one that took it; each
    // topic goes back at most once, so this ends.
    for (const auto& topic : *wizard.Globals.TopicFiles) {
        CTopicFile* placing = kept(*topic) ? nullptr : topic.get();
        while (placing != nullptr) {
            const auto [it, placed] = writer.emplace(fileOf(*placing), placing);
            if (placed) break;
            if (!kept(*placing)) {
                RefuseTakenName(wizard, *placing, *it->second);
                placing->NewFileName = placing->AutoFileName;  // tried again under its old name
            } else if (kept(*it->second)) {
                break;  // one old name listed twice
            } else {
                std::swap(placing, it->second);  // the renamed holder goes back next
            }
        }
    }
}

bool RewriteProjectFile(Conversion& wizard, const std::string& oldProjectFile,
                        const std::string& newProjectFile) {
    return Guarded(wizard.Errors, "modRewrite:RewriteProjectFile", false, [&] {
        const auto& topics = wizard.Globals.TopicFiles;
        if (!topics) {
            const long id = oldProjectFile.empty() ? 10010 : 10009;
            modMessages::ShowMessage(wizard.View(), modMessages::FromCatalogue(id),
                                     mb::kInformation, kProjectCaption, wizard.Box());
            return false;
        }
        TextBuffer buffer;
        buffer.LoadFile(wizard.Files, oldProjectFile);
        modUtilities::InitializeProgressBar(wizard, topics->Count(),
                                            "Writing New Project File ...");
        modUtilities::ShowProgressBar(wizard, true);

        if (wizard.AddCssLink) {
            buffer.SetSelStart(0);
            buffer.SetSelLength(0);
            // Only a "[FILES]" at the very start counts as missing; when it is absent
            // the entry goes to the start of the file.
            if (buffer.Find("[FILES]", 0) != 0) {
                buffer.SetSelStart(buffer.SelStart() + buffer.SelLength());
                buffer.ReplaceSel(std::string(LineEndOf(buffer.Text())) + wizard.CssFileName);
            }
        }

        // Every occurrence of a generated name anywhere in the file is renamed, topic
        // by topic; a topic that keeps its old name keeps its entry, and so does one
        // whose file would leave the folder (the topic rewriter refuses and reports it).
        auto renamed = [](const CTopicFile& topic) {
            return !topic.Context.empty() && topic.NewFileName == topic.Context + ".htm" &&
                   TopicTargetIsSafe(topic);
        };
        std::vector<NameReplacement> names;
        for (const auto& topic : *topics)
            if (renamed(*topic))
                names.push_back({FileNameNoPath(topic->AutoNamePath), topic->NewFileName});
        const ReplaceOutcome outcome = ReplaceInOrder(buffer.Text(), names, kMaxOccurrences);

        long done = 0;
        std::size_t k = 0;
        for (const auto& topic : *topics) {
            ++done;
            if (renamed(*topic)) {
                const NameReplacement& name = names[k];
                if (ContainsNoCase(name.replacement, name.name) ||
                    ContainsNoCase(name.name, name.replacement)) {
                    const int answer = modMessages::AskMessage(
                        wizard.View(), modMessages::FromCatalogue(10005, name.name),
                        mb::kYesNo | mb::kQuestion, kProjectCaption, wizard.Box());
                    if (answer != mb::kYes) return false;
                }
                if (outcome.counts[k++] > kMaxOccurrences) {
                    modMessages::ShowMessage(wizard.View(),
                                             modMessages::FromCatalogue(10005, name.name),
                                             mb::kOKOnly, kProjectCaption, wizard.Box());
                    return false;
                }
            }
            modUtilities::UpdateProgressBar(wizard, done);
        }
        wizard.Files.WriteAll(newProjectFile, outcome.text);
        SetDefaultTopic(wizard, newProjectFile);
        return true;
    });
}

bool SetDefaultTopic(Conversion& wizard, const std::string& newProjectFile) {
    return Guarded(wizard.Errors, "modRewrite:SetDefaultTopic", false, [&] {
        if (wizard.Globals.ContentsTopic.empty()) return true;
        const auto& topics = wizard.Globals.TopicFiles;
        const auto topic =
            topics ? topics->FirstWithContext(wizard.Globals.ContentsTopic) : nullptr;
        if (!topic) return false;
        return profile::WriteString(wizard.Files, newProjectFile, "OPTIONS", "Default Topic",
                                    "html\\" + topic->NewFileName) == 1;
    });
}

std::string NewTopicFileName(Conversion& wizard, const std::string& autoFileName) {
    return Guarded(wizard.Errors, "modRewrite:NewTopicFileName", std::string(), [&] {
        const auto& topics = wizard.Globals.TopicFiles;
        const auto topic = topics ? topics->Find(autoFileName) : nullptr;
        return topic ? topic->NewFileName : std::string();
    });
}

std::string MakeCSSLinkString(Conversion& wizard, const std::string& newRootPath) {
    return Guarded(wizard.Errors, "modRewrite:MakeCSSLinkString", std::string(), [&] {
        if (!wizard.AddCssLink) return std::string();
        if (!IsSafeRelativeName(wizard.CssFileName)) {
            RefuseOutsideFile(wizard, wizard.CssFileName);
        } else {
            const std::string cssPath = newRootPath + "\\" + wizard.CssFileName;
            if (!modUtilities::FileExists(wizard.Files, cssPath))
                CreateCSSFile(wizard, cssPath, wizard.SetTopicClass);
        }
        // Topic files lie one folder below the root.
        return GetMessageString(9000, "../" + wizard.CssFileName);
    });
}

bool CreateCSSFile(Conversion& wizard, const std::string& path, bool defineTitleClass) {
    return Guarded(wizard.Errors, "modUtilities:CreateCSSFile", false, [&] {
        std::string text = "Body{ }\r\n\r\n";
        if (defineTitleClass) text += ".Topic_Title { }\r\n\r\n";
        wizard.Files.WriteAll(path, text);
        return true;
    });
}

bool CopyImageFolder(Conversion& wizard, const std::string& oldProjectFile,
                     const std::string& newRootPath, bool askBeforeOverwrite) {
    return Guarded(wizard.Errors, "modRewrite:CopyImageFolder", false, [&] {
        FileSystem& fs = wizard.Files;
        const std::string newImages = modUtilities::AddBackslash(newRootPath) + "images";
        const std::string oldImages =
            modUtilities::AddBackslash(FilePathOnly(oldProjectFile)) + "images";
        const bool newExists = modUtilities::FolderExists(wizard.Files, newImages);
        if (!modUtilities::FolderExists(wizard.Files, oldImages)) return true;

        const std::vector<std::string> oldNames = fs.ListFiles(oldImages);
        if (newExists) {
            if (askBeforeOverwrite) {
                const std::unordered_set<std::string> old(oldNames.begin(), oldNames.end());
                bool clash = false;
                for (const std::string& name : fs.ListFiles(newImages))
                    clash = clash || old.count(name) != 0;
                if (clash &&
                    modMessages::AskMessage(wizard.View(), modMessages::FromCatalogue(10007),
                                            mb::kYesNo | mb::kQuestion, kImagesCaption,
                                            wizard.Box()) != mb::kYes)
                    return true;
            }
        } else if (!modUtilities::CreateFolder(wizard.Files, wizard.Errors, newImages, "")) {
            modMessages::ShowMessage(wizard.View(), modMessages::FromCatalogue(10013, newImages),
                                     mb::kExclamation, kImagesCaption, wizard.Box());
            return false;
        }

        if (oldNames.empty()) {
            modMessages::ShowMessage(wizard.View(),
                                     "There are no image files in the old /images folder.",
                                     mb::kInformation, kImagesCaption, wizard.Box(), 0);
            return true;
        }
        const std::string from = modUtilities::AddBackslash(oldImages);
        const std::string to = modUtilities::AddBackslash(newImages);
        FileSystem::QueuedWrites queued(fs);
        for (const std::string& name : oldNames) fs.CopyFile(from + name, to + name);
        queued.Finish();
        return true;
    });
}

}  // namespace tamrix::modRewrite
