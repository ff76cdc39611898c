#include "parser/project_reader.h"

#include "parser/project_fixture.h"
#include "platform/path_helpers.h"

namespace tamrix::modParser {
namespace {

using testing::ProjectFixture;

class ProjectReader : public ProjectFixture {
  protected:
    bool Parse(const std::string& project) {
        missing = 0;
        stopped = false;
        return ParseProjectFile(wizard, project, missing, stopped);
    }
    int missing = 0;
    bool stopped = false;
};

TEST_F(ProjectReader, OpenCountsTheHtmLinesOfTheFilesSection) {
    int count = -1;
    EXPECT_FALSE(OpenProjectFile(wizard, dir / "none.hhp", count));
    ASSERT_EQ(view.MessageIds(), std::vector<long>{10069});
    EXPECT_EQ(view.messages[0].title, "Opening HTML Project File");
    EXPECT_EQ(view.messages[0].style, mb::kExclamation);
    EXPECT_NE(view.messages[0].text.find(dir / "none.hhp"), std::string::npos);

    EXPECT_TRUE(
        OpenProjectFile(wizard, WriteProject({"html\\a.htm", "html\\b.HTM", "x.gif"}), count));
    EXPECT_EQ(count, 2);
    EXPECT_EQ(wizard.DisplayTopicCount, "2");

    const std::string noFiles = dir.Write("nf.hhp", "[OPTIONS]\r\nTitle=x\r\n");
    EXPECT_FALSE(OpenProjectFile(wizard, noFiles, count));
    EXPECT_EQ(view.MessageIds().back(), 5004);
    EXPECT_EQ(view.messages.back().title, "Opening Project File");

    // A section that runs to the end of the file must list a topic.
    wizard.DisplayTopicCount.clear();
    EXPECT_FALSE(OpenProjectFile(wizard, dir.Write("e.hhp", "[FILES]\r\nx.gif\r\n"), count));
    EXPECT_TRUE(wizard.DisplayTopicCount.empty());
    EXPECT_TRUE(OpenProjectFile(wizard, dir.Write("f.hhp", "[FILES]\r\na.htm"), count));
    EXPECT_EQ(count, 1);
    // An empty section closed by the next one is accepted.
    EXPECT_TRUE(OpenProjectFile(wizard, dir.Write("g.hhp", "[FILES]\r\n[ALIAS]\r\n"), count));
    EXPECT_EQ(wizard.DisplayTopicCount, "0");
}

TEST_F(ProjectReader, BuildsOneTopicFilePerListedFile) {
    WriteTopic("html\\a1.htm", "Setup", "Setup_Topic",
               "<A HREF=\"b2.htm#x\">b</A><A HREF=\"B2.HTM#X\">b</A>");
    WriteTopic("html\\b2.htm", "(untitled)", "");
    dir.Write("proj/html/pic.gif", "GIF");
    const std::string project = WriteProject({"html\\a1.htm", "", "html\\pic.gif", "html\\b2.htm"});
    EXPECT_TRUE(Parse(project));
    ASSERT_EQ(modGlobals::TopicFiles->Count(), 2);
    const CTopicFile& a = Topic(1);
    EXPECT_EQ(a.AutoNamePath, "html\\a1.htm");
    EXPECT_EQ(a.AutoFileName, "a1.htm");
    EXPECT_EQ(a.Context, "Setup_Topic");
    EXPECT_EQ(a.NewFileName, "Setup_Topic.htm");
    EXPECT_EQ(a.TopicTitle, "Setup");
    EXPECT_TRUE(a.HasTitle);
    ASSERT_EQ(a.targets().Count(), 1);  // equal without regard to case
    EXPECT_EQ(a.targets().Item(1)->TargetString, "b2.htm#x");
    const CTopicFile& b = Topic(2);
    EXPECT_EQ(b.NewFileName, "b2.htm");
    EXPECT_FALSE(b.HasTitle);
    EXPECT_EQ(missing, 0);
    EXPECT_FALSE(stopped);
    EXPECT_EQ(view.Captions().front(), "Scanning Old Project Files ...");
    EXPECT_EQ(wizard.ProgressMax(), 3);
    EXPECT_EQ(wizard.Progress(), 3);
}

TEST_F(ProjectReader, DuplicateTopicIdsAreRenamedInOrderOfDiscovery) {
    const std::vector<std::string> ids = {"IDH_A", "IDH_A", "Help", "help",
                                          "IDH_A", "IDH_B", "IDH_B"};
    std::vector<std::string> files;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        files.push_back("f" + std::to_string(i) + ".htm");
        WriteTopic(files.back(), "T", ids[i]);
    }
    ASSERT_TRUE(Parse(WriteProject(files)));
    ASSERT_EQ(modGlobals::TopicFiles->Count(), 7);
    EXPECT_EQ(Topic(1).Context, "IDH_A");
    EXPECT_EQ(Topic(2).Context, "IDH_A_1");
    EXPECT_EQ(Topic(2).NewFileName, "IDH_A_1.htm");
    EXPECT_EQ(
        Topic(2).Comment,
        "Duplicate Topic Id: File and Topic ID renamed from \"IDH_A.htm\" to \"IDH_A_1.htm\"");
    EXPECT_EQ(Topic(3).Context, "Help");
    EXPECT_EQ(Topic(4).Context, "help");  // case counts here
    EXPECT_EQ(Topic(5).Context, "IDH_A_2");
    EXPECT_EQ(Topic(6).Context, "IDH_B");
    EXPECT_EQ(Topic(7).Context, "IDH_B_3");
    EXPECT_TRUE(Topic(1).Comment.empty());
    EXPECT_EQ(modGlobals::RenamedTopicIDs,
              "\"IDH_A\" was renamed \"IDH_A_1\"^\"IDH_A\" was renamed \"IDH_A_2\"^"
              "\"IDH_B\" was renamed \"IDH_B_3\"^");
}

TEST_F(ProjectReader, AnIdThatEqualsARenamedIdIsRenamedForEachMatch) {
    // "X_1" (as written) and "X" renamed to "X_1": a later "X_1" matches both.
    const std::vector<std::string> ids = {"X_1", "X", "X", "X_1"};
    std::vector<std::string> files;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        files.push_back("g" + std::to_string(i) + ".htm");
        WriteTopic(files.back(), "T", ids[i]);
    }
    ASSERT_TRUE(Parse(WriteProject(files)));
    EXPECT_EQ(Topic(3).Context, "X_1");
    EXPECT_EQ(Topic(4).Context, "X_1_3");
    EXPECT_EQ(Topic(4).Comment,
              "Duplicate Topic Id: File and Topic ID renamed from \"X_1.htm\" to \"X_1_3.htm\"");
    EXPECT_EQ(
        modGlobals::RenamedTopicIDs,
        "\"X\" was renamed \"X_1\"^\"X_1\" was renamed \"X_1_2\"^\"X_1\" was renamed \"X_1_3\"^");
}

