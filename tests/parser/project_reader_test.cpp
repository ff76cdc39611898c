#include "parser/project_reader.h"

#include "parser/project_fixture.h"
#include "platform/path_helpers.h"

namespace tamrix::modParser {
namespace {

using ProjectReader = testing::ProjectFixture;

TEST_F(ProjectReader, OpenCountsTheHtmLinesOfTheFilesSection) {
    int count = -1;
    EXPECT_FALSE(OpenProjectFile(wizard, dir / "none.hhp", count));
    view.ExpectMessage(0, 10069, "Opening HTML Project File", mb::kExclamation);
    EXPECT_NE(view.messages[0].text.find(dir / "none.hhp"), std::string::npos);
    EXPECT_FALSE(OpenProjectFile(wizard, dir.Write("nf.hhp", "[OPTIONS]\r\nTitle=x\r\n"), count));
    view.ExpectMessage(1, 5004, "Opening Project File");

    struct Case {
        const char* text;
        bool ok;
        int count;
        const char* display;
    } const cases[] = {
        {"[FILES]\r\nhtml\\a.htm\r\nhtml\\b.HTM\r\nx.gif\r\n\r\n[ALIAS]\r\n", true, 2, "2"},
        // A section that runs to the end of the file must list a topic.
        {"[FILES]\r\nx.gif\r\n", false, -1, ""},
        {"[FILES]\r\na.htm", true, 1, "1"},
        // An empty section closed by the next one is accepted.
        {"[FILES]\r\n[ALIAS]\r\n", true, 0, "0"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        wizard.DisplayTopicCount.clear();
        count = -1;
        EXPECT_EQ(OpenProjectFile(wizard, dir.Write("p.hhp", c.text), count), c.ok);
        EXPECT_EQ(c.ok ? count : -1, c.count);
        EXPECT_EQ(wizard.DisplayTopicCount, c.display);
    }
}

TEST_F(ProjectReader, BuildsOneTopicFilePerListedFile) {
    WriteTopic("html\\a1.htm", "Setup", "Setup_Topic",
               "<A HREF=\"b2.htm#x\">b</A><A HREF=\"B2.HTM#X\">b</A>");
    WriteTopic("html\\b2.htm", "(untitled)", "");
    dir.Write("proj/html/pic.gif", "GIF");
    EXPECT_TRUE(Parse(WriteProject({"html\\a1.htm", "", "html\\pic.gif", "html\\b2.htm"})));
    ASSERT_EQ(wizard.Globals.TopicFiles->Count(), 2);
    const CTopicFile& a = Topic(1);
    EXPECT_EQ(a.AutoNamePath + "|" + a.AutoFileName + "|" + a.Context + "|" + a.NewFileName + "|" +
                  a.TopicTitle,
              "html\\a1.htm|a1.htm|Setup_Topic|Setup_Topic.htm|Setup");
    EXPECT_TRUE(a.HasTitle);
    ASSERT_EQ(a.targets().Count(), 1);  // equal without regard to case
    EXPECT_EQ(a.targets().Item(1).TargetString, "b2.htm#x");
    EXPECT_EQ(Topic(2).NewFileName, "b2.htm");
    EXPECT_FALSE(Topic(2).HasTitle);
    EXPECT_EQ(missing, 0);
    EXPECT_FALSE(stopped);
    EXPECT_EQ(view.Captions().front(), "Scanning Old Project Files ...");
    EXPECT_EQ(wizard.ProgressMax(), 3);
    EXPECT_EQ(wizard.Progress(), 3);
}

TEST_F(ProjectReader, DuplicateTopicIdsAreRenamedInOrderOfDiscovery) {
    struct Case {
        std::vector<std::string> ids, contexts;
        const char* renamed;
        long commented;
        const char* comment;
    } const cases[] = {
        // IDs equal but for case would be one file, so "help" is renamed as well.
        {{"IDH_A", "IDH_A", "Help", "help", "IDH_A", "IDH_B", "IDH_B"},
         {"IDH_A", "IDH_A_1", "Help", "help_2", "IDH_A_3", "IDH_B", "IDH_B_4"},
         "\"IDH_A\" was renamed \"IDH_A_1\"^\"help\" was renamed \"help_2\"^"
         "\"IDH_A\" was renamed \"IDH_A_3\"^\"IDH_B\" was renamed \"IDH_B_4\"^",
         4,
         "Duplicate Topic Id: File and Topic ID renamed from \"Help.htm\" to \"help_2.htm\""},
        // A suffix already taken ("X_1" as written) is passed over.
        {{"X_1", "X", "x", "X_1"},
         {"X_1", "X", "x_2", "X_1_3"},
         "\"x\" was renamed \"x_2\"^\"X_1\" was renamed \"X_1_3\"^",
         4,
         "Duplicate Topic Id: File and Topic ID renamed from \"X_1.htm\" to \"X_1_3.htm\""}};
    for (const Case& c : cases) {
        wizard.Globals = ProjectState{};
        std::vector<std::string> files;
        for (const auto& id : c.ids) {
            files.push_back("f" + std::to_string(files.size()) + ".htm");
            WriteTopic(files.back(), "T", id);
        }
        ASSERT_TRUE(Parse(WriteProject(files)));
        std::vector<std::string> contexts;
        for (const auto& topic : *wizard.Globals.TopicFiles) contexts.push_back(topic->Context);
        EXPECT_EQ(contexts, c.contexts);
        EXPECT_EQ(wizard.Globals.RenamedTopicIDs, c.renamed);
        EXPECT_EQ(Topic(c.commented).Comment, c.comment);
        EXPECT_EQ(Topic(c.commented).NewFileName, c.contexts[c.commented - 1] + ".htm");
        EXPECT_TRUE(Topic(1).Comment.empty());
    }
}

TEST_F(ProjectReader, MissingFilesAreCountedAndMayStopTheScan) {
    WriteTopic("a.htm", "A", "IDA");
    const std::string project = WriteProject({"gone1.htm", "a.htm", "gone2.htm"});
    view.answersById[10044] = mb::kYes;
    EXPECT_TRUE(Parse(project));
    EXPECT_EQ(missing, 2);
    EXPECT_FALSE(stopped);
    EXPECT_EQ(wizard.Globals.TopicFiles->Count(), 1);
    view.ExpectMessage(0, 10044, "Scanning Project File", mb::kYesNo);
    EXPECT_NE(
        view.messages[0].text.find(modUtilities::MakeFullPathforFile(dir / "proj/", "gone1.htm")),
        std::string::npos);

    view.answersById.clear();
    EXPECT_TRUE(Parse(project));
    EXPECT_EQ(missing, 1);
    EXPECT_TRUE(stopped);
    EXPECT_EQ(wizard.Globals.TopicFiles->Count(), 0);
    EXPECT_EQ(wizard.ProgressCaption(), "Stopped scan. 1 topic file not found.");

    view.answers = {mb::kYes, mb::kNo};
    EXPECT_TRUE(Parse(project));
    EXPECT_EQ(wizard.ProgressCaption(), "Stopped scan. 2 topic files not found.");
    EXPECT_EQ(wizard.Globals.TopicFiles->Count(), 1);
}

TEST_F(ProjectReader, AConvertedLookingProjectAsksBeforeGoingOn) {
    WriteTopic("html\\IDH_X.htm", "X", "idh_x");
    WriteTopic("html\\b.htm", "B", "IDH_B");
    const std::string project = WriteProject({"html\\IDH_X.htm", "html\\b.htm"});
    EXPECT_FALSE(Parse(project));
    ASSERT_EQ(view.messages.size(), 1u);
    view.ExpectMessage(0, 10005, "Parsing HTMl Project File");
    EXPECT_NE(view.messages[0].text.find("html\\IDH_X.htm"), std::string::npos);
    view.answersById[10005] = mb::kYes;
    EXPECT_TRUE(Parse(project));
    EXPECT_EQ(wizard.Globals.TopicFiles->Count(), 2);
}

TEST_F(ProjectReader, AFileListedTwiceIsDroppedWithANote) {
    WriteTopic("a.htm", "A", "IDA");
    WriteTopic("sub/A.htm", "A2", "IDA");
    EXPECT_TRUE(Parse(WriteProject({"a.htm", "sub\\A.htm"})));
    EXPECT_EQ(wizard.Globals.TopicFiles->Count(), 1);
    ASSERT_EQ(view.messages.size(), 1u);
    view.ExpectMessage(0, 10056, "Parsing HTML Project File", mb::kInformation);
    // The rename happened before the record was refused.
    EXPECT_EQ(wizard.Globals.RenamedTopicIDs, "\"IDA\" was renamed \"IDA_1\"^");
}

TEST_F(ProjectReader, SectionEdgesAndEntriesOutsideTheFolder) {
    WriteTopic("a.htm", "A", "IDA");
    dir.Write("outside.htm", testing::TopicHtml("Out", "IDO"));
    view.answersById[10044] = mb::kYes;
    // outside.htm is two levels up: absent, like the one far beyond the root.
    EXPECT_TRUE(Parse(dir.Write("proj/p.hhp",
                                "[OPTIONS]\r\n[FILES]\r\n\r\n  a.htm  \r\n..\\..\\outside.htm\r\n"
                                "..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\nowhere.htm")));
    EXPECT_EQ(wizard.Globals.TopicFiles->Count(), 1);
    EXPECT_EQ(missing, 2);
    EXPECT_TRUE(Parse(dir.Write("proj/q.hhp", "[FILES]\r\n..\\outside.htm\r\na.htm")));
    ASSERT_EQ(wizard.Globals.TopicFiles->Count(), 2);
    EXPECT_EQ(Topic(1).AutoFileName, "outside.htm");
    EXPECT_TRUE(Parse(dir.Write("proj/none.hhp", "[OPTIONS]\r\nTitle=x\r\n")));
    ASSERT_TRUE(wizard.Globals.TopicFiles);
    EXPECT_EQ(wizard.Globals.TopicFiles->Count(), 0);
}

TEST_F(ProjectReader, ContentsAndIndexNamesComeFromTheOptions) {
    const std::string project =
        WriteProject({}, "Contents file=Table of Contents.hhc\r\nIndex file=sub\\idx.hhk\r\n");
    const std::string folder = dir / "proj/";
    EXPECT_EQ(GetContentsFileName(wizard, project),
              modUtilities::MakeFullPathforFile(folder, "Table of Contents.hhc"));
    EXPECT_EQ(GetIndexFileName(wizard, project),
              modUtilities::MakeFullPathforFile(folder, "sub\\idx.hhk"));
    const std::string bare = dir.Write("proj/b.hhp", "[OPTIONS]\r\nIndex file=!!!!\r\n");
    EXPECT_EQ(GetIndexFileName(wizard, bare), "");
    EXPECT_EQ(GetContentsFileName(wizard, bare), "");
}

}  // namespace
}  // namespace tamrix::modParser
