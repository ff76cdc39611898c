#include "platform/script_identifier.h"

namespace tamrix {
namespace {

bool IsReservedWord(std::string_view name) {
    static constexpr std::string_view kReserved[] = {
        "break",  "case",     "catch",  "class",  "const",  "continue",   "debugger", "default",
        "delete", "do",       "else",   "enum",   "export", "extends",    "false",    "finally",
        "for",    "function", "if",     "import", "in",     "instanceof", "new",      "null",
        "return", "super",    "switch", "this",   "throw",  "true",       "try",      "typeof",
        "var",    "void",     "while",  "with"};
    for (const std::string_view word : kReserved)
        if (name == word) return true;
    return false;
}

}  // namespace

bool IsScriptIdentifier(std::string_view name) {
    auto isStart = [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == '$';
    };
    if (name.empty() || !isStart(name.front())) return false;
    for (const char c : name)
        if (!isStart(c) && !(c >= '0' && c <= '9')) return false;
    return !IsReservedWord(name);
}

}  // namespace tamrix
