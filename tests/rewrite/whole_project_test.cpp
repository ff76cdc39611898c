// The writers in the order of a real write, on one small project: every new
// file byte for byte, and the input project left as it was.
#include "rewrite/project_writer.h"
#include "rewrite/sitemap_rewriter.h"
#include "rewrite/topic_rewriter.h"
#include "rewrite_fixture.h"

namespace tamrix::testing {
namespace {

class WholeProjectTest : public RewriteTest {
protected:
    void SetUp() override {
        RewriteTest::SetUp();
        // LF-only, as some converted projects are.
        tmp.Write("old/p.hhp",
                  "[OPTIONS]\nContents file=Toc.hhc\nIndex file=Index.hhk\n\n[FILES]\n"
                  "html\\afxc0001.htm\nhtml\\afxc0002.htm\nhtml\\afxc0003.htm\n"
                  "html\\afxc0004.htm\n..\\..\\evil.htm\n");
        tmp.Write("old/html/afxc0001.htm",
                  "<HTML><HEAD><TITLE>Main</TITLE></HEAD><BODY><A NAME=\"main\"></A>"
                  "<A HREF=\"afxc0002.htm#x\">next</A><A HREF=\"afxc0003.htm\">no ID</A>"
                  "<A HREF=\"afxc0004.htm\">device</A></BODY></HTML>");
        tmp.Write("old/html/afxc0002.htm",
                  "<HTML><HEAD><TITLE>(Untitled)</TITLE></HEAD><BODY><A NAME=\"../evil\"></A>"
                  "<A HREF=\"afxc0001.htm\">back</A></BODY></HTML>");
        tmp.Write("old/html/afxc0003.htm",
                  "<HTML><HEAD><TITLE>T</TITLE></HEAD><BODY>x</BODY></HTML>");
        tmp.Write("old/html/afxc0004.htm",
                  "<HTML><HEAD><TITLE>T</TITLE></HEAD><BODY>y</BODY></HTML>");
        tmp.Write("evil.htm", "outside the project");
        tmp.Write("old/Index.hhk", "<param name=\"Local\" value=\"html/afxc0001.htm\">");
        tmp.Write("old/Toc.hhc",
                  "<param name=\"Local\" value=\"html\\afxc0002.htm\">"
                  "<param name=\"Local\" value=\"html\\afxc0003.htm\">");
        tmp.Write("old/images/pic.gif", "GIF89a");
        AddTopic("html\\afxc0001.htm", "main", {"afxc0002.htm#x", "afxc0003.htm", "afxc0004.htm"});
        AddTopic("html\\afxc0002.htm", "../evil", {"afxc0001.htm"});
        AddTopic("html\\afxc0003.htm", "");
        AddTopic("html\\afxc0004.htm", "Con.txt");
        AddTopic("..\\..\\evil.htm", "evil");
        wizard.Globals.IndexTargets = std::make_shared<CTargets>();
        wizard.Globals.IndexTargets->Add("html/afxc0001.htm");
        wizard.Globals.ContentsTargets = std::make_shared<CTargets>();
        wizard.Globals.ContentsTargets->Add("html\\afxc0002.htm");
        wizard.Globals.ContentsTargets->Add("html\\afxc0003.htm");
        wizard.AddCssLink = true;
        wizard.IndexFile = oldDir + "/Index.hhk";
        wizard.ContentsFile = oldDir + "/Toc.hhc";
    }

    void WriteAll() {
        const std::string oldProject = oldDir + "/p.hhp";
        modRewrite::SettleNewFileNames(wizard);
        ASSERT_TRUE(modRewrite::RewriteProjectFile(wizard, oldProject, newDir + "/n.hhp"));
        const std::string css = modRewrite::MakeCSSLinkString(wizard, newDir);
        for (const auto& topic : *wizard.Globals.TopicFiles)
            EXPECT_TRUE(modRewrite::RewriteTopicFile(wizard, *topic, oldProject, newDir, css));
        EXPECT_TRUE(modRewrite::RewriteIndex(wizard, oldProject, wizard.IndexFile, newDir));
        EXPECT_TRUE(modRewrite::RewriteContents(wizard, oldProject, wizard.ContentsFile, newDir));
        EXPECT_TRUE(modRewrite::CopyImageFolder(wizard, oldProject, newDir, false));
    }
};

// Topics without a usable ID keep their old names everywhere: the project, the
// links, the contents; one whose file would lie outside is not written at all.
TEST_F(WholeProjectTest, WritesTheNewProjectAndLeavesTheOldOneAlone) {
    const auto oldBefore = Tree(oldDir);
    WriteAll();
    EXPECT_EQ(Tree(oldDir), oldBefore);
    EXPECT_EQ(tmp.Read("evil.htm"), "outside the project");
    const std::string link =
        "<link rel=\"stylesheet\" type=\"text/css\" href=\"../HHStyles.css\">\r\n";
    EXPECT_EQ(
        Tree(newDir),
        (std::map<std::string, std::string>{
            {"n.hhp",
             "[OPTIONS]\nContents file=Toc.hhc\nIndex file=Index.hhk\n\n[FILES]\n"
             "HHStyles.css\nhtml\\main.htm\nhtml\\afxc0002.htm\nhtml\\afxc0003.htm\n"
             "html\\afxc0004.htm\n..\\..\\evil.htm\n"},
            {"HHStyles.css", "Body{ }\r\n\r\n"},
            {"html/main.htm", "<HTML><HEAD><TITLE>Main</TITLE>" + link +
                                  "</HEAD><BODY><A NAME=\"main\"></A>"
                                  "<A HREF=\"afxc0002.htm#x\">next</A><A HREF=\"afxc0003.htm\">"
                                  "no ID</A><A HREF=\"afxc0004.htm\">device</A></BODY></HTML>"},
            {"html/afxc0002.htm", "<HTML><HEAD><TITLE>(Untitled)</TITLE>" + link +
                                      "</HEAD><BODY><A NAME=\"../evil\"></A>"
                                      "<A HREF=\"main.htm\">back</A></BODY></HTML>"},
            {"html/afxc0003.htm",
             "<HTML><HEAD><TITLE>T</TITLE>" + link + "</HEAD><BODY>x</BODY></HTML>"},
            {"html/afxc0004.htm",
             "<HTML><HEAD><TITLE>T</TITLE>" + link + "</HEAD><BODY>y</BODY></HTML>"},
            {"Index.hhk", "<param name=\"Local\" value=\"html/main.htm\">"},
            {"Toc.hhc",
             "<param name=\"Local\" value=\"html\\afxc0002.htm\">"
             "<param name=\"Local\" value=\"html\\afxc0003.htm\">"},
            {"images/pic.gif", "GIF89a"}}));
    EXPECT_EQ(wizard.Globals.RefusedFiles, std::vector<std::string>{"..\\..\\evil.htm"});
    EXPECT_EQ(wizard.Globals.RefusedTopicIDs,
              (std::vector<std::string>{"html\\afxc0002.htm (Topic ID \"../evil\")",
                                        "html\\afxc0004.htm (Topic ID \"Con.txt\")"}));
}

TEST_F(WholeProjectTest, WritingAgainGivesTheSameFilesAndKeepsTheStyleSheet) {
    WriteAll();
    tmp.Write("work/new/HHStyles.css", "edited by the author");
    auto first = Tree(newDir);
    WriteAll();
    EXPECT_EQ(Tree(newDir), first);
}

}  // namespace
}  // namespace tamrix::testing
