// The write itself, kept apart from the checks because it needs every writer.
#include "wizard/write_step.h"
#include "model/conversion.h"

#include "messages/messages.h"
#include "parser/undefined_ids.h"
#include "platform/file_system.h"
#include "platform/program_error.h"
#include "rewrite/project_writer.h"

namespace tamrix {

bool cmdRewrite(Conversion& wizard, const std::string& txtRootPath) {
    return Guarded(wizard.Errors, "frmWizard:cmdRewrite", false, [&] {
        if (!CheckNewProjectTarget(wizard, txtRootPath)) return false;
        wizard.Files.SetWriteRoot(wizard.NewRootPath.empty() ? std::string(".")
                                                             : wizard.NewRootPath);
        wizard.Refresh();
        wizard.RewriteDone = false;
        wizard.GetHTMLOptions();
        bool ok = modRewrite::RewriteHelpProject(wizard, wizard.Projectname, wizard.NewProjectName,
                                                 wizard.NewRootPath);
        if (ok)
            ok = modRewrite::CopyImageFolder(wizard, wizard.Projectname, wizard.NewRootPath, false);
        int zeroCount = 0;
        const int undefined = modUtilities::UndefinedIDs(wizard, zeroCount);
        if (undefined > 0)
            wizard.StepMessage += modMessages::GetMessageString(10051, std::to_string(undefined));
        wizard.RewriteDone = ok;
        return true;
    });
}

}  // namespace tamrix
