#include "popups/html_to_text.h"

#include <utility>

#include "platform/program_error.h"

namespace tamrix::modStrings {
namespace {

constexpr std::string_view kCrLf = "\r\n";

struct Replacement {
    std::string_view find;
    std::string_view replacement;
};

std::string ApplyInOrder(std::string text, std::initializer_list<Replacement> steps) {
    for (const Replacement& step : steps) text = ReplaceAll(text, step.find, step.replacement);
    return text;
}

// Takes apart the first link at or after `from`; false when the first "<A" there
// is not a link that can be taken apart, which would otherwise be examined again
// for ever. Nothing before `from` holds "<A", so each pass starts where the last
// one ended (one character back, for an "<A" that the removal joined).
bool RemoveFirstLink(std::string& text, std::size_t& from) {
    const std::size_t open = FindNoCase(text, "<A", from);
    if (open == kNotFound) return false;
    // "HREF=" must begin three characters after "<A", as in "<A HREF=".
    if (open + 3 > text.size() ||
        !StartsWithNoCase(std::string_view(text).substr(open + 3), "HREF="))
        return false;
    const std::size_t close = FindNoCase(text, "</A>", open);
    // The end of the opening tag as it will be once "</A>" is gone.
    std::size_t end = text.find('>', open);
    if (close != kNotFound && end != std::string::npos && end >= close) {
        end = text.find('>', close + 4);
        if (end != std::string::npos) end -= 4;
    }
    if (end == std::string::npos) return false;
    if (close != kNotFound) text.erase(close, 4);
    text.erase(open, end - open + 1);
    from = open > 0 ? open - 1 : 0;
    return true;
}

}  // namespace

std::string RemoveHTMLTags(std::string_view text) {
    return Guarded("modStrings:RemoveHTMLTags", std::string(), [&] {
        // "&amp;" last, so that "&amp;lt;" stays "&lt;".
        // clang-format off
        return ApplyInOrder(std::string(text), {
            {"<UL>", ""},
            {"</UL>", ""},
            {"<LI>", ""},
            {"</LI>", ""},
            {"<B>", ""},
            {"</B>", ""},
            {"<I>", ""},
            {"</I>", ""},
            {"<U>", ""},
            {"</U>", ""},
            {"<H1>", ""},
            {"</H1>", ""},
            {"<H2>", ""},
            {"</H2>", ""},
            {"<BR>", kCrLf},
            {"</BR>", kCrLf},
            {"&gt;", ">"},
            {"&lt;", "<"},
            {"&nbsp;", " "},
            {"&amp;", "&"},
        });
        // clang-format on
    });
}

std::string RemoveListTags(std::string_view text, std::string_view bullet) {
    return Guarded("modStrings:RemoveListTags", std::string(), [&] {
        return ApplyInOrder(std::string(text), {{"<LI>", bullet},
                                                {"</LI>", kCrLf},
                                                {"<UL>", ""},
                                                {"</UL>\r\n", ""},
                                                {"</UL>", ""},
                                                {"<OL>", ""},
                                                {"</OL>\r\n", ""},
                                                {"</OL>", ""}});
    });
}

std::string RemoveAnchor(std::string_view text) {
    return Guarded("modStrings:RemoveAnchor", std::string(), [&] {
        std::string result(text);
        const std::size_t open = FindNoCase(result, "<A");
        if (open == kNotFound) return result;
        const std::size_t close = FindNoCase(result, "</A>", open);
        if (close == kNotFound) return result;
        result.erase(open, close + 4 - open);
        return result;
    });
}

std::string RemoveHREFs(std::string_view text) {
    return Guarded("modStrings:RemoveHREFs", std::string(), [&] {
        std::string result(text);
        // Every pass removes at least "<A" and ">", so the loop ends. A link
        // found holds "HREF=", so the text holds it for as long as links are found.
        std::size_t from = 0;
        while (RemoveFirstLink(result, from)) {
        }
        return result;
    });
}

std::string RemoveIMGs(std::string_view text) {
    return Guarded("modStrings:RemoveIMGs", std::string(), [&] {
        std::string result(text);
        // Every pass removes one ">" and inserts none, so the loop ends.
        for (std::size_t img = FindNoCase(result, "<IMG "); img != kNotFound;
             img = FindNoCase(result, "<IMG ")) {
            const std::size_t end = result.find('>', img);
            if (end == std::string::npos) break;
            result.replace(img, end - img + 1, " (*) ");
        }
        return result;
    });
}

std::string TrimNewLines(std::string_view text) {
    return Guarded("modStrings:TrimNewLines", std::string(), [&] {
        while (text.size() >= 2 && text.substr(text.size() - 2) == kCrLf) text.remove_suffix(2);
        while (text.size() >= 2 && text.substr(0, 2) == kCrLf) text.remove_prefix(2);
        return std::string(text);
    });
}

std::string ReplaceSpecialChars(std::string_view text) {
    return Guarded("modStrings:ReplaceSpecialChars", std::string(), [&] {
        // The backslash first, so that the ones added below are not doubled.
        return ApplyInOrder(std::string(text), {{"\\", "\\\\"},
                                                {"\r\n", "\\n"},
                                                {"\t", "\\t"},
                                                {"\"", "\\\""},
                                                {"'", "\\'"},
                                                {"?", "\\?"}});
    });
}

}  // namespace tamrix::modStrings
