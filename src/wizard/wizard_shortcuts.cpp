// Shorter ways through the wizard: dropped files, projects of this run, the
// WinHelp project beside the HTML Help project, a fresh folder for the output,
// and the step 0 and step 5 check boxes that hold for the rest of the run.
#include <algorithm>

#include "model/conversion.h"
#include "model/project_state.h"
#include "platform/byte_text.h"
#include "platform/path_helpers.h"
#include "wizard/wizard.h"

namespace tamrix {
namespace {

constexpr std::size_t kRecentLimit = 9;
// Folders tried after "-new" before giving up on a suggestion.
constexpr int kFolderTries = 99;

}  // namespace

void Wizard::chkIgnoreZeroIDs_Click() { mnuOptionsIgnoreZeroIDs_Click(); }

bool Wizard::FileDropped(const std::string& path) {
    if (busy_ || !browseEnabled_) return false;
    const std::string extension = FileExtension(path);
    // The step of the file comes up, as Back would show it.
    if (EqualsNoCase(extension, "hhp")) {
        if (currentStep_ != 1) ShowStep(1);
        UseProjectFile(path);
        return true;
    }
    if (EqualsNoCase(extension, "hpj")) {
        if (currentStep_ > 2) ShowStep(2);
        UseWinHelpFile(path);
        return true;
    }
    return false;
}

void Wizard::OpenRecentProject(std::size_t index) {
    if (index >= recentProjects_.size() || busy_ || !browseEnabled_) return;
    const std::string path = recentProjects_[index];  // a copy: the list may change
    if (currentStep_ != 1) ShowStep(1);
    UseProjectFile(path);
}

void Wizard::RememberProject(const std::string& path) {
    std::erase_if(recentProjects_, [&](const std::string& known) {
        return modUtilities::IsTheSamePath(known, path);
    });
    recentProjects_.insert(recentProjects_.begin(), path);
    if (recentProjects_.size() > kRecentLimit) recentProjects_.resize(kRecentLimit);
}

// "Help.hpj" beside "Help.hhp" is most likely the project it was converted from.
void Wizard::ProposeWinHelpProject() {
    if (!controls.txtWinhelpProjectName.empty()) return;
    const std::string candidate = ProjectFolder + FileBaseName(Projectname) + ".hpj";
    if (modUtilities::FileExists(Files, candidate)) controls.txtWinhelpProjectName = candidate;
}

// "<folder>-new" beside the input folder, or "-new2" ... when that is taken.
void Wizard::SuggestNewProjectPath() {
    if (!controls.txtRootPath.empty() || ProjectFolder.size() < 2) return;
    const char separator = ProjectFolder.back();
    const std::string folder = ProjectFolder.substr(0, ProjectFolder.size() - 1);
    // Not beside a drive or file-system root.
    if (modUtilities::FileNameNoPath(folder).empty() || folder.back() == ':') return;
    for (int n = 1; n <= kFolderTries; ++n) {
        const std::string candidate = folder + "-new" + (n == 1 ? "" : std::to_string(n));
        if (modUtilities::FolderExists(Files, candidate) ||
            modUtilities::FileExists(Files, candidate))
            continue;
        controls.txtRootPath = candidate + separator + modUtilities::FileNameNoPath(Projectname);
        return;
    }
}

void Wizard::ResetOptions() {
    options_.reset();
    Globals.IgnoreZeroIDs = true;
    menus.mnuOptionsIgnoreZeroIDs.checked = controls.chkIgnoreZeroIDs = true;
    menus.mnuOptionsReformatMap.checked = false;
    menus.mnuToolsFormatMapFiles.enabled = false;
}

}  // namespace tamrix
