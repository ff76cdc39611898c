// The wizard window driven from the keyboard, and by dropping files on it.
#include <QAbstractButton>
#include <QCheckBox>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QRadioButton>

#include "gui/frm_wizard_fixture.h"

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

// Return goes on from every step, the keyboard starting on the page each time;
// steps 2 and 3 come filled in with the project's .hpj and a fresh folder.
TEST_F(FrmWizardKeys, ReturnPressesNextOnEveryStep) {
    answersById[10011] = mb::kYes;  // create the suggested folder
    const struct {
        const char* focus;
        std::string boxText;  // what the focused box holds before Return
    } steps[] = {{"chkShowIntro", ""},
                 {"txtProjectName", dir / "in/TideClock.hhp"},
                 {"txtWinhelpProjectName", dir / "in/TideClock.hpj"},
                 {"txtRootPath", dir / "in-new/TideClock.hhp"},
                 {"optNoPopups", ""},
                 {"cmdOpenFolder", ""}};
    for (int step = 0; step < 6; ++step) {
        SCOPED_TRACE(step);
        ASSERT_EQ(Step(), step);
        EXPECT_EQ(Name(Focus()), steps[step].focus);
        if (step == 1) QTest::keyClicks(Focus(), QString::fromStdString(steps[step].boxText));
        if (auto* box = qobject_cast<QLineEdit*>(Focus())) {
            EXPECT_EQ(box->text().toStdString(), steps[step].boxText);
        }
        if (step < 5) Press(Qt::Key_Return);
    }
    EXPECT_TRUE(dir.Exists("in-new/popups.js"));
    // On the last step Return presses the focused button: the new folder opens.
    Press(Qt::Key_Return);
    ASSERT_EQ(openedUrls.size(), 1u);
    EXPECT_EQ(openedUrls[0].toLocalFile().toStdString(), window->GetWizard().NewRootPath);
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
