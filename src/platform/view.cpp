#include "platform/view.h"

namespace tamrix {
int ButtonsOfStyle(int style, int (&codes)[3]) {
    switch (style & 0x0F) {
        case mb::kOKCancel:
            codes[0] = mb::kOK;
            codes[1] = mb::kCancel;
            return 2;
        case mb::kAbortRetryIgnore:
            codes[0] = mb::kAbort;
            codes[1] = mb::kRetry;
            codes[2] = mb::kIgnore;
            return 3;
        case mb::kYesNoCancel:
            codes[0] = mb::kYes;
            codes[1] = mb::kNo;
            codes[2] = mb::kCancel;
            return 3;
        case mb::kYesNo:
            codes[0] = mb::kYes;
            codes[1] = mb::kNo;
            return 2;
        case mb::kRetryCancel:
            codes[0] = mb::kRetry;
            codes[1] = mb::kCancel;
            return 2;
        default: codes[0] = mb::kOK; return 1;
    }
}

int AffirmativeAnswerOfStyle(int style) {
    int codes[3] = {};
    ButtonsOfStyle(style, codes);
    return codes[0];
}

int NegativeAnswerOfStyle(int style) {
    switch (style & 0x0F) {
        case mb::kOKCancel:
        case mb::kRetryCancel: return mb::kCancel;
        case mb::kAbortRetryIgnore: return mb::kAbort;
        case mb::kYesNo:
        case mb::kYesNoCancel: return mb::kNo;
        default: return mb::kOK;
    }
}

int SilentView::MessageBox(const MessageRequest& request) {
    return NegativeAnswerOfStyle(request.style);
}

}  // namespace tamrix
