#include "messages/messages.h"
#include "model/project_state.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"
#include "platform/program_error.h"
#include "wizard/write_step.h"

#include "model/conversion.h"
namespace tamrix {
namespace {

constexpr const char* kTitle = "Writing New Project Files";

void Show(Conversion& wizard, long id, const std::string& insert = {}) {
    modMessages::ShowMessage(wizard.View(), modMessages::FromCatalogue(id, insert), mb::kOKOnly,
                             kTitle, wizard.Box());
}

// The same folder also when written another way: "x\.\", a relative path, a
// link, another letter case where the file system ignores it.
bool SameFolder(Conversion& wizard, const std::string& a, const std::string& b) {
    return modUtilities::IsTheSamePath(a, b) || wizard.Files.SameEntry(a, b);
}

}  // namespace

bool CheckNewProjectTarget(Conversion& wizard, const std::string& txtRootPath) {
    return Guarded(wizard.Errors, "frmWizard:cmdRewrite", false, [&] {
        const auto& topics = wizard.Globals.TopicFiles;
        if (wizard.Projectname.empty()) {
            Show(wizard, 10010);
            return false;
        }
        if (!topics || !wizard.ScanComplete) {
            modMessages::ShowMessage(wizard.View(), modMessages::FromCatalogue(10009), mb::kOKOnly,
                                     kTitle, {});
            return false;
        }
        if (topics->Count() == 0) {
            Show(wizard, 10009);
            return false;
        }
        const std::string& root = wizard.NewRootPath;
        const std::string oldFolder = modUtilities::FilePathOnly(wizard.Projectname);
        // An empty root means the working folder, which must not be the input folder either.
        const std::string effectiveRoot = root.empty() ? std::string(".") : root;
        if (modUtilities::FolderExists(wizard.Files, effectiveRoot) &&
            SameFolder(wizard, effectiveRoot, oldFolder)) {
            Show(wizard, 10014);
            return false;
        }
        wizard.Files.SetWriteRoot(effectiveRoot);
        wizard.Files.SetInputFolders(
            {oldFolder, modUtilities::FilePathOnly(wizard.WinHelpProjectName)});
        if (!root.empty() && !modUtilities::FolderExists(wizard.Files, root)) {
            const int answer =
                modMessages::AskMessage(wizard.View(), modMessages::FromCatalogue(10011, root),
                                        mb::kYesNoCancel | mb::kQuestion, kTitle, wizard.Box());
            if (answer == mb::kCancel) return false;
            if (answer == mb::kNo) {
                Show(wizard, 10014);  // the same-folder text, shown here on purpose
                return false;
            }
            if (!modUtilities::CreateFolder(wizard.Files, wizard.Errors, root, "")) {
                modMessages::ShowMessage(wizard.View(), modMessages::FromCatalogue(10013, root),
                                         mb::kExclamation, kTitle, wizard.Box());
                return false;
            }
        }
        if (txtRootPath.empty()) {
            Show(wizard, 10015);
            return false;
        }
        if (modUtilities::FileExists(wizard.Files, root + "\\" + wizard.NewProjectName)) {
            const int answer = modMessages::AskMessage(
                wizard.View(), modMessages::FromCatalogue(10038, wizard.NewProjectName, root),
                mb::kYesNo | mb::kQuestion, kTitle, wizard.Box());
            if (answer != mb::kYes) return false;
        }
        return true;
    });
}

}  // namespace tamrix
