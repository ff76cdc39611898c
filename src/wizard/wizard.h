#pragma once
// The toolkit-free wizard: six steps, five navigation buttons and the menus,
// holding the run state and its controls' values as plain data. The Qt window
// and the command line both drive it and show it through IWizardView.
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "model/conversion.h"
#include "reports/c_summary.h"
#include "wizard/options_dialog.h"
#include "wizard/wizard_view.h"

namespace tamrix {

/// The five navigation buttons, by their index in the button row.
enum NavButton { kNavHelp = 0, kNavCancel = 1, kNavBack = 2, kNavNext = 3, kNavExit = 4 };

/// Whether a button can be pressed and whether it is shown.
struct ControlState {
    /// Whether it can be pressed.
    bool enabled = true;
    /// Whether it is shown.
    bool visible = true;
};

/// The state of one menu entry.
struct MenuEntry {
    /// Whether it can be chosen.
    bool enabled = true;
    /// Whether it shows a tick.
    bool checked = false;
    /// Whether it is shown.
    bool visible = true;
};

/// The controls of the six step frames, as values.
struct WizardControls {
    /// Step 0
    bool chkShowIntro = true;  ///< unticked, a restart in this run begins at step 1
    /// Shows the note that no printer is installed.
    bool lblPrinterVisible = false;
    /// Step 1
    /// The .hhp to convert, as typed or browsed to.
    std::string txtProjectName;
    /// The number of topic files the project lists.
    std::string lblTopicCount;
    /// The name of the project's contents file.
    std::string lblContents;
    /// The name of the project's index file.
    std::string lblIndexFile;
    /// Step 2
    /// The .hpj of the WinHelp project, as typed or browsed to.
    std::string txtWinhelpProjectName;
    bool chkIgnoreZeroIDs = true;  ///< mirrors Options/Ignore Zero IDs
    /// Ticked when the WinHelp project has [MAP] data.
    bool chkMapData = false;
    /// Ticked when the WinHelp project has [ALIAS] data.
    bool chkAliasData = false;
    /// Shows the frame describing the opened WinHelp project.
    bool fraHPJOpenVisible = false;
    /// Step 3
    /// The folder of the new project.
    std::string txtRootPath;
    /// The number of topic files found by the scan.
    std::string lblContextCount;
    /// The number of untitled (popup) topics found by the scan.
    std::string lblUntitledCount;
    /// The number of context IDs found by the scan.
    std::string lblContextIDs;
    /// Step 4
    /// "Yes": activate the popup links in the written topic files.
    bool optYesPopups = false;
    /// "No": leave the popup links as they are.
    bool optNoPopups = true;
    /// Step 5
    bool chkSaveSettings = false;  ///< ticked, a restart in this run keeps the options
};

/// The menu bar's entries, as values.
struct WizardMenus {
    /// File menu.
    MenuEntry mnuFile, mnuFileExit;
    /// View menu.
    MenuEntry mnuView, mnuViewOldprojectFile, mnuViewNewProjectFile, mnuViewRTF, mnuViewFile,
        mnuViewHTM, mnuViewScanLog, mnuViewRewriteLog, mnuViewPopupLog;
    /// Options menu; mnuOptionstest is a hidden test entry.
    MenuEntry mnuOptions, mnuOptionsHTML, mnuOptionsIgnoreZeroIDs, mnuOptionsReformatMap,
        mnuOptionsReadNameValue, mnuOptionsSep1, mnuOptionstest;
    /// Tools menu.
    MenuEntry mnuTools, mnuToolsFormatMapFiles;
    /// Help menu.
    MenuEntry mnuHelp, mnuHelpAbout, mnuHelpProgram;
};

/// The conversion as the wizard's steps, buttons and menus drive it.
class Wizard : public Conversion {
public:
    /// Steps 0 to 5.
    static constexpr int kStepCount = 6;
    /// The program's help file.
    static constexpr const char* kHelpFileName = "Tamrix.chm";

    /// A wizard shown on `view`; Start puts it at step 0.
    explicit Wizard(IWizardView& view);
    /// Drops the options dialog, the logs and the open viewers.
    ~Wizard() override;

    /// Form_Load: captions, the ignore-zero-IDs flag, the hidden test entry, step 0.
    void Start();

    /// One of the five navigation buttons (NavButton); Cancel offers a restart or an exit.
    void cmdNav_Click(int index);
    /// F1 (key code 112) acts as the Help button.
    void Form_KeyDown(int keyCode);
    /// Does the work of leaving `currentStep` forwards; the step to show next, or
    /// `currentStep` itself when the work failed or the user stopped it.
    int NextStep(int currentStep);
    /// Shows `newStep`, sets the buttons and shows the step's gathered message once.
    void ShowStep(int newStep);

    /// Browse buttons of steps 1, 2 and 3. Step 1: chooses the .hhp.
    void cmdBrowseHHP_Click();
    /// Step 2: chooses the WinHelp project.
    void cmdbrowseHPJ_Click();
    /// Step 3: chooses the new project's folder.
    void cmdBrowseNewRoot_Click();
    /// The step 2 check box, the same switch as Options/Ignore Zero IDs.
    void chkIgnoreZeroIDs_Click();

