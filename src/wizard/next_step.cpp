// The work done when the wizard leaves a step forwards.
#include "messages/messages.h"
#include "model/conversion.h"
#include "model/project_state.h"
#include "parser/project_reader.h"
#include "parser/reference_resolution.h"
#include "parser/winhelp_reader.h"
#include "platform/byte_text.h"
#include "platform/path_helpers.h"
#include "platform/program_error.h"
#include "popups/popup_writers.h"
#include "reports/popup_log.h"
#include "reports/rewrite_log.h"
#include "reports/scan_log.h"
#include "wizard/activate_popups.h"
#include "wizard/scan_step.h"
#include "wizard/wizard.h"
#include "wizard/write_step.h"

namespace tamrix {

int Wizard::NextStep(int currentStep) {
    const int next = NextStepWork(currentStep);
    // Topic files held back for popup activation wait only while the popup
    // question is open.
    if (next != 4)
        Guarded(Errors, "frmWizard:NextStep", false, [&] {
            Files.WriteHeld();
            return true;
        });
    return next;
}

int Wizard::NextStepWork(int currentStep) {
    return Guarded(Errors, "frmWizard:NextStep", currentStep, [&]() -> int {
        switch (currentStep) {
            case 0:
            case 5: StepMessage.clear(); break;
            case 1: {
                StepMessage.clear();
                if (controls.txtProjectName.empty() && Projectname.empty()) {
                    modMessages::ShowMessage(View(), modMessages::FromCatalogue(10008),
                                             mb::kInformation, "HTML Help Project File", Box());
                    return currentStep;
                }
                if (controls.txtProjectName != Projectname) {
                    ScanComplete = false;
                    int count = 0;
                    if (!modParser::OpenProjectFile(*this, controls.txtProjectName, count))
                        return currentStep;
                    Projectname = controls.txtProjectName;
                    ProjectFolder = modUtilities::FilePathOnly(Projectname);
                    RememberProject(Projectname);
                    ProposeWinHelpProject();
                    controls.lblContextCount = DisplayTopicCount;
                    controls.lblTopicCount = DisplayTopicCount;
                    IndexFile.clear();
                    ContentsFile.clear();
                    controls.lblIndexFile.clear();
                    controls.lblContents.clear();
                    const std::string index = modParser::GetIndexFileName(*this, Projectname);
                    if (modUtilities::FileExists(Files, index)) {
                        IndexFile = modUtilities::FileNameNoPath(index);
                        controls.lblIndexFile = IndexFile;
                    }
                    const std::string contents = modParser::GetContentsFileName(*this, Projectname);
                    if (modUtilities::FileExists(Files, contents)) {
                        ContentsFile = modUtilities::FileNameNoPath(contents);
                        controls.lblContents = ContentsFile;
                    }
                }
                menus.mnuViewOldprojectFile.enabled = true;
                controls.fraHPJOpenVisible = true;
                break;
            }
            case 2:
                if (!NextFromWinHelpFile()) return currentStep;
                break;
            case 3:
                if (!NextFromNewProject()) return currentStep;
                break;
            case 4:
                if (controls.optYesPopups) {
                    BusyUI(true);
                    ActivatePopups(*this);
                    BusyUI(false);
                }
                menus.mnuOptionsReformatMap.checked = true;
                menus.mnuToolsFormatMapFiles.enabled = true;
                break;
            default: break;
        }
        return currentStep + 1 < kStepCount ? currentStep + 1 : currentStep;
    });
}

bool Wizard::NextFromWinHelpFile() {
    if (controls.txtWinhelpProjectName.empty()) {
        WinHelpProjectName.clear();
        hasMapData_ = hasAliasData_ = false;
        controls.chkMapData = controls.chkAliasData = false;
        controls.fraHPJOpenVisible = false;
    }
    if (controls.txtWinhelpProjectName != WinHelpProjectName) {
        hasMapData_ = hasAliasData_ = false;
        controls.chkMapData = controls.chkAliasData = false;
        ScanComplete = false;
        if (!modParser::OpenWinProjectFile(*this, controls.txtWinhelpProjectName, hasAliasData_,
                                           hasMapData_))
            return false;
        WinHelpProjectName = controls.txtWinhelpProjectName;
        controls.chkAliasData = hasAliasData_;
        controls.chkMapData = hasMapData_;
    }
    StepMessage.clear();
    BusyUI(true);
    const bool scanned = ScanProjectFiles(*this);
    BusyUI(false);
    if (scanned) {
        const long topics = Globals.TopicFiles ? Globals.TopicFiles->Count() : 0;
        controls.lblContextCount = std::to_string(topics);
        UntitledCount = modUtilities::UntitledTopics(Errors, Globals.TopicFiles.get());
        UntitledCountText = std::to_string(UntitledCount);
        controls.lblUntitledCount = UntitledCountText;
        scanLog_.reset();
        scanLog_ = std::make_unique<CSummary>(Errors);
        if (!modUtilities::MakeScanLogSummary(*this, *scanLog_)) scanLog_.reset();
        ScanComplete = true;
        menus.mnuViewScanLog.enabled = true;
        menus.mnuViewOldprojectFile.enabled = true;
        const long ids = (Globals.MapContextIDs ? Globals.MapContextIDs->Count() : 0) +
                         (Globals.ProjectAliases ? Globals.ProjectAliases->Count() : 0);
        controls.lblContextIDs = std::to_string(ids);
        SuggestNewProjectPath();
    }
    modUtilities::ShowProgressBar(*this, false);
    Changed();
    return scanned;
}

bool Wizard::NextFromNewProject() {
    if (controls.txtRootPath.empty()) {
        modMessages::ShowMessage(
            View(), "Please select the new HTML project location by clicking the Browse Button",
            mb::kInformation, "Writing new Project", Box());
        return false;
    }
    const std::string folder = modUtilities::FilePathOnly(controls.txtRootPath);
    const std::string name = modUtilities::FileNameNoPath(controls.txtRootPath);
    if (folder.empty() || name.empty()) {
        modMessages::ShowMessage(View(), "Check syntax of New Path", mb::kExclamation,
                                 "New project Path", Box());
        return false;
    }
    NewRootPath = folder;
    NewProjectName = name;
    BusyUI(true);
    const bool written = cmdRewrite(*this, controls.txtRootPath);
    BusyUI(false);
    if (!written) {
        modUtilities::ShowProgressBar(*this, false);
        return false;
    }
    WriteLogsAndPopups();
    return true;
}

void Wizard::WriteLogsAndPopups() {
    // 1. The scan log goes with the new project.
    RewriteDone = true;
    if (!scanLog_) {
        scanLog_ = std::make_unique<CSummary>(Errors);
        if (!modUtilities::MakeScanLogSummary(*this, *scanLog_)) scanLog_.reset();
    }
    SaveReport(Files, scanLog_.get(), modUtilities::MakeFullPathforFile(NewRootPath, "scan.log"));

    // 2. The rewrite log.
    BusyUI(true);
    SetProgressCaption("Generating Rewrite Log ...");
    rewriteLog_ = std::make_unique<CSummary>(Errors);
    const bool rewriteLogged =
        modUtilities::MakeRewriteLogSummary(*this, *rewriteLog_) &&
        SaveReport(Files, rewriteLog_.get(),
                   modUtilities::MakeFullPathforFile(NewRootPath, "rewrite.log"));
    SetProgressCaption("Wrote Rewrite Report");
    menus.mnuViewRewriteLog.enabled = true;
    menus.mnuViewNewProjectFile.enabled = true;
    BusyUI(false);
    if (!rewriteLogged) return;

    // 3. Popup text, only after the rewrite log was written.
    BusyUI(true);
    if (modUtilities::UpdateExternalReferences(*this) && UntitledCount >= 1 && Globals.TopicFiles) {
        modUtilities::InitializeProgressBar(*this, UntitledCount,
                                            "Extracting Popup Text from Untitled Topics ...");
        int count = 0;
        bool ok = modPopups::WriteJavaPopupStrings(*this, *Globals.TopicFiles, NewRootPath,
                                                   "popups.js", count);
        bool scriptPopups = false;
        bool appPopups = false;
        if (ok) {
            NumPopupStrings = count;
            scriptPopups = count != 0;
            PopupStringFile = "popups.js";
            if (Globals.MapContextIDs || Globals.ProjectAliases) {
                int appCount = 0;
                ok = modPopups::WriteAppPopupStrings(*this, *Globals.TopicFiles, NewRootPath,
                                                     "cshelp.txt", appCount);
                appPopups = ok && appCount != 0;
                NumTextPopups = ok ? appCount : 0;
            }
        }
        if (ok) {
            modPopups::AddPopupFiles(*this,
                                     modUtilities::MakeFullPathforFile(NewRootPath, NewProjectName),
                                     scriptPopups, appPopups);
            SetProgressCaption("Extracted and wrote text string files for popups.");
            const std::string leftOut = modPopups::LeftOutPopupsMessage(*this, *Globals.TopicFiles);
            if (!leftOut.empty()) StepMessage += "\r\n" + leftOut;
            popupLog_ = std::make_unique<CSummary>(Errors);
            if (modUtilities::MakePopupLogSummary(*this, *popupLog_))
                SaveReport(Files, popupLog_.get(),
                           modUtilities::MakeFullPathforFile(NewRootPath, "popups.log"));
            else
                popupLog_.reset();
            menus.mnuViewPopupLog.enabled = true;
            modUtilities::ShowProgressBar(*this, false);
        }
    }
    BusyUI(false);
}

}  // namespace tamrix
