#include "popups/popup_writers.h"

#include <algorithm>
#include "model/conversion.h"

#include "messages/messages.h"
#include "model/context_id_index.h"
#include "model/project_state.h"
#include "parser/context_id_value.h"
#include "platform/byte_text.h"
#include "platform/counter16.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"
#include "platform/profile.h"
#include "platform/program_error.h"
#include "platform/program_identity.h"
#include "platform/script_identifier.h"
#include "popups/popup_text.h"

namespace tamrix::modPopups {
namespace {

constexpr const char* kCrLf = "\r\n";
constexpr const char* kHeaderFile = "cshelp.h";

void AdvanceProgress(Conversion& wizard, long& visited) {
    ++visited;
    modUtilities::UpdateProgressBar(wizard, std::min(visited, Counter16::kMax));
}

void WriteFile(Conversion& wizard, const std::string& root, const std::string& fileName,
               const std::string& content) {
    wizard.Files.WriteAll(modUtilities::MakeFullPathforFile(root, fileName), content);
}

std::string Described(const CTopicFile& topic) {
    return topic.NewFileName + " (Topic ID \"" + topic.Context + "\")";
}

// The value a text popup's own entry gets: the one the map files gave it, else
// the first definition of its ID in the map files or the [MAP] section; empty
// when there is none.
std::string TextPopupValue(const CTopicFile& topic, const ContextIDIndex& definitions) {
    if (!topic.ContextIDValueString.empty()) return topic.ContextIDValueString;
    const auto& named = definitions.Named(topic.Context);
    return named.empty() ? std::string() : named.front().definition->ContextID;
}

ContextIDIndex AllDefinitions(Conversion& wizard) {
    return ContextIDIndex(wizard.Globals.MapContextIDs.get(),
                          wizard.Globals.ProjectContextIDs.get());
}

// "N popups were left out of FILE because WHY:" and the list, or nothing. `why`
// is given for one popup and for several.
std::string LeftOutNote(const std::vector<std::string>& names, const std::string& file,
                        const std::string& whyOne, const std::string& whySeveral) {
    if (names.empty()) return {};
    const bool one = names.size() == 1;
    std::string note = std::to_string(names.size()) + (one ? " popup was" : " popups were") +
                       " left out of " + file + " because " + (one ? whyOne : whySeveral) + ":";
    for (const std::string& name : names) note += std::string(kCrLf) + name;
    return note;
}

}  // namespace

bool IsJavaPopupTopic(const CTopicFile& topic) {
    return !topic.HasTitle && topic.InternalReferences >= 1;
}

bool IsAppPopupTopic(const CTopicFile& topic) {
    return !topic.HasTitle && topic.ExternalReferences >= 1;
}

bool WriteJavaPopupStrings(Conversion& wizard, const CTopicFiles& topicFiles,
                           const std::string& root, const std::string& fileName, int& count) {
    count = 0;
    return Guarded(wizard.Errors, "modPopups:WriteJavaPopupStrings", false, [&] {
        std::string out = BannerLine("// Javascript Popups File written automatically by ") + kCrLf;
        out += "// " + FileDateText() + kCrLf;
        out += kCrLf;
        out += modMessages::GetMessageString(10070) + kCrLf;
        out += kCrLf;
        Counter16 written;
        long visited = 0;
        for (const auto& topic : topicFiles) {
            AdvanceProgress(wizard, visited);
            if (!IsJavaPopupTopic(*topic) || !IsScriptIdentifier(topic->Context)) continue;
            const PopupText popup = ReadPopupTopic(wizard, root, *topic, PopupKind::Script);
            const std::string value = " = \"" + popup.text + "\"" + kCrLf;
            const std::string name = PopupName(*topic, popup.anchorName);
            out += (IsScriptIdentifier(name) ? name : topic->Context) + value;
            ++written;
            // Each extra ID gets the same string, so that every ID can be called.
            for (const std::string& id : Split(topic->ExtraIds, '^')) {
                if (!IsScriptIdentifier(id)) continue;
                out += id + value;
                ++written;
            }
        }
        WriteFile(wizard, root, fileName, out);
        count = written;
        return true;
    });
}

bool WriteAppPopupStrings(Conversion& wizard, const CTopicFiles& topicFiles,
                          const std::string& root, const std::string& fileName, int& count) {
    count = 0;
    return Guarded(wizard.Errors, "modPopups:WriteAppPopupStrings", false, [&] {
        std::string text;
        std::string header;
        Counter16 written;
        auto addEntry = [&](const std::string& id, const std::string& value,
                            const std::string& body) {
            // The text ends its line and one more line break leaves an empty line
            // between entries.
            text += ".topic " + id + kCrLf + body + kCrLf + kCrLf;
            header += "#define " + id + " " + modParser::CHeaderValue(value) + kCrLf;
            ++written;
        };
        const ContextIDIndex definitions = AllDefinitions(wizard);
        long visited = 0;
        for (const auto& topic : topicFiles) {
            AdvanceProgress(wizard, visited);
            if (!IsAppPopupTopic(*topic)) continue;
            const PopupText popup = ReadPopupTopic(wizard, root, *topic, PopupKind::TextPopup);
            const std::string value = TextPopupValue(*topic, definitions);
            if (!value.empty()) addEntry(PopupName(*topic, popup.anchorName), value, popup.text);
            for (const std::string& id : Split(topic->ExtraIds, '^')) {
                if (id.empty()) continue;
                // Definitions named so in the map files, then in the project's [MAP].
                for (const NamedDefinition& named : definitions.Named(id))
                    addEntry(named.definition->ContextString, named.definition->ContextID,
                             popup.text);
            }
        }
        WriteFile(wizard, root, fileName, text);
        WriteFile(wizard, root, kHeaderFile, header);
        count = written;
        return true;
    });
}

std::vector<std::string> LeftOutScriptPopups(const CTopicFiles& topicFiles) {
    std::vector<std::string> names;
    for (const auto& topic : topicFiles)
        if (IsJavaPopupTopic(*topic) && !IsScriptIdentifier(topic->Context))
            names.push_back(Described(*topic));
    return names;
}

std::vector<std::string> LeftOutTextPopups(Conversion& wizard, const CTopicFiles& topicFiles) {
    std::vector<std::string> names;
    const ContextIDIndex definitions = AllDefinitions(wizard);
    for (const auto& topic : topicFiles)
        if (IsAppPopupTopic(*topic) && TextPopupValue(*topic, definitions).empty())
            names.push_back(Described(*topic));
    return names;
}

std::string LeftOutPopupsMessage(Conversion& wizard, const CTopicFiles& topicFiles) {
    const std::string script =
        LeftOutNote(LeftOutScriptPopups(topicFiles), "popups.js",
                    "its topic ID is not a script name", "their topic IDs are not script names");
    const std::string text =
        LeftOutNote(LeftOutTextPopups(wizard, topicFiles), "cshelp.txt and cshelp.h",
                    "no map definition gives its topic ID a value",
                    "no map definition gives their topic IDs a value");
    return script + (script.empty() || text.empty() ? "" : kCrLf) + text;
}

bool AddPopupFiles(Conversion& wizard, const std::string& projectFile, bool addScript,
                   bool addText) {
    return Guarded(wizard.Errors, "modPopups:AddPopupFiles", false, [&] {
        constexpr const char* kSection = "TEXT POPUPS";
        std::string existing;
        if (profile::GetSection(wizard.Files, projectFile, kSection, existing) > 0)
            profile::WriteSection(wizard.Files, projectFile, kSection, "");
        std::string lines;
        if (addText) lines += std::string(kHeaderFile) + '\0' + "cshelp.txt" + '\0';
        if (addScript) lines += std::string("popups.js") + '\0';
        if (!lines.empty()) profile::WriteSection(wizard.Files, projectFile, kSection, lines);
        return true;
    });
}

}  // namespace tamrix::modPopups