TEST_F(ProjectReader, MissingFilesAreCountedAndMayStopTheScan) {
    WriteTopic("a.htm", "A", "IDA");
    const std::string project = WriteProject({"gone1.htm", "a.htm", "gone2.htm"});
    view.answersById[10044] = mb::kYes;
    EXPECT_TRUE(Parse(project));
    EXPECT_EQ(missing, 2);
    EXPECT_FALSE(stopped);
    EXPECT_EQ(modGlobals::TopicFiles->Count(), 1);
    EXPECT_EQ(view.messages[0].title, "Scanning Project File");
    EXPECT_EQ(view.messages[0].style, mb::kYesNo);
    EXPECT_NE(
        view.messages[0].text.find(modUtilities::MakeFullPathforFile(dir / "proj/", "gone1.htm")),
        std::string::npos);

    view.answersById.clear();
    EXPECT_TRUE(Parse(project));
    EXPECT_EQ(missing, 1);
    EXPECT_TRUE(stopped);
    EXPECT_EQ(modGlobals::TopicFiles->Count(), 0);
    EXPECT_EQ(wizard.ProgressCaption(), "Stopped scan. 1 topic file not found.");

    view.answers = {mb::kYes, mb::kNo};
    EXPECT_TRUE(Parse(project));
    EXPECT_EQ(wizard.ProgressCaption(), "Stopped scan. 2 topic files not found.");
    EXPECT_EQ(modGlobals::TopicFiles->Count(), 1);
}

