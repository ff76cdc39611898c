// The step machine driven through the scripted view, on a copy of the sample.
#include "wizard/wizard.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

#include "messages/messages.h"
#include "model/project_state.h"
#include "platform/byte_text.h"
#include "support/environment.h"
#include "support/sample_copy.h"
#include "support/scripted_wizard_view.h"
#include "support/temp_dir.h"

namespace tamrix {
namespace {

namespace fs = std::filesystem;

class WizardTest : public ::testing::Test {
protected:
    void SetUp() override {
        testing::PrepareSampleCopy(dir.Path());
        wizard.Start();
    }
    void TearDown() override { testing::ClearEnvironment("SOURCE_DATE_EPOCH"); }
    void Next() { wizard.cmdNav_Click(kNavNext); }
    // Steps 0 to 3 with the sample and its WinHelp project.
    void ScanSample(bool withHpj = true) {
        Next();
        wizard.controls.txtProjectName = dir / "in/TideClock.hhp";
        Next();
        wizard.controls.txtWinhelpProjectName = withHpj ? dir / "in/TideClock.hpj" : "";
        Next();
    }

    testing::TempDir dir;
    testing::ScriptedWizardView view;
    Wizard wizard{view};
};

TEST_F(WizardTest, StepOneNeedsAProjectAndDoesNotReopenTheSameName) {
    Next();
    Next();  // nothing entered
    EXPECT_EQ(wizard.CurrentStep(), 1);
    ASSERT_FALSE(view.messages.empty());
    EXPECT_EQ(view.messages.back().catalogueId, 10008);
    wizard.controls.txtProjectName = dir / "in/TideClock.hhp";
    Next();
    ASSERT_EQ(wizard.CurrentStep(), 2);
    EXPECT_EQ(wizard.controls.lblContextCount, "42");
    // With the file gone, reopening would fail; the same name does not reopen it.
    fs::rename(dir / "in/TideClock.hhp", dir / "in/moved.hhp");
    wizard.cmdNav_Click(kNavBack);
    Next();
    EXPECT_EQ(wizard.CurrentStep(), 2);
    wizard.cmdNav_Click(kNavBack);
    wizard.controls.txtProjectName = dir / "in/missing.hhp";
    Next();
    EXPECT_EQ(wizard.CurrentStep(), 1);
    EXPECT_EQ(view.messages.back().catalogueId, 10069);
}

TEST_F(WizardTest, ScanWithoutAWinHelpProjectHasNoContextIds) {
    ScanSample(false);
    ASSERT_EQ(wizard.CurrentStep(), 3);
    EXPECT_TRUE(wizard.ScanComplete);
    EXPECT_EQ(wizard.Globals.MapContextIDs, nullptr);
    EXPECT_EQ(wizard.controls.lblContextIDs, "0");
    EXPECT_FALSE(wizard.controls.chkMapData);
    EXPECT_EQ(wizard.controls.lblUntitledCount, "11");
    // Entering step 3 shows the step results once.
    const MessageRequest* results = view.FindMessage("Successfully scanned all files.");
    ASSERT_NE(results, nullptr);
    EXPECT_EQ(results->title, "StepResults");
}

// A Visual C++ map file: its "NAME VALUE" lines are counted and the option named
// unless Options/"Read Name-Value Lines in Map Files" is ticked.
TEST_F(WizardTest, NameValueMapLinesAreReadOnlyWithTheirOption) {
    dir.Write("in/TideClock.hm",
              "// MAKEHELP.BAT generated Help Map file.\r\n\r\n"
              "HID_TIDE_REFRESH                        0x18003\r\n"
              "HIDD_ABOUTBOX                           0x20064\r\n");
    const std::string hpj = dir / "in/TideClock.hpj";
    dir.Write("in/TideClock.hpj", ReplaceAll(testing::ReadFileBytes(hpj), "[MAP]\r\n",
                                             "[MAP]\r\n#include <TideClock.hm>\r\n"));
    EXPECT_FALSE(wizard.menus.mnuOptionsReadNameValue.checked);
    ScanSample();
    EXPECT_TRUE(wizard.controls.chkAliasData);
    EXPECT_EQ(wizard.controls.lblContextIDs, "21");  // the sample's own, none of the new file
    EXPECT_EQ(wizard.Globals.MapContextIDs->Find("HIDD_ABOUTBOX"), nullptr);
    EXPECT_NE(view.FindMessage("2 lines of the map files defining an ID as \"NAME VALUE\" (as "
                               "Visual C++ writes them) not read. To read them, tick "
                               "Options/\"Read Name-Value Lines in Map Files\" and scan again."),
              nullptr);
    wizard.mnuOptionsReadNameValue_Click();
    wizard.cmdNav_Click(kNavBack);
    Next();  // scans again
    ASSERT_NE(wizard.Globals.MapContextIDs->Find("HIDD_ABOUTBOX"), nullptr);
}

TEST_F(WizardTest, TheSampleIsWrittenAgainAfterBackThenActivatedAndFinished) {
    ScanSample();
    wizard.controls.txtRootPath = dir / "out/TideClock.hhp";
    view.answersById[10011] = mb::kYes;  // create the missing folder
    Next();
    ASSERT_EQ(wizard.CurrentStep(), 4);
    EXPECT_TRUE(wizard.RewriteDone);
    for (const char* file : {"TideClock.hhp", "scan.log", "rewrite.log", "popups.log", "popups.js",
                             "cshelp.txt", "cshelp.h", "NewMap.h", "NewAliases.h", "csAlias.h"})
        EXPECT_TRUE(dir.Exists(std::string("out/") + file)) << file;
    EXPECT_GT(wizard.NumPopupStrings, 0);
    EXPECT_TRUE(wizard.menus.mnuViewPopupLog.enabled);
    const MessageRequest* results = view.FindMessage(modMessages::GetMessageString(10025));
    ASSERT_NE(results, nullptr);
    EXPECT_EQ(results->title, "StepResults");
    EXPECT_NE(results->text.find("Tamrix wrote the file \"cshelp.txt\""), std::string::npos);
    EXPECT_FALSE(wizard.NavButtons()[kNavExit].enabled);

    // Back from step 4 and Next again writes everything again.
    fs::remove(dir / "out/rewrite.log");
    wizard.cmdNav_Click(kNavBack);
    view.answersById[10038] = mb::kYes;
    Next();
    EXPECT_EQ(wizard.CurrentStep(), 4);
    EXPECT_NE(view.FindMessage("Overwrite the project \"TideClock.hhp\""), nullptr);
    EXPECT_TRUE(dir.Exists("out/rewrite.log"));

    // Activating the popups, the Finished step enables Exit.
    wizard.controls.optYesPopups = true;
    wizard.controls.optNoPopups = false;
    Next();
    ASSERT_EQ(wizard.CurrentStep(), 5);
    EXPECT_TRUE(wizard.PopupsActivated);
    EXPECT_TRUE(wizard.Finished());
    EXPECT_TRUE(wizard.NavButtons()[kNavExit].enabled);
    EXPECT_TRUE(wizard.menus.mnuOptionsReformatMap.checked);
    EXPECT_TRUE(wizard.menus.mnuToolsFormatMapFiles.enabled);
    EXPECT_TRUE(dir.Exists("out/html/NoPopups"));
    EXPECT_NE(view.FindMessage("to use Javascript"), nullptr);
    view.answers = {mb::kYes};
    wizard.cmdNav_Click(kNavExit);
    EXPECT_EQ(view.exits, 1);
    EXPECT_EQ(view.messages.back().text, "Do you want to exit the program?");
}

// Files of the new project by their path in it, with their content; the logs,
// which name the folder, are left out.
std::map<std::string, std::string> FilesUnder(const fs::path& root) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (!entry.is_regular_file() || entry.path().extension() == ".log") continue;
        std::ifstream in(entry.path(), std::ios::binary);
        files[fs::relative(entry.path(), root).generic_string()] = {
            std::istreambuf_iterator<char>(in), {}};
    }
    return files;
}