    /// A .hhp or .hpj dropped on the window fills its step; false for other files.
    bool FileDropped(const std::string& path);
    /// The projects opened in this run, newest first.
    const std::vector<std::string>& RecentProjects() const { return recentProjects_; }
    /// Fills step 1 with a project of this run and shows that step.
    void OpenRecentProject(std::size_t index);

    /// Menus. File/Exit ends the program at once.
    void mnuFileExit_Click() { ExitProgram(); }
    /// Shows the .hhp being converted, read-only.
    void mnuViewOldprojectFile_Click();
    /// Shows the written .hhp, read-only.
    void mnuViewNewProjectFile_Click();
    /// Opens a viewer on an .rtf file the user picks.
    void mnuViewRTF_Click();
    /// Opens a viewer on any file the user picks.
    void mnuViewFile_Click();
    /// Only says it is not implemented.
    void mnuViewHTM_Click();
    /// Shows scan.log once written, else the scan log in memory.
    void mnuViewScanLog_Click();
    /// Shows rewrite.log from the new folder, else the log in memory.
    void mnuViewRewriteLog_Click();
    /// Shows popups.log from the new folder, else the log in memory.
    void mnuViewPopupLog_Click();
    /// Opens the HTML Options dialog.
    void mnuOptionsHTML_Click();
    /// Toggles ignoring zero-value context IDs, with the step 2 check box.
    void mnuOptionsIgnoreZeroIDs_Click();
    /// Toggles the tick only; nothing reads it.
    void mnuOptionsReformatMap_Click();
    /// "Read Name-Value Lines in Map Files": the Visual C++ form of map header files.
    void mnuOptionsReadNameValue_Click();
    /// The hidden test entry: shows a catalogue message.
    void mnuOptionstest_Click();
    /// Does nothing.
    void mnuToolsFormatMapFiles_Click() {}
    /// Shows the About box.
    void mnuHelpAbout_Click();
    /// Opens the program's help at its default topic.
    void mnuHelpProgram_Click();

    /// Takes the style-sheet options from the dialog when it was closed with OK.
    bool GetHTMLOptions() override;
    /// Lets the window process pending events.
    void Refresh() override;

    /// Read by the views. The step shown, 0 to 5.
    int CurrentStep() const { return currentStep_; }
    /// Whether the last step has been reached; Exit is enabled then.
    bool Finished() const { return finished_; }
    /// Whether a help window was opened in this run.
    bool HelpShown() const { return helpShown_; }
    /// Whether the program has been told to end.
    bool Exited() const { return exited_; }
    /// The window title: "Tamrix - " and the step's caption.
    std::string Caption() const;
    /// The caption of `step`, from the message catalogue.
    std::string StepCaption(int step) const;
    /// The caption of navigation button `index`, from the message catalogue.
    std::string NavCaption(int index) const;
    /// The help context number of the step shown.
    int HelpContext() const { return 5000 + 10 * (currentStep_ + 1); }
    /// The five navigation buttons, indexed by NavButton.
    const std::array<ControlState, 5>& NavButtons() const { return nav_; }
    /// Whether the browse buttons can be pressed (not while an operation runs).
    bool BrowseEnabled() const { return browseEnabled_; }
    /// Whether the progress frame is shown.
    bool FrameProgressVisible() const { return ProgressVisible(); }
    /// The options dialog, or null before the HTML Options menu was first chosen.
    OptionsDialog* Options() const { return options_.get(); }
    /// The scan log in memory, or null before a scan.
    const CSummary* ScanLog() const { return scanLog_.get(); }
    /// The rewrite log in memory, or null before a write.
    const CSummary* RewriteLog() const { return rewriteLog_.get(); }
    /// The popup log in memory, or null before one was made.
    const CSummary* PopupLog() const { return popupLog_.get(); }

    /// The values of the step frames' controls.
    WizardControls controls;
    /// The menu bar's state.
    WizardMenus menus;

private:
    void Changed();
    /// Disables the navigation and browse buttons and the menus while an operation runs.
    void BusyUI(bool on);
    void SetNextBackExit();
    void ExitProgram();
    void ResetProject();
    void ResetViewMenus();
    int NextStepWork(int currentStep);
    bool NextFromWinHelpFile();
    bool NextFromNewProject();
    void WriteLogsAndPopups();
    void FillProjectLabels(std::string& topicLabel);
    void UseProjectFile(const std::string& path);
    void UseWinHelpFile(const std::string& path);
    void RememberProject(const std::string& path);
    void ProposeWinHelpProject();
    void SuggestNewProjectPath();
    void ResetOptions();
    void ViewReportOrFile(std::unique_ptr<CSummary>& log, const std::string& fileName);
    void ViewFile(const std::string& path, const std::string& filter, bool readOnly);

    IWizardView& view_;
    int currentStep_ = 0;
    bool busy_ = false;
    bool cancelRequested_ = false;
    bool finished_ = false;
    bool helpShown_ = false;
    bool exited_ = false;
    bool hasMapData_ = false;
    bool hasAliasData_ = false;
    bool browseEnabled_ = true;
    std::array<ControlState, 5> nav_{};
    std::unique_ptr<OptionsDialog> options_;
    std::unique_ptr<CSummary> scanLog_;
    std::unique_ptr<CSummary> rewriteLog_;
    std::unique_ptr<CSummary> popupLog_;
    std::vector<std::unique_ptr<CSummary>> viewers_;
    std::vector<std::string> recentProjects_;
};

}  // namespace tamrix