TEST_F(ProjectReader, AConvertedLookingProjectAsksBeforeGoingOn) {
    WriteTopic("html\\IDH_X.htm", "X", "idh_x");
    WriteTopic("html\\b.htm", "B", "IDH_B");
    const std::string project = WriteProject({"html\\IDH_X.htm", "html\\b.htm"});
    EXPECT_FALSE(Parse(project));
    ASSERT_EQ(view.MessageIds(), std::vector<long>{10005});
    EXPECT_EQ(view.messages[0].title, "Parsing HTMl Project File");
    EXPECT_NE(view.messages[0].text.find("html\\IDH_X.htm"), std::string::npos);
    view.answersById[10005] = mb::kYes;
    EXPECT_TRUE(Parse(project));
    EXPECT_EQ(modGlobals::TopicFiles->Count(), 2);
}

TEST_F(ProjectReader, AFileListedTwiceIsDroppedWithANote) {
    WriteTopic("a.htm", "A", "IDA");
    WriteTopic("sub/A.htm", "A2", "IDA");
    EXPECT_TRUE(Parse(WriteProject({"a.htm", "sub\\A.htm"})));
    EXPECT_EQ(modGlobals::TopicFiles->Count(), 1);
    ASSERT_EQ(view.MessageIds(), std::vector<long>{10056});
    EXPECT_EQ(view.messages[0].style, mb::kInformation);
    EXPECT_EQ(view.messages[0].title, "Parsing HTML Project File");
    // The rename happened before the record was refused.
    EXPECT_EQ(modGlobals::RenamedTopicIDs, "\"IDA\" was renamed \"IDA_1\"^");
}

TEST_F(ProjectReader, SectionEdgesAndEntriesOutsideTheFolder) {
    WriteTopic("a.htm", "A", "IDA");
    dir.Write("outside.htm", testing::TopicHtml("Out", "IDO"));
    const std::string project =
        dir.Write("proj/p.hhp",
                  "[OPTIONS]\r\n[FILES]\r\n\r\n  a.htm  \r\n..\\..\\outside.htm\r\n"
                  "..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\nowhere.htm");
    view.answersById[10044] = mb::kYes;
    EXPECT_TRUE(Parse(project));
    ASSERT_EQ(modGlobals::TopicFiles->Count(), 1);  // outside.htm is two levels up: absent
    EXPECT_EQ(missing, 2);
    const std::string near = dir.Write("proj/q.hhp", "[FILES]\r\n..\\outside.htm\r\na.htm");
    EXPECT_TRUE(Parse(near));
    ASSERT_EQ(modGlobals::TopicFiles->Count(), 2);
    EXPECT_EQ(Topic(1).AutoFileName, "outside.htm");

    EXPECT_TRUE(Parse(dir.Write("proj/none.hhp", "[OPTIONS]\r\nTitle=x\r\n")));
    ASSERT_TRUE(modGlobals::TopicFiles);
    EXPECT_EQ(modGlobals::TopicFiles->Count(), 0);
}

TEST_F(ProjectReader, ContentsAndIndexNamesComeFromTheOptions) {
    const std::string project =
        WriteProject({}, "Contents file=Table of Contents.hhc\r\nIndex file=sub\\idx.hhk\r\n");
    const std::string folder = dir / "proj/";
    EXPECT_EQ(GetContentsFileName(project),
              modUtilities::MakeFullPathforFile(folder, "Table of Contents.hhc"));
    EXPECT_EQ(GetIndexFileName(project), modUtilities::MakeFullPathforFile(folder, "sub\\idx.hhk"));
    const std::string bare = dir.Write("proj/b.hhp", "[OPTIONS]\r\nIndex file=!!!!\r\n");
    EXPECT_EQ(GetIndexFileName(bare), "");
    EXPECT_EQ(GetContentsFileName(bare), "");
}

}  // namespace
}  // namespace tamrix::modParser
