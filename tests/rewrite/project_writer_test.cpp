#include "rewrite/project_writer.h"

#include "platform/byte_text.h"
#include "platform/profile.h"
#include "rewrite_fixture.h"

namespace tamrix::testing {
namespace {

class ProjectFileTest : public RewriteTest {
protected:
    std::string Write(const std::string& text) {
        const std::string oldFile = tmp.Write("old/p.hhp", text);
        ok = modRewrite::RewriteProjectFile(wizard, oldFile, newDir + "/n.hhp");
        return tmp.Exists("work/new/n.hhp") ? tmp.Read("work/new/n.hhp") : "<not written>";
    }
    bool ok = false;
};

TEST_F(ProjectFileTest, RenamesEveryOccurrenceAndListsTheStyleSheetFirst) {
    AddTopic("html\\afxc0001.htm", "main");
    AddTopic("html\\AFXC0002.HTM", "Intro");
    AddTopic("html\\afxc0003.htm", "");  // no topic ID: keeps its name
    wizard.AddCssLink = true;
    const std::string out = Write(
        "[OPTIONS]\r\nTitle=afxc0001.html\r\n\r\n[FILES]\r\nhtml\\afxc0001.htm\r\n"
        "html\\afxc0002.htm\r\nhtml\\afxc0003.htm\r\n\r\n[ALIAS]\r\nIDH_A=html\\AFXC0001.HTM\r\n");
    EXPECT_TRUE(ok);
    EXPECT_EQ(out,
              "[OPTIONS]\r\nTitle=main.html\r\n\r\n[FILES]\r\nHHStyles.css\r\nhtml\\main.htm\r\n"
              "html\\Intro.htm\r\nhtml\\afxc0003.htm\r\n\r\n[ALIAS]\r\nIDH_A=html\\main.htm\r\n");
    EXPECT_TRUE(view.messages.empty());
    EXPECT_EQ(view.Captions().front(), "Writing New Project File ...");
}

// A topic ID that cannot be a file name leaves the topic its old name, which
// every writer then uses; the ID is listed for the log.
TEST_F(RewriteTest, TopicIDsThatCannotBeFileNamesKeepTheOldName) {
    AddTopic("html\\a1.htm", "main");
    AddTopic("html\\a2.htm", "../evil");
    AddTopic("html\\a3.htm", "Con.txt");
    AddTopic("html\\a4.htm", "");
    modRewrite::SettleNewFileNames(wizard);
    std::vector<std::string> names;
    for (const auto& topic : *wizard.Globals.TopicFiles) names.push_back(topic->NewFileName);
    EXPECT_EQ(names, (std::vector<std::string>{"main.htm", "a2.htm", "a3.htm", "a4.htm"}));
    EXPECT_EQ(wizard.Globals.RefusedTopicIDs,
              (std::vector<std::string>{"html\\a2.htm (Topic ID \"../evil\")",
                                        "html\\a3.htm (Topic ID \"Con.txt\")"}));
}

TEST_F(ProjectFileTest, KeepsTheFindQuirksAtPositionZeroAndNotFound) {
    AddTopic("html\\a1.htm", "t1");
    wizard.AddCssLink = true;
    // No [FILES]: "not found" counts as found, so the entry goes to the very start.
    EXPECT_EQ(Write("[OPTIONS]\r\nx=html\\a1.htm\r\n"),
              "\r\nHHStyles.css[OPTIONS]\r\nx=html\\t1.htm\r\n");
    // [FILES] at position 0 counts as missing: no entry.
    EXPECT_EQ(Write("[FILES]\r\nhtml\\a1.htm\r\n"), "[FILES]\r\nhtml\\t1.htm\r\n");
    EXPECT_TRUE(ok);
}

TEST_F(ProjectFileTest, AsksBeforeRenamingAFileThatAlreadyMatchesItsTopicID) {
    AddTopic("html\\ab.htm", "ab");     // same name
    AddTopic("html\\xcd1.htm", "cd1");  // new name inside the old one
    const std::string text = "[FILES]\r\nhtml\\ab.htm\r\nhtml\\xcd1.htm\r\n";
    view.answers = {mb::kYes, mb::kNo};
    EXPECT_EQ(Write(text), "<not written>");
    EXPECT_FALSE(ok);
    ASSERT_EQ(view.MessageIds(), (std::vector<long>{10005, 10005}));
    view.ExpectMessage(1, 10005, "Rewriting Project File", mb::kYesNo | mb::kQuestion);
    EXPECT_NE(view.messages[1].text.find("The file xcd1.htm already matches"), std::string::npos);

    view.messages.clear();
    view.answers = {mb::kYes, mb::kYes};
    EXPECT_EQ(Write(text), "[FILES]\r\nhtml\\ab.htm\r\nhtml\\cd1.htm\r\n");
    EXPECT_TRUE(ok);
}

TEST_F(ProjectFileTest, StopsWhenOneNameOccursMoreThanTenTimes) {
    AddTopic("html\\a1.htm", "t1");
    std::string ten = "[FILES]\r\n";
    for (int i = 0; i < 10; ++i) ten += "html\\a1.htm\r\n";
    EXPECT_EQ(Write(ten), ReplaceAll(ten, "a1.htm", "t1.htm"));
    EXPECT_TRUE(view.messages.empty());

    std::filesystem::remove(newDir + "/n.hhp");
    EXPECT_EQ(Write(ten + "html\\a1.htm\r\n"), "<not written>");
    EXPECT_FALSE(ok);
    ASSERT_EQ(view.MessageIds(), std::vector<long>{10005});
    EXPECT_EQ(view.messages[0].style, mb::kOKOnly);
}

TEST_F(ProjectFileTest, WithoutAScanShowsWhatToDo) {
    wizard.Globals.TopicFiles.reset();
    EXPECT_FALSE(modRewrite::RewriteProjectFile(wizard, "", newDir + "/n.hhp"));
    EXPECT_FALSE(modRewrite::RewriteProjectFile(wizard, oldDir + "/p.hhp", newDir + "/n.hhp"));
    EXPECT_EQ(view.MessageIds(), (std::vector<long>{10010, 10009}));
    EXPECT_EQ(view.messages[0].style, mb::kInformation);
    EXPECT_EQ(view.messages[1].title, "Rewriting Project File");
    EXPECT_FALSE(tmp.Exists("work/new/n.hhp"));
}

TEST_F(ProjectFileTest, WritesTheDefaultTopicOnlyForAKnownContentsTopic) {
    AddTopic("html\\a1.htm", "First");
    AddTopic("pages\\a2.htm", "Main");
    const std::string text = "[OPTIONS]\r\nTitle=x\r\n\r\n[FILES]\r\npages\\a2.htm\r\n";
    wizard.Globals.ContentsTopic = "NoSuchTopic";
    EXPECT_EQ(Write(text), "[OPTIONS]\r\nTitle=x\r\n\r\n[FILES]\r\npages\\Main.htm\r\n");
    EXPECT_TRUE(ok);
    EXPECT_FALSE(modRewrite::SetDefaultTopic(wizard, newDir + "/n.hhp"));

    // The folder "html" is fixed, whatever folder the topic lies in.
    wizard.Globals.ContentsTopic = "MAIN";
    EXPECT_EQ(Write(text),
              "[OPTIONS]\r\nTitle=x\r\nDefault Topic=html\\Main.htm\r\n\r\n[FILES]\r\n"
              "pages\\Main.htm\r\n");
    EXPECT_TRUE(modRewrite::SetDefaultTopic(wizard, newDir + "/n.hhp"));
}

TEST_F(RewriteTest, StyleSheetIsCreatedOnceLinkedFromOneFolderDownAndKeptInside) {
    EXPECT_EQ(modRewrite::MakeCSSLinkString(wizard, newDir), "");
    EXPECT_FALSE(tmp.Exists("work/new/HHStyles.css"));

    wizard.AddCssLink = true;
    wizard.SetTopicClass = true;
    EXPECT_EQ(modRewrite::MakeCSSLinkString(wizard, newDir),
              "<link rel=\"stylesheet\" type=\"text/css\" href=\"../HHStyles.css\">");
    EXPECT_EQ(tmp.Read("work/new/HHStyles.css"), "Body{ }\r\n\r\n.Topic_Title { }\r\n\r\n");

    tmp.Write("work/new/Mine.css", "p { color: red }");
    wizard.CssFileName = "Mine.css";
    EXPECT_EQ(modRewrite::MakeCSSLinkString(wizard, newDir),
              "<link rel=\"stylesheet\" type=\"text/css\" href=\"../Mine.css\">");
    EXPECT_EQ(tmp.Read("work/new/Mine.css"), "p { color: red }");

    wizard.Files.SetWriteRoot("");  // the check alone must keep a name outside out
    wizard.CssFileName = "..\\..\\evil.css";
    modRewrite::MakeCSSLinkString(wizard, newDir);
    EXPECT_FALSE(tmp.Exists("evil.css"));
    ASSERT_EQ(view.messages.size(), 1u);
    view.ExpectMessage(0, 0, "Writing New Project Files", mb::kExclamation);
    EXPECT_EQ(wizard.Globals.RefusedFiles, std::vector<std::string>{"..\\..\\evil.css"});
}

TEST_F(RewriteTest, ImageFolderFilesButNotSubfoldersAreCopiedAskingWhenTold) {
    const auto copy = [&](bool ask) {
        return modRewrite::CopyImageFolder(wizard, oldDir + "/p.hhp", newDir, ask);
    };
    EXPECT_TRUE(copy(false));  // no old images folder: nothing happens
    EXPECT_TRUE(Tree(newDir).empty());
    EXPECT_TRUE(view.messages.empty());
    std::filesystem::create_directories(oldDir + "/images");
    EXPECT_TRUE(copy(false));
    EXPECT_TRUE(tmp.Exists("work/new/images"));
    view.ExpectMessage(0, 0, "Copying \\images Folder", mb::kInformation);
    EXPECT_EQ(view.messages[0].text, "There are no image files in the old /images folder.");

    tmp.Write("old/images/a.gif", "GIF89a");
    tmp.Write("old/images/B.bmp", "BM");
    tmp.Write("old/images/sub/c.gif", "no");
    tmp.Write("work/new/images/a.gif", "old copy");
    EXPECT_TRUE(copy(true));  // answered No
    EXPECT_EQ(view.MessageIds(), (std::vector<long>{0, 10007}));
    EXPECT_EQ(tmp.Read("work/new/images/a.gif"), "old copy");
    view.answers = {mb::kYes};
    EXPECT_TRUE(copy(true));
    EXPECT_EQ(Tree(newDir), (std::map<std::string, std::string>{{"images/B.bmp", "BM"},
                                                                {"images/a.gif", "GIF89a"}}));
    // Names are compared exactly: another case is no clash, except where the file
    // system takes it for the same name and the copy would replace it.
#ifdef _WIN32
    const std::size_t caseClash = 1;
#else
    const std::size_t caseClash = 0;
#endif
    std::filesystem::rename(newDir + "/images/a.gif", newDir + "/images/A.GIF");
    std::filesystem::remove(newDir + "/images/B.bmp");
    EXPECT_TRUE(copy(true));
    EXPECT_EQ(view.messages.size(), 3u + caseClash);
    // Without asking, an existing copy is replaced.
    tmp.Write("work/new/images/B.bmp", "old copy");
    EXPECT_TRUE(copy(false));
    EXPECT_EQ(tmp.Read("work/new/images/B.bmp"), "BM");
    EXPECT_EQ(view.messages.size(), 3u + caseClash);
}

}  // namespace
}  // namespace tamrix::testing
