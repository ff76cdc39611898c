#include "check/script_check.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "platform/byte_text.h"

namespace tamrix::check {
namespace {

bool IsIdentifierStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '$';
}
bool IsIdentifierPart(char c) { return IsIdentifierStart(c) || (c >= '0' && c <= '9'); }

bool IsReservedWord(std::string_view word) {
    static constexpr std::array<std::string_view, 46> kWords = {
        "break",      "case",      "catch",  "class",    "const",      "continue",  "debugger",
        "default",    "delete",    "do",     "else",     "enum",       "export",    "extends",
        "false",      "finally",   "for",    "function", "if",         "import",    "in",
        "instanceof", "new",       "null",   "return",   "super",      "switch",    "this",
        "throw",      "true",      "try",    "typeof",   "var",        "void",      "while",
        "with",       "yield",     "let",    "static",   "implements", "interface", "package",
        "private",    "protected", "public", "await"};
    return std::find(kWords.begin(), kWords.end(), word) != kWords.end();
}

class ScriptChecker {
public:
    ScriptChecker(std::string_view text, const std::string& file, std::vector<Problem>& problems)
        : text_(text), file_(file), problems_(problems) {}

    void Run() {
        while (SkipBlank(true), pos_ < text_.size()) {
            const long line = line_;
            std::string error = Statement();
            if (error.empty()) continue;
            problems_.push_back({ProblemKind::kBadPopupScript, file_, line, error});
            // Go on after the faulty line.
            while (pos_ < text_.size() && text_[pos_] != '\n' && text_[pos_] != '\r') ++pos_;
        }
    }

private:
    // Skips blanks and comments; line breaks too when `newlines`.
    void SkipBlank(bool newlines) {
        while (pos_ < text_.size()) {
            const char c = text_[pos_];
            if (c == ' ' || c == '\t' || c == '\f' || c == '\v') {
                ++pos_;
            } else if (c == '\n' || c == '\r') {
                if (!newlines) return;
                Newline();
            } else if (text_.compare(pos_, 2, "//") == 0) {
                while (pos_ < text_.size() && text_[pos_] != '\n' && text_[pos_] != '\r') ++pos_;
            } else if (text_.compare(pos_, 2, "/*") == 0) {
                pos_ += 2;
                while (pos_ < text_.size() && text_.compare(pos_, 2, "*/") != 0)
                    text_[pos_] == '\n' || text_[pos_] == '\r' ? Newline() : void(++pos_);
                pos_ = std::min(pos_ + 2, text_.size());
            } else {
                return;
            }
        }
    }

    void Newline() {
        if (text_[pos_] == '\r' && pos_ + 1 < text_.size() && text_[pos_ + 1] == '\n') ++pos_;
        ++pos_;
        ++line_;
    }

    std::string_view Identifier() {
        const std::size_t start = pos_;
        if (pos_ < text_.size() && IsIdentifierStart(text_[pos_]))
            while (pos_ < text_.size() && IsIdentifierPart(text_[pos_])) ++pos_;
        return text_.substr(start, pos_ - start);
    }

    // One "[var] NAME = STRING [;]" statement; the error, or empty.
    std::string Statement() {
        std::string_view name = Identifier();
        if (name == "var" || name == "let" || name == "const") {
            SkipBlank(true);
            name = Identifier();
        }
        if (name.empty()) return "expected a variable name, found \"" + Rest() + "\"";
        if (IsReservedWord(name)) return "\"" + std::string(name) + "\" is a reserved word";
        SkipBlank(true);
        if (pos_ >= text_.size() || text_[pos_] != '=')
            return "expected \"=\" after " + std::string(name) + ", found \"" + Rest() + "\"";
        ++pos_;
        SkipBlank(true);
        if (std::string error = StringLiteral(); !error.empty()) return error;
        SkipBlank(false);
        if (pos_ < text_.size() && text_[pos_] == ';') {
            ++pos_;
            SkipBlank(false);
        }
        if (pos_ < text_.size() && text_[pos_] != '\n' && text_[pos_] != '\r')
            return "unexpected \"" + Rest() + "\" after the string";
        return {};
    }

    std::string StringLiteral() {
        if (pos_ >= text_.size() || (text_[pos_] != '"' && text_[pos_] != '\''))
            return "expected a quoted string, found \"" + Rest() + "\"";
        const char quote = text_[pos_++];
        while (pos_ < text_.size() && text_[pos_] != quote) {
            const char c = text_[pos_];
            if (c == '\n' || c == '\r') return "the string is not closed on its line";
            if (c == '\\') {
                if (++pos_ >= text_.size()) break;
                if (text_[pos_] == '\n' || text_[pos_] == '\r') {
                    Newline();  // a continued line
                    continue;
                }
                if (std::string error = Escape(); !error.empty()) return error;
                continue;
            }
            ++pos_;
        }
        if (pos_ >= text_.size()) return "the string is not closed";
        ++pos_;
        return {};
    }

    std::string Escape() {
        const char c = text_[pos_++];
        const auto hexDigits = [&](std::size_t count) {
            for (std::size_t i = 0; i < count; ++i, ++pos_)
                if (pos_ >= text_.size() || !std::isxdigit(static_cast<unsigned char>(text_[pos_])))
                    return false;
            return true;
        };
        if (c == 'x' && !hexDigits(2)) return "\"\\x\" needs two hexadecimal digits";
        if (c == 'u' && !hexDigits(4)) return "\"\\u\" needs four hexadecimal digits";
        if (c >= '1' && c <= '9') return "octal escape \"\\" + std::string(1, c) + "\"";
        return {};
    }

    std::string Rest() const {
        const std::size_t end = FindLineBreak(text_, pos_);
        return std::string(text_.substr(pos_, std::min<std::size_t>(end - pos_, 40)));
    }

    std::string_view text_;
    const std::string& file_;
    std::vector<Problem>& problems_;
    std::size_t pos_ = 0;
    long line_ = 1;
};

}  // namespace

void CheckPopupScript(std::string_view text, const std::string& file,
                      std::vector<Problem>& problems) {
    ScriptChecker(text, file, problems).Run();
}

}  // namespace tamrix::check
