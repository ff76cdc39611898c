#include "parser/project_reader.h"

#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>
#include "model/conversion.h"

#include "messages/messages.h"
#include "model/project_state.h"
#include "parser/topic_scanner.h"
#include "parser/topics_ahead.h"
#include "platform/byte_text.h"
#include "platform/counter16.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"
#include "platform/profile.h"
#include "platform/program_error.h"

namespace tamrix::modParser {
namespace {

// Reads trimmed lines up to and including the one that holds "[FILES]"; false
// when there is none.
bool SkipToFilesSection(TextReader& reader) {
    std::string line;
    while (reader.ReadLine(line)) {
        if (ContainsNoCase(Trim(line), "[FILES]")) return true;
    }
    return false;
}

// The non-empty lines of the [FILES] section, up to the next section or the end.
std::vector<std::string> FilesSectionEntries(Conversion& wizard, const std::string& projectFile) {
    std::vector<std::string> entries;
    TextReader reader(wizard.Files, projectFile);
    if (!SkipToFilesSection(reader)) return entries;
    Counter16 htmLines;  // counted as the reader always has; 16-bit like every counter
    std::string line;
    while (reader.ReadLine(line)) {
        line = Trim(line);
        if (line.find('[') != std::string::npos) break;
        if (line.empty()) continue;
        if (ContainsNoCase(line, ".htm")) ++htmLines;
        entries.push_back(line);
    }
    return entries;
}

// Topic files already read, by their (possibly renamed) topic ID folded to one
// case: IDs that differ only in case would name one file on Windows.
using ContextIndex = std::unordered_map<std::string, std::vector<std::shared_ptr<CTopicFile>>>;

// Renames the topic ID of `topic` once for every earlier topic file whose ID equals
// the ID as found, counting renames in `duplicates` across the whole read.
void RenameDuplicateID(Conversion& wizard, CTopicFile& topic, const ContextIndex& byContext,
                       Counter16& duplicates) {
    const std::string found = topic.Context;
    if (found.empty()) return;
    const auto it = byContext.find(Fold(found));
    if (it == byContext.end()) return;
    for (const auto& other : it->second) {
        // A suffixed ID may be taken by a topic read before.
        do {
            ++duplicates;
            topic.Context = found + "_" + std::to_string(duplicates.Value());
        } while (byContext.count(Fold(topic.Context)) != 0);
        topic.NewFileName = topic.Context + ".htm";
        wizard.Globals.RenamedTopicIDs +=
            modMessages::GetMessageString(10066, found, topic.Context) + "^";
        topic.Comment = "Duplicate Topic Id: File and Topic ID renamed from \"" +
                        other->NewFileName + "\" to \"" + topic.NewFileName + "\"";
    }
}

std::string OptionsFileName(Conversion& wizard, const std::string& projectFile, const char* key) {
    std::string value;
    profile::GetString(wizard.Files, projectFile, "OPTIONS", key, "!!!!", value);
    if (value.empty() || value == "!!!!") return {};
    return modUtilities::MakeFullPathforFile(modUtilities::FilePathOnly(projectFile), value);
}

}  // namespace

bool OpenProjectFile(Conversion& wizard, const std::string& projectFile, int& htmCount) {
    htmCount = 0;
    return Guarded(wizard.Errors, "modParser:OpenProjectFile", false, [&] {
        if (!modUtilities::FileExists(wizard.Files, projectFile)) {
            modMessages::ShowMessage(wizard.View(), modMessages::FromCatalogue(10069, projectFile),
                                     mb::kExclamation, "Opening HTML Project File", wizard.Box());
            return false;
        }
        TextReader reader(wizard.Files, projectFile);
        if (!SkipToFilesSection(reader)) {
            modMessages::ShowMessage(wizard.View(), modMessages::FromCatalogue(5004), mb::kOKOnly,
                                     "Opening Project File", wizard.Box());
            return false;
        }
        Counter16 count;
        bool result = false;
        bool sectionEnded = false;
        std::string line;
        while (reader.ReadLine(line)) {
            line = Trim(line);
            if (line.find('[') != std::string::npos) {
                sectionEnded = true;
                break;
            }
            if (ContainsNoCase(line, ".htm")) ++count;
        }
        htmCount = count;
        result = sectionEnded || htmCount >= 1;
        if (result) wizard.DisplayTopicCount = std::to_string(htmCount);
        return result;
    });
}

bool ParseProjectFile(Conversion& wizard, const std::string& projectFile, int& missingCount,
                      bool& stopped) {
    return Guarded(wizard.Errors, "modParser:ParseProjectFile", false, [&] {
        wizard.Globals.TopicFiles = std::make_shared<CTopicFiles>();
        wizard.Globals.RenamedTopicIDs.clear();
        CTopicFiles& topicFiles = *wizard.Globals.TopicFiles;
        const std::string folder = modUtilities::FilePathOnly(projectFile);

        const std::vector<std::string> entries = FilesSectionEntries(wizard, projectFile);
        if (entries.empty()) return true;
        modUtilities::InitializeProgressBar(wizard,
                                            Counter16::Checked(static_cast<long>(entries.size())),
                                            "Scanning Old Project Files ...");

        std::vector<std::string> fullPaths;
        std::vector<std::string> topicPaths;  // of the .htm entries, parsed on two cores
        fullPaths.reserve(entries.size());
        topicPaths.reserve(entries.size());
        for (const std::string& entry : entries) {
            fullPaths.push_back(modUtilities::MakeFullPathforFile(folder, entry));
            topicPaths.push_back(EqualsNoCase(FileExtension(entry), "htm") ? fullPaths.back()
                                                                           : std::string());
        }
        TopicsAhead ahead(wizard, std::move(topicPaths));

        Counter16 missing = missingCount;
        Counter16 duplicates;
        ContextIndex byContext;
        bool stoppedHere = false;
        long position = 0;
        for (const std::string& entry : entries) {
            const auto index = static_cast<std::size_t>(position++);
            const std::string& fullPath = fullPaths[index];
            ParsedTopic parsed;
            // Found and parsed on the second core, or else looked for and parsed here.
            if (!ahead.Take(index, parsed)) {
                if (!modUtilities::FileExists(wizard.Files, fullPath)) {
                    ++missing;
                    missingCount = missing;
                    const int answer = modMessages::AskMessage(
                        wizard.View(), modMessages::FromCatalogue(10044, fullPath), mb::kYesNo,
                        "Scanning Project File", wizard.Box());
                    if (answer != mb::kYes) {
                        stoppedHere = true;
                        break;
                    }
                    modUtilities::UpdateProgressBar(wizard, position);
                    continue;
                }
                if (!EqualsNoCase(FileExtension(entry), "htm")) {
                    modUtilities::UpdateProgressBar(wizard, position);
                    continue;
                }
                ParseTopicFile(wizard, fullPath, parsed);
            }
            if (!parsed.ok) {
                modUtilities::UpdateProgressBar(wizard, position);
                continue;
            }
            const std::string& title = parsed.title;
            const std::string& topicId = parsed.topicId;
            const std::string& targets = parsed.targets;
            if (!topicId.empty() && ContainsNoCase(entry, topicId)) {
                const int answer =
                    modMessages::AskMessage(wizard.View(), modMessages::FromCatalogue(10005, entry),
                                            mb::kYesNo, "Parsing HTMl Project File", wizard.Box());
                if (answer != mb::kYes) return false;
            }

            auto topic = std::make_shared<CTopicFile>();
            topic->AutoNamePath = entry;
            topic->AutoFileName = modUtilities::FileNameNoPath(entry);
            topic->Context = topicId;
            topic->TopicTitle = title;
            topic->NewFileName = topicId.empty() ? topic->AutoFileName : topicId + ".htm";
            topic->ExtraIds = std::move(parsed.extraIds);
            if (!targets.empty()) {
                for (const std::string& target : Split(targets, '^')) {
                    if (!topic->targets().ContainsNoCase(target)) topic->targets().Add(target);
                }
                topic->HotSpotCount = parsed.hotspots;
            }
            topic->HasTitle = !EqualsNoCase(title, "(Untitled)");
            RenameDuplicateID(wizard, *topic, byContext, duplicates);

            if (topicFiles.Find(topic->AutoFileName) != nullptr) {
                modMessages::ShowMessage(
                    wizard.View(), modMessages::FromCatalogue(10056, topic->AutoFileName),
                    mb::kInformation, "Parsing HTML Project File", wizard.Box());
            } else {
                topicFiles.Add(topic, topic->AutoFileName);
                if (!topic->Context.empty()) byContext[Fold(topic->Context)].push_back(topic);
            }
            modUtilities::UpdateProgressBar(wizard, position);
        }

        if (stoppedHere) {
            wizard.SetProgressCaption(
                "Stopped scan. " + std::to_string(missing.Value()) +
                (missing == 1 ? " topic file not found." : " topic files not found."));
            stopped = true;
        }
        return true;
    });
}

std::string GetIndexFileName(Conversion& wizard, const std::string& projectFile) {
    return Guarded(wizard.Errors, "modParser:GetIndexFileName", std::string(),
                   [&] { return OptionsFileName(wizard, projectFile, "Index File"); });
}

std::string GetContentsFileName(Conversion& wizard, const std::string& projectFile) {
    return Guarded(wizard.Errors, "modParser:GetContentsFileName", std::string(),
                   [&] { return OptionsFileName(wizard, projectFile, "Contents File"); });
}

}  // namespace tamrix::modParser
