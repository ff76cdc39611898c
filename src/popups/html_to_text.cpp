#include "popups/html_to_text.h"

#include <cstdint>

#include "platform/program_error.h"
#include "popups/char_chain.h"

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

// The links are taken apart one at a time from the first "<A"; nothing before
// the last link's place can hold one, so each search goes on from there, and
// no "</A>" lies between a link and the "</A>" the last link took, so that
// search goes on from there too.
std::string RemoveLinks(std::string_view text) {
    constexpr auto kEnd = CharChain::kEnd;
    CharChain chain(text);
    std::uint32_t from = chain.Head();
    std::uint32_t closeFrom = kEnd;  // no "</A>" before it, from the last link on
    bool closes = true;              // once none is found, none comes back after a link
    while (true) {
        const std::uint32_t open = chain.Find("<A", from);
        // "HREF=" must begin three characters after "<A", as in "<A HREF=".
        if (open == kEnd || !chain.MatchAt(chain.Step(open, 3), "HREF=")) break;
        std::uint32_t close = kEnd;
        if (closes) {
            close = chain.Find("</A>", closeFrom != kEnd && closeFrom > open ? closeFrom : open);
            closes = close != kEnd;
        }
        // The end of the opening tag as it will be once "</A>" is gone.
        std::uint32_t end = chain.FindChar('>', open);
        if (close != kEnd && end != kEnd && end >= close)
            end = chain.FindChar('>', chain.Step(close, 4));
        if (end == kEnd) break;
        if (close != kEnd) {
            const std::uint32_t before = chain.Prev(close);
            chain.Remove(close, chain.Step(close, 3));
            // Removing it may join a new "</A>" from the three characters before it.
            closeFrom = before == kEnd ? chain.Head() : chain.StepBack(before, 2);
        }
        if (closeFrom != kEnd && closeFrom >= open && closeFrom <= end) closeFrom = kEnd;
        from = chain.Prev(open);  // "<" before the tag and "A" after it make a new "<A"
        chain.Remove(open, end);
        if (from == kEnd) from = chain.Head();
    }
    return chain.Text();
}

// The images are replaced one at a time from the first "<IMG "; a replacement
// joined to a "<IMG" before it makes a new image tag that ends at the next ">".
std::string ReplaceImages(std::string_view text) {
    std::string out;
    std::size_t pos = 0;
    while (true) {
        const std::size_t img = FindNoCase(text, "<IMG ", pos);
        if (img == kNotFound) break;
        std::size_t end = text.find('>', img);
        if (end == std::string_view::npos) break;
        out.append(text.substr(pos, img - pos));
        while (EndsWithNoCase(out, "<IMG")) {
            const std::size_t further = text.find('>', end + 1);
            if (further == std::string_view::npos) break;
            out.resize(out.size() - 4);
            end = further;
        }
        out += " (*) ";
        pos = end + 1;
    }
    out.append(text.substr(pos));
    return out;
}

}  // namespace

std::string RemoveHTMLTags(ErrorReporter& errors, std::string_view text) {
    return Guarded(errors, "modStrings:RemoveHTMLTags", std::string(), [&] {
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

std::string RemoveListTags(ErrorReporter& errors, std::string_view text, std::string_view bullet) {
    return Guarded(errors, "modStrings:RemoveListTags", std::string(), [&] {
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

std::string RemoveAnchor(ErrorReporter& errors, std::string_view text) {
    return Guarded(errors, "modStrings:RemoveAnchor", std::string(), [&] {
        std::string result(text);
        const std::size_t open = FindNoCase(result, "<A");
        if (open == kNotFound) return result;
        const std::size_t close = FindNoCase(result, "</A>", open);
        if (close == kNotFound) return result;
        result.erase(open, close + 4 - open);
        return result;
    });
}

std::string RemoveHREFs(ErrorReporter& errors, std::string_view text) {
    return Guarded(errors, "modStrings:RemoveHREFs", std::string(), [&] {
        if (text.size() >= CharChain::kEnd) RaiseError(err::kOutOfMemory);
        return RemoveLinks(text);
    });
}

std::string RemoveIMGs(ErrorReporter& errors, std::string_view text) {
    return Guarded(errors, "modStrings:RemoveIMGs", std::string(),
                   [&] { return ReplaceImages(text); });
}

std::string TrimNewLines(ErrorReporter& errors, std::string_view text) {
    return Guarded(errors, "modStrings:TrimNewLines", std::string(), [&] {
        while (text.size() >= 2 && text.substr(text.size() - 2) == kCrLf) text.remove_suffix(2);
        while (text.size() >= 2 && text.substr(0, 2) == kCrLf) text.remove_prefix(2);
        return std::string(text);
    });
}

std::string ReplaceSpecialChars(ErrorReporter& errors, std::string_view text) {
    return Guarded(errors, "modStrings:ReplaceSpecialChars", std::string(), [&] {
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
