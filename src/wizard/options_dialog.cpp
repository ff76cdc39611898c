#include "wizard/options_dialog.h"

#include "messages/messages.h"

namespace tamrix {

void OptionsDialog::Paint() {
    if (txtCssFileName.empty()) txtCssFileName = kDefaultCssName;
}

void OptionsDialog::OK() {
    if (txtCssFileName.empty()) {
        modMessages::ShowMessage("There must be a valid name for the style sheet", mb::kOKOnly,
                                 "HTML Options");
        Status = false;
        return;
    }
    Status = true;
    Visible = false;
}

void OptionsDialog::Cancel() {
    Status = false;
    Visible = false;
}

}  // namespace tamrix
