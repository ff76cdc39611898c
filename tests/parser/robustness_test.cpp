// Inputs that must end with a result and without a crash; a hang is caught by
// the test timeout, and speed is measured by the benchmark, not here.
#include "parser/project_fixture.h"
#include "parser/project_reader.h"
#include "parser/reference_resolution.h"
#include "parser/sitemap_reader.h"
#include "parser/topic_scanner.h"

namespace tamrix::modParser {
namespace {

class ParserRobustness : public testing::ProjectFixture {
  protected:
    bool ParseOne(const std::string& entry) { return Parse(WriteProject({entry})); }
};

TEST_F(ParserRobustness, TenMegabyteTopicFile) {
    std::string body;
    body.reserve(10u << 20);
    for (int i = 0; body.size() < (10u << 20); ++i) {
        body += "<P>Some text <A HREF=\"b.htm#x\">link</A> and <A NAME=\"n\">name</A></P>\r\n";
        if (i % 8 == 0) body += "<MAP><AREA SHAPE=rect HREF=\"c.htm\"></MAP>\r\n";
    }
    WriteTopic("big.htm", "Big", "IDH_BIG", body);
    ASSERT_TRUE(ParseOne("big.htm"));
    ASSERT_EQ(modGlobals::TopicFiles->Count(), 1);
    EXPECT_EQ(Topic(1).Context, "IDH_BIG");
    EXPECT_EQ(Topic(1).targets().Count(), 2);
    EXPECT_GT(Topic(1).HotSpotCount, 10000);
    EXPECT_TRUE(view.errors.empty());
}

TEST_F(ParserRobustness, HotspotsPastTheCounterAreAnError) {
    std::string body;
    for (int i = 0; i < 33000; ++i) body += "<AREA HREF=\"c.htm\">\n";
    WriteTopic("many.htm", "Many", "IDH_M", body);
    EXPECT_TRUE(ParseOne("many.htm"));
    EXPECT_EQ(modGlobals::TopicFiles->Count(), 0);
    ASSERT_EQ(view.errors.size(), 1u);
    EXPECT_TRUE(ErrorNamed("modParser:ParseTopicFile"));
}

TEST_F(ParserRobustness, OneHugeLine) {
    std::string line = "<HTML><HEAD><TITLE>Line</TITLE></HEAD><BODY><A NAME=\"top\"></A>";
    while (line.size() < (4u << 20))
        line += "<A HREF=\"a.htm\">a</A><A NAME=\"x\">x</A><B>text</B>";
    line += "<A HREF=\"never closed.htm\">";
    dir.Write("proj/line.htm", line);
    ASSERT_TRUE(ParseOne("line.htm"));
    ASSERT_EQ(modGlobals::TopicFiles->Count(), 1);
    EXPECT_EQ(Topic(1).Context, "top");
    EXPECT_EQ(Topic(1).targets().Count(), 1);
    EXPECT_GT(Topic(1).ExtraIds.size(), 100000u);
}

TEST_F(ParserRobustness, UnclosedTagsToTheEndOfAFile) {
    std::string text = "<HEAD>\n<BODY>\n<A \n";
    for (int i = 0; i < 100000; ++i) text += "<OBJECT <AREA HREF=\"x\" NAME=\"y\" text\n";
    const std::string file = dir.Write("proj/open.htm", text);
    std::string title, id, targets, extras;
    int hotspots = 0;
    EXPECT_FALSE(ParseTopicFile(file, title, id, targets, hotspots, extras));
    EXPECT_EQ(id, "");
    modGlobals::ContentsTargets = std::make_shared<CTargets>();
    EXPECT_TRUE(ParseContentsFile(file));
}

TEST_F(ParserRobustness, BinaryFileWithNulBytes) {
    std::string bytes;
    for (unsigned i = 0; i < 300000; ++i) bytes += static_cast<char>((i * 7919u) % 256u);
    static const char kTail[] = "\0<HEAD><TITLE>T\0</TITLE></HEAD><BODY><A NAME=\"b\0\">\0</A>";
    bytes.append(kTail, sizeof kTail - 1);
    dir.Write("proj/bin.htm", bytes);
    EXPECT_TRUE(ParseOne("bin.htm"));
    ASSERT_EQ(modGlobals::TopicFiles->Count(), 1);
    EXPECT_EQ(Topic(1).TopicTitle, std::string("T\0", 2));
    modGlobals::IndexTargets = std::make_shared<CTargets>();
    EXPECT_TRUE(ParseIndexFile(dir / "proj/bin.htm"));
}

TEST_F(ParserRobustness, EmptyProject) {
    const std::string project = dir.Write("proj/empty.hhp", "");
    int count = -1;
    EXPECT_FALSE(OpenProjectFile(wizard, project, count));
    EXPECT_EQ(view.MessageIds(), std::vector<long>{5004});
    EXPECT_TRUE(Parse(project));
    EXPECT_EQ(modGlobals::TopicFiles->Count(), 0);
    EXPECT_TRUE(modUtilities::UpdateInternalReferences(wizard));
    EXPECT_TRUE(modUtilities::CheckProjectValidity(modGlobals::TopicFiles.get()));
    EXPECT_EQ(GetIndexFileName(project), "");
}

TEST_F(ParserRobustness, FiveThousandEntries) {
    std::vector<std::string> files;
    for (int i = 0; i < 5000; ++i) {
        files.push_back("html\\t" + std::to_string(i) + ".htm");
        const std::string next = "t" + std::to_string((i + 1) % 5000) + ".htm";
        WriteTopic(files.back(), i % 3 == 0 ? "(Untitled)" : "Topic",
                   "IDH_" + std::to_string(i % 2500), "<A HREF=\"" + next + "\">next</A>");
    }
    int count = 0;
    EXPECT_TRUE(OpenProjectFile(wizard, WriteProject(files), count));
    EXPECT_EQ(count, 5000);
    ASSERT_TRUE(Parse(WriteProject(files)));
    ASSERT_EQ(modGlobals::TopicFiles->Count(), 5000);
    EXPECT_EQ(Topic(2501).Context, "IDH_0_1");
    EXPECT_EQ(Topic(5000).Context, "IDH_2499_2500");
    EXPECT_TRUE(modUtilities::UpdateInternalReferences(wizard));
    EXPECT_EQ(Topic(1).InternalReferences, 1);
    EXPECT_EQ(modUtilities::UntitledTopics(modGlobals::TopicFiles.get()), 1667);
}

}  // namespace
}  // namespace tamrix::modParser
