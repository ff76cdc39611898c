#include "popups/popup_writers.h"

#include <algorithm>

#include "messages/messages.h"
#include "model/context_id_index.h"
#include "model/project_state.h"
#include "platform/byte_text.h"
#include "platform/counter16.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"
#include "platform/profile.h"
#include "platform/program_error.h"
#include "platform/program_identity.h"
#include "popups/popup_text.h"

namespace tamrix::modPopups {
namespace {

constexpr const char* kCrLf = "\r\n";
constexpr const char* kHeaderFile = "cshelp.h";

void AdvanceProgress(WizardState& wizard, long& visited) {
    ++visited;
    modUtilities::UpdateProgressBar(wizard, std::min(visited, Counter16::kMax));
}

void WriteFile(const std::string& root, const std::string& fileName, const std::string& content) {
    SharedFileSystem().WriteAll(modUtilities::MakeFullPathforFile(root, fileName), content);
}

}  // namespace

bool IsJavaPopupTopic(const CTopicFile& topic) {
    return !topic.HasTitle && topic.InternalReferences >= 1;
}

bool IsAppPopupTopic(const CTopicFile& topic) {
    return !topic.HasTitle && topic.ExternalReferences >= 1;
}

bool WriteJavaPopupStrings(WizardState& wizard, const CTopicFiles& topicFiles,
                           const std::string& root, const std::string& fileName, int& count) {
    count = 0;
    return Guarded("modPopups:WriteJavaPopupStrings", false, [&] {
        std::string out = BannerLine("// Javascript Popups File written automatically by ") + kCrLf;
        out += "// " + FileDateText() + kCrLf;
        out += kCrLf;
        out += modMessages::GetMessageString(10070) + kCrLf;
        out += kCrLf;
        Counter16 written;
        long visited = 0;
        for (const auto& topic : topicFiles) {
            AdvanceProgress(wizard, visited);
            if (!IsJavaPopupTopic(*topic)) continue;
            const PopupText popup = ReadPopupTopic(root, *topic, PopupKind::Script);
            const std::string value = " = \"" + popup.text + "\"" + kCrLf;
            out += PopupName(*topic, popup.anchorName) + value;
            ++written;
            // Each extra ID gets the same string, so that every ID can be called.
            for (const std::string& id : Split(topic->ExtraIds, '^')) {
                if (id.empty()) continue;
                out += id + value;
                ++written;
            }
        }
        WriteFile(root, fileName, out);
        count = written;
        return true;
    });
}

bool WriteAppPopupStrings(WizardState& wizard, const CTopicFiles& topicFiles,
                          const std::string& root, const std::string& fileName, int& count) {
    count = 0;
    return Guarded("modPopups:WriteAppPopupStrings", false, [&] {
        std::string text;
        std::string header;
        Counter16 written;
        auto addEntry = [&](const std::string& id, const std::string& value,
                            const std::string& body) {
            // The text ends its line and one more line break leaves an empty line
            // between entries.
            text += ".topic " + id + kCrLf + body + kCrLf + kCrLf;
            header += "#define " + id + " " + value + kCrLf;
            ++written;
        };
        const ContextIDIndex definitions(modGlobals::MapContextIDs.get(),
                                         modGlobals::ProjectContextIDs.get());
        long visited = 0;
        for (const auto& topic : topicFiles) {
            AdvanceProgress(wizard, visited);
            if (!IsAppPopupTopic(*topic)) continue;
            const PopupText popup = ReadPopupTopic(root, *topic, PopupKind::TextPopup);
            addEntry(PopupName(*topic, popup.anchorName), topic->ContextIDValueString, popup.text);
            for (const std::string& id : Split(topic->ExtraIds, '^')) {
                if (id.empty()) continue;
                // Definitions named so in the map files, then in the project's [MAP].
                for (const NamedDefinition& named : definitions.Named(id))
                    addEntry(named.definition->ContextString, named.definition->ContextID,
                             popup.text);
            }
        }
        WriteFile(root, fileName, text);
        WriteFile(root, kHeaderFile, header);
        count = written;
        return true;
    });
}

bool AddPopupFiles(const std::string& projectFile, bool addScript, bool addText) {
    return Guarded("modPopups:AddPopupFiles", false, [&] {
        constexpr const char* kSection = "TEXT POPUPS";
        std::string existing;
        if (profile::GetSection(projectFile, kSection, existing) > 0)
            profile::WriteSection(projectFile, kSection, "");
        std::string lines;
        if (addText) lines += std::string(kHeaderFile) + '\0' + "cshelp.txt" + '\0';
        if (addScript) lines += std::string("popups.js") + '\0';
        if (!lines.empty()) profile::WriteSection(projectFile, kSection, lines);
        return true;
    });
}

}  // namespace tamrix::modPopups
