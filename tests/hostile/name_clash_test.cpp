// Topic IDs that name another topic's file: no topic file may overwrite another.
#include "hostile/hostile_fixture.h"

namespace tamrix {
namespace {

using testing::Topic;

class NameClash : public testing::HostileFixture {};

// gen00005's ID takes gen00003's old name before gen00003 learns that its own ID
// names gen00004, which keeps its name (it has no ID): both go back to their old names.
TEST_F(NameClash, ARenamedTopicNeverTakesAnotherTopicsFile) {
    WriteProject({"html\\gen00005.htm", "html\\gen00003.htm", "html\\gen00004.htm"});
    WriteIn("html/gen00005.htm", Topic("Five", "GEN00003"));
    WriteIn("html/gen00003.htm", Topic("Three", "gen00004"));
    WriteIn("html/gen00004.htm",
            "<HTML><HEAD><TITLE>Four</TITLE></HEAD><BODY>No ID</BODY></HTML>\r\n");
    EXPECT_EQ(Convert(), 4) << AllMessages();
    for (const auto& [file, text] : {std::pair{"gen00003.htm", "Three"},
                                     {"gen00004.htm", "Four"},
                                     {"gen00005.htm", "Five"},
                                     {"IDH_FIRST.htm", "First"}})
        EXPECT_NE(testing::ReadFileBytes(Out(std::string("html/") + file)).find(text),
                  std::string::npos)
            << file;
    EXPECT_EQ(wizard.Globals.ClashingTopicIDs.size(), 2u) << AllMessages();
    EXPECT_NE(view.FindMessage("which the topic file \"html\\gen00004.htm\" writes"), nullptr)
        << AllMessages();
    ExpectOnlyNewFolderWritten();
}

}  // namespace
}  // namespace tamrix
