// Tag soup of the fragments the cleaning functions look for: every call must
// return, and the invariants that hold for any input are checked.
#include <gtest/gtest.h>

#include "support/scripted_view.h"

#include <random>
#include <string>
#include <vector>

#include "model/project_state.h"
#include "platform/byte_text.h"
#include "platform/file_system.h"
#include "popups/body_reader.h"
#include "popups/html_to_text.h"
#include "popups/popup_text.h"

namespace tamrix::modStrings {
namespace {

const std::vector<std::string> kFragments = {
    "<A",   "<a ",  "HREF=", "href=\"", "NAME=\"",  "</A>",       "</a>",   "<IMG ",
    "<img", ">",    "<LI>",  "</LI>",   "<UL>",     "</UL>",      "<OL>",   "</OL>",
    "<B>",  "</b>", "<BR>",  "&amp;",   "&lt;",     "&gt;",       "&nbsp;", "\"",
    "'",    "?",    "\\",    "\t",      "\r\n",     "\r",         "\n",     "<P>",
    "</P>", " ",    "x",     "lt;",     "<BODY>",   "</BODY>",    "<AREA ", "=",
    "<IMG", "/A>",  "A>",    "</",      "<A HREF=", "<A HREF=x>",
};

std::vector<std::string> TagSoup(std::size_t count) {
    std::mt19937 random(20110305);
    std::uniform_int_distribution<std::size_t> length(0, 40);
    std::uniform_int_distribution<std::size_t> pick(0, kFragments.size() - 1);
    std::vector<std::string> soup;
    for (std::size_t i = 0; i < count; ++i) {
        std::string s;
        for (std::size_t n = length(random); n > 0; --n) s += kFragments[pick(random)];
        soup.push_back(s);
    }
    return soup;
}

bool AnchorPair(const std::string& s) {
    const std::size_t open = FindNoCase(s, "<A");
    return open != kNotFound && FindNoCase(s, "</A>", open) != kNotFound;
}

// The link removal as first written: take the whole text apart again for every
// link. The program resumes where the last link was; the results must agree.
std::string RemoveHREFsOneLinkAtATime(std::string text) {
    while (ContainsNoCase(text, "HREF=")) {
        const std::size_t open = FindNoCase(text, "<A");
        if (open == kNotFound || open + 3 > text.size() ||
            !StartsWithNoCase(std::string_view(text).substr(open + 3), "HREF="))
            break;
        std::string edited = text;
        const std::size_t close = FindNoCase(edited, "</A>", open);
        if (close != kNotFound) edited.erase(close, 4);
        const std::size_t end = edited.find('>', open);
        if (end == std::string::npos) break;
        edited.erase(open, end - open + 1);
        text = edited;
    }
    return text;
}

// The image replacement as first written: search again from the start after each image.
std::string RemoveIMGsOneImageAtATime(std::string text) {
    for (std::size_t img = FindNoCase(text, "<IMG "); img != kNotFound;
         img = FindNoCase(text, "<IMG ")) {
        const std::size_t end = text.find('>', img);
        if (end == std::string::npos) break;
        text.replace(img, end - img + 1, " (*) ");
    }
    return text;
}

// The program takes the text apart in one pass; the results must agree with the
// forms that start again from the beginning after every change.
TEST(HtmlToTextFuzz, OnePassAgreesWithOneChangeAtATime) {
    testing::ScriptedView view;
    ErrorReporter errors{view};
    std::vector<std::string> inputs = TagSoup(4000);
    for (std::string& s : TagSoup(3000)) inputs.push_back("<A HREF=\"x\">" + s + "</A>");
    for (const char* s : {"<<A HREF=\"a\">A HREF=\"b\">t</A></A>", "<A HREF=</A>x>y",
                          "</<A HREF=1>A>z</A>", "<A HREF=1><A HREF=2>x</<A HREF=3>A></A>",
                          "<IMG<IMG <img x>>>", "<Img<IMG <IMG x>y", "a<IMG b>c<IMG d"})
        inputs.emplace_back(s);
    // One long text with hundreds of links, so that the chain keeps many of them.
    std::string many;
    for (int i = 0; i < 500; ++i)
        many += "<A HREF=\"p" + std::to_string(i) + ".htm\">link " + std::to_string(i) + "</A>, ";
    inputs.push_back(many);
    for (const std::string& s : inputs) {
        SCOPED_TRACE(s);
        EXPECT_EQ(RemoveHREFs(errors, s), RemoveHREFsOneLinkAtATime(s));
        EXPECT_EQ(RemoveIMGs(errors, s), RemoveIMGsOneImageAtATime(s));
    }
}

TEST(HtmlToTextFuzz, EveryFunctionEndsOnTagSoup) {
    testing::ScriptedView view;
    ErrorReporter errors{view};
    for (const std::string& s : TagSoup(3000)) {
        SCOPED_TRACE(s);
        // Links and images: OnePassAgreesWithOneChangeAtATime compares them whole.
        const std::string noAnchor = RemoveAnchor(errors, s);
        EXPECT_EQ(noAnchor.size() < s.size(), AnchorPair(s));

        const std::string trimmed = TrimNewLines(errors, s);
        EXPECT_FALSE(StartsWithNoCase(trimmed, "\r\n"));
        EXPECT_FALSE(EndsWithNoCase(trimmed, "\r\n"));
        EXPECT_NE(s.find(trimmed), std::string::npos);

        // A script string is one line; the escapes themselves are in the table tests.
        const std::string escaped = ReplaceSpecialChars(errors, s);
        EXPECT_EQ(escaped.find("\r\n"), std::string::npos);
        EXPECT_EQ(escaped.find('\t'), std::string::npos);

        EXPECT_LE(RemoveHTMLTags(errors, s).size(), s.size());
        EXPECT_LE(RemoveListTags(errors, s, "* ").size(), s.size());

        TextReader reader;
        reader.OpenText(s);
        const std::string body = modPopups::HTMLBodyContents(errors, reader);
        EXPECT_LE(body.size(), 2 * s.size());
        for (auto kind : {modPopups::PopupKind::Script, modPopups::PopupKind::TextPopup}) {
            modPopups::CleanPopupBody(errors, ProjectState{}, s, kind);
            modPopups::CleanPopupBody(errors, ProjectState{}, body, kind);
        }
    }
}

}  // namespace
}  // namespace tamrix::modStrings