// Told before the write step that popups will be activated (as the command line
// is), the wizard holds the calling topics back and writes each once; the new
// project is the same as when the answer comes at its step, whatever it is.
TEST_F(WizardTest, AnEarlyPopupChoiceWritesTheSameProject) {
    testing::SetEnvironment("SOURCE_DATE_EPOCH", "1299333420");
    const auto convert = [&](const std::string& out, bool early, bool activate) {
        Wizard one{view};
        one.Start();
        one.PopupsChosenEarly = early;
        one.cmdNav_Click(kNavNext);
        one.controls.txtProjectName = dir / "in/TideClock.hhp";
        one.cmdNav_Click(kNavNext);
        one.controls.txtWinhelpProjectName = dir / "in/TideClock.hpj";
        one.cmdNav_Click(kNavNext);
        one.controls.txtRootPath = dir / out;
        one.cmdNav_Click(kNavNext);
        EXPECT_EQ(one.CurrentStep(), 4) << out;
        one.controls.optYesPopups = activate;
        one.controls.optNoPopups = !activate;
        one.cmdNav_Click(kNavNext);
        EXPECT_EQ(one.CurrentStep(), 5) << out;
        EXPECT_EQ(one.PopupsActivated, activate) << out;
        return FilesUnder(dir / fs::path(out).parent_path().string());
    };
    view.answersById[10011] = mb::kYes;  // create the missing folders
    const auto activated = convert("out1/TideClock.hhp", false, true);
    EXPECT_GT(activated.size(), 20u);
    const auto expectSame = [](const std::map<std::string, std::string>& actual,
                               const std::map<std::string, std::string>& expected) {
        EXPECT_EQ(actual.size(), expected.size());
        for (const auto& [name, text] : expected) {
            const auto found = actual.find(name);
            EXPECT_TRUE(found != actual.end() && found->second == text) << name;
        }
    };
    expectSame(convert("out2/TideClock.hhp", true, true), activated);
    // Declined after all: the held topics are written as they were.
    const auto declined = convert("out3/TideClock.hhp", false, false);
    const auto backups = [](const std::map<std::string, std::string>& files) {
        return std::count_if(files.begin(), files.end(), [](const auto& file) {
            return file.first.rfind("html/NoPopups/", 0) == 0;
        });
    };
    EXPECT_GT(backups(activated), 0);
    EXPECT_EQ(backups(declined), 0);
    expectSame(convert("out4/TideClock.hhp", true, false), declined);
}

