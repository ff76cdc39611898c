#include "rewrite/topic_rewriter.h"

#include "messages/messages.h"
#include "model/conversion.h"
#include "platform/byte_text.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"
#include "platform/program_error.h"
#include "rewrite/containment.h"
#include "rewrite/ordered_replace.h"
#include "rewrite/popup_activation.h"
#include "rewrite/project_writer.h"

namespace tamrix::modRewrite {
namespace {

// The file part of a link target: the text before a "#" that is not its first character.
std::string TargetBase(const std::string& target) {
    const std::size_t hash = target.find('#');
    return hash != std::string::npos && hash >= 1 ? target.substr(0, hash) : target;
}

}  // namespace

bool RewriteTopicFile(Conversion& wizard, CTopicFile& topic, const std::string& oldProjectFile,
                      const std::string& newRootPath, const std::string& cssLink) {
    return Guarded(wizard.Errors, "modRewrite:RewriteTopicFile", false, [&] {
        const std::string oldFolder = modUtilities::FilePathOnly(oldProjectFile);
        const std::string relFolder = modUtilities::FilePathOnly(topic.AutoNamePath);
        const std::string oldPath = oldFolder + topic.AutoNamePath;
        if (!TopicTargetIsSafe(topic)) {
            RefuseOutsideFile(wizard, topic.NewNamePath());
            return true;
        }
        modUtilities::CreateFolder(wizard.Files, wizard.Errors, newRootPath,
                                   relFolder);  // a failure shows when saving
        const std::string newPath = newRootPath + "\\" + topic.NewNamePath();

        FileSystem& fs = wizard.Files;
        const std::string old = fs.ReadAll(oldPath);
        // Each target's file name is replaced wherever it stands by the new name of
        // the topic it names; a name that names no topic is only looked for.
        std::vector<NameReplacement> names;
        const CTopicFiles* topics = wizard.Globals.TopicFiles.get();
        for (const auto& target : topic.targets()) {
            const std::string base = TargetBase(target.TargetString);
            // A target that starts with "#" is its own base, which names no topic as a rule.
            const CTopicFile* named =
                topics == nullptr || base.starts_with('#') ? nullptr : topics->TargetTopic(target);
            std::string newName =
                named != nullptr ? named->NewFileName : NewTopicFileName(wizard, base);
            const bool unknown = newName.empty();
            names.push_back({base, std::move(newName), unknown});
        }
        const ReplaceOutcome outcome = ReplaceInOrder(old, names);
        std::size_t k = 0;
        for (const auto& target : topic.targets()) {
            const std::string& t = target.TargetString;
            if (names[k].probeOnly && outcome.counts[k] > 0 && !t.empty() && t.front() != '#')
                modMessages::ShowMessage(
                    wizard.View(),
                    modMessages::FromCatalogue(10032, t, modUtilities::FileNameNoPath(oldPath)),
                    mb::kExclamation, "Rewriting Topic File", wizard.Box());
            ++k;
        }

        std::string text = outcome.text;
        if (!cssLink.empty()) {
            // A head end at position 0 counts as missing the other way: no link. Without
            // "</HEAD>" the link goes where the last search left the caret.
            const std::size_t headEnd = FindNoCase(text, "</HEAD>", 0);
            if (headEnd != 0)
                text.insert(headEnd == kNotFound ? outcome.caret : headEnd,
                            cssLink + std::string(LineEndOf(text)));
        }
        // Popup activation and the popup text writers read the file again; they
        // find it in memory. A file that activation will rewrite is written then.
        using Keep = FileSystem::Keep;
        const bool calls = CallsPopupToActivate(wizard.Globals, topic);
        fs.WriteAll(newPath, text,
                    calls && wizard.PopupsChosenEarly ? Keep::kHeld
                    : calls || !topic.HasTitle        ? Keep::kForReading
                                                      : Keep::kNothing);
        return true;
    });
}

}  // namespace tamrix::modRewrite
