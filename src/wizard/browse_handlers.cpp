// The Browse buttons of steps 1, 2 and 3.
#include "messages/messages.h"
#include "parser/project_reader.h"
#include "parser/winhelp_reader.h"
#include "platform/byte_text.h"
#include "platform/path_helpers.h"
#include "platform/program_error.h"
#include "wizard/wizard.h"

namespace tamrix {

void Wizard::FillProjectLabels(std::string& topicLabel) {
    topicLabel = DisplayTopicCount;
    const std::string index = modParser::GetIndexFileName(controls.txtProjectName);
    if (modUtilities::FileExists(index)) controls.lblIndexFile = modUtilities::FileNameNoPath(index);
    const std::string contents = modParser::GetContentsFileName(controls.txtProjectName);
    if (modUtilities::FileExists(contents))
        controls.lblContents = modUtilities::FileNameNoPath(contents);
}

// The warning titles of the two handlers are crossed over, and the first one
// reports its errors under the second one's name; both are kept as they were.
void Wizard::cmdBrowseHHP_Click() {
    if (busy_ || !browseEnabled_) return;
    GuardedVoid("frmWizard:cmdBrowseHPJ_Click", [&] {
        FileDialogRequest request;
        request.title = "Select HTML Help Project";
        request.filter = "HTML Project Files (*.hhp)|*.hhp|All Files (*.*)|*.*";
        request.defaultExtension = "hhp";
        const std::string path = view_.OpenFileDialog(request);
        if (path.empty()) return;
        if (!EqualsNoCase(FileExtension(path), "hhp") &&
            modMessages::AskMessage(
                modMessages::GetMessageString(10067, modUtilities::FileNameNoPath(path)),
                mb::kYesNo + mb::kExclamation, "Open WinHelp Help Project", Box(), 10067) == mb::kNo)
            return;
        controls.txtProjectName = path;
        int count = 0;
        if (modParser::OpenProjectFile(*this, path, count)) FillProjectLabels(controls.lblTopicCount);
        Changed();
    });
}

void Wizard::cmdbrowseHPJ_Click() {
    if (busy_ || !browseEnabled_) return;
    GuardedVoid("frmWizard:cmdbrowseHPJ_Click", [&] {
        FileDialogRequest request;
        request.title = "Select WinHelp Project";
        request.filter = "WinHelp Project Files (*.hpj)|*.hpj|All Files (*.*)|*.*";
        request.defaultExtension = "hpj";
        const std::string path = view_.OpenFileDialog(request);
        if (path.empty()) return;
        controls.fraHPJOpenVisible = true;
        if (!EqualsNoCase(FileExtension(path), "hpj") &&
            modMessages::AskMessage(
                modMessages::GetMessageString(10068, modUtilities::FileNameNoPath(path)),
                mb::kYesNo + mb::kExclamation, "Opening HTML help project", Box(), 10068) == mb::kNo) {
            Changed();
            return;
        }
        controls.txtWinhelpProjectName = path;
        controls.chkMapData = controls.chkAliasData = false;
        bool hasAlias = false;
        bool hasMap = false;
        if (modParser::OpenWinProjectFile(*this, path, hasAlias, hasMap)) {
            controls.chkMapData = hasMap;
            controls.chkAliasData = hasAlias;
        }
        Changed();
    });
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
