// Hostile projects end with a clear message, leave their own folder as it was and
// write nothing outside the new folder.
#include <algorithm>
#include <filesystem>
#include <random>

#include "hostile/hostile_fixture.h"

namespace tamrix {
namespace {

namespace fs = std::filesystem;
using testing::Topic;

constexpr const char* kOutside = "would lie outside the new project folder";

class HostileInput : public testing::HostileFixture {
protected:
    // Step 1 with `project`, which must not open.
    void OpenAtStepOne(const std::string& project) {
        before = testing::TakeSnapshot(dir.Path(), kOut);
        Next();
        wizard.controls.txtProjectName = In(project);
        Next();
        EXPECT_EQ(wizard.CurrentStep(), 1);
    }
};

// [FILES] entries and topic IDs that climb out: the files are refused, the
// topics keep their old names.
TEST_F(HostileInput, NamesThatClimbOutAreRefused) {
    // in\..\..\x.htm is root/a/x.htm: readable, but its new name must not be written there.
    dir.Write("a/x.htm", Topic("Outside", "IDH_OUTSIDE"));
    dir.Write("a/b/y.htm", Topic("Above", "IDH_ABOVE"));
    WriteProject({"..\\..\\x.htm", "../y.htm", "html\\gen00003.htm", "html\\gen00004.htm",
                  "html\\gen00005.htm"});
    WriteIn("html/gen00003.htm", Topic("Up", "../../x"));
    WriteIn("html/gen00004.htm", Topic("Back", "..\\..\\..\\y"));
    WriteIn("html/gen00005.htm", Topic("Rooted", "/tmp/z"));
    EXPECT_EQ(Convert(), 4) << AllMessages();
    const MessageRequest* refused = view.FindMessage(kOutside);
    ASSERT_NE(refused, nullptr) << AllMessages();
    EXPECT_NE(refused->text.find("IDH_OUTSIDE.htm"), std::string::npos) << refused->text;
    EXPECT_EQ(wizard.Globals.RefusedFiles.size(), 2u);
    EXPECT_NE(view.FindMessage("cannot be a file name"), nullptr) << AllMessages();
    EXPECT_EQ(wizard.Globals.RefusedTopicIDs.size(), 3u) << AllMessages();
    for (const char* kept : {"html/gen00003.htm", "html/gen00004.htm", "html/gen00005.htm"})
        EXPECT_TRUE(fs::exists(Out(kept))) << kept;
    EXPECT_TRUE(fs::exists(Out("html/IDH_FIRST.htm")));
    EXPECT_FALSE(fs::exists("/tmp/z.htm"));
    ExpectOnlyNewFolderWritten();
}

// out/html is a link to a folder elsewhere: every ancestor is resolved before a
// folder is made, so html\sub\ is not created there.
TEST_F(HostileInput, ALinkedFolderInTheNewFolderLeadsNowhere) {
    WriteProject({"html\\sub\\gen00003.htm"});
    WriteIn("html/sub/gen00003.htm", Topic("Deep", "IDH_DEEP"));
    fs::create_directories(dir / "elsewhere");
    fs::create_directories(Out(""));
    fs::create_directory_symlink(dir / "elsewhere", Out("html"));
    before = testing::TakeSnapshot(dir.Path(), kOut);
    Convert();
    EXPECT_TRUE(fs::is_empty(dir / "elsewhere")) << AllMessages();
    ASSERT_FALSE(wizard.Files.RefusedWrites().empty());
    EXPECT_EQ(wizard.Files.RefusedWrites()[0].reason, "it lies outside the new project folder");
    ExpectOnlyNewFolderWritten();
}

TEST_F(HostileInput, IncludesThatClimbOutAreCopiedIntoTheNewFolderOnly) {
    // The .hpj includes a header three folders up; that header includes one more.
    dir.Write("top.h", "#define IDH_FIRST 10\r\n#include \"..\\side.h\"\r\n");
    dir.Write("a/b/mid.h", "#define IDH_SECOND 20\r\n");
    WriteProject({},
                 "[OPTIONS]\r\nTITLE=Hostile\r\n\r\n[MAP]\r\n#include <..\\..\\..\\top.h>\r\n"
                 "#include \"../mid.h\"\r\n\r\n[ALIAS]\r\n#include <..\\..\\..\\top.h>\r\n");
    EXPECT_EQ(Convert(true), 4) << AllMessages();
    // side.h would lie outside the temporary folder: not there, and said so.
    const std::vector<long> ids = view.MessageIds();
    EXPECT_NE(std::find(ids.begin(), ids.end(), 10037), ids.end()) << AllMessages();
    EXPECT_TRUE(fs::exists(Out("top.h"))) << AllMessages();
    EXPECT_TRUE(fs::exists(Out("mid.h"))) << AllMessages();
    EXPECT_EQ(testing::ReadFileBytes(Out("top.h")), testing::ReadFileBytes(dir / "top.h"));
    ExpectOnlyNewFolderWritten();
}

TEST_F(HostileInput, FortyThousandFilesEndInTheErrorReport) {
    WriteProject();
    std::string hhp = "[OPTIONS]\r\nContents file=old.hhc\r\n\r\n[FILES]\r\n";
    for (int i = 0; i < 40000; ++i) hhp += "html\\gen" + std::to_string(i) + ".htm\r\n";
    WriteIn("old.hhp", hhp);
    OpenAtStepOne("old.hhp");
    ASSERT_EQ(view.errors.size(), 1u) << AllMessages();
    EXPECT_NE(view.errors[0].first.find("modParser:OpenProjectFile"), std::string::npos)
        << view.errors[0].first;
    EXPECT_NE(view.errors[0].first.find("Overflow"), std::string::npos) << view.errors[0].first;
    ExpectOnlyNewFolderWritten();
}

TEST_F(HostileInput, BinaryFilesAndNulBytesConvertWithoutHarm) {
    std::mt19937 random(7);
    std::string noise(64 * 1024, '\0');
    for (char& c : noise) c = static_cast<char>(random() & 0xFF);
    WriteProject({"html\\gen00003.htm", "html\\gen00004.htm"});
    // A project file line with a NUL in its middle and topic files of noise.
    std::string hhp = testing::ReadFileBytes(In("old.hhp"));
    hhp += std::string("html\\gen00005.htm\0trailing\r\n", 29);
    WriteIn("old.hhp", hhp);
    WriteIn("html/gen00003.htm", noise);
    WriteIn("html/gen00004.htm", Topic("Nul\0Title", "IDH_N\0UL") + noise.substr(0, 4096));
    WriteIn("html/gen00005.htm", Topic("Five", "IDH_FIVE"));
    WriteIn("old.hhk", noise);
    EXPECT_EQ(Convert(), 4) << AllMessages();
    EXPECT_TRUE(view.errors.empty()) << AllMessages();
    EXPECT_TRUE(fs::exists(Out("html/IDH_FIRST.htm")));
    ExpectOnlyNewFolderWritten();
}

TEST_F(HostileInput, FiftyMegabyteLineIsConvertedWhole) {
    WriteProject({"html\\gen00003.htm"});
    std::string huge = Topic("Huge", "IDH_HUGE");
    huge.insert(huge.find("</BODY>"), std::string(50u << 20, 'x'));
    WriteIn("html/gen00003.htm", huge);
    huge.clear();
    huge.shrink_to_fit();
    before = testing::TakeSnapshot(dir.Path(), kOut);
    EXPECT_EQ(Convert(), 4) << AllMessages();
    EXPECT_EQ(fs::file_size(Out("html/IDH_HUGE.htm")), fs::file_size(In("html/gen00003.htm")));
    ExpectOnlyNewFolderWritten();
}

TEST_F(HostileInput, UnclosedTagsEndTheScan) {
    WriteProject(
        {"html\\gen00003.htm", "html\\gen00004.htm", "html\\gen00005.htm", "html\\gen00006.htm"});
    WriteIn("html/gen00003.htm", "<HTML><HEAD><TITLE>Open head");
    WriteIn("html/gen00004.htm", Topic("Anchor", "IDH_A4", "<A HREF=\"gen00001.htm"));
    WriteIn("html/gen00005.htm", Topic("Object", "IDH_A5", "<OBJECT type=x <AREA HREF=\"q"));
    WriteIn("html/gen00006.htm", "<HTML><HEAD><TITLE>Six</TITLE></HEAD><BODY><A NAME=\"IDH_6");
    WriteIn("old.hhc",
            "<HTML><BODY><UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Local\" value=\"");
    EXPECT_EQ(Convert(), 4) << AllMessages();
    // The unclosed quotes are reported, each naming the reader that met it.
    ASSERT_EQ(view.errors.size(), 2u) << AllMessages();
    EXPECT_NE(view.errors[0].first.find("Missing quotes in HREF string <AREA HREF=\"q"),
              std::string::npos);
    EXPECT_NE(view.errors[1].first.find("modParser:FindContextID"), std::string::npos);
    EXPECT_NE(view.FindMessage("does not contain a <TITLE>"), nullptr) << AllMessages();
    EXPECT_TRUE(fs::exists(Out("html/IDH_A4.htm"))) << AllMessages();
    ExpectOnlyNewFolderWritten();
}

TEST_F(HostileInput, ProjectFileThatIsAFolderIsNotOpened) {
    WriteProject();
    fs::create_directories(In("folder.hhp"));
    OpenAtStepOne("folder.hhp");
    ASSERT_FALSE(view.messages.empty());
    EXPECT_EQ(view.messages.back().catalogueId, 10069) << AllMessages();
    EXPECT_TRUE(view.errors.empty()) << AllMessages();
    ExpectOnlyNewFolderWritten();
}

}  // namespace
}  // namespace tamrix
