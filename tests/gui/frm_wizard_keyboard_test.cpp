// The wizard window driven from the keyboard, and by dropping files on it.
#include <QAbstractButton>
#include <QCheckBox>
#include <QGroupBox>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTextEdit>

#include "gui/frm_summary.h"
#include "gui/frm_wizard_fixture.h"
#include "gui/summary_viewer.h"

namespace tamrix::gui {
namespace {

QString Name(const QWidget* widget) { return widget ? widget->objectName() : QString("(none)"); }

class FrmWizardKeys : public FrmWizardTest {
protected:
    void SetUp() override {
        FrmWizardTest::SetUp();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    QWidget* Focus() const { return QApplication::focusWidget(); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(Focus() ? Focus() : window.get(), key, modifiers);
    }
};

// A whole conversion of the sample: Return goes on from every step, the
// keyboard starting on the page each time.
TEST_F(FrmWizardKeys, AWholeConversionOfTheSampleByKeysAndClicks) {
    // Step 0: the menus and buttons show the wizard's state.
    EXPECT_EQ(Name(Focus()), "chkShowIntro");
    EXPECT_FALSE(NavEnabled(kNavBack));
    EXPECT_FALSE(NavEnabled(kNavExit));
    EXPECT_TRUE(Find<QLabel>("lblPrinter2")->isVisible());  // no printer in the test
    EXPECT_FALSE(MenuEnabled("mnuViewScanLog"));
    EXPECT_TRUE(window->MenuAction("mnuOptionsIgnoreZeroIDs")->isChecked());

    // Step 1: the project chosen with Browse fills the labels.
    Press(Qt::Key_Return);
    EXPECT_EQ(Name(Focus()), "txtProjectName");
    openAnswers.push_back(dir / "in/TideClock.hhp");
    ClickButton("cmdBrowseHHP");
    EXPECT_EQ(Find<QLineEdit>("txtProjectName")->text().toStdString(), dir / "in/TideClock.hhp");
    EXPECT_EQ(Text("lblTopicCount"), "42");

    // Step 2 shows step 1's results and proposes the .hpj beside the project;
    // typed in again, it reaches the wizard.
    Press(Qt::Key_Return);
    ASSERT_EQ(Step(), 2);
    auto* hpj = Find<QLineEdit>("txtWinhelpProjectName");
    EXPECT_EQ(Focus(), hpj);
    EXPECT_EQ(hpj->text().toStdString(), dir / "in/TideClock.hpj");
    hpj->clear();
    QTest::keyClicks(hpj, QString::fromStdString(dir / "in/TideClock.hpj"));
    EXPECT_EQ(window->GetWizard().controls.txtWinhelpProjectName, dir / "in/TideClock.hpj");
    EXPECT_TRUE(Text("lblHHPSummary")
                    .contains(": 42 topic files, contents Table of Contents.hhc, "
                              "index TideClock.hhk."));

    // Return scans; step 3 shows the results once, in a box centred on the
    // wizard, and proposes a fresh folder.
    Press(Qt::Key_Return);
    ASSERT_EQ(Step(), 3);
    EXPECT_EQ(Name(Focus()), "txtRootPath");
    EXPECT_EQ(Find<QLineEdit>("txtRootPath")->text().toStdString(), dir / "in-new/TideClock.hhp");
    EXPECT_TRUE(Find<QCheckBox>("chkMapData")->isChecked());
    EXPECT_EQ(Text("lblContextIDs"), "21");
    EXPECT_TRUE(MenuEnabled("mnuFile"));  // the busy state is over
    EXPECT_TRUE(NavEnabled(kNavBack) && NavEnabled(kNavNext) && NavEnabled(kNavCancel));
    EXPECT_FALSE(window->ProgressFrame()->isVisible());
    ASSERT_FALSE(messages.empty());
    EXPECT_NE(messages.back().text.find("Successfully scanned all files."), std::string::npos);
    ASSERT_TRUE(messages.back().position.left.has_value());
    EXPECT_EQ(*messages.back().position.left, window->frameGeometry().center().x());

    // Step 3: Browse for the new project, then Return writes it.
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
    Press(Qt::Key_Return);
    onMessage = nullptr;
    EXPECT_TRUE(busyChecked);
    EXPECT_TRUE(window->isVisible());
    ASSERT_EQ(Step(), 4);
    EXPECT_EQ(Name(Focus()), "optNoPopups");
    EXPECT_EQ(window->windowTitle(), "Tamrix - Activating Popups");
    EXPECT_TRUE(MenuEnabled("mnuViewRewriteLog"));
    // The progress label follows the captions of the write step.
    EXPECT_EQ(window->ProgressLabel()->text().toStdString(), window->GetWizard().ProgressCaption());
    EXPECT_NE(window->GetWizard().ProgressCaption().find("Popup"), std::string::npos);
    EXPECT_TRUE(errors.empty());

    // Step 4: Yes edits the calling topic files.
    Find<QRadioButton>("optYesPopups")->click();
    Press(Qt::Key_Return);
    ASSERT_EQ(Step(), 5);
    EXPECT_TRUE(NavEnabled(kNavExit));
    EXPECT_TRUE(MenuEnabled("mnuToolsFormatMapFiles"));
    EXPECT_TRUE(Text("lblNewProject").contains("TideClock.hhp"));
    // Return presses the focused button: the new folder opens.
    EXPECT_EQ(Name(Focus()), "cmdOpenFolder");
    Press(Qt::Key_Return);
    ASSERT_EQ(openedUrls.size(), 1u);
    EXPECT_EQ(openedUrls[0].toLocalFile().toStdString(), window->GetWizard().NewRootPath);

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

TEST_F(FrmWizardKeys, TabVisitsThePageBeforeTheButtons) {
    const std::vector<QStringList> orders = {
        {"chkShowIntro", "cmdNav_0", "cmdNav_1", "cmdNav_3", "chkShowIntro"},
        {"txtProjectName", "cmdBrowseHHP", "cmdNav_0", "cmdNav_1", "cmdNav_2", "cmdNav_3",
         "txtProjectName"}};
    for (std::size_t step = 0; step < orders.size(); ++step) {
        if (step > 0) Click(kNavNext);
        QStringList visited{Name(Focus())};
        for (int i = 1; i < orders[step].size(); ++i) {
            Press(Qt::Key_Tab);
            visited << Name(Focus());
        }
        EXPECT_EQ(visited, orders[step]) << step;
    }
}

TEST_F(FrmWizardKeys, EveryAcceleratorIsUniqueWhereItActs) {
    // The menu titles, buttons and labelled boxes act in the whole window ...
    std::map<QKeySequence, QStringList> window_;
    for (QAction* menu : window->menuBar()->actions())
        if (auto key = QKeySequence::mnemonic(menu->text()); !key.isEmpty())
            window_[key] << menu->objectName();
    // (The help window is a window of its own.)
    for (auto* button : window->findChildren<QAbstractButton*>())
        if (auto key = QKeySequence::mnemonic(button->text());
            button->window() == window.get() && !key.isEmpty())
            window_[key] << Name(button);
    for (auto* label : window->findChildren<QLabel*>())
        if (auto key = QKeySequence::mnemonic(label->text()); label->buddy() && !key.isEmpty())
            window_[key] << Name(label);
    EXPECT_GE(window_.size(), 6u);  // the menus and the buttons, each with its key
    for (const auto& [key, owners] : window_)
        EXPECT_EQ(owners.size(), 1) << owners.join(", ").toStdString();
    // ... a menu's entries only while it is open.
    for (auto* menu : window->findChildren<QMenu*>()) {
        std::map<QKeySequence, int> keys;
        for (QAction* action : menu->actions())
            if (auto key = QKeySequence::mnemonic(action->text()); !key.isEmpty()) {
                EXPECT_EQ(++keys[key], 1)
                    << Name(menu).toStdString() << " " << action->text().toStdString();
            }
    }

    // Alt+N and Alt+B move, Alt+L opens the step's help: pressed through the
    // window as the platform delivers keys; a mnemonic clicks a moment later.
    const auto alt = [this](Qt::Key key, const std::function<bool()>& done) {
        QTest::keyClick(window->windowHandle(), key, Qt::AltModifier);
        return QTest::qWaitFor(done, 2000);
    };
    EXPECT_TRUE(alt(Qt::Key_N, [this] { return Step() == 1; }));
    EXPECT_TRUE(alt(Qt::Key_B, [this] { return Step() == 0; }));
    EXPECT_TRUE(alt(Qt::Key_L, [this] { return window->Help()->isVisible(); }));
}

TEST_F(FrmWizardKeys, DroppedProjectsFillTheirStepsAndAreRemembered) {
    const auto drop = [this](const std::string& path) {
        QMimeData mime;
        mime.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
        QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &mime, Qt::LeftButton,
                              Qt::NoModifier);
        QApplication::sendEvent(window.get(), &enter);
        QDropEvent event(QPointF(10, 10), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &event);
        return enter.isAccepted() && event.isAccepted();
    };
    EXPECT_FALSE(drop(dir / "in/TideClock.hhk"));
    EXPECT_EQ(Step(), 0);
    EXPECT_TRUE(drop(dir / "in/TideClock.hhp"));
    EXPECT_EQ(Step(), 1);
    EXPECT_EQ(Text("lblTopicCount"), "42");
    EXPECT_TRUE(drop(dir / "in/TideClock.hpj"));
    EXPECT_EQ(window->GetWizard().controls.txtWinhelpProjectName, dir / "in/TideClock.hpj");

    // A project opened by Next is listed under File/Recent Projects for this run.
    QMenu* recent = window->findChild<QMenu*>("mnuFileRecent");
    EXPECT_FALSE(recent->isEnabled());
    Click(kNavNext);
    Click(kNavNext);
    ASSERT_EQ(Step(), 3);
    ASSERT_EQ(recent->actions().size(), 1);
    EXPECT_EQ(recent->actions()[0]->text().toStdString(),
              "&1 " + std::string(dir / "in/TideClock.hhp"));
    recent->actions()[0]->trigger();
    EXPECT_EQ(Step(), 1);
    EXPECT_EQ(Find<QLineEdit>("txtProjectName")->text().toStdString(), dir / "in/TideClock.hhp");
}

}  // namespace
}  // namespace tamrix::gui
