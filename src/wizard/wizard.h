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

enum NavButton { kNavHelp = 0, kNavCancel = 1, kNavBack = 2, kNavNext = 3, kNavExit = 4 };

struct ControlState {
    bool enabled = true;
    bool visible = true;
};

struct MenuEntry {
    bool enabled = true;
    bool checked = false;
    bool visible = true;
};

/// The controls of the six step frames, as values.
struct WizardControls {
    /// Step 0
    bool chkShowIntro = true;  // unticked, a restart in this run begins at step 1
    bool lblPrinterVisible = false;
    /// Step 1
    std::string txtProjectName;
    std::string lblTopicCount;
    std::string lblContents;
    std::string lblIndexFile;
    /// Step 2
    std::string txtWinhelpProjectName;
    bool chkIgnoreZeroIDs = true;  // mirrors Options/Ignore Zero IDs
    bool chkMapData = false;
    bool chkAliasData = false;
    bool fraHPJOpenVisible = false;
    /// Step 3
    std::string txtRootPath;
    std::string lblContextCount;
    std::string lblUntitledCount;
    std::string lblContextIDs;
    /// Step 4
    bool optYesPopups = false;
    bool optNoPopups = true;
    /// Step 5
    bool chkSaveSettings = false;  // ticked, a restart in this run keeps the options
};

struct WizardMenus {
    MenuEntry mnuFile, mnuFileExit;
    MenuEntry mnuView, mnuViewOldprojectFile, mnuViewNewProjectFile, mnuViewRTF, mnuViewFile,
        mnuViewHTM, mnuViewScanLog, mnuViewRewriteLog, mnuViewPopupLog;
    MenuEntry mnuOptions, mnuOptionsHTML, mnuOptionsIgnoreZeroIDs, mnuOptionsReformatMap,
        mnuOptionsReadNameValue, mnuOptionsSep1, mnuOptionstest;
    MenuEntry mnuTools, mnuToolsFormatMapFiles;
    MenuEntry mnuHelp, mnuHelpAbout, mnuHelpProgram;
};

class Wizard : public Conversion {
public:
    static constexpr int kStepCount = 6;
    static constexpr const char* kHelpFileName = "Tamrix.chm";

    explicit Wizard(IWizardView& view);
    ~Wizard() override;

    /// Form_Load: captions, the ignore-zero-IDs flag, the hidden test entry, step 0.
    void Start();

    void cmdNav_Click(int index);
    /// F1 (key code 112) acts as the Help button.
    void Form_KeyDown(int keyCode);
    int NextStep(int currentStep);
    void ShowStep(int newStep);

    /// Browse buttons of steps 1, 2 and 3.
    void cmdBrowseHHP_Click();
    void cmdbrowseHPJ_Click();
    void cmdBrowseNewRoot_Click();
    /// The step 2 check box, the same switch as Options/Ignore Zero IDs.
    void chkIgnoreZeroIDs_Click();

    /// A .hhp or .hpj dropped on the window fills its step; false for other files.
    bool FileDropped(const std::string& path);
    /// The projects opened in this run, newest first.
    const std::vector<std::string>& RecentProjects() const { return recentProjects_; }
    /// Fills step 1 with a project of this run and shows that step.
    void OpenRecentProject(std::size_t index);

    /// Menus.
    void mnuFileExit_Click() { ExitProgram(); }
    void mnuViewOldprojectFile_Click();
    void mnuViewNewProjectFile_Click();
    void mnuViewRTF_Click();
    void mnuViewFile_Click();
    void mnuViewHTM_Click();
    void mnuViewScanLog_Click();
    void mnuViewRewriteLog_Click();
    void mnuViewPopupLog_Click();
    void mnuOptionsHTML_Click();
    void mnuOptionsIgnoreZeroIDs_Click();
    void mnuOptionsReformatMap_Click();
    /// "Read Name-Value Lines in Map Files": the Visual C++ form of map header files.
    void mnuOptionsReadNameValue_Click();
    void mnuOptionstest_Click();
    void mnuToolsFormatMapFiles_Click() {}
    void mnuHelpAbout_Click();
    void mnuHelpProgram_Click();

    bool GetHTMLOptions() override;
    void Refresh() override;

    /// Read by the views.
    int CurrentStep() const { return currentStep_; }
    bool Finished() const { return finished_; }
    bool HelpShown() const { return helpShown_; }
    bool Exited() const { return exited_; }
    std::string Caption() const;
    std::string StepCaption(int step) const;
    std::string NavCaption(int index) const;
    int HelpContext() const { return 5000 + 10 * (currentStep_ + 1); }
    const std::array<ControlState, 5>& NavButtons() const { return nav_; }
    bool BrowseEnabled() const { return browseEnabled_; }
    bool FrameProgressVisible() const { return ProgressVisible(); }
    OptionsDialog* Options() const { return options_.get(); }
    const CSummary* ScanLog() const { return scanLog_.get(); }
    const CSummary* RewriteLog() const { return rewriteLog_.get(); }
    const CSummary* PopupLog() const { return popupLog_.get(); }

    WizardControls controls;
    WizardMenus menus;

private:
    void Changed();
    /// Disables the navigation and browse buttons and the menus while an operation runs.
    void BusyUI(bool on);
    void SetNextBackExit();
    void ExitProgram();
    void ResetProject();
    void ResetViewMenus();
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
