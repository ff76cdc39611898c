#include "check/file_names.h"

#include <unordered_map>

#include "check/link_check.h"
#include "platform/byte_text.h"

namespace tamrix::check {

std::string InvalidWindowsName(std::string_view component) {
    for (const char c : component) {
        if (static_cast<unsigned char>(c) < 32) return "holds a control character";
        if (std::string_view("<>:\"|?*").find(c) != std::string_view::npos)
            return std::string("holds \"") + c + "\"";
    }
    if (component.size() > 255) return "is longer than 255 characters";
    if (!component.empty() && (component.back() == ' ' || component.back() == '.'))
        return "ends in a blank or a dot";
    const std::string base = Fold(Trim(Before(component, '.')));
    static const char* const kDevices[] = {"con", "prn", "aux", "nul"};
    for (const char* device : kDevices)
        if (base == device) return "is a device name";
    if (base.size() == 4 && (base.starts_with("com") || base.starts_with("lpt")) &&
        base[3] >= '1' && base[3] <= '9')
        return "is a device name";
    return {};
}

void CheckFileNames(const std::vector<SourceLine>& files, std::vector<Problem>& problems) {
    std::unordered_map<std::string, const SourceLine*> seen;  // by key
    for (const SourceLine& entry : files) {
        for (const std::string& part : Split(entry.text, '\\'))
            for (const std::string& component : Split(part, '/'))
                if (const std::string why = InvalidWindowsName(component); !why.empty())
                    problems.push_back({ProblemKind::kInvalidName, entry.file, entry.line,
                                        "\"" + entry.text + "\" " + why});
        const auto [it, added] = seen.try_emplace(PathKey({}, entry.text), &entry);
        if (added) continue;
        std::string a = entry.text, b = it->second->text;
        for (auto* name : {&a, &b})
            for (char& c : *name) c = c == '\\' ? '/' : c;
        if (a != b)
            problems.push_back({ProblemKind::kNameCollision, entry.file, entry.line,
                                "\"" + entry.text + "\" and \"" + it->second->text + "\" (line " +
                                    std::to_string(it->second->line) +
                                    ") name one file on Windows"});
    }
}

}  // namespace tamrix::check
