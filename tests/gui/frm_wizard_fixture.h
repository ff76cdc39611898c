#pragma once
// The wizard window with its dialogs answered by hooks, for the window's tests.
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>
#include <QUrl>
#include <cstdlib>
#include <deque>
#include <functional>
#include <map>

#include "gui/frm_wizard.h"
#include "support/sample_copy.h"
#include "support/scripted_view.h"
#include "support/temp_dir.h"

namespace tamrix::gui {

class FrmWizardTest : public ::testing::Test {
protected:
    void SetUp() override {
        testing::PrepareSampleCopy(dir.Path());
        FrmWizard::Options options;
        options.printers = false;
        options.help = HelpProject::Load(TAMRIX_SOURCE_DIR "/help/Tamrix.hhp");
        options.dialogs.message = [this](QWidget*, const MessageRequest& request) {
            if (onMessage) onMessage(request);
            return script.MessageBox(request);
        };
        options.dialogs.error = [this](QWidget*, const std::string& text, const std::string&) {
            errors.push_back(text);
        };
        options.dialogs.input = [](QWidget*, const std::string&, const std::string&,
                                   const std::string&) { return std::optional<std::string>(); };
        options.dialogs.openFile = [this](QWidget*, const FileDialogRequest&) {
            return Pop(openAnswers);
        };
        options.dialogs.saveFile = [this](QWidget*, const FileDialogRequest&) {
            return Pop(saveAnswers);
        };
        options.openUrl = [this](const QUrl& url) {
            openedUrls.push_back(url);
            return true;
        };
        window = std::make_unique<FrmWizard>(options);
        window->show();
        window->Start();
    }
    void TearDown() override {
        window.reset();
        ::unsetenv("SOURCE_DATE_EPOCH");
    }

    static std::string Pop(std::deque<std::string>& queue) {
        if (queue.empty()) return {};
        std::string answer = queue.front();
        queue.pop_front();
        return answer;
    }
    template <class T>
    T* Find(const char* name) const {
        T* widget = window->findChild<T*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }
    QString Text(const char* label) const { return Find<QLabel>(label)->text(); }
    void Click(int nav) { window->NavButton(nav)->click(); }
    void ClickButton(const char* name) { Find<QPushButton>(name)->click(); }
    int Step() const { return window->Steps()->currentIndex(); }
    bool NavEnabled(int nav) const { return window->NavButton(nav)->isEnabled(); }
    bool MenuEnabled(const char* name) const { return window->MenuAction(name)->isEnabled(); }
    // Steps 0 to 3: the project by its Browse button, without the WinHelp project.
    void ScanSample() {
        Click(kNavNext);
        openAnswers.push_back(dir / "in/TideClock.hhp");
        ClickButton("cmdBrowseHHP");
        Click(kNavNext);
        window->GetWizard().controls.txtWinhelpProjectName.clear();  // the one proposed
        Click(kNavNext);
    }

    testing::TempDir dir;
    std::unique_ptr<FrmWizard> window;
    // Messages are recorded and answered as by the scripted view.
    testing::ScriptedView script;
    std::vector<MessageRequest>& messages = script.messages;
    std::vector<std::string> errors;
    std::deque<int>& answers = script.answers;
    std::map<long, int>& answersById = script.answersById;
    std::deque<std::string> openAnswers;
    std::deque<std::string> saveAnswers;
    std::function<void(const MessageRequest&)> onMessage;
    std::vector<QUrl> openedUrls;
};

}  // namespace tamrix::gui
