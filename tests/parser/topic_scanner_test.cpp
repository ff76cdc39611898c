#include "parser/topic_scanner.h"

#include "parser/project_fixture.h"

namespace tamrix::modParser {
namespace {

using TopicScanner = testing::ProjectFixture;

TEST_F(TopicScanner, TopicIdIsTheFirstAnchorAfterTheBody) {
    struct Case {
        const char* text;
        const char* id;
        bool reported;
    } const cases[] = {
        {"<A NAME=\"before\"></A>\n<BODY>\n<P><A NAME=\"IDH_X\">Text</A>", "IDH_X", false},
        // Everything up to the character before the first ">".
        {"<body>\n<a name=\"x\" href=\"y.htm\">y</a>", "x\" href=\"y.htm", false},
        {"<BODY>\n<A HREF=\"a.htm\">a</A>\n<A NAME=\"later\"></A>", "", false},
        {"<BODY><A NAME=\"same\"></A>", "same", false},
        {"<HTML>\n<A NAME=\"nobody\"></A>", "", false},
        // Only a space or the line end after "<A" opens the ID anchor: the first
        // "<A" of the line is "<ABBR", so the whole line is passed over.
        {"<BODY>\n<ABBR>x</ABBR><A NAME=\"skipped\"></A>\n<A NAME=\"next\"></A>", "next", false},
        // Joined lines: the space before ">" is cut instead of the closing quote.
        {"<BODY>\n<P><A\nNAME=\"split\"\n>x</A>", "split\"", false},
        {"<BODY>\n<A\tNAME=\"tab\"></A>", "", false},
        // Malformed IDs give up with a report; the ">" before "NAME=" would cut backwards.
        {"<BODY>\n<A HREF=\"a.htm\">see NAME=\"x\"</A>", "", true},
        {"<BODY>\n<A NAME=x>", "", true},
        {"<BODY>\n<A NAME=\"no end", "", true},
        {"<BODY>\n<A NAME=\"\">", "", false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        view.errors.clear();
        TextReader reader;
        reader.OpenText(c.text);
        std::string id = "stale";
        FindContextID(wizard, reader, id);
        EXPECT_EQ(id, c.id);
        EXPECT_EQ(view.errors.size(), c.reported ? 1u : 0u);
        EXPECT_EQ(view.ErrorNamed("modParser:FindContextID"), c.reported);
    }
}

TEST_F(TopicScanner, HeadAndTitle) {
    TextReader reader;
    reader.OpenText("<HTML>\n<HEAD>\n<TITLE> Setup\nGuide </TITLE>\n</HEAD>\n<BODY>");
    const std::string head = HTMLHeader(wizard, reader);
    EXPECT_EQ(head, "<HEAD> <TITLE> Setup Guide </TITLE> </HEAD> ");
    std::string title;
    EXPECT_TRUE(ExtractTopicTitle(wizard.Errors, head, title));
    EXPECT_EQ(title, "Setup Guide");
    reader.OpenText("<HEAD><TITLE>x</TITLE>\n<BODY>");
    EXPECT_EQ(HTMLHeader(wizard, reader), "");

    EXPECT_FALSE(ExtractTopicTitle(wizard.Errors, "<HEAD><TITLE>  </TITLE></HEAD>", title));
    EXPECT_TRUE(view.messages.empty());
    EXPECT_FALSE(ExtractTopicTitle(wizard.Errors, "<HEAD></HEAD>", title));
    ASSERT_EQ(view.messages.size(), 1u);
    view.ExpectMessage(0, 5003, "ExtractTopicTitle");
    // A title that never closes is an unexpected error.
    EXPECT_FALSE(ExtractTopicTitle(wizard.Errors, "<HEAD><TITLE>open</HEAD>", title));
    ASSERT_EQ(view.errors.size(), 1u);
    EXPECT_TRUE(view.ErrorNamed("modParser:ExtractTopicTitle"));
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
    EXPECT_TRUE(ParseTopicFile(wizard, file, title, id, targets, hotspots, extras));
    EXPECT_EQ(title + "|" + id + "|" + extras + "|" + targets,
              "(Untitled)|idh_main|other|b.htm#top^b.htm#top^c.htm^e.htm");
    EXPECT_EQ(hotspots, 2);

    // A file without a head end is no topic; its ID is read all the same.
    const std::string open = dir.Write("n.htm", "<HEAD><TITLE>T</TITLE>\n<BODY><A NAME=\"n\"></A>");
    EXPECT_FALSE(ParseTopicFile(wizard, open, title, id, targets, hotspots, extras));
    EXPECT_EQ(id, "n");
    EXPECT_EQ(view.MessageIds(), std::vector<long>{5003});
    EXPECT_FALSE(ParseTopicFile(wizard, dir / "absent.htm", title, id, targets, hotspots, extras));
    EXPECT_EQ(view.errors.size(), 1u);
}

}  // namespace
}  // namespace tamrix::modParser
