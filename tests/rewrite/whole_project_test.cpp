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
        tmp.Write("old/p.hhp",
                  "[OPTIONS]\r\nContents file=Toc.hhc\r\nIndex file=Index.hhk\r\n\r\n[FILES]\r\n"
                  "html\\afxc0001.htm\r\nhtml\\afxc0002.htm\r\n..\\..\\evil.htm\r\n");
        tmp.Write("old/html/afxc0001.htm",
                  "<HTML><HEAD><TITLE>Main</TITLE></HEAD><BODY><A NAME=\"main\"></A>"
                  "<A HREF=\"afxc0002.htm#x\">next</A></BODY></HTML>");
        tmp.Write("old/html/afxc0002.htm",
                  "<HTML><HEAD><TITLE>(Untitled)</TITLE></HEAD><BODY><A NAME=\"../evil\"></A>"
                  "<A HREF=\"afxc0001.htm\">back</A></BODY></HTML>");
        tmp.Write("evil.htm", "outside the project");
        tmp.Write("old/Index.hhk", "<param name=\"Local\" value=\"html/afxc0001.htm\">");
        tmp.Write("old/Toc.hhc", "<param name=\"Local\" value=\"html\\afxc0002.htm\">");
        tmp.Write("old/images/pic.gif", "GIF89a");
        AddTopic("html\\afxc0001.htm", "main", {"afxc0002.htm#x"});
        AddTopic("html\\afxc0002.htm", "../evil", {"afxc0001.htm"});
        AddTopic("..\\..\\evil.htm", "evil");
        modGlobals::IndexTargets = std::make_shared<CTargets>();
        modGlobals::IndexTargets->Add("html/afxc0001.htm");
        modGlobals::ContentsTargets = std::make_shared<CTargets>();
        modGlobals::ContentsTargets->Add("html\\afxc0002.htm");
        wizard.AddCssLink = true;
        wizard.IndexFile = oldDir + "/Index.hhk";
        wizard.ContentsFile = oldDir + "/Toc.hhc";
    }

    void WriteAll() {
        const std::string oldProject = oldDir + "/p.hhp";
        ASSERT_TRUE(modRewrite::RewriteProjectFile(wizard, oldProject, newDir + "/n.hhp"));
        const std::string css = modRewrite::MakeCSSLinkString(wizard, newDir);
        for (const auto& topic : *modGlobals::TopicFiles)
            EXPECT_TRUE(modRewrite::RewriteTopicFile(wizard, *topic, oldProject, newDir, css));
        EXPECT_TRUE(modRewrite::RewriteIndex(wizard, oldProject, wizard.IndexFile, newDir));
        EXPECT_TRUE(modRewrite::RewriteContents(wizard, oldProject, wizard.ContentsFile, newDir));
        EXPECT_TRUE(modRewrite::CopyImageFolder(wizard, oldProject, newDir, false));
    }
};

TEST_F(WholeProjectTest, WritesTheNewProjectAndLeavesTheOldOneAlone) {
    const auto oldBefore = Tree(oldDir);
    WriteAll();
    EXPECT_EQ(Tree(oldDir), oldBefore);
    EXPECT_EQ(tmp.Read("evil.htm"), "outside the project");
    const std::string link = "<link rel=\"stylesheet\" type=\"text/css\" href=\"../HHStyles.css\">";
    EXPECT_EQ(Tree(newDir),
              (std::map<std::string, std::string>{
                  {"n.hhp",
                   "[OPTIONS]\r\nContents file=Toc.hhc\r\nIndex file=Index.hhk\r\n\r\n[FILES]\r\n"
                   "HHStyles.css\r\nhtml\\main.htm\r\nhtml\\afxc0002.htm\r\n..\\..\\evil.htm\r\n"},
                  {"HHStyles.css", "Body{ }\r\n\r\n"},
                  {"html/main.htm", "<HTML><HEAD><TITLE>Main</TITLE>" + link +
                                        "\r\n</HEAD><BODY><A NAME=\"main\"></A>"
                                        "<A HREF=\"../evil.htm#x\">next</A></BODY></HTML>"},
                  {"Index.hhk", "<param name=\"Local\" value=\"html/main.htm\">"},
                  {"Toc.hhc", "<param name=\"Local\" value=\"html\\../evil.htm\">"},
                  {"images/pic.gif", "GIF89a"}}));
    EXPECT_EQ(modRewrite::RefusedFiles(),
              (std::vector<std::string>{"html\\../evil.htm", "..\\..\\evil.htm"}));
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
