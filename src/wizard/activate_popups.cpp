#include "wizard/activate_popups.h"

#include "messages/messages.h"
#include "model/conversion.h"
#include "rewrite/popup_activation.h"

namespace tamrix {

void ActivatePopups(Conversion& wizard) {
    bool ok = false;
    if (wizard.NumPopupStrings > 0) {
        ok = modRewrite::ModifyPopupFiles(wizard, wizard.NewRootPath);
        if (ok) {
            wizard.SetProgressCaption("Extracted and wrote text string files for popups.");
            modUtilities::ShowProgressBar(wizard, false);
            wizard.StepMessage = modMessages::GetMessageString(
                10063, "popups.js", std::string("\\html") + "\\NoPopups");
        }
    }
    wizard.PopupsActivated = ok;
}

}  // namespace tamrix
