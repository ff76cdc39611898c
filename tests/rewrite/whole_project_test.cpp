// The writers in the order of a real write, on one small project: topics without
// a usable ID keep their old names in the project, the links and the contents;
// a file that would lie outside is not written; the input is left as it was.
#include "platform/byte_text.h"
#include "rewrite/project_writer.h"
#include "rewrite/sitemap_rewriter.h"
#include "rewrite/topic_rewriter.h"
#include "rewrite_fixture.h"

namespace tamrix::testing {
namespace {

TEST_F(RewriteTest, WholeProjectKeepsUnusableNamesEverywhereAndTheInputAsItWas) {
    // LF-only, as some converted projects are.
    const std::string project =
        tmp.Write("old/p.hhp",
                  "[OPTIONS]\nContents file=Toc.hhc\n\n[FILES]\nhtml\\afxc0001.htm\n"
                  "html\\afxc0002.htm\nhtml\\afxc0004.htm\n..\\..\\evil.htm\n");
    const std::string mainText = "<A HREF=\"afxc0002.htm#x\">x</A><A HREF=\"afxc0004.htm\">y</A>";
    tmp.Write("old/html/afxc0001.htm", mainText);
    tmp.Write("old/html/afxc0002.htm", "<A HREF=\"afxc0001.htm\">back</A>");
    tmp.Write("old/html/afxc0004.htm", "device");
    tmp.Write("evil.htm", "outside the project");
    const std::string toc = "value=\"html\\afxc0002.htm\"><param value=\"html\\afxc0001.htm\">";
    tmp.Write("old/Toc.hhc", toc);
    AddTopic("html\\afxc0001.htm", "main", {"afxc0002.htm#x", "afxc0004.htm"});
    AddTopic("html\\afxc0002.htm", "../evil", {"afxc0001.htm"});
    AddTopic("html\\afxc0004.htm", "Con.txt");
    AddTopic("..\\..\\evil.htm", "evil");
    wizard.Globals.ContentsTargets = std::make_shared<CTargets>();
    for (const char* t : {"html\\afxc0002.htm", "html\\afxc0001.htm"})
        wizard.Globals.ContentsTargets->Add(t);
    const auto oldBefore = Tree(oldDir);
    const auto writeAll = [&] {
        modRewrite::SettleNewFileNames(wizard);
        ASSERT_TRUE(modRewrite::RewriteProjectFile(wizard, project, newDir + "/n.hhp"));
        for (const auto& topic : *wizard.Globals.TopicFiles)
            EXPECT_TRUE(modRewrite::RewriteTopicFile(wizard, *topic, project, newDir, ""));
        EXPECT_TRUE(modRewrite::RewriteContents(wizard, project, oldDir + "/Toc.hhc", newDir));
    };
    writeAll();
    EXPECT_EQ(Tree(oldDir), oldBefore);
    EXPECT_EQ(tmp.Read("evil.htm"), "outside the project");
    const std::map<std::string, std::string> written{
        {"n.hhp",
         "[OPTIONS]\nContents file=Toc.hhc\n\n[FILES]\nhtml\\main.htm\nhtml\\afxc0002.htm\n"
         "html\\afxc0004.htm\n..\\..\\evil.htm\n"},
        {"html/main.htm", mainText},
        {"html/afxc0002.htm", "<A HREF=\"main.htm\">back</A>"},
        {"html/afxc0004.htm", "device"},
        {"Toc.hhc", ReplaceAll(toc, "afxc0001", "main")}};
    EXPECT_EQ(Tree(newDir), written);
    EXPECT_EQ(wizard.Globals.RefusedFiles, std::vector<std::string>{"..\\..\\evil.htm"});
    EXPECT_EQ(wizard.Globals.RefusedTopicIDs,
              (std::vector<std::string>{"html\\afxc0002.htm (Topic ID \"../evil\")",
                                        "html\\afxc0004.htm (Topic ID \"Con.txt\")"}));
    // Writing again over the new project gives the same files.
    writeAll();
    EXPECT_EQ(Tree(newDir), written);
}

}  // namespace
}  // namespace tamrix::testing
