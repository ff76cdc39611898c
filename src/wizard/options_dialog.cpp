#include "wizard/options_dialog.h"

#include "messages/messages.h"

namespace tamrix {

void OptionsDialog::Paint() {
    if (txtCssFileName.empty()) txtCssFileName = kDefaultCssName;
}

void OptionsDialog::OK(IView& view) {
    if (txtCssFileName.empty()) {
        modMessages::ShowMessage(view, "There must be a valid name for the style sheet",
                                 mb::kOKOnly, "HTML Options");
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
