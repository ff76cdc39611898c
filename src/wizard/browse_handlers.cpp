// The Browse buttons of steps 1, 2 and 3.
#include "messages/messages.h"
#include "model/conversion.h"
#include "parser/project_reader.h"
#include "parser/winhelp_reader.h"
#include "platform/byte_text.h"
#include "platform/path_helpers.h"
#include "platform/program_error.h"
#include "wizard/wizard.h"

namespace tamrix {
namespace {

std::string ChooseProjectFile(IView& view, const char* title, const char* filter,
                              const char* extension) {
    FileDialogRequest request;
    request.title = title;
    request.filter = filter;
    request.defaultExtension = extension;
    return view.OpenFileDialog(request);
}

// False when the file's extension is not `extension` and the user answers No to the warning.
bool AcceptExtension(Conversion& wizard, const std::string& path, const char* extension,
                     long messageId, const char* title, BoxPosition box) {
    return EqualsNoCase(FileExtension(path), extension) ||
           modMessages::AskMessage(
               wizard.View(),
               modMessages::FromCatalogue(messageId, modUtilities::FileNameNoPath(path)),
               mb::kYesNo + mb::kExclamation, title, box) != mb::kNo;
}

}  // namespace

void Wizard::FillProjectLabels(std::string& topicLabel) {
    topicLabel = DisplayTopicCount;
    const std::string index = modParser::GetIndexFileName(*this, controls.txtProjectName);
    if (modUtilities::FileExists(Files, index))
        controls.lblIndexFile = modUtilities::FileNameNoPath(index);
    const std::string contents = modParser::GetContentsFileName(*this, controls.txtProjectName);
    if (modUtilities::FileExists(Files, contents))
        controls.lblContents = modUtilities::FileNameNoPath(contents);
}

// The warning titles of the two handlers are crossed over, and the first one
// reports its errors under the second one's name; both are kept as they were.
void Wizard::cmdBrowseHHP_Click() {
    if (busy_ || !browseEnabled_) return;
    GuardedVoid(Errors, "frmWizard:cmdBrowseHPJ_Click", [&] {
        const std::string path =
            ChooseProjectFile(view_, "Select HTML Help Project",
                              "HTML Project Files (*.hhp)|*.hhp|All Files (*.*)|*.*", "hhp");
        if (path.empty() ||
            !AcceptExtension(*this, path, "hhp", 10067, "Open WinHelp Help Project", Box()))
            return;
        UseProjectFile(path);
    });
}

void Wizard::UseProjectFile(const std::string& path) {
    controls.txtProjectName = path;
    int count = 0;
    if (modParser::OpenProjectFile(*this, path, count)) FillProjectLabels(controls.lblTopicCount);
    Changed();
}

void Wizard::cmdbrowseHPJ_Click() {
    if (busy_ || !browseEnabled_) return;
    GuardedVoid(Errors, "frmWizard:cmdbrowseHPJ_Click", [&] {
        const std::string path =
            ChooseProjectFile(view_, "Select WinHelp Project",
                              "WinHelp Project Files (*.hpj)|*.hpj|All Files (*.*)|*.*", "hpj");
        if (path.empty()) return;
        controls.fraHPJOpenVisible = true;
        if (!AcceptExtension(*this, path, "hpj", 10068, "Opening HTML help project", Box())) {
            Changed();
            return;
        }
        UseWinHelpFile(path);
    });
}

void Wizard::UseWinHelpFile(const std::string& path) {
    controls.fraHPJOpenVisible = true;
    controls.txtWinhelpProjectName = path;
    controls.chkMapData = controls.chkAliasData = false;
    bool hasAlias = false;
    bool hasMap = false;
    if (modParser::OpenWinProjectFile(*this, path, hasAlias, hasMap)) {
        controls.chkMapData = hasMap;
        controls.chkAliasData = hasAlias;
    }
    Changed();
}

void Wizard::cmdBrowseNewRoot_Click() {
    if (busy_ || !browseEnabled_) return;
    FileDialogRequest request;
    request.title = "New HTML Project File";
    request.filter = "HTML Help Project (*.hhp)|*.hhp|";
    request.defaultExtension = "hhp";
    const std::string path = view_.SaveFileDialog(request);
    if (!path.empty()) controls.txtRootPath = path;
    Changed();
}

}  // namespace tamrix
