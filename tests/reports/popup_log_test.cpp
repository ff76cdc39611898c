#include "reports/popup_log.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <utility>
#include <vector>

#include "model/project_state.h"
#include "platform/byte_text.h"
#include "platform/program_identity.h"
#include "support/scripted_view.h"

namespace tamrix::modUtilities {
namespace {

// A 144-column table line with texts at 1-based columns, later texts overwriting.
std::string At(std::initializer_list<std::pair<std::size_t, std::string>> texts) {
    std::string line(144, ' ');
    for (const auto& [column, text] : texts) line.replace(column - 1, text.size(), text);
    return line;
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t end = text.find("\r\n"); end != std::string::npos;
         start = end + 2, end = text.find("\r\n", start))
        lines.push_back(text.substr(start, end - start));
    EXPECT_EQ(start, text.size()) << "the log must end with a line break";
    return lines;
}

class PopupLog : public ::testing::Test {
  protected:
    void SetUp() override {
        setenv("SOURCE_DATE_EPOCH", "1299334020", 1);
        modGlobals::ResetAll();
        modGlobals::TopicFiles = std::make_shared<CTopicFiles>();
        wizard_.Projectname = "C:\\help\\proj.hhp";
    }
    void TearDown() override {
        unsetenv("SOURCE_DATE_EPOCH");
        modGlobals::ResetAll();
    }

    std::shared_ptr<CTopicFile> Topic(const std::string& context, bool hasTitle, int internal,
                                      int external) {
        auto topic = std::make_shared<CTopicFile>();
        topic->Context = context;
        topic->AutoFileName = "afx_" + context + ".htm";
        topic->NewFileName = context + ".htm";
        topic->HasTitle = hasTitle;
        topic->InternalReferences = internal;
        topic->ExternalReferences = external;
        modGlobals::TopicFiles->Add(topic, topic->AutoFileName);
        return topic;
    }

    static void Define(CContextIDs& ids, const std::string& name, const std::string& value,
                       const std::string& key, int mapFileIndex, bool fileDefined) {
        auto id = ids.Add(name, value, key);
        ASSERT_NE(id, nullptr);
        id->MapFileIndex = mapFileIndex;
        id->FileDefined = fileDefined;
    }

    std::vector<std::string> Heading() const {
        return {"Popup Extraction Results for HTML Project: proj.hhp",
                "Tamrix Version " + VersionString(), "March 05, 2011: 02:07 PM", "",
                "HTML Project File: C:\\help\\proj.hhp"};
    }

