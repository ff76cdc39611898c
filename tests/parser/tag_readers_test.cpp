#include "parser/tag_readers.h"

#include <gtest/gtest.h>

#include "model/project_state.h"
#include "support/scripted_view.h"

namespace tamrix::modParser {
namespace {

class TagReaders : public ::testing::Test {
  protected:
    void SetUp() override { modGlobals::ResetAll(); }
    void TearDown() override { modGlobals::ResetAll(); }

    TextReader Stream(const std::string& text) {
        TextReader reader;
        reader.OpenText(text);
        return reader;
    }

    testing::ScriptedView view;
    ScopedActiveView active{view};
};

TEST_F(TagReaders, AnchorSplitOverLinesIsJoinedWithSpaces) {
    TextReader s = Stream("x <A\r\nNAME=\"a\"\nHREF=\"b.htm\">text</A> tail\r\n");
    EXPECT_EQ(HTMLAnchor(s), "<A NAME=\"a\" HREF=\"b.htm\">text</A>");
    EXPECT_EQ(modGlobals::AnchorState, 2);
    EXPECT_EQ(HTMLAnchor(s), "");
}

TEST_F(TagReaders, TwoAnchorsOnOneLineComeInTwoCalls) {
    TextReader s =
        Stream("<P><A HREF=\"a.htm\">x</A> <a href=\"b.htm\">y</a></P>\n<A NAME=\"z\"></A>");
    EXPECT_EQ(HTMLAnchor(s), "<A HREF=\"a.htm\">x</A>");
    EXPECT_EQ(modGlobals::PendingAnchorText.empty(), false);
    EXPECT_EQ(HTMLAnchor(s), "<a href=\"b.htm\">y</a>");
    EXPECT_TRUE(modGlobals::PendingAnchorText.empty());
    EXPECT_EQ(HTMLAnchor(s), "<A NAME=\"z\"></A>");
    EXPECT_EQ(HTMLAnchor(s), "");
}

TEST_F(TagReaders, AnyLessThanAStartsAnAnchorAndAnUnclosedOneGivesNothing) {
    // "<AREA" opens an "anchor" too; it runs to the next "</A>".
    TextReader s = Stream("<AREA HREF=\"m.htm\">\n<B>x</a>\n<A HREF=\"never.htm\">open");
    EXPECT_EQ(HTMLAnchor(s), "<AREA HREF=\"m.htm\"> <B>x</a>");
    EXPECT_EQ(HTMLAnchor(s), "");
}

TEST_F(TagReaders, PendingTextSetElsewhereIsTakenWhole) {
    modGlobals::PendingAnchorText = "<A HREF=\"p.htm\">p</A>";
    TextReader s = Stream("<A HREF=\"q.htm\">q</A>");
    EXPECT_EQ(HTMLAnchor(s), "<A HREF=\"p.htm\">p</A>");
    EXPECT_EQ(HTMLAnchor(s), "<A HREF=\"q.htm\">q</A>");
}

TEST_F(TagReaders, OnlyTheFirstAreaOfALineIsFound) {
    TextReader s = Stream(
        "<AREA SHAPE=rect HREF=\"a.htm\"> <AREA HREF=\"b.htm\">\n"
        "<area\nhref=\"c.htm\"\n>\n");
    EXPECT_EQ(HTMLArea(s), "<AREA SHAPE=rect HREF=\"a.htm\">");
    EXPECT_EQ(HTMLArea(s), "<area href=\"c.htm\" >");
    EXPECT_EQ(modGlobals::AreaState, 2);
    EXPECT_EQ(HTMLArea(s), "");
    EXPECT_EQ(modGlobals::AreaState, 0);
}

TEST_F(TagReaders, ObjectRunsToItsEndTag) {
    TextReader s = Stream(
        "<LI> <OBJECT type=\"text/sitemap\">\n<param name=\"Local\" value=\"a.htm\">\n"
        "</OBJECT>\n<OBJECT>never closed\n");
    EXPECT_EQ(HTMLObject(s),
              "<OBJECT type=\"text/sitemap\"> <param name=\"Local\" value=\"a.htm\"> </OBJECT>");
    EXPECT_EQ(HTMLObject(s), "");
}

TEST_F(TagReaders, QuotedValuesAndMissingQuotes) {
    EXPECT_EQ(HTMLHrefTarget("<A HREF=\" a.htm#x \">"), "a.htm#x");
    EXPECT_EQ(HTMLAnchorName("<a name=\"IDH_A\">"), "IDH_A");
    EXPECT_EQ(HTMLHrefTarget("<A NAME=\"x\">"), "");
    EXPECT_TRUE(view.errors.empty());
    EXPECT_EQ(HTMLHrefTarget("<A HREF=a.htm>"), "");
    ASSERT_EQ(view.errors.size(), 1u);
    EXPECT_NE(view.errors[0].first.find("Missing quotes in HREF string <A HREF=a.htm> "
                                        "in:modParser:HTMLHrefTarget"),
              std::string::npos);
    EXPECT_EQ(HTMLAnchorName("<A NAME=\"x>"), "");
    EXPECT_NE(view.errors[1].first.find("modParser:HTMLAnchorName"), std::string::npos);
}

TEST_F(TagReaders, TargetExistsIgnoresCase) {
    CTargets targets;
    targets.Add("html\\A.htm");
    EXPECT_TRUE(CTargetExists(targets, "HTML\\a.HTM"));
    EXPECT_FALSE(CTargetExists(targets, "html\\b.htm"));
}

}  // namespace
}  // namespace tamrix::modParser
