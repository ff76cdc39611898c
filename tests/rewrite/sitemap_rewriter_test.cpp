#include "rewrite/sitemap_rewriter.h"

#include "platform/byte_text.h"
#include "rewrite_fixture.h"

namespace tamrix::testing {
namespace {

class SitemapTest : public RewriteTest {
protected:
    void SetUp() override {
        RewriteTest::SetUp();
        AddTopic("html\\afxc0001.htm", "main");
        // The new name is taken as it stands, not made again from the topic ID.
        AddTopic("html\\afxc0002.htm", "intro")->NewFileName = "Intro_2.htm";
        wizard.Globals.IndexTargets = std::make_shared<CTargets>();
        wizard.Globals.ContentsTargets = std::make_shared<CTargets>();
    }
};

TEST_F(SitemapTest, IndexKeepsFoldersAndFragmentsAndGoesToTheNewRoot) {
    for (const char* t :
         {"html/afxc0001.htm", "html\\afxc0002.htm#sec", "html/AFXC0001.HTM", "other.htm"})
        wizard.Globals.IndexTargets->Add(t);
    const std::string hhk =
        "<OBJECT type=\"text/sitemap\">\r\n"
        "<param name=\"Local\" value=\"html/afxc0001.htm\">\r\n"
        "<param name=\"Local\" value=\"html\\afxc0002.htm#sec\">\r\n"
        "<param name=\"Local\" value=\"other.htm\">\r\n"
        "<param name=\"Local\" value=\"HTML/AFXC0001.HTM#x\">\r\n</OBJECT>\r\n";
    // The old index is read from the project folder, whatever folder the wizard names.
    tmp.Write("old/Index.hhk", hhk);
    EXPECT_TRUE(modRewrite::RewriteIndex(wizard, oldDir + "/p.hhp",
                                         tmp.Write("elsewhere/Index.hhk", ""), newDir));
    // Only the file named without a fragment is renamed, in any case and with any fragment.
    EXPECT_EQ(tmp.Read("work/new/Index.hhk"), ReplaceAll(hhk, "afxc0001.htm", "main.htm"));
    EXPECT_EQ(view.Captions().back(), "Writing New Index File ...");
    EXPECT_TRUE(view.messages.empty());
}

TEST_F(SitemapTest, ContentsReplacesAFileNamedWithoutFragmentEverywhere) {
    struct Case {
        std::vector<const char*> targets;  // none: no target collection at all
        const char *text, *expected;
    } const cases[] = {{{"html\\afxc0002.htm#sec", "html\\afxc0002.htm"},
                        "a html\\afxc0002.htm#sec b afxc0002.htm",
                        "a html\\Intro_2.htm#sec b Intro_2.htm"},
                       // Without targets the file is copied.
                       {{}, "x afxc0001.htm", "x afxc0001.htm"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        wizard.Globals.ContentsTargets.reset();
        if (!c.targets.empty()) wizard.Globals.ContentsTargets = std::make_shared<CTargets>();
        for (const char* t : c.targets) wizard.Globals.ContentsTargets->Add(t);
        const std::string file = tmp.Write("old/Toc.hhc", c.text);
        EXPECT_TRUE(modRewrite::RewriteContents(wizard, oldDir + "/p.hhp", file, newDir));
        EXPECT_EQ(tmp.Read("work/new/Toc.hhc"), c.expected);
    }
    EXPECT_EQ(view.Captions().front(), "Writing New Contents File ...");
}

TEST_F(SitemapTest, AMissingFileWritesNothingAndSucceeds) {
    EXPECT_TRUE(modRewrite::RewriteIndex(wizard, oldDir + "/p.hhp", "", newDir));
    EXPECT_TRUE(modRewrite::RewriteIndex(wizard, oldDir + "/p.hhp", oldDir + "/none.hhk", newDir));
    EXPECT_TRUE(Tree(newDir).empty());
    EXPECT_TRUE(view.messages.empty());
    EXPECT_TRUE(view.errors.empty());
}

}  // namespace
}  // namespace tamrix::testing
