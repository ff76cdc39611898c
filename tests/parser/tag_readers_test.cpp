#include "parser/tag_readers.h"

#include "parser/project_fixture.h"

namespace tamrix::modParser {
namespace {

using TagReaders = testing::ProjectFixture;

// Calls `read` until it gives nothing; every result but that last empty one.
template <class Read>
std::vector<std::string> ReadAll(Conversion& wizard, const std::string& text, Read read) {
    TextReader stream;
    stream.OpenText(text);
    std::vector<std::string> found;
    for (std::string s = read(wizard, stream); !s.empty(); s = read(wizard, stream))
        found.push_back(s);
    return found;
}

TEST_F(TagReaders, AnchorsAreJoinedOverLinesAndComeOneACall) {
    struct Case {
        const char* text;
        std::vector<std::string> anchors;
    } const cases[] = {
        {"x <A\r\nNAME=\"a\"\nHREF=\"b.htm\">text</A> tail\r\n",
         {"<A NAME=\"a\" HREF=\"b.htm\">text</A>"}},
        {"<P><A HREF=\"a.htm\">x</A> <a href=\"b.htm\">y</a></P>\n<A NAME=\"z\"></A>",
         {"<A HREF=\"a.htm\">x</A>", "<a href=\"b.htm\">y</a>", "<A NAME=\"z\"></A>"}},
        // "<AREA" opens an "anchor" too, up to the next "</A>"; an unclosed one gives nothing.
        {"<AREA HREF=\"m.htm\">\n<B>x</a>\n<A HREF=\"never.htm\">open",
         {"<AREA HREF=\"m.htm\"> <B>x</a>"}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(ReadAll(wizard, c.text, HTMLAnchor), c.anchors);
        EXPECT_TRUE(wizard.Globals.PendingAnchorText.empty());
    }
    // Pending text set elsewhere is taken whole, before the stream.
    wizard.Globals.PendingAnchorText = "<A HREF=\"p.htm\">p</A>";
    EXPECT_EQ(ReadAll(wizard, "<A HREF=\"q.htm\">q</A>", HTMLAnchor),
              (std::vector<std::string>{"<A HREF=\"p.htm\">p</A>", "<A HREF=\"q.htm\">q</A>"}));
    EXPECT_EQ(wizard.Globals.AnchorState, 2);
}

TEST_F(TagReaders, OnlyTheFirstAreaOfALineIsFoundAndObjectsRunToTheirEndTag) {
    EXPECT_EQ(
        ReadAll(wizard,
                "<AREA SHAPE=rect HREF=\"a.htm\"> <AREA HREF=\"b.htm\">\n"
                "<area\nhref=\"c.htm\"\n>\n",
                HTMLArea),
        (std::vector<std::string>{"<AREA SHAPE=rect HREF=\"a.htm\">", "<area href=\"c.htm\" >"}));
    EXPECT_EQ(wizard.Globals.AreaState, 0);
    EXPECT_EQ(
        ReadAll(wizard,
                "<LI> <OBJECT type=\"text/sitemap\">\n<param name=\"Local\" value=\"a.htm\">\n"
                "</OBJECT>\n<OBJECT>never closed\n",
                HTMLObject),
        std::vector<std::string>{
            "<OBJECT type=\"text/sitemap\"> <param name=\"Local\" value=\"a.htm\"> </OBJECT>"});
}

TEST_F(TagReaders, QuotedValuesAndMissingQuotes) {
    EXPECT_EQ(HTMLHrefTarget(wizard.Errors, "<A HREF=\" a.htm#x \">"), "a.htm#x");
    EXPECT_EQ(HTMLAnchorName(wizard.Errors, "<a name=\"IDH_A\">"), "IDH_A");
    EXPECT_EQ(HTMLHrefTarget(wizard.Errors, "<A NAME=\"x\">"), "");
    EXPECT_TRUE(view.errors.empty());
    EXPECT_EQ(HTMLHrefTarget(wizard.Errors, "<A HREF=a.htm>"), "");
    EXPECT_TRUE(
        view.ErrorNamed("Missing quotes in HREF string <A HREF=a.htm> "
                        "in:modParser:HTMLHrefTarget"));
    EXPECT_EQ(HTMLAnchorName(wizard.Errors, "<A NAME=\"x>"), "");
    EXPECT_TRUE(view.ErrorNamed("modParser:HTMLAnchorName"));
    EXPECT_EQ(view.errors.size(), 2u);
}

}  // namespace
}  // namespace tamrix::modParser
