// The View, Options and Help menus of the wizard window.
#include "messages/messages.h"
#include "model/conversion.h"
#include "model/project_state.h"
#include "platform/path_helpers.h"
#include "wizard/wizard.h"

namespace tamrix {
namespace {
constexpr const char* kProjectFilter = "HTML Projects (*.hhp)|*.hhp|All Files (*.*)|*.*|";
constexpr const char* kLogFilter = "Log Files (*.log)|*.log|All Files (*.*)|*.*|";
}  // namespace

void Wizard::ViewFile(const std::string& path, const std::string& filter, bool readOnly) {
    auto viewer = std::make_unique<CSummary>(Errors);
    viewer->ViewFile(filter, readOnly, path);
    viewers_.push_back(std::move(viewer));
}

void Wizard::mnuViewOldprojectFile_Click() {
    if (Projectname.empty()) {
        modMessages::ShowMessageID(View(), 10022, mb::kOKOnly, "View Project File", "", Box());
        return;
    }
    ViewFile(Projectname, kProjectFilter, true);
}

void Wizard::mnuViewNewProjectFile_Click() {
    if (NewProjectName.empty()) {
        modMessages::ShowMessageID(View(), 10022, mb::kOKOnly, "View New Project File", "", Box());
        return;
    }
    ViewFile(modUtilities::MakeFullPathforFile(NewRootPath, NewProjectName), kProjectFilter, true);
}

void Wizard::mnuViewRTF_Click() {
    ViewFile("", "RTF Files (*.rtf)|*.rtf|All Files (*.*)|*.*|", true);
}

void Wizard::mnuViewFile_Click() {
    ViewFile("", "All Files (*.*)|*.*|Text Files (*.txt,*.log,*.h,*.js)|*.txt;*.log;*.h;*.js|",
             true);
}

void Wizard::mnuViewHTM_Click() {
    modMessages::ShowMessage(View(), "Not implemented", mb::kOKOnly, "View Topic File", Box());
}

// Shows a log from the new project's folder when it has been written there,
// otherwise the log in memory.
void Wizard::ViewReportOrFile(std::unique_ptr<CSummary>& log, const std::string& fileName) {
    if (!NewRootPath.empty()) {
        const std::string path = modUtilities::MakeFullPathforFile(NewRootPath, fileName);
        if (modUtilities::FileExists(Files, path)) ViewFile(path, kLogFilter, false);
        return;
    }
    if (log) log->Show(0);
}

void Wizard::mnuViewScanLog_Click() {
    if (Projectname.empty()) {
        modMessages::ShowMessageID(View(), 10022, mb::kOKOnly, "View Scan Log", "", Box());
        return;
    }
    if (RewriteDone) {
        const std::string path = modUtilities::MakeFullPathforFile(NewRootPath, "scan.log");
        if (modUtilities::FileExists(Files, path)) ViewFile(path, kLogFilter, false);
    } else if (!ScanComplete) {
        modMessages::ShowMessageID(View(), 10009, mb::kInformation, "View Scan Log", "", Box());
    } else if (scanLog_) {
        scanLog_->Show(0);
    } else {
        modMessages::ShowMessageID(View(), 10022, mb::kOKOnly, "View Scan Log", "", Box());
    }
}

void Wizard::mnuViewRewriteLog_Click() { ViewReportOrFile(rewriteLog_, "rewrite.log"); }

void Wizard::mnuViewPopupLog_Click() { ViewReportOrFile(popupLog_, "popups.log"); }

void Wizard::mnuOptionsHTML_Click() {
    if (!options_) options_ = std::make_unique<OptionsDialog>();
    options_->Paint();
    options_->Visible = true;
    view_.ShowOptionsDialog(*options_);
}

void Wizard::mnuOptionsIgnoreZeroIDs_Click() {
    menus.mnuOptionsIgnoreZeroIDs.checked = !menus.mnuOptionsIgnoreZeroIDs.checked;
    Globals.IgnoreZeroIDs = menus.mnuOptionsIgnoreZeroIDs.checked;
    controls.chkIgnoreZeroIDs = menus.mnuOptionsIgnoreZeroIDs.checked;
    Changed();
}

void Wizard::mnuOptionsReformatMap_Click() {
    menus.mnuOptionsReformatMap.checked = !menus.mnuOptionsReformatMap.checked;
    Changed();
}

void Wizard::mnuOptionsReadNameValue_Click() {
    menus.mnuOptionsReadNameValue.checked = !menus.mnuOptionsReadNameValue.checked;
    Globals.ReadNameValueLines = menus.mnuOptionsReadNameValue.checked;
    Changed();
}

void Wizard::mnuOptionstest_Click() {
    modMessages::ShowMessage(View(), modMessages::FromCatalogue(10000), mb::kYesNo, "testing",
                             Box());
}

void Wizard::mnuHelpAbout_Click() { view_.ShowAbout(); }

void Wizard::mnuHelpProgram_Click() {
    if (view_.ShowHelp(kHelpDisplayTopic, 0)) helpShown_ = true;
}

}  // namespace tamrix
