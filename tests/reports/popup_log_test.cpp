#include "reports/popup_log.h"

#include "reports/log_fixture.h"

namespace tamrix::modUtilities {
namespace {

// A 144-column table line with texts at 1-based columns, later texts overwriting.
std::string At(std::initializer_list<std::pair<std::size_t, std::string>> texts) {
    std::string line(144, ' ');
    for (const auto& [column, text] : texts) line.replace(column - 1, text.size(), text);
    return line;
}

class PopupLog : public testing::LogTest {
protected:
    PopupLog() : LogTest("1299334020") {}
    void SetUp() override {
        LogTest::SetUp();
        wizard.Projectname = "C:\\help\\proj.hhp";
    }
    std::shared_ptr<CTopicFile> Topic(const std::string& context, bool hasTitle, int internal,
                                      int external) {
        auto topic = AddTopic("afx_" + context + ".htm", context, hasTitle);
        topic->InternalReferences = internal;
        topic->ExternalReferences = external;
        return topic;
    }
    void Define(CContextIDs& ids, const std::string& name, const std::string& value,
                const std::string& key, int mapFileIndex, bool fileDefined) {
        auto id = ids.Add(wizard.Errors, name, value, key);
        ASSERT_NE(id, nullptr);
        id->MapFileIndex = mapFileIndex;
        id->FileDefined = fileDefined;
    }
    std::vector<std::string> Heading() const {
        return {"Popup Extraction Results for HTML Project: proj.hhp",
                "Tamrix Version " + VersionString(), "March 05, 2011: 02:07 PM", "",
                "HTML Project File: C:\\help\\proj.hhp"};
    }
};

TEST_F(PopupLog, WithoutUntitledTopicsOnlyTheTotalIsWritten) {
    Topic("idh_main", true, 2, 1);
    Topic("idh_lonely", false, 0, 0);
    ASSERT_TRUE(MakePopupLogSummary(wizard, report));
    std::vector<std::string> expected = Heading();
    expected.insert(expected.end(),
                    {"", "Text was extracted from a total of 0 untitled files.", ""});
    EXPECT_EQ(testing::LogLines(report.Text()), expected);
    EXPECT_EQ(report.Name(), "Popup Extraction Summary");
    EXPECT_TRUE(view.progress.empty());
}

TEST_F(PopupLog, ScriptPopupsLeftOutOfTheScriptAreListedAfterTheTables) {
    Topic("idh_ok", false, 1, 0);
    Topic("idh-bad", false, 1, 0);
    ASSERT_TRUE(MakePopupLogSummary(wizard, report));
    const std::vector<std::string> lines = testing::LogLines(report.Text());
    ASSERT_GE(lines.size(), 3u);
    EXPECT_EQ(std::vector<std::string>(lines.end() - 3, lines.end()),
              (std::vector<std::string>{
                  "", "Left out of \"popups.js\" because their topic IDs are not script names:",
                  "idh-bad.htm (Topic ID \"idh-bad\")"}));
}

TEST_F(PopupLog, ListsEveryPopupWithItsReferencesLineForLine) {
    wizard.WinHelpProjectName = "C:\\help\\proj.hpj";
    wizard.Globals.MapFiles = {"C:\\maps\\first.h", "C:\\maps\\second.h"};
    wizard.Globals.MapFileCount = 2;

    auto main = Topic("idh_main", true, 0, 0);
    auto other = Topic("idh_other", true, 0, 0);
    auto pop = Topic("idh_pop", false, 3, 1);
    pop->ExtraIds = "idh_pop_a^idh_pop_longer_extra_id_name";
    Topic("idh_app", false, 0, 2);
    Topic("idh_nomatch", false, 0, 1);
    // Two links in one file to the popup list that file twice; a fragment does not match.
    for (const char* target : {"afx_idh_pop.htm", "afx_idh_pop.htm#x", "AFX_IDH_POP.HTM"})
        main->targets().Add(target);
    other->targets().Add("afx_idh_pop.htm");

    wizard.Globals.MapContextIDs = std::make_shared<CContextIDs>();
    Define(*wizard.Globals.MapContextIDs, "idh_pop", "5", "idh_pop", 1, true);
    Define(*wizard.Globals.MapContextIDs, "idh_app", "&H10", "idh_app", 2, true);
    Define(*wizard.Globals.MapContextIDs, "IDH_APP", "20", "", 1, true);
    Define(*wizard.Globals.MapContextIDs, "idh_app", "99", "", 1, false);
    Define(*wizard.Globals.MapContextIDs, "idh_nomatch_not", "7", "", 1, true);
    // Map file numbers outside the list leave the column empty.
    Define(*wizard.Globals.MapContextIDs, "idh_app", "1", "", 0, true);
    Define(*wizard.Globals.MapContextIDs, "idh_app", "2", "", 3, true);
    wizard.Globals.ProjectContextIDs = std::make_shared<CContextIDs>();
    Define(*wizard.Globals.ProjectContextIDs, "idh_app", "30", "idh_app", 0, true);

    ASSERT_TRUE(MakePopupLogSummary(wizard, report));
    const std::vector<std::string> lines = testing::LogLines(report.Text());
    testing::ExpectInOrder(lines, Heading());
    testing::ExpectInOrder(
        lines,
        {"Original WinHelp 4 Project File: C:\\help\\proj.hpj",
         // The topic found both ways counts twice.
         "Text was extracted from a total of 4 untitled files.",
         "There were 1 files that were extracted to both \"popups.js\" and \"cshelp.txt\".",
         "Strings in \"popups.js\" were extracted from the following 1 untitled files",
         At({{1, ".htm File:"}, {30, "Topic_ID's:"}, {58, "Referenced From File:"}}),
         At({{1, "idh_pop.htm"}, {30, "idh_pop"}, {58, "idh_main.htm"}}),
         At({{58, "idh_main.htm"}}),
         // The referencing file overwrites the longer extra ID, whose tail shows.
         At({{58, "idh_other.htmr_extra_id_name"}}), "",
         "Strings in \"cshelp.txt\" were extracted from the following 3 untitled files",
         At({{1, ".htm File:"}, {30, "Context_ID:"}, {58, "Value:"}, {68, "Map File:"}}), "",
         At({{1, "idh_pop.htm"}, {30, "idh_pop"}, {58, "5"}, {68, "first.h"}}),
         At({{1, "idh_app.htm"}, {30, "idh_app"}, {58, "&H10"}, {68, "second.h"}}),
         At({{30, "IDH_APP"}, {58, "20"}, {68, "first.h"}}), At({{30, "idh_app"}, {58, "1"}}),
         At({{30, "idh_app"}, {58, "2"}}), At({{30, "idh_app"}, {58, "30"}}), "",
         "The following 1 untitled files were referenced from both sources."});
    EXPECT_EQ(lines.back(), "idh_pop.htm");
    EXPECT_EQ(lines.size(), 42u);

    EXPECT_EQ(view.Captions(), std::vector<std::string>{"Generating Popups Extraction Log ..."});
    int maximum = 0;
    for (const auto& p : view.progress)
        if (p.what == "max") maximum = p.number;
    EXPECT_EQ(maximum, 1 + 3 + 1 + 1);
}

}  // namespace
}  // namespace tamrix::modUtilities
