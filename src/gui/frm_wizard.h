#pragma once
// The wizard window: six step pages, the navigation buttons, the progress
// frame and the menus, all showing the toolkit-free Wizard and passing the
// user's clicks and edits back to it.
#include <QMainWindow>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "gui/help_window.h"
#include "gui/wizard_dialogs.h"
#include "wizard/wizard.h"

class QAction;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QMenu;
class QStackedWidget;
class QUrl;

namespace tamrix::gui {

class FrmOptions;

struct WizardWindowOptions {
    WizardDialogs dialogs = QtWizardDialogs();
    std::optional<bool> printers;     // default: whether a printer is installed
    std::optional<HelpProject> help;  // default: the installed help project
    // Opens a folder in the file manager; default: the desktop's handler.
    std::function<bool(const QUrl&)> openUrl;
};

class FrmWizard : public QMainWindow, public IWizardView {
    Q_OBJECT

public:
    using Options = WizardWindowOptions;

    explicit FrmWizard(Options options = {}, QWidget* parent = nullptr);
    ~FrmWizard() override;

    Wizard& GetWizard() { return *wizard_; }
    // Form_Load: shows step 0; a project named on the command line fills step 1's box.
    void Start(const std::string& projectName = {});

    // IView
    int MessageBox(const MessageRequest& request) override;
    void ErrorBox(const std::string& text, const std::string& title) override;
    std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultText) override;
    std::string OpenFileDialog(const FileDialogRequest& request) override;
    std::string SaveFileDialog(const FileDialogRequest& request) override;
    void SetProgressCaption(const std::string& caption) override;
    void SetProgressMax(int maximum) override;
    void SetProgressValue(int value) override;
    void SetProgressVisible(bool visible) override;
    void ProcessEvents() override;

    // IWizardView
    void WizardChanged(const Wizard& wizard) override;
    bool ShowHelp(int command, int context) override;
    void CloseHelp() override;
    void ExitProgram() override;
    void ShowAbout() override;
    void ShowOptionsDialog(OptionsDialog& dialog) override;
    bool HasAnyPrinters() override;

    // The parts, for tests and screenshots.
    QPushButton* NavButton(int index) const { return cmdNav_[static_cast<std::size_t>(index)]; }
    // A menu entry or menu by its name ("mnuViewScanLog", "mnuView").
    QAction* MenuAction(const QString& name) const;
    QStackedWidget* Steps() const { return fraStep_; }
    QGroupBox* ProgressFrame() const { return fraProgress_; }
    QProgressBar* ProgressBar() const { return pgbConversion_; }
    QLabel* ProgressLabel() const { return lblprogress_; }
    HelpWindow* Help() const { return help_; }

signals:
    // The user ended the program (Exit, File/Exit or the close box).
    void ExitRequested();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // Tools/Check New Project… and the button of the Finished step.
    void CheckNewProject();
    struct MenuBinding {
        QAction* action;
        MenuEntry WizardMenus::*entry;
    };

    void BuildMenus();
    QWidget* BuildSidePanel();
    QWidget* BuildStepPage(int step, QWidget* body);
    QWidget* BuildIntroduction();
    QWidget* BuildProjectFile();
    QWidget* BuildWinHelpFile();
    QWidget* BuildNewProject();
    QWidget* BuildPopups();
    QWidget* BuildFinished();
    QWidget* BuildNavigation();
    QGroupBox* BuildProgress();
    QAction* AddEntry(QMenu* menu, const char* name, const QString& caption,
                      MenuEntry WizardMenus::*entry, void (Wizard::*handler)(),
                      bool checkable = false);
    QMenu* AddMenu(const char* name, const QString& caption, MenuEntry WizardMenus::*entry);
    void RefreshControls(const Wizard& wizard);
    void UpdateBoxPosition();
    void SetTabOrder();
    // Puts the keyboard on the step's first control.
    void FocusStep(int step);
    void RefreshRecentProjects(const Wizard& wizard);
    static QString ProjectSummary(const Wizard& wizard);

    Options options_;
    std::unique_ptr<Wizard> wizard_;
    std::vector<MenuBinding> menus_;
    std::array<QPushButton*, 5> cmdNav_{};
    std::array<QLabel*, Wizard::kStepCount> sideSteps_{};
    QStackedWidget* fraStep_ = nullptr;
    QGroupBox* fraProgress_ = nullptr;
    QProgressBar* pgbConversion_ = nullptr;
    QLabel* lblprogress_ = nullptr;
    // Step controls.
    QCheckBox* chkShowIntro_ = nullptr;
    QLabel* lblPrinter1_ = nullptr;
    QLabel* lblPrinter2_ = nullptr;
    QLineEdit* txtProjectName_ = nullptr;
    QPushButton* cmdBrowseHHP_ = nullptr;
    QLabel* lblTopicCount_ = nullptr;
    QLabel* lblContents_ = nullptr;
    QLabel* lblIndexFile_ = nullptr;
    QLineEdit* txtWinhelpProjectName_ = nullptr;
    QPushButton* cmdbrowseHPJ_ = nullptr;
    QCheckBox* chkIgnoreZeroIDs_ = nullptr;
    QGroupBox* fraHPJOpen_ = nullptr;
    QCheckBox* chkMapData_ = nullptr;
    QCheckBox* chkAliasData_ = nullptr;
    QLineEdit* txtRootPath_ = nullptr;
    QPushButton* cmdBrowseNewRoot_ = nullptr;
    QLabel* lblContextCount_ = nullptr;
    QLabel* lblUntitledCount_ = nullptr;
    QLabel* lblContextIDs_ = nullptr;
    QRadioButton* optYesPopups_ = nullptr;
    QRadioButton* optNoPopups_ = nullptr;
    QCheckBox* chkSaveSettings_ = nullptr;
    QLabel* lblNewProject_ = nullptr;
    QPushButton* cmdOpenFolder_ = nullptr;
    QLabel* lblHHPSummary_ = nullptr;
    QMenu* mnuFileRecent_ = nullptr;
    std::vector<std::string> recentShown_;
    int shownStep_ = -1;
    HelpWindow* help_ = nullptr;
    std::unique_ptr<FrmOptions> frmOptions_;
    std::unique_ptr<CSummary> checkReport_;  // the last project check shown
    bool closing_ = false;
    bool inCloseEvent_ = false;
};

}  // namespace tamrix::gui
