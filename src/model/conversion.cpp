#include "model/conversion.h"

#include "platform/counter16.h"
#include "platform/program_error.h"

namespace tamrix {

void Conversion::SetProgressCaption(const std::string& caption) {
    progressCaption_ = caption;
    View().SetProgressCaption(caption);
}

void Conversion::SetProgressMax(int maximum) {
    progressMax_ = maximum;
    View().SetProgressMax(maximum);
}

void Conversion::SetProgress(int value) {
    if (value <= progressMax_) {
        progress_ = value;
        View().SetProgressValue(value);
    }
    if (value % 10 == 0) View().ProcessEvents();
}

void Conversion::SetProgressVisible(bool visible) {
    progressVisible_ = visible;
    View().SetProgressVisible(visible);
}

namespace modUtilities {

void InitializeProgressBar(Conversion& wizard, long maximum, const std::string& caption) {
    GuardedVoid(wizard.Errors, "modUtilities:InitializeProgressBar", [&] {
        wizard.SetProgressCaption(caption);
        if (maximum > 0) {
            wizard.SetProgressVisible(true);
            wizard.SetProgressMax(Counter16::Checked(maximum));
            wizard.SetProgress(0);
        }
    });
}

void UpdateProgressBar(Conversion& wizard, long value) {
    GuardedVoid(wizard.Errors, "modUtilities:UpdateProgressBar",
                [&] { wizard.SetProgress(Counter16::Checked(value)); });
}

void ShowProgressBar(Conversion& wizard, bool visible) {
    GuardedVoid(wizard.Errors, "modUtilities:ShowProgressBar",
                [&] { wizard.SetProgressVisible(visible); });
}

}  // namespace modUtilities
}  // namespace tamrix
