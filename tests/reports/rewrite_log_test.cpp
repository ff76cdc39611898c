#include "reports/rewrite_log.h"

#include "reports/log_fixture.h"
#include "rewrite/containment.h"

namespace tamrix::testing {
namespace {

// A table line: texts at columns 1, 36 and 46 of a 144-character line.
std::string Row(const std::string& id, const std::string& value, const std::string& file = {}) {
    std::string line =
        id + std::string(35 - id.size(), ' ') + value + std::string(10 - value.size(), ' ') + file;
    return line + std::string(144 - line.size(), ' ');
}

class RewriteLogTest : public LogTest {
protected:
    RewriteLogTest() : LogTest("1299333960") {}  // March 05, 2011 14:06 UTC
    void SetUp() override {
        LogTest::SetUp();
        wizard.Projectname = "C:\\Help\\proj.hhp";
        wizard.NewRootPath = "D:\\New\\";
        wizard.NewProjectName = "new.hhp";
        for (const char* name : {"a.htm", "b.htm", "c.htm"}) AddTopic(name, "", true);
    }
    // The log ends with `tail`.
    void ExpectTail(const std::string& tail) {
        const std::string& text = report.Text();
        ASSERT_GE(text.size(), tail.size());
        EXPECT_EQ(text.substr(text.size() - tail.size()), tail);
    }

    // Context IDs, map files and aliases as a write leaves them: some aliased,
    // one unaliased and one zero-value ID in each collection.
    void AddWinHelpData() {
        ProjectState& g = wizard.Globals;
        wizard.WinHelpProjectName = "C:\\Help\\proj.hpj";
        wizard.IndexFile = "C:\\Help\\Index.hhk";
        wizard.ContentsFile = "C:\\Help\\Toc.hhc";
        g.TopicFiles->Item(1)->HotSpotCount = 2;
        g.TopicFiles->Item(3)->HotSpotCount = 1;
        g.ProjectContextIDs = std::make_shared<CContextIDs>();
        AddID(*g.ProjectContextIDs, "IDH_A", "1", 1, true, 0);
        AddID(*g.ProjectContextIDs, "IDH_B", "2", 2, false, 0);
        AddID(*g.ProjectContextIDs, "IDH_Z", "0", 0, false, 0);
        g.MapContextIDs = std::make_shared<CContextIDs>();
        AddID(*g.MapContextIDs, "M_1", "&H10", 16, true, 1);
        AddID(*g.MapContextIDs, "M_2", "5", 5, false, 2);
        AddID(*g.MapContextIDs, "M_0", "0", 0, false, 1);
        g.MapFiles = {"C:\\Help\\first.h", "C:\\Help\\second.h"};
        g.MapFileCount = 2;
        g.ProjectAliases = std::make_shared<CAliases>();
        g.ProjectAliases->Add("IDH_X")->AliasFound = true;
        g.ProjectAliases->Add("IDH_Y");
    }
    void AddID(CContextIDs& ids, const char* name, const char* value, int number, bool defined,
               int mapFile) {
        const auto id = ids.Add(wizard.Errors, name, value, name);
        id->ContextIDVal = number;
        id->FileDefined = defined;
        id->MapFileIndex = mapFile;
    }

    std::string Head() const {
        return "Project Write Results for Converted HTML Help Project: proj.hhp\r\n\r\n"
               "Tamrix Version " +
               VersionString() +
               "\r\nMarch 05, 2011: 02:06 PM\r\n\r\n"
               "HTML Project File:\r\nC:\\Help\\proj.hhp\r\n\r\n";
    }
    std::string Table() const {
        return "\r\nAliases were not found for these Context ID's:\r\n\r\n" +
               Row("Context ID:", "Value:", "Map File:") + "\r\n" +
               Row("------------", "------", "----------") + "\r\n";
    }
};

TEST_F(RewriteLogTest, FullLogWithZeroValueIDsIgnored) {
    AddWinHelpData();
    ASSERT_TRUE(modUtilities::WriteRewriteLog(wizard, report, 2, 2));
    EXPECT_EQ(report.Name(), "Write Summary Results for HTML Project: proj.hhp");
    EXPECT_EQ(report.Text(),
              Head() +
                  "Original WinHelp 4 Project File:\r\nC:\\Help\\proj.hpj\r\n"
                  "\r\nNew project written in: \r\nD:\\New\\\r\nNew project name: new.hhp\r\n"
                  "Rewrote Index File: Index.hhk\r\nRewrote Contents File: Toc.hhc\r\n"
                  "Rewrote 3 .htm files in folder html/.\r\n"
                  "TODO: The following 2 .htm files contain graphical hotspots \n"
                  "and must be manually edited to restore the function:\r\n"
                  "a.htm\r\nc.htm\r\n\r\n\r\n"
                  "Wrote 1 aliases for map file entries in the WinHelp project file.\r\n"
                  "\r\nWrote 1 aliases for map files referenced in the WinHelp project.\r\n"
                  "\r\nRewrote 1 aliases for alias entries in the WinHelp project file.\r\n"
                  "\r\nThere were 2 zero value context ID'sthat were ignored.\r\n"
                  "\r\nThere were 2 context ID's for which no alias was found.\r\n" +
                  Table() + Row("IDH_B", "2") + "\r\n" + Row("M_2", "5", "second.h") + "\r\n");
}

TEST_F(RewriteLogTest, ZeroValueMapFileIDsAreListedWhenNotIgnored) {
    AddWinHelpData();
    wizard.Globals.IgnoreZeroIDs = false;
    wizard.Globals.MapContextIDs->Item("M_2")->MapFileIndex = 3;  // past the list: no name
    ASSERT_TRUE(modUtilities::WriteRewriteLog(wizard, report, 2, 2));
    ExpectTail(
        "\r\nThere were 2 zero value context ID's.\r\n"
        "\r\nThere were 4 context ID's for which no alias was found.\r\n" +
        Table() + Row("IDH_B", "2") + "\r\n" + Row("M_2", "5") + "\r\n" +
        Row("M_0", "0", "first.h") + "\r\n");
}

TEST_F(RewriteLogTest, PlainProjectEndsAfterTheTopicCount) {
    ASSERT_TRUE(modUtilities::WriteRewriteLog(wizard, report, 0, 0));
    EXPECT_EQ(report.Text(), Head() +
                                 "\r\nNew project written in: \r\nD:\\New\\\r\nNew project name: "
                                 "new.hhp\r\nRewrote 3 .htm files in folder html/.\r\n");
}

TEST_F(RewriteLogTest, ListsFilesRefusedForLyingOutsideTheNewFolder) {
    modRewrite::RefuseOutsideFile(wizard, "..\\..\\evil.htm");
    modRewrite::RefuseOutsideFile(wizard, "html\\../evil.htm");
    modRewrite::RefuseOutsideFile(wizard, "..\\..\\EVIL.htm");  // already listed
    modRewrite::RefuseTopicID(wizard, "html\\afxc0001.htm", "CON");
    ASSERT_TRUE(modUtilities::WriteRewriteLog(wizard, report, 0, 0));
    ExpectTail(
        "Rewrote 3 .htm files in folder html/.\r\n\r\n"
        "Files refused because they would lie outside the new project folder:\r\n"
        "..\\..\\evil.htm\r\nhtml\\../evil.htm\r\n\r\n"
        "Topic files that keep their old names because their topic IDs cannot be file "
        "names:\r\nhtml\\afxc0001.htm (Topic ID \"CON\")\r\n");
}

}  // namespace
}  // namespace tamrix::testing
