// Inputs that must end with a result and without a crash; a hang is caught by
// the test timeout, and speed is measured by the benchmark, not here. Huge,
// binary and unclosed inputs run end to end in tests/hostile.
#include "parser/project_fixture.h"
#include "parser/project_reader.h"
#include "parser/reference_resolution.h"

namespace tamrix::modParser {
namespace {

class ParserRobustness : public testing::ProjectFixture {
protected:
    bool ParseOne(const std::string& entry) { return Parse(WriteProject({entry})); }
};

TEST_F(ParserRobustness, HotspotsPastTheCounterAreAnError) {
    std::string body;
    for (int i = 0; i < 33000; ++i) body += "<AREA HREF=\"c.htm\">\n";
    WriteTopic("many.htm", "Many", "IDH_M", body);
    EXPECT_TRUE(ParseOne("many.htm"));
    EXPECT_EQ(wizard.Globals.TopicFiles->Count(), 0);
    ASSERT_EQ(view.errors.size(), 1u);
    EXPECT_TRUE(view.ErrorNamed("modParser:ParseTopicFile"));
}

TEST_F(ParserRobustness, OneHugeLine) {
    std::string line = "<HTML><HEAD><TITLE>Line</TITLE></HEAD><BODY><A NAME=\"top\"></A>";
    while (line.size() < (4u << 20))
        line += "<A HREF=\"a.htm\">a</A><A NAME=\"x\">x</A><B>text</B>";
    line += "<A HREF=\"never closed.htm\">";
    dir.Write("proj/line.htm", line);
    ASSERT_TRUE(ParseOne("line.htm"));
    ASSERT_EQ(wizard.Globals.TopicFiles->Count(), 1);
    EXPECT_EQ(Topic(1).Context, "top");
    EXPECT_EQ(Topic(1).targets().Count(), 1);
    EXPECT_GT(Topic(1).ExtraIds.size(), 100000u);
}

TEST_F(ParserRobustness, EmptyProject) {
    const std::string project = dir.Write("proj/empty.hhp", "");
    int count = -1;
    EXPECT_FALSE(OpenProjectFile(wizard, project, count));
    EXPECT_EQ(view.MessageIds(), std::vector<long>{5004});
    EXPECT_TRUE(Parse(project));
    EXPECT_EQ(wizard.Globals.TopicFiles->Count(), 0);
    EXPECT_TRUE(modUtilities::UpdateInternalReferences(wizard));
    EXPECT_TRUE(modUtilities::CheckProjectValidity(wizard.Errors, wizard.Globals.TopicFiles.get()));
    EXPECT_EQ(GetIndexFileName(wizard, project), "");
}

}  // namespace
}  // namespace tamrix::modParser
