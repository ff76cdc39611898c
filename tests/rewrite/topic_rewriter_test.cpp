#include "rewrite/topic_rewriter.h"

#include <algorithm>

#include "platform/byte_text.h"
#include "rewrite_fixture.h"

namespace tamrix::testing {
namespace {

constexpr const char* kLink =
    "<link rel=\"stylesheet\" type=\"text/css\" href=\"../HHStyles.css\">";

class TopicFileTest : public RewriteTest {
protected:
    // Writes the old file of `topic`, rewrites it and returns the new file's text.
    std::string Rewrite(const std::shared_ptr<CTopicFile>& topic, const std::string& text,
                        const std::string& css = {}) {
        tmp.Write("old/" + Slashed(topic->AutoNamePath), text);
        ok = modRewrite::RewriteTopicFile(wizard, *topic, oldDir + "/p.hhp", newDir, css);
        const std::string written = "work/new/" +
                                    Slashed(modUtilities::FilePathOnly(topic->AutoNamePath)) +
                                    topic->NewFileName;
        return tmp.Exists(written) ? tmp.Read(written) : "<not written>";
    }
    static std::string Slashed(std::string path) {
        std::replace(path.begin(), path.end(), '\\', '/');
        return path;
    }
    bool ok = false;
};

TEST_F(TopicFileTest, RenamesLinksKeepingFragmentsPrefixesAndEverythingElse) {
    AddTopic("html\\afxc0002.htm", "Intro");
    const auto topic = AddTopic("html\\afxc0001.htm", "main",
                                {"afxc0002.htm#part", "../html/AFXC0002.HTM", "afxc0002.htm#part"});
    const std::string text =
        "<HTML>\r\n<HEAD>\r\n<TITLE>T</TITLE>\r\n</HEAD>\r\n<BODY>\r\n"
        "<A HREF=\"afxc0002.htm#part\">x</A>\r\n<a href=\"../html/AFXC0002.HTM\">y</a>\r\n"
        "<OBJECT><PARAM name=\"Item1\" value=\";xafxc0002.htm\"></OBJECT>\r\n</BODY>\r\n</HTML>\r\n";
    // Every occurrence renamed, whatever stands around it; the link goes before the head end.
    EXPECT_EQ(Rewrite(topic, text, kLink),
              ReplaceAll(ReplaceAll(text, "afxc0002.htm", "Intro.htm"), "</HEAD>",
                         std::string(kLink) + "\r\n</HEAD>"));
    EXPECT_TRUE(ok);
    EXPECT_TRUE(view.messages.empty());
}

// Each target is a pass of its own, which finds the old name inside a new one.
TEST_F(TopicFileTest, ATargetListedTwiceIsASecondPass) {
    AddTopic("html\\a2.htm", "xa2");
    const auto twice = AddTopic("html\\a3.htm", "three", {"a2.htm", "A2.htm"});
    EXPECT_EQ(Rewrite(twice, "see a2.htm\r\n"), "see xxa2.htm\r\n");
}

TEST_F(TopicFileTest, WarnsOnlyAboutUnknownFilesThatOccur) {
    const auto topic =
        AddTopic("html\\a1.htm", "one", {"#top", "http://x.org/a.htm", "missing.htm", "ext.htm#b"});
    const std::string text =
        "<a name=\"top\"></a>#top <a href=\"http://x.org/a.htm\">"
        "<a href=\"ext.htm#b\"></a>\r\n";
    EXPECT_EQ(Rewrite(topic, text), text);
    ASSERT_EQ(view.MessageIds(), (std::vector<long>{10032, 10032}));
    EXPECT_EQ(view.messages[0].text,
              "Cannot find a replacement target file for http://x.org/a.htm in a1.htm.");
    EXPECT_EQ(view.messages[1].text,
              "Cannot find a replacement target file for ext.htm#b in a1.htm.");
    view.ExpectMessage(0, 10032, "Rewriting Topic File", mb::kExclamation);
    EXPECT_TRUE(ok);
}

TEST_F(TopicFileTest, WithoutTargetsTheFileIsCopiedUnderItsNewName) {
    const auto topic = AddTopic("html\\a1.htm", "Plain");
    const std::string text = "<html><head><title>x</title></head><body>a1.htm</body></html>";
    EXPECT_EQ(Rewrite(topic, text), text);
    EXPECT_EQ(Rewrite(topic, text, kLink), std::string("<html><head><title>x</title>") + kLink +
                                               "\r\n</head><body>a1.htm</body></html>");
    // A topic in the root of the old project keeps no folder.
    const auto root = AddTopic("r.htm", "");
    EXPECT_EQ(Rewrite(root, "r"), "r");
    EXPECT_TRUE(tmp.Exists("work/new/r.htm"));
    // An unreadable old file is an unexpected error.
    const auto gone = AddTopic("html\\gone.htm", "gone");
    EXPECT_FALSE(modRewrite::RewriteTopicFile(wizard, *gone, oldDir + "/p.hhp", newDir, ""));
    ASSERT_EQ(view.errors.size(), 1u);
    EXPECT_TRUE(view.ErrorNamed("modRewrite:RewriteTopicFile"));
}

TEST_F(TopicFileTest, TheStyleSheetLinkFollowsTheCaretWhenTheHeadEndIsMissing) {
    AddTopic("html\\a2.htm", "two");
    const auto topic = AddTopic("html\\a1.htm", "one", {"a2.htm"});
    EXPECT_EQ(Rewrite(topic, "<BODY><A HREF=\"a2.htm\">x</A></BODY>", kLink),
              std::string("<BODY><A HREF=\"two.htm") + kLink + "\r\n\">x</A></BODY>");
    // Nothing replaced: the caret stands at the start.
    EXPECT_EQ(Rewrite(topic, "<BODY>x</BODY>", kLink), std::string(kLink) + "\r\n<BODY>x</BODY>");
    // A head end at position 0 counts as missing the other way: no link at all.
    EXPECT_EQ(Rewrite(topic, "</HEAD><BODY>x</BODY>", kLink), "</HEAD><BODY>x</BODY>");
    EXPECT_TRUE(view.messages.empty());
}

TEST_F(TopicFileTest, HostileNamesCreateNothingOutsideTheNewFolder) {
    wizard.Files.SetWriteRoot("");  // the check alone must keep them out
    const auto upTwice = AddTopic("..\\..\\evil.htm", "evil");
    const auto anchorUp = AddTopic("html\\a1.htm", "../evil");
    const auto anchorSep = AddTopic("html\\a2.htm", "sub\\evil");
    const auto drive = AddTopic("C:\\evil\\a3.htm", "");
    const auto rooted = AddTopic("\\evil\\a4.htm", "");
    tmp.Write("old/html/a1.htm", "one");
    tmp.Write("old/html/a2.htm", "two");
    tmp.Write("evil.htm", "placed by the test");  // what "..\..\evil.htm" reads
    const auto before = Tree();
    for (const auto& t : {upTwice, anchorUp, anchorSep, drive, rooted})
        EXPECT_TRUE(modRewrite::RewriteTopicFile(wizard, *t, oldDir + "/p.hhp", newDir, ""));
    EXPECT_EQ(Tree(), before);
    EXPECT_FALSE(tmp.Exists("work/new/html"));
    EXPECT_EQ(
        wizard.Globals.RefusedFiles,
        (std::vector<std::string>{"..\\..\\evil.htm", "html\\../evil.htm", "html\\sub\\evil.htm",
                                  "C:\\evil\\a3.htm", "\\evil\\a4.htm"}));
    ASSERT_EQ(view.messages.size(), 5u);
    EXPECT_EQ(view.messages[1].text,
              "The file \"html\\../evil.htm\" would lie outside the new project folder.\nIt was "
              "not written.");
    for (std::size_t i = 0; i < view.messages.size(); ++i)
        view.ExpectMessage(i, 0, "Writing New Project Files", mb::kExclamation);
}

TEST(Containment, SafeNamesStayBelowTheNewFolder) {
    for (const char* good :
         {"a.htm", "html\\a.htm", "html/a.htm", "a..b.htm", ".hidden", "x\\.\\y"})
        EXPECT_TRUE(modRewrite::IsSafeRelativeName(good)) << good;
    for (const char* bad :
         {"", "..\\..\\x.htm", "../x.htm", "html\\..\\..\\x.htm", "\\x.htm", "/etc/x", "C:x.htm",
          "c:\\x.htm", "html\\", "...\\x.htm", ". .\\x.htm", "html\\.."})
        EXPECT_FALSE(modRewrite::IsSafeRelativeName(bad)) << bad;
    EXPECT_FALSE(modRewrite::IsSafeRelativeName(std::string("a\0/../x", 7)));
}

TEST(Containment, TopicIDsMustBeWindowsFileNames) {
    for (const char* good : {"IDH_MAIN", "a.b", "CONSOLE", "COM0", "LPT10", "nul_x", ".x"})
        EXPECT_TRUE(modRewrite::IsWindowsFileName(good)) << good;
    for (const char* bad : {"",       "a\"b", "a*",   "a?",  "a<b",     "a>b",       "a|b",  "a\tb",
                            "\x01",   "end.", "end ", "CON", "con.txt", "Aux.h.htm", "NUL ", "COM1",
                            "lpt9.x", "PRN",  "..",   "a:b", "a\\b",    "a/b"})
        EXPECT_FALSE(modRewrite::IsWindowsFileName(bad)) << bad;
    EXPECT_TRUE(modRewrite::IsWindowsFileName(std::string(200, 'a')));
    EXPECT_FALSE(modRewrite::IsWindowsFileName(std::string(201, 'a')));
}

}  // namespace
}  // namespace tamrix::testing