TEST_F(WizardTest, CancelOffersARestartAndClearsTheProject) {
    ScanSample();
    ASSERT_EQ(wizard.CurrentStep(), 3);
    view.answers = {mb::kNo};
    wizard.cmdNav_Click(kNavCancel);
    EXPECT_EQ(wizard.CurrentStep(), 3);
    EXPECT_EQ(view.messages.back().text, "Do you want to restart the program?");
    view.answers = {mb::kYes};
    wizard.cmdNav_Click(kNavCancel);
    EXPECT_EQ(wizard.CurrentStep(), 0);
    EXPECT_TRUE(wizard.Projectname.empty());
    EXPECT_EQ(wizard.Globals.TopicFiles, nullptr);
    EXPECT_FALSE(wizard.menus.mnuViewScanLog.enabled);
    view.answers = {mb::kYes};
    wizard.cmdNav_Click(kNavCancel);  // at step 0 Cancel offers to exit
    EXPECT_EQ(view.messages.back().text, "Do you want to exit the program?");
    EXPECT_EQ(view.exits, 1);
}

TEST_F(WizardTest, StyleSheetOptionsReachTheWriterOnlyThroughTheDialog) {
    EXPECT_TRUE(wizard.GetHTMLOptions());
    EXPECT_FALSE(wizard.AddCssLink);
    view.optionsTickCss = true;
    view.optionsCssName = "";
    wizard.mnuOptionsHTML_Click();
    EXPECT_NE(view.FindMessage("There must be a valid name for the style sheet"), nullptr);
    EXPECT_FALSE(wizard.Options()->Status);
    view.optionsCssName = "Tide.css";
    wizard.Options()->chkTopicClass = true;
    wizard.mnuOptionsHTML_Click();
    wizard.GetHTMLOptions();
    EXPECT_TRUE(wizard.AddCssLink);
    EXPECT_EQ(wizard.CssFileName, "Tide.css");
    EXPECT_FALSE(wizard.SetTopicClass);  // offered, never passed on
}

TEST_F(WizardTest, ViewEntriesChooseTheirFileOrMessage) {
    wizard.mnuViewHTM_Click();
    EXPECT_EQ(view.messages.back().text, "Not implemented");
    wizard.mnuViewOldprojectFile_Click();
    EXPECT_EQ(view.messages.back().catalogueId, 10022);
    EXPECT_EQ(view.messages.back().title, "View Project File");
    Next();
    wizard.controls.txtProjectName = dir / "in/TideClock.hhp";
    Next();
    wizard.mnuViewScanLog_Click();  // opened but not scanned
    EXPECT_EQ(view.messages.back().catalogueId, 10009);
}

TEST_F(WizardTest, BrowseButtonsCheckTheExtensionWithCrossedTitles) {
    Next();
    view.openAnswers = {dir / "in/TideClock.hhk"};
    view.answers = {mb::kNo};
    wizard.cmdBrowseHHP_Click();
    EXPECT_EQ(view.messages.back().catalogueId, 10067);
    EXPECT_EQ(view.messages.back().title, "Open WinHelp Help Project");
    EXPECT_TRUE(wizard.controls.txtProjectName.empty());
    view.openAnswers = {dir / "in/TideClock.hhp"};
    wizard.cmdBrowseHHP_Click();
    EXPECT_EQ(wizard.controls.txtProjectName, dir / "in/TideClock.hhp");
    EXPECT_EQ(wizard.controls.lblTopicCount, "42");
    view.openAnswers = {dir / "in/TideClock.hh"};
    view.answers = {mb::kNo};
    wizard.cmdbrowseHPJ_Click();
    EXPECT_EQ(view.messages.back().title, "Opening HTML help project");
    EXPECT_TRUE(wizard.controls.txtWinhelpProjectName.empty());
    view.openAnswers = {dir / "in/TideClock.hpj"};
    wizard.cmdbrowseHPJ_Click();
    EXPECT_TRUE(wizard.controls.chkMapData);
    view.saveAnswers = {dir / "out/New.hhp"};
    wizard.cmdBrowseNewRoot_Click();
    EXPECT_EQ(wizard.controls.txtRootPath, dir / "out/New.hhp");
}

