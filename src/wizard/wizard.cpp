#include "wizard/wizard.h"

#include "messages/messages.h"
#include "model/conversion.h"
#include "model/project_state.h"
#include "platform/file_system.h"
#include "platform/program_error.h"

namespace tamrix {

Wizard::Wizard(IWizardView& view) : Conversion(view), view_(view) {
    menus.mnuViewOldprojectFile.enabled = false;
    // Enabled once the popups step has been left.
    menus.mnuToolsFormatMapFiles.enabled = false;
    ResetViewMenus();
}

Wizard::~Wizard() = default;

void Wizard::Changed() { view_.WizardChanged(*this); }

std::string Wizard::StepCaption(int step) const {
    return modMessages::GetMessageString(1000 + step);
}

std::string Wizard::NavCaption(int index) const {
    return modMessages::GetMessageString(100 + index);
}

std::string Wizard::Caption() const { return "Tamrix - " + StepCaption(currentStep_); }

void Wizard::Start() {
    Globals.IgnoreZeroIDs = true;
    menus.mnuOptionsIgnoreZeroIDs.checked = true;
    Globals.ReadNameValueLines = false;
    menus.mnuOptionsReadNameValue.checked = false;
    menus.mnuOptionstest.visible = menus.mnuOptionstest.enabled = false;
    menus.mnuOptionsSep1.visible = false;
    controls.lblPrinterVisible = !view_.HasAnyPrinters();
    ShowStep(0);
}

void Wizard::ResetViewMenus() {
    menus.mnuViewOldprojectFile.enabled = false;
    menus.mnuViewNewProjectFile.enabled = false;
    menus.mnuViewScanLog.enabled = false;
    menus.mnuViewRewriteLog.enabled = false;
    menus.mnuViewPopupLog.enabled = false;
}

void Wizard::SetNextBackExit() {
    nav_[kNavExit].enabled = finished_;
    switch (currentStep_) {
        case 0:
            nav_[kNavBack].enabled = false;
            nav_[kNavNext].enabled = true;
            break;
        case 2:
        case 3:
            nav_[kNavBack].visible = true;
            nav_[kNavBack].enabled = true;
            nav_[kNavNext].enabled = true;
            break;
        case 5:
            nav_[kNavBack].enabled = true;
            nav_[kNavNext].enabled = false;
            break;
        default:
            nav_[kNavBack].enabled = true;
            nav_[kNavNext].enabled = true;
            break;
    }
}

void Wizard::ShowStep(int newStep) {
    if (newStep < 0 || newStep >= kStepCount) return;
    const bool changes = newStep != currentStep_;
    switch (newStep) {
        case 0:
            ResetViewMenus();
            finished_ = false;
            StepMessage.clear();
            break;
        case 2: finished_ = false; break;
        case 3:
            finished_ = false;
            if (ScanComplete && changes)
                StepMessage += "\r\n" + modMessages::GetMessageString(10026);
            break;
        case 4:
            finished_ = false;
            if (RewriteDone && changes)
                StepMessage += "\r\n" +
                               modMessages::GetMessageString(10064, "cshelp.txt", "popups.js") +
                               "\r\n" + modMessages::GetMessageString(10025);
            break;
        case 5: finished_ = true; break;
        default: break;
    }
    currentStep_ = newStep;
    SetNextBackExit();
    Changed();
    if (!StepMessage.empty()) {
        // Shown once: the next transition gathers its own results.
        const std::string text = StepMessage;
        StepMessage.clear();
        modMessages::ShowMessage(View(), text, mb::kInformation, "StepResults", Box());
    }
}

void Wizard::cmdNav_Click(int index) {
    ErrorReportOperation operation(Errors);  // an error flood shows as one report
    switch (index) {
        case kNavHelp:
            if (view_.ShowHelp(kHelpContext, HelpContext())) helpShown_ = true;
            break;
        case kNavCancel: {
            cancelRequested_ = true;
            busy_ = false;
            modUtilities::ShowProgressBar(*this, false);
            if (currentStep_ != 0) {
                if (modMessages::AskMessage(View(), "Do you want to restart the program?",
                                            mb::kYesNo + mb::kQuestion, "Cancel",
                                            Box()) == mb::kYes) {
                    ResetProject();
                    ShowStep(0);
                    if (!controls.chkShowIntro) ShowStep(1);
                }
            } else if (modMessages::AskMessage(View(), "Do you want to exit the program?",
                                               mb::kYesNo + mb::kQuestion, "Cancel",
                                               Box()) == mb::kYes) {
                ExitProgram();
            }
            Changed();
            break;
        }
        case kNavBack:
            if (currentStep_ == 0) break;
            StepMessage.clear();
            ShowStep(currentStep_ - 1);
            break;
        case kNavNext:
            if (busy_ || !nav_[kNavNext].enabled) break;
            ShowStep(NextStep(currentStep_));
            break;
        case kNavExit:
            if (modMessages::AskMessage(View(), "Do you want to exit the program?",
                                        mb::kYesNo + mb::kQuestion, "Cancel", Box()) == mb::kYes)
                ExitProgram();
            break;
        default: break;
    }
}

void Wizard::Form_KeyDown(int keyCode) {
    if (keyCode == 112) cmdNav_Click(kNavHelp);
}

void Wizard::BusyUI(bool on) {
    for (auto& button : nav_) button.enabled = !on;
    browseEnabled_ = !on;
    menus.mnuFile.enabled = menus.mnuView.enabled = menus.mnuOptions.enabled =
        menus.mnuHelp.enabled = !on;
    if (!on) SetNextBackExit();
    Changed();
}

void Wizard::ExitProgram() {
    viewers_.clear();
    if (helpShown_) view_.ShowHelp(kHelpCloseAll, 0);
    exited_ = true;
    view_.ExitProgram();
}

void Wizard::ResetProject() {
    Globals.CloseProject();
    Globals.RenamedTopicIDs.clear();
    Globals.InvalidContextIDs.clear();
    Globals.ContentsTopic.clear();
    Projectname.clear();
    ProjectFolder.clear();
    WinHelpProjectName.clear();
    NewProjectName.clear();
    NewRootPath.clear();
    IndexFile.clear();
    ContentsFile.clear();
    ScanComplete = IncompleteData = RewriteDone = PopupsActivated = false;
    MissingCount = NumPopupStrings = NumTextPopups = UntitledCount = 0;
    PopupStringFile.clear();
    DisplayTopicCount.clear();
    UntitledCountText.clear();
    hasMapData_ = hasAliasData_ = false;
    scanLog_.reset();
    rewriteLog_.reset();
    popupLog_.reset();
    // The options outlive the project only when the user asked to keep them.
    const WizardControls kept = controls;
    controls = WizardControls{};
    controls.lblPrinterVisible = kept.lblPrinterVisible;
    controls.chkShowIntro = kept.chkShowIntro;
    controls.chkSaveSettings = kept.chkSaveSettings;
    if (kept.chkSaveSettings) {
        controls.chkIgnoreZeroIDs = kept.chkIgnoreZeroIDs;
        controls.optYesPopups = kept.optYesPopups;
        controls.optNoPopups = kept.optNoPopups;
    } else {
        ResetOptions();
    }
    Files.SetWriteRoot({});
}

void Wizard::Refresh() { view_.ProcessEvents(); }

bool Wizard::GetHTMLOptions() {
    return Guarded(Errors, "frmWizard:GetHTMLOptions", false, [&] {
        AddCssLink = false;
        SetTopicClass = false;  // offered in the dialog but never passed on
        CssFileName.clear();
        if (options_ && options_->Status) {
            AddCssLink = options_->chkCssFile;
            CssFileName = options_->txtCssFileName;
        }
        return true;
    });
}

}  // namespace tamrix
