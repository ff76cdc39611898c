#pragma once
// What the wizard needs from its window beyond message boxes and progress.
#include "platform/view.h"

namespace tamrix {

class Wizard;
class OptionsDialog;

// HTML Help commands the wizard asks for.
inline constexpr int kHelpDisplayTopic = 0;
inline constexpr int kHelpContext = 15;
inline constexpr int kHelpCloseAll = 18;

class IWizardView : public IView {
public:
    // The step, captions, control values, enabled states or menus changed.
    virtual void WizardChanged(const Wizard& wizard) = 0;
    // Shows the program's help; true when a help window opened.
    virtual bool ShowHelp(int command, int context) = 0;
    virtual void CloseHelp() = 0;
    // Unloads the windows and ends the program.
    virtual void ExitProgram() = 0;
    virtual void ShowAbout() = 0;
    // Shows the options dialog modally; its buttons call OK or Cancel.
    virtual void ShowOptionsDialog(OptionsDialog& dialog) = 0;
    virtual bool HasAnyPrinters() = 0;
};

}  // namespace tamrix
