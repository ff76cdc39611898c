// The wizard window driven by clicks, with its dialogs answered by hooks.
#include "gui/frm_wizard.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include "gui/frm_wizard_fixture.h"

namespace tamrix::gui {
namespace {

TEST_F(FrmWizardTest, BackKeepsTheWorkAndCancelRestarts) {
    ScanSample();
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
    ScanSample();
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