    testing::ScriptedView view_;
    ScopedActiveView active_{view_};
    WizardState wizard_{&view_};
    CSummary report_;
};

TEST_F(PopupLog, WithoutUntitledTopicsOnlyTheTotalIsWritten) {
    Topic("idh_main", true, 2, 1);
    Topic("idh_lonely", false, 0, 0);
    ASSERT_TRUE(MakePopupLogSummary(wizard_, report_));
    std::vector<std::string> expected = Heading();
    expected.insert(expected.end(),
                    {"", "Text was extracted from a total of 0 untitled files.", ""});
    EXPECT_EQ(Lines(report_.Text()), expected);
    EXPECT_EQ(report_.Name(), "Popup Extraction Summary");
    EXPECT_TRUE(view_.progress.empty());
}

TEST_F(PopupLog, ListsEveryPopupWithItsReferencesLineForLine) {
    wizard_.WinHelpProjectName = "C:\\help\\proj.hpj";
    modGlobals::MapFiles = {"C:\\maps\\first.h", "C:\\maps\\second.h"};
    modGlobals::MapFileCount = 2;

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

    modGlobals::MapContextIDs = std::make_shared<CContextIDs>();
    Define(*modGlobals::MapContextIDs, "idh_pop", "5", "idh_pop", 1, true);
    Define(*modGlobals::MapContextIDs, "idh_app", "&H10", "idh_app", 2, true);
    Define(*modGlobals::MapContextIDs, "IDH_APP", "20", "", 1, true);
    Define(*modGlobals::MapContextIDs, "idh_app", "99", "", 1, false);
    Define(*modGlobals::MapContextIDs, "idh_nomatch_not", "7", "", 1, true);
    modGlobals::ProjectContextIDs = std::make_shared<CContextIDs>();
    Define(*modGlobals::ProjectContextIDs, "idh_app", "30", "idh_app", 0, true);

    ASSERT_TRUE(MakePopupLogSummary(wizard_, report_));
    std::vector<std::string> expected = Heading();
    const std::string blank(144, ' ');
    expected.insert(
        expected.end(),
        {"", "Original WinHelp 4 Project File: C:\\help\\proj.hpj", "",
         // The topic found both ways counts twice.
         "Text was extracted from a total of 4 untitled files.",
         "There were 1 files that were extracted to both \"popups.js\" and \"cshelp.txt\".", "", "",
         "Strings in \"popups.js\" were extracted from the following 1 untitled files",
         "that are referenced from other .htm files within the project:", blank,
         At({{1, ".htm File:"}, {30, "Topic_ID's:"}, {58, "Referenced From File:"}}),
         At({{1, std::string(10, '-')}, {30, std::string(17, '-')}, {58, std::string(20, '-')}}),
         "", At({{1, "idh_pop.htm"}, {30, "idh_pop"}, {58, "idh_main.htm"}}),
         At({{58, "idh_main.htm"}}),
         // The referencing file overwrites the longer extra ID, whose tail shows.
         At({{58, "idh_other.htmr_extra_id_name"}}), "",
         "Strings in \"cshelp.txt\" were extracted from the following 3 untitled files",
         "that are referenced from an external application using context ID's in a map file:",
         blank, At({{1, ".htm File:"}, {30, "Context_ID:"}, {58, "Value:"}, {68, "Map File:"}}),
         At({{1, std::string(10, '-')},
             {30, std::string(17, '-')},
             {58, std::string(6, '-')},
             {68, std::string(10, '-')}}),
         "", At({{1, "idh_pop.htm"}, {30, "idh_pop"}, {58, "5"}, {68, "first.h"}}),
         At({{1, "idh_app.htm"}, {30, "idh_app"}, {58, "&H10"}, {68, "second.h"}}),
         At({{30, "IDH_APP"}, {58, "20"}, {68, "first.h"}}), At({{30, "idh_app"}, {58, "30"}}), "",
         "The following 1 untitled files were referenced from both sources.",
         "Text from these files appears in both \"popups.js\" and \"cshelp.txt.\"", blank,
         At({{1, ".htm File:"}}), At({{1, std::string(10, '-')}}), "", "idh_pop.htm"});
    const std::vector<std::string> actual = Lines(report_.Text());
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_EQ(actual[i], expected[i]) << "line " << i + 1;

    EXPECT_EQ(view_.Captions(), std::vector<std::string>{"Generating Popups Extraction Log ..."});
    int maximum = 0;
    for (const auto& p : view_.progress)
        if (p.what == "max") maximum = p.number;
    EXPECT_EQ(maximum, 1 + 3 + 1 + 1);
}

TEST_F(PopupLog, AMapFileIndexOutsideTheListLeavesTheColumnEmpty) {
    Topic("idh_app", false, 0, 1);
    modGlobals::MapFiles = {"C:\\maps\\only.h"};
    modGlobals::MapContextIDs = std::make_shared<CContextIDs>();
    Define(*modGlobals::MapContextIDs, "idh_app", "1", "", 0, true);
    Define(*modGlobals::MapContextIDs, "idh_app", "2", "", 2, true);
    ASSERT_TRUE(MakePopupLogSummary(wizard_, report_));
    const std::vector<std::string> lines = Lines(report_.Text());
    ASSERT_GE(lines.size(), 2u);
    EXPECT_EQ(lines[lines.size() - 2], At({{1, "idh_app.htm"}, {30, "idh_app"}, {58, "1"}}));
    EXPECT_EQ(lines.back(), At({{30, "idh_app"}, {58, "2"}}));
}

}  // namespace
}  // namespace tamrix::modUtilities
