// The wizard window driven by clicks, with its dialogs answered by hooks.
#include "gui/frm_wizard.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>

#include "gui/frm_summary.h"
#include "gui/frm_wizard_fixture.h"
#include "gui/summary_viewer.h"

namespace tamrix::gui {
namespace {

TEST_F(FrmWizardTest, AWholeConversionOfTheSampleByClicks) {
    // Step 0: the menus and buttons show the wizard's state.
    EXPECT_FALSE(NavEnabled(kNavBack));
    EXPECT_FALSE(NavEnabled(kNavExit));
    EXPECT_TRUE(Find<QLabel>("lblPrinter2")->isVisible());  // no printer in the test
    EXPECT_FALSE(MenuEnabled("mnuViewScanLog"));
    EXPECT_TRUE(window->MenuAction("mnuOptionsIgnoreZeroIDs")->isChecked());

    // Step 1: the project chosen with Browse fills the labels.
    Click(kNavNext);
    openAnswers.push_back(dir / "in/TideClock.hhp");
    ClickButton("cmdBrowseHHP");
    EXPECT_EQ(Find<QLineEdit>("txtProjectName")->text().toStdString(), dir / "in/TideClock.hhp");
    EXPECT_EQ(Text("lblTopicCount"), "42");

    // Step 2 shows step 1's results too.
    Click(kNavNext);
    ASSERT_EQ(Step(), 2);
    EXPECT_TRUE(Text("lblHHPSummary")
                    .contains(": 42 topic files, contents Table of Contents.hhc, "
                              "index TideClock.hhk."));

    // Next scans; step 3 shows the results once, in a box centred on the wizard.
    Click(kNavNext);
    ASSERT_EQ(Step(), 3);
    EXPECT_TRUE(Find<QCheckBox>("chkMapData")->isChecked());
    EXPECT_EQ(Text("lblContextIDs"), "21");
    EXPECT_TRUE(MenuEnabled("mnuFile"));  // the busy state is over
    EXPECT_TRUE(NavEnabled(kNavBack) && NavEnabled(kNavNext) && NavEnabled(kNavCancel));
    EXPECT_FALSE(window->ProgressFrame()->isVisible());
    ASSERT_FALSE(messages.empty());
    EXPECT_NE(messages.back().text.find("Successfully scanned all files."), std::string::npos);
    ASSERT_TRUE(messages.back().position.left.has_value());
    EXPECT_EQ(*messages.back().position.left, window->frameGeometry().center().x());

    // Step 3: Browse for the new project, then Next writes it.
    saveAnswers.push_back(dir / "out/TideClock.hhp");
    ClickButton("cmdBrowseNewRoot");
    EXPECT_EQ(Find<QLineEdit>("txtRootPath")->text().toStdString(), dir / "out/TideClock.hhp");
    answersById[10011] = mb::kYes;  // create the folder
    // While the project is written the controls are off and the window stays open.
    bool busyChecked = false;
    onMessage = [&](const MessageRequest& request) {
        if (request.catalogueId != 10011) return;
        busyChecked = true;
        EXPECT_FALSE(NavEnabled(kNavNext));
        EXPECT_FALSE(NavEnabled(kNavCancel));
        EXPECT_FALSE(Find<QPushButton>("cmdBrowseNewRoot")->isEnabled());
        EXPECT_FALSE(MenuEnabled("mnuFile"));
        EXPECT_FALSE(MenuEnabled("mnuView"));
        EXPECT_FALSE(window->close());
    };
    Click(kNavNext);
    onMessage = nullptr;
    EXPECT_TRUE(busyChecked);
    EXPECT_TRUE(window->isVisible());
    ASSERT_EQ(Step(), 4);
    EXPECT_EQ(window->windowTitle(), "Tamrix - Activating Popups");
    EXPECT_TRUE(MenuEnabled("mnuViewRewriteLog"));
    // The progress label follows the captions of the write step.
    EXPECT_EQ(window->ProgressLabel()->text().toStdString(), window->GetWizard().ProgressCaption());
    EXPECT_NE(window->GetWizard().ProgressCaption().find("Popup"), std::string::npos);
    EXPECT_TRUE(errors.empty());

    // Step 4: Yes edits the calling topic files.
    Find<QRadioButton>("optYesPopups")->click();
    Click(kNavNext);
    ASSERT_EQ(Step(), 5);
    EXPECT_TRUE(NavEnabled(kNavExit));
    EXPECT_TRUE(MenuEnabled("mnuToolsFormatMapFiles"));
    EXPECT_TRUE(Text("lblNewProject").contains("TideClock.hhp"));

    // The Finished step checks the new project and shows the report in the log viewer.
    InstallSummaryViewer();
    ClickButton("cmdCheckProject");
    UninstallSummaryViewer();
    QString report;
    for (QWidget* top : QApplication::topLevelWidgets())
        if (auto* form = dynamic_cast<FrmSummary*>(top); form != nullptr && form->isVisible())
            report = form->RTFItems()->toPlainText();
    EXPECT_TRUE(report.contains("TideClock.hhp: ")) << report.toStdString();
    EXPECT_TRUE(report.contains("(42 topic files, 21 context IDs)")) << report.toStdString();

    // Exit asks, and Yes ends the program.
    QSignalSpy exited(window.get(), &FrmWizard::ExitRequested);
    answers = {mb::kYes};
    Click(kNavExit);
    EXPECT_EQ(messages.back().text, "Do you want to exit the program?");
    EXPECT_EQ(exited.count(), 1);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(FrmWizardTest, BackKeepsTheWorkAndCancelRestarts) {
    ScanSample(false);
    ASSERT_EQ(Step(), 3);
    Click(kNavBack);
    EXPECT_EQ(Step(), 2);
    Click(kNavBack);
    EXPECT_EQ(Step(), 1);
    EXPECT_EQ(Text("lblTopicCount"), "42");  // Back undoes nothing
    EXPECT_TRUE(MenuEnabled("mnuViewScanLog"));

    answers = {mb::kYes};
    Click(kNavCancel);
    EXPECT_EQ(Step(), 0);
    EXPECT_TRUE(Find<QLineEdit>("txtProjectName")->text().isEmpty());
    EXPECT_TRUE(Text("lblTopicCount").isEmpty());
    EXPECT_FALSE(MenuEnabled("mnuViewScanLog"));
    EXPECT_FALSE(NavEnabled(kNavBack));
}

TEST_F(FrmWizardTest, TheCloseBoxExitsLikeFileExit) {
    QSignalSpy exited(window.get(), &FrmWizard::ExitRequested);
    EXPECT_TRUE(window->close());
    EXPECT_EQ(exited.count(), 1);
    EXPECT_TRUE(messages.empty());  // File/Exit does not ask
    EXPECT_TRUE(window->GetWizard().Exited());
}

TEST_F(FrmWizardTest, F1AtStepThreeShowsThePageForContext5040) {
    ScanSample(false);
    ASSERT_EQ(Step(), 3);
    QTest::keyClick(Find<QLineEdit>("txtRootPath"), Qt::Key_F1);
    ASSERT_TRUE(window->Help()->isVisible());
    EXPECT_TRUE(window->Help()->CurrentPage().endsWith("/step3_new_project.htm"));
    EXPECT_TRUE(window->GetWizard().HelpShown());
    // Help on the Program shows the index page; exit closes the help.
    window->MenuAction("mnuHelpProgram")->trigger();
    EXPECT_TRUE(window->Help()->CurrentPage().endsWith("/index.htm"));
    window->MenuAction("mnuFileExit")->trigger();
    EXPECT_FALSE(window->Help()->isVisible());
}

TEST_F(FrmWizardTest, MenusFollowTheBusyStateAndToggles) {
    QAction* ignoreZero = window->MenuAction("mnuOptionsIgnoreZeroIDs");
    ignoreZero->trigger();
    EXPECT_FALSE(ignoreZero->isChecked());
    EXPECT_FALSE(window->GetWizard().Globals.IgnoreZeroIDs);
    QAction* nameValue = window->MenuAction("mnuOptionsReadNameValue");
    EXPECT_FALSE(nameValue->isChecked());
    nameValue->trigger();
    EXPECT_TRUE(nameValue->isChecked());
    EXPECT_TRUE(window->GetWizard().Globals.ReadNameValueLines);
    // The View menu's entries reach the wizard (a message of their own without a project).
    window->MenuAction("mnuViewOldprojectFile")->setEnabled(true);
    window->MenuAction("mnuViewOldprojectFile")->trigger();
    EXPECT_EQ(messages.back().title, "View Project File");
}

TEST_F(FrmWizardTest, AProjectNamedAtStartFillsStepOne) {
    window->Start(dir / "in/TideClock.hhp");
    EXPECT_EQ(Find<QLineEdit>("txtProjectName")->text().toStdString(), dir / "in/TideClock.hhp");
    Click(kNavNext);
    Click(kNavNext);
    EXPECT_EQ(Step(), 2);
    EXPECT_EQ(window->GetWizard().Projectname, dir / "in/TideClock.hhp");
}

}  // namespace
}  // namespace tamrix::gui
