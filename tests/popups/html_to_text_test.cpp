#include "popups/html_to_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/program_error.h"
#include "support/scripted_view.h"

namespace tamrix::modStrings {
namespace {

struct Case {
    std::string input;
    std::string expected;
};

// Runs `f` on each case; any error report fails the case.
template <class F>
void ExpectAll(F f, const std::vector<Case>& cases) {
    testing::ScriptedView view;
    ErrorReporter errors{view};
    for (const Case& c : cases) EXPECT_EQ(f(errors, c.input), c.expected) << "input: " << c.input;
    EXPECT_TRUE(view.errors.empty());
}

TEST(HtmlToText, RemoveHTMLTagsDropsOnlyTheListedTagTexts) {
    ExpectAll(RemoveHTMLTags, {{"<B>bold</B> <i>it</i> <u>un</U>", "bold it un"},
                               {"<UL><LI>a</LI></ul>", "a"},
                               {"<H1>Title</H1><h2>Sub</h2>", "TitleSub"},
                               // Tags with attributes and tags not in the table stay.
                               {"<B class=x>keep</B>", "<B class=x>keep"},
                               {"<P>para</P><H3>x</H3>", "<P>para</P><H3>x</H3>"},
                               {"a<BR>b</br>c", "a\r\nb\r\nc"},
                               {"1 &lt; 2 &gt; 0&nbsp;x &amp; y", "1 < 2 > 0 x & y"},
                               // "&amp;" is decoded last, so an escaped entity stays an entity.
                               {"&amp;lt;", "&lt;"},
                               {"&amp;gt;", "&gt;"},
                               {"&AMP;nbsp;", "&nbsp;"},
                               {"&quot;&copy;", "&quot;&copy;"},
                               {"", ""}});
}

TEST(HtmlToText, RemoveListTagsPutsBulletsAndDropsListTags) {
    // Ordered lists get the same bullet; no numbers.
    ExpectAll(
        [](ErrorReporter& errors, std::string_view s) { return RemoveListTags(errors, s, "* "); },
        {{"<UL>\r\n<LI>one</LI>\r\n<LI>two</LI>\r\n</UL>\r\nafter",
          "\r\n* one\r\n\r\n* two\r\n\r\nafter"},
         {"<ol><li>a<li>b</ol>end", "* a* bend"},
         {"</OL>\r\n</ul>x", "x"},
         {"no list", "no list"}});
    ExpectAll([](ErrorReporter& errors,
                 std::string_view s) { return RemoveListTags(errors, s, "\x95 "); },
              {{"<OL><LI>x</LI></OL>", "\x95 x\r\n"}});
}

TEST(HtmlToText, RemoveAnchorRemovesOnlyTheFirstAnchorWithItsText) {
    ExpectAll(RemoveAnchor,
              {{"<A NAME=\"x\"></A>text", "text"},
               {"a<A HREF=\"b.htm\">link</A> c <A NAME=y></A>d", "a c <A NAME=y></A>d"},
               // Any tag starting with A counts as the anchor start.
               {"<ABBR>x</ABBR> y</a>z", "z"},
               {"<A NAME=x>no end", "<A NAME=x>no end"},
               {"plain", "plain"},
               {"", ""},
               // A close before any open is passed over.
               {"x</A>y", "x</A>y"},
               {"x</A>y<A NAME=z>w</A>v", "x</A>yv"}});
}

TEST(HtmlToText, RemoveHREFsKeepsLinkTextsAndStopsWhereItCannotTakeALinkApart) {
    ExpectAll(
        RemoveHREFs,
        {{"see <A HREF=\"a.htm\">this</A> and <a href=\"b.htm\">that</a>.", "see this and that."},
         {"<A HREF=\"a.htm\"><B>x</B></A>", "<B>x</B>"},
         {"<A HREF=\"a.htm\">no close", "no close"},
         {"no links", "no links"},
         // No "<A" at all.
         {"HREF=\"x\"", "HREF=\"x\""},
         // "HREF=" not three characters after "<A".
         {"<A  HREF=\"x\">t</A>", "<A  HREF=\"x\">t</A>"},
         {"<AREA HREF=\"x\">", "<AREA HREF=\"x\">"},
         {"<A NAME=\"n\" HREF=\"x\">t</A>", "<A NAME=\"n\" HREF=\"x\">t</A>"},
         // No ">" after the tag: left as it is.
         {"<A HREF=\"x\"", "<A HREF=\"x\""},
         // Links before the first bad one are still removed.
         {"<A HREF=\"a\">a</A> <A NAME=b HREF=\"c\">", "a <A NAME=b HREF=\"c\">"}});
}

TEST(HtmlToText, RemoveIMGsReplacesImageTags) {
    ExpectAll(RemoveIMGs, {{"word<IMG SRC=\"a.gif\">word", "word (*) word"},
                           {"a <img src=x> b <IMG SRC=y BORDER=0> c", "a  (*)  b  (*)  c"},
                           {"<IMGX>", "<IMGX>"},
                           // Without the closing ">" the tag stays.
                           {"a <IMG SRC=x", "a <IMG SRC=x"},
                           {"<IMG a> <IMG b", " (*)  <IMG b"},
                           {"<IMG<IMG x>", "<IMG (*) "}});
}

TEST(HtmlToText, TrimNewLinesRemovesOnlyOuterLineBreaks) {
    ExpectAll(TrimNewLines, {{"\r\n\r\na\r\nb\r\n\r\n", "a\r\nb"},
                             {"\r\n\r\n\r\n", ""},
                             {" \r\na\r\n ", " \r\na\r\n "},
                             {"\n\ra\r", "\n\ra\r"},
                             {"\r\n\r", "\r"},
                             {"", ""}});
}

TEST(HtmlToText, ReplaceSpecialCharsEscapesForScriptStrings) {
    ExpectAll(ReplaceSpecialChars, {{"a\\b", "a\\\\b"},
                                    {"line1\r\nline2", "line1\\nline2"},
                                    {"t\tt", "t\\tt"},
                                    {"say \"hi\"", "say \\\"hi\\\""},
                                    {"it's", "it\\'s"},
                                    {"why?", "why\\?"},
                                    // Only the backslash already present is doubled.
                                    {"\\\"?", "\\\\\\\"\\?"},
                                    // A lone CR or LF is not escaped.
                                    {"a\rb\nc", "a\rb\nc"}});
}

}  // namespace
}  // namespace tamrix::modStrings
