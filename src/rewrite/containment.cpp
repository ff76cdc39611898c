#include "rewrite/containment.h"

#include "messages/messages.h"
#include "model/conversion.h"
#include "platform/byte_text.h"

namespace tamrix::modRewrite {
namespace {

constexpr std::size_t kMaxNameLength = 200;

// CON, PRN, AUX, NUL, COM1-9 and LPT1-9 name devices whatever follows the first dot.
bool IsDeviceName(std::string_view name) {
    const std::string base = TrimRight(Before(name, '.'));
    for (const char* device : {"CON", "PRN", "AUX", "NUL"})
        if (EqualsNoCase(base, device)) return true;
    return base.size() == 4 && base[3] >= '1' && base[3] <= '9' &&
           (StartsWithNoCase(base, "COM") || StartsWithNoCase(base, "LPT"));
}

// The characters Windows does not allow in a file name.
bool IsReserved(char c) {
    switch (c) {
        case '"':
        case '*':
        case '?':
        case '<':
        case '>':
        case '|':
        case ':':
        case '\\':
        case '/': return true;
        default: return static_cast<unsigned char>(c) < 0x20;
    }
}

// A component such as "..", "..." or ". ." that Windows would read as the parent folder.
bool LeadsUp(std::string_view component) {
    int dots = 0;
    for (const char c : component) {
        if (c == '.')
            ++dots;
        else if (c != ' ')
            return false;
    }
    return dots >= 2;
}

}  // namespace

bool IsSafeRelativeName(std::string_view relativeName) {
    if (relativeName.empty()) return false;
    if (relativeName.front() == '\\' || relativeName.front() == '/') return false;
    if (relativeName.find(':') != std::string_view::npos) return false;
    if (relativeName.find('\0') != std::string_view::npos) return false;
    std::size_t start = 0;
    while (true) {
        const std::size_t sep = FindSeparator(relativeName, start);
        const std::string_view component = relativeName.substr(
            start, sep == std::string_view::npos ? std::string_view::npos : sep - start);
        if (LeadsUp(component)) return false;
        if (sep == std::string_view::npos) return !component.empty();
        start = sep + 1;
    }
}

bool IsWindowsFileName(std::string_view name) {
    if (name.empty() || name.size() > kMaxNameLength) return false;
    for (const char c : name)
        if (IsReserved(c)) return false;
    if (name.back() == '.' || name.back() == ' ') return false;
    return !IsDeviceName(name);
}

void RefuseOutsideFile(Conversion& wizard, const std::string& relativeName) {
    auto& refused = wizard.Globals.RefusedFiles;
    bool known = false;
    for (const std::string& name : refused) known = known || EqualsNoCase(name, relativeName);
    if (!known) refused.push_back(relativeName);
    modMessages::ShowMessage(wizard.View(),
                             "The file \"" + relativeName +
                                 "\" would lie outside the new project folder.\nIt was not "
                                 "written.",
                             mb::kExclamation, "Writing New Project Files", wizard.Box(), 0);
}

void RefuseTopicID(Conversion& wizard, const std::string& oldName, const std::string& topicId) {
    wizard.Globals.RefusedTopicIDs.push_back(oldName + " (Topic ID \"" + topicId + "\")");
    modMessages::ShowMessage(wizard.View(),
                             "The topic ID \"" + topicId +
                                 "\" cannot be a file name.\nThe topic file keeps its name \"" +
                                 oldName + "\".",
                             mb::kExclamation, "Writing New Project Files", wizard.Box(), 0);
}

void RefuseTakenName(Conversion& wizard, const CTopicFile& topic, const CTopicFile& holder) {
    wizard.Globals.ClashingTopicIDs.push_back(topic.AutoNamePath + " (Topic ID \"" + topic.Context +
                                              "\", taken by " + holder.AutoNamePath + ")");
    modMessages::ShowMessage(
        wizard.View(),
        "The topic ID \"" + topic.Context + "\" would give the file name \"" + topic.NewFileName +
            "\", which the topic file \"" + holder.AutoNamePath +
            "\" writes.\nThe topic file keeps its name \"" + topic.AutoNamePath + "\".",
        mb::kExclamation, "Writing New Project Files", wizard.Box(), 0);
}

}  // namespace tamrix::modRewrite