TEST_F(WizardTest, AnEmptyOrNamelessNewPathIsRefused) {
    ScanSample();
    wizard.controls.txtRootPath.clear();  // the suggestion taken back
    Next();
    EXPECT_EQ(wizard.CurrentStep(), 3);
    EXPECT_EQ(view.messages.back().text,
              "Please select the new HTML project location by clicking the Browse Button");
    wizard.controls.txtRootPath = dir / "out/";
    Next();
    EXPECT_EQ(wizard.CurrentStep(), 3);
    EXPECT_EQ(view.messages.back().text, "Check syntax of New Path");
}

// After step 1 the .hpj of the same name is proposed when it is there; after
// the scan a new folder beside the input one that does not exist yet.
TEST_F(WizardTest, ProposesTheWinHelpProjectBesideAndAFreshFolder) {
    const struct {
        bool hpjThere;
        std::vector<std::string> takenFolders;
        std::string hpj, root;
    } cases[] = {
        {true, {}, "in/TideClock.hpj", "in-new/TideClock.hhp"},
        {false, {"in-new"}, "", "in-new2/TideClock.hhp"},
        {true, {"in-new", "in-new2"}, "in/TideClock.hpj", "in-new3/TideClock.hhp"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.root);
        if (wizard.CurrentStep() != 0) {  // a fresh start
            view.answers = {mb::kYes};
            wizard.cmdNav_Click(kNavCancel);
        }
        if (!c.hpjThere) fs::remove(dir / "in/TideClock.hpj");
        for (const std::string& taken : c.takenFolders) fs::create_directories(dir / taken);
        Next();
        wizard.controls.txtProjectName = dir / "in/TideClock.hhp";
        Next();
        EXPECT_EQ(wizard.controls.txtWinhelpProjectName, c.hpj.empty() ? "" : dir / c.hpj);
        Next();
        ASSERT_EQ(wizard.CurrentStep(), 3);
        EXPECT_EQ(wizard.controls.txtRootPath, dir / c.root);
        fs::copy_file(std::string(TAMRIX_SOURCE_DIR) + "/samples/tideclock/TideClock.hpj",
                      dir / "in/TideClock.hpj", fs::copy_options::overwrite_existing);
    }
}

// "Show this introduction at start", "Save these settings" and step 2's
// zero-ID box act within the run: on a restart, and on the Options menu.
TEST_F(WizardTest, TheRunsCheckBoxesActOnTheRestart) {
    const struct {
        bool showIntro, saveSettings;
        int stepAfterRestart;
        bool ignoreZeroAfter, htmlOptionsKept;
    } cases[] = {// the first case puts every default back for the second
                 {true, false, 0, true, false},
                 {false, true, 1, false, true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.stepAfterRestart);
        Next();
        wizard.controls.txtProjectName = dir / "in/TideClock.hhp";
        Next();
        wizard.chkIgnoreZeroIDs_Click();
        EXPECT_FALSE(wizard.menus.mnuOptionsIgnoreZeroIDs.checked);
        EXPECT_FALSE(wizard.Globals.IgnoreZeroIDs);
        wizard.mnuOptionsHTML_Click();
        wizard.controls.chkShowIntro = c.showIntro;
        wizard.controls.chkSaveSettings = c.saveSettings;
        view.answers = {mb::kYes};
        wizard.cmdNav_Click(kNavCancel);
        EXPECT_EQ(wizard.CurrentStep(), c.stepAfterRestart);
        EXPECT_TRUE(wizard.controls.txtProjectName.empty());
        EXPECT_EQ(wizard.Globals.IgnoreZeroIDs, c.ignoreZeroAfter);
        EXPECT_EQ(wizard.controls.chkIgnoreZeroIDs, c.ignoreZeroAfter);
        EXPECT_EQ(wizard.Options() != nullptr, c.htmlOptionsKept);
    }
}

}  // namespace
}  // namespace tamrix
