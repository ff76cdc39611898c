#include "parser/winhelp_definitions.h"

#include "model/conversion.h"
#include "model/project_state.h"
#include "parser/context_id_value.h"
#include "platform/byte_text.h"
#include "platform/program_error.h"

namespace tamrix::modParser {
namespace {

constexpr std::string_view kDefine = "#define";

void AppendCaretList(std::string& list, const std::string& entry) {
    if (!list.empty()) list += '^';
    list += entry;
}

// Splits a definition line into its name and value text; false when the line
// holds no definition.
bool SplitDefinition(Conversion& wizard, std::string_view line, int mapFileIndex, std::string& name,
                     std::string& valueText) {
    if (const std::size_t define = FindNoCase(line, kDefine); define != kNotFound) {
        // One character after the keyword: its separating blank.
        const std::size_t from = define + kDefine.size() + 1;
        const std::string rest = from < line.size() ? Trim(line.substr(from)) : std::string();
        const std::size_t space = rest.find(' ');
        if (space == std::string::npos) return false;
        name = rest.substr(0, space);
        valueText = Trim(std::string_view(rest).substr(space));
        return true;
    }
    if (const std::size_t eq = line.find('='); eq != std::string_view::npos && eq > 0) {
        name = Trim(line.substr(0, eq));
        valueText = Trim(line.substr(eq + 1));
        return true;
    }
    if (const std::size_t space = line.find(' '); space != std::string_view::npos && space > 0) {
        // Map header files hold this form only as Visual C++ writes them.
        if (mapFileIndex != 0 && !wizard.Globals.ReadNameValueLines) {
            ++wizard.Globals.UnreadNameValueLines;
            return false;
        }
        name = Trim(line.substr(0, space));
        valueText = Trim(line.substr(space + 1));
        return true;
    }
    return false;
}

void NoteRedefinition(Conversion& wizard, const std::string& name, const std::string& value) {
    auto& duplicates = wizard.Globals.DuplicateContextIDs;
    if (!duplicates) duplicates = std::make_shared<CContextIDs>();
    if (!duplicates->Find(name)) duplicates->Add(wizard.Errors, name, value, name);
}

}  // namespace

void AddContextIDFromString(Conversion& wizard, std::string_view line, CContextIDs& collection,
                            std::string_view /*fileName*/, int mapFileIndex) {
    GuardedVoid(wizard.Errors, "modParser:AddContextIDFromString", [&] {
        std::string name, valueText;
        if (!SplitDefinition(wizard, line, mapFileIndex, name, valueText) || name.empty()) return;

        // The value ends at its first blank; the rest, blank included, is the comment.
        std::string value = valueText;
        std::string comment;
        if (const std::size_t space = valueText.find(' '); space != std::string::npos) {
            value = Trim(std::string_view(valueText).substr(0, space + 1));
            comment = valueText.substr(space);
        }

        if (const auto existing = ExistingContextID(collection, name)) {
            // The stored value carries "&H", so a repeated "0x10" counts as a conflict.
            if (!EqualsNoCase(value, existing->ContextID)) NoteRedefinition(wizard, name, value);
            return;
        }

        std::string stored = value;
        if (StartsWithNoCase(stored, "0x")) stored = "&H" + stored.substr(2);
        const auto record = collection.Add(wizard.Errors, name, stored, name);
        if (!record) return;
        record->MapFileIndex = mapFileIndex;
        if (!comment.empty()) record->Comment = comment;
        std::int32_t number = 0;
        if (!ContextIDValue(stored, number))
            AppendCaretList(wizard.Globals.InvalidContextIDs, name + " = overflow value: " + value);
        record->ContextIDVal = number;
    });
}

void AddAliasFromString(Conversion& wizard, std::string_view line) {
    GuardedVoid(wizard.Errors, "modParser:AddAliasFromString", [&] {
        const std::size_t eq = line.find('=');
        if (eq == std::string_view::npos) return;
        const std::string alias = Trim(TabsToSpaces(line.substr(0, eq)));
        std::string topic = Trim(TabsToSpaces(line.substr(eq + 1)));
        std::string comment;
        if (const std::size_t space = topic.find(' '); space != std::string::npos) {
            comment = topic.substr(space);
            topic = Trim(std::string_view(topic).substr(0, space));
        }
        auto& aliases = wizard.Globals.ProjectAliases;
        if (!aliases) aliases = std::make_shared<CAliases>();
        if (ThisAliasExists(*aliases, alias)) return;
        if (const auto record = aliases->Add(alias)) {
            record->TopicID = topic;
            record->Comment = comment;
        }
    });
}

bool ThisAliasExists(const CAliases& aliases, std::string_view name) {
    for (const auto& alias : aliases)
        if (EqualsNoCase(alias->ContextID, name)) return true;
    return false;
}

std::shared_ptr<CContextID> ExistingContextID(const CContextIDs& collection,
                                              std::string_view name) {
    return collection.Find(name);
}

bool IsCommentLine(std::string_view line) {
    return !line.empty() && (line[0] == '*' || line[0] == ';' || line[0] == '/');
}

}  // namespace tamrix::modParser
