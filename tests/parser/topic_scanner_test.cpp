#include "parser/topic_scanner.h"

#include <gtest/gtest.h>

#include "model/project_state.h"
#include "support/scripted_view.h"
#include "support/temp_dir.h"

namespace tamrix::modParser {
namespace {

class TopicScanner : public ::testing::Test {
  protected:
    void SetUp() override { modGlobals::ResetAll(); }
    void TearDown() override { modGlobals::ResetAll(); }

    std::string IdOf(const std::string& text) {
        TextReader reader;
        reader.OpenText(text);
        std::string id = "stale";
        FindContextID(reader, id);
        return id;
    }

    testing::ScriptedView view;
    ScopedActiveView active{view};
    testing::TempDir dir;
};

TEST_F(TopicScanner, TopicIdIsTheFirstAnchorAfterTheBody) {
    EXPECT_EQ(IdOf("<A NAME=\"before\"></A>\n<BODY>\n<P><A NAME=\"IDH_X\">Text</A>"), "IDH_X");
    // Everything up to the character before the first ">".
    EXPECT_EQ(IdOf("<body>\n<a name=\"x\" href=\"y.htm\">y</a>"), "x\" href=\"y.htm");
    EXPECT_EQ(IdOf("<BODY>\n<A HREF=\"a.htm\">a</A>\n<A NAME=\"later\"></A>"), "");
    EXPECT_EQ(IdOf("<BODY><A NAME=\"same\"></A>"), "same");
    EXPECT_EQ(IdOf("<HTML>\n<A NAME=\"nobody\"></A>"), "");
}

TEST_F(TopicScanner, OnlyASpaceOrTheLineEndAfterLessThanAOpensTheIdAnchor) {
    // The first "<A" of the line is "<ABBR": the whole line is passed over.
    EXPECT_EQ(IdOf("<BODY>\n<ABBR>x</ABBR><A NAME=\"skipped\"></A>\n<A NAME=\"next\"></A>"),
              "next");
    // Joined lines: the space before ">" is cut instead of the closing quote.
    EXPECT_EQ(IdOf("<BODY>\n<P><A\nNAME=\"split\"\n>x</A>"), "split\"");
    EXPECT_EQ(IdOf("<BODY>\n<A\tNAME=\"tab\"></A>"), "");
}

TEST_F(TopicScanner, MalformedIdGivesUpWithAReport) {
    // The ">" stands before "NAME=": the cut would run backwards.
    EXPECT_EQ(IdOf("<BODY>\n<A HREF=\"a.htm\">see NAME=\"x\"</A>"), "");
    EXPECT_EQ(IdOf("<BODY>\n<A NAME=x>"), "");
    EXPECT_EQ(IdOf("<BODY>\n<A NAME=\"no end"), "");
    ASSERT_EQ(view.errors.size(), 3u);
    EXPECT_NE(view.errors[0].first.find("modParser:FindContextID"), std::string::npos);
    EXPECT_EQ(IdOf("<BODY>\n<A NAME=\"\">"), "");
    EXPECT_EQ(view.errors.size(), 3u);
}

TEST_F(TopicScanner, HeadAndTitle) {
    TextReader reader;
    reader.OpenText("<HTML>\n<HEAD>\n<TITLE> Setup\nGuide </TITLE>\n</HEAD>\n<BODY>");
    const std::string head = HTMLHeader(reader);
    EXPECT_EQ(head, "<HEAD> <TITLE> Setup Guide </TITLE> </HEAD> ");
    EXPECT_EQ(modGlobals::HeadState, 2);
    std::string title;
    EXPECT_TRUE(ExtractTopicTitle(head, title));
    EXPECT_EQ(title, "Setup Guide");

    reader.OpenText("<HEAD><TITLE>x</TITLE>\n<BODY>");
    EXPECT_EQ(HTMLHeader(reader), "");
    EXPECT_EQ(modGlobals::HeadState, 1);

    EXPECT_FALSE(ExtractTopicTitle("<HEAD><TITLE>  </TITLE></HEAD>", title));
    EXPECT_TRUE(view.messages.empty());
    EXPECT_FALSE(ExtractTopicTitle("<HEAD></HEAD>", title));
    ASSERT_EQ(view.MessageIds(), std::vector<long>{5003});
    EXPECT_EQ(view.messages[0].title, "ExtractTopicTitle");
    // A title that never closes is an unexpected error.
    EXPECT_FALSE(ExtractTopicTitle("<HEAD><TITLE>open</HEAD>", title));
    ASSERT_EQ(view.errors.size(), 1u);
    EXPECT_NE(view.errors[0].first.find("modParser:ExtractTopicTitle"), std::string::npos);
}

TEST_F(TopicScanner, ParseTopicFileCollectsTargetsExtraIdsAndHotspots) {
    const std::string file = dir.Write(
        "t.htm",
        "<HTML><HEAD><TITLE>(Untitled)</TITLE></HEAD>\r\n<BODY>\r\n"
        "<P><A NAME=\"idh_main\"></A><A NAME=\"IDH_MAIN\"></A><A NAME=\"other\"></A></P>\r\n"
        "<A HREF=\"b.htm#top\">b</A> <A HREF=\"b.htm#top\">again</A>\r\n"
        "<MAP><AREA HREF=\"c.htm\"> <AREA HREF=\"d.htm\">\r\n<AREA NOHREF>\r\n"
        "<AREA SHAPE=rect\r\nHREF=\"e.htm\"></MAP>\r\n");
    std::string title, id, targets, extras;
    int hotspots = -1;
    EXPECT_TRUE(ParseTopicFile(file, title, id, targets, hotspots, extras));
    EXPECT_EQ(title, "(Untitled)");
    EXPECT_EQ(id, "idh_main");
    EXPECT_EQ(extras, "other");
    EXPECT_EQ(targets, "b.htm#top^b.htm#top^c.htm^e.htm");
    EXPECT_EQ(hotspots, 2);
}

TEST_F(TopicScanner, FileWithoutHeadEndIsNoTopic) {
    const std::string file = dir.Write("n.htm", "<HEAD><TITLE>T</TITLE>\n<BODY><A NAME=\"n\"></A>");
    std::string title, id, targets, extras;
    int hotspots = 0;
    EXPECT_FALSE(ParseTopicFile(file, title, id, targets, hotspots, extras));
    EXPECT_EQ(id, "n");
    EXPECT_EQ(view.MessageIds(), std::vector<long>{5003});
    EXPECT_FALSE(ParseTopicFile(dir / "absent.htm", title, id, targets, hotspots, extras));
    EXPECT_EQ(view.errors.size(), 1u);
}

}  // namespace
}  // namespace tamrix::modParser
