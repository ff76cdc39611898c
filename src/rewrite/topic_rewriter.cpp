#include "rewrite/topic_rewriter.h"

#include "messages/messages.h"
#include "platform/path_helpers.h"
#include "platform/program_error.h"
#include "platform/text_buffer.h"
#include "rewrite/containment.h"
#include "rewrite/project_writer.h"

namespace tamrix::modRewrite {
namespace {

// The file part of a link target: the text before a "#" that is not its first character.
std::string TargetBase(const std::string& target) {
    const std::size_t hash = target.find('#');
    return hash != std::string::npos && hash >= 1 ? target.substr(0, hash) : target;
}

}  // namespace

bool RewriteTopicFile(WizardState& wizard, CTopicFile& topic, const std::string& oldProjectFile,
                      const std::string& newRootPath, const std::string& cssLink) {
    return Guarded("modRewrite:RewriteTopicFile", false, [&] {
        const std::string oldFolder = modUtilities::FilePathOnly(oldProjectFile);
        const std::string relFolder = modUtilities::FilePathOnly(topic.AutoNamePath);
        const std::string oldPath = oldFolder + topic.AutoNamePath;
        if (!TopicTargetIsSafe(topic)) {
            RefuseOutsideFile(wizard, relFolder + topic.NewFileName);
            return true;
        }
        modUtilities::CreateFolder(newRootPath, relFolder);  // a failure shows when saving
        const std::string newPath = newRootPath + "\\" + relFolder + topic.NewFileName;

        TextBuffer buffer;
        buffer.LoadFile(oldPath);
        for (const auto& target : topic.targets()) {
            const std::string& t = target->TargetString;
            const std::string base = TargetBase(t);
            bool unknown = false;
            buffer.SetSelStart(0);
            // The search goes on after each inserted name, so a new name that holds
            // the old one cannot loop; a match at position 0 ends it.
            while (buffer.Find(base, buffer.SelStart()) >= 1) {
                const std::string newName = NewTopicFileName(base);
                if (newName.empty()) {
                    unknown = true;
                    break;
                }
                buffer.ReplaceSel(newName);
            }
            if (unknown && !t.empty() && t.front() != '#')
                modMessages::ShowMessage(
                    modMessages::GetMessageString(10032, t, modUtilities::FileNameNoPath(oldPath)),
                    mb::kExclamation, "Rewriting Topic File", wizard.Box(), 10032);
        }

        if (!cssLink.empty()) {
            // Without "</HEAD>" the link goes where the last search left the caret.
            if (buffer.Find("</HEAD>", 0) != 0) {
                buffer.SetSelLength(0);
                buffer.ReplaceSel(cssLink + "\r\n");
            }
        }
        buffer.SaveFile(newPath);
        return true;
    });
}

}  // namespace tamrix::modRewrite
