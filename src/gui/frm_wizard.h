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

/// The options dialog the wizard opens.
class FrmOptions;

/// What the wizard window is given; the defaults are the real dialogs, printers and help.
struct WizardWindowOptions {
    /// The dialogs it asks through; tests script them.
    WizardDialogs dialogs = QtWizardDialogs();
    std::optional<bool> printers;     ///< default: whether a printer is installed
    std::optional<HelpProject> help;  ///< default: the installed help project
    /// Opens a folder in the file manager; default: the desktop's handler.
    std::function<bool(const QUrl&)> openUrl;
};

/// The wizard window, and the view the toolkit-free wizard talks to.
class FrmWizard : public QMainWindow, public IWizardView {
    Q_OBJECT

public:
    /// What the window is given.
    using Options = WizardWindowOptions;

    /// Builds the window and its Wizard; Start shows it.
    explicit FrmWizard(Options options = {}, QWidget* parent = nullptr);
    /// Out of line, where FrmOptions is complete.
    ~FrmWizard() override;

    /// The wizard the window shows.
    Wizard& GetWizard() { return *wizard_; }
    /// Form_Load: shows step 0; a project named on the command line fills step 1's box.
    void Start(const std::string& projectName = {});

    // IView
    /// Shows the message window over the wizard; returns the button pressed (OK when there is no
    /// dialog).
    int MessageBox(const MessageRequest& request) override;
    /// Shows the plain error box.
    void ErrorBox(const std::string& text, const std::string& title) override;
    /// Asks for a line of text; nothing when cancelled.
    std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultText) override;
    /// The file chosen to open, or empty.
    std::string OpenFileDialog(const FileDialogRequest& request) override;
    /// The file chosen to save to, or empty.
    std::string SaveFileDialog(const FileDialogRequest& request) override;
    /// The text above the progress bar.
    void SetProgressCaption(const std::string& caption) override;
    /// The bar's maximum (at least 1).
    void SetProgressMax(int maximum) override;
    /// Moves the bar.
    void SetProgressValue(int value) override;
    /// Shows the progress frame over the step, or hides it.
    void SetProgressVisible(bool visible) override;
    /// Lets the window repaint and take clicks during a long step.
    void ProcessEvents() override;

    // IWizardView
    /// Shows the wizard's step, captions and controls as they now are.
    void WizardChanged(const Wizard& wizard) override;
    /// Opens the help window at a context; false when there is no such page.
    bool ShowHelp(int command, int context) override;
    /// Closes the help window.
    void CloseHelp() override;
    /// Closes the help, the options and the window, and raises ExitRequested.
    void ExitProgram() override;
    /// Shows the About box modally.
    void ShowAbout() override;
    /// Shows the options window modally over the wizard.
    void ShowOptionsDialog(OptionsDialog& dialog) override;
    /// True when a printer is installed (or the options say so).
    bool HasAnyPrinters() override;

    /// The parts, for tests and screenshots.
    QPushButton* NavButton(int index) const { return cmdNav_[static_cast<std::size_t>(index)]; }
    /// A menu entry or menu by its name ("mnuViewScanLog", "mnuView").
    QAction* MenuAction(const QString& name) const;
    /// The six step pages.
    QStackedWidget* Steps() const { return fraStep_; }
    /// The progress frame shown over the step while a step works.
    QGroupBox* ProgressFrame() const { return fraProgress_; }
    /// The progress bar.
    QProgressBar* ProgressBar() const { return pgbConversion_; }
    /// The caption of the progress bar.
    QLabel* ProgressLabel() const { return lblprogress_; }
    /// The help window.
    HelpWindow* Help() const { return help_; }

signals:
    /// The user ended the program (Exit, File/Exit or the close box).
    void ExitRequested();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// Tools/Check New Project… and the button of the Finished step.
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
    /// Puts the keyboard on the step's first control.
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
