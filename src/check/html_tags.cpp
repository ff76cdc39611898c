#include "check/html_tags.h"

#include "platform/byte_text.h"

namespace tamrix::check {
namespace {

bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f'; }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

class TagScanner {
public:
    explicit TagScanner(std::string_view text) : text_(text) {}

    void Run(const std::function<void(const HtmlTag&)>& visit) {
        while ((pos_ = text_.find('<', pos_)) != std::string_view::npos) {
            if (text_.compare(pos_, 4, "<!--") == 0) {
                SkipPast("-->");
            } else if (pos_ + 1 < text_.size() && IsLetter(text_[pos_ + 1])) {
                ++pos_;
                HtmlTag tag;
                tag.name = Fold(Word());
                ReadAttributes(tag);
                visit(tag);
                if (tag.name == "script" || tag.name == "style")
                    pos_ = FindNoCase(text_, "</" + tag.name, pos_);
            } else {
                ++pos_;
            }
        }
    }

private:
    // The line of `at`; positions asked for never go backwards.
    long LineAt(std::size_t at) {
        for (; counted_ < at && counted_ < text_.size(); ++counted_) {
            const char c = text_[counted_];
            if (c == '\n' ||
                (c == '\r' && (counted_ + 1 >= text_.size() || text_[counted_ + 1] != '\n')))
                ++line_;
        }
        return line_;
    }

    void SkipPast(std::string_view end) {
        const std::size_t found = text_.find(end, pos_);
        pos_ = found == std::string_view::npos ? text_.size() : found + end.size();
    }

    std::string_view Word() {
        const std::size_t start = pos_;
        while (pos_ < text_.size() && !IsSpace(text_[pos_]) && text_[pos_] != '>' &&
               text_[pos_] != '=' && text_[pos_] != '/')
            ++pos_;
        return text_.substr(start, pos_ - start);
    }

    void SkipSpaces() {
        while (pos_ < text_.size() && IsSpace(text_[pos_])) ++pos_;
    }

    void ReadAttributes(HtmlTag& tag) {
        while (true) {
            SkipSpaces();
            if (pos_ >= text_.size()) return;
            if (text_[pos_] == '>') {
                ++pos_;
                return;
            }
            if (text_[pos_] == '/' || text_[pos_] == '=') {
                ++pos_;
                continue;
            }
            TagAttribute attribute;
            attribute.line = LineAt(pos_);
            attribute.name = Fold(Word());
            SkipSpaces();
            if (pos_ < text_.size() && text_[pos_] == '=') {
                ++pos_;
                SkipSpaces();
                attribute.value = Value();
            }
            tag.attributes.push_back(std::move(attribute));
        }
    }

    std::string Value() {
        if (pos_ >= text_.size()) return {};
        const char quote = text_[pos_];
        if (quote == '"' || quote == '\'') {
            const std::size_t close = text_.find(quote, pos_ + 1);
            const std::size_t end = close == std::string_view::npos ? text_.size() : close;
            std::string value(text_.substr(pos_ + 1, end - pos_ - 1));
            pos_ = end == text_.size() ? end : end + 1;
            return value;
        }
        const std::size_t start = pos_;
        while (pos_ < text_.size() && !IsSpace(text_[pos_]) && text_[pos_] != '>') ++pos_;
        return std::string(text_.substr(start, pos_ - start));
    }

    std::string_view text_;
    std::size_t pos_ = 0;
    std::size_t counted_ = 0;
    long line_ = 1;
};

}  // namespace

const TagAttribute* HtmlTag::Find(std::string_view foldedName) const {
    for (const TagAttribute& attribute : attributes)
        if (attribute.name == foldedName) return &attribute;
    return nullptr;
}

void ScanTags(std::string_view text, const std::function<void(const HtmlTag&)>& visit) {
    TagScanner(text).Run(visit);
}

}  // namespace tamrix::check
