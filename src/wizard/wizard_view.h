#pragma once
// What the wizard needs from its window beyond message boxes and progress.
#include "platform/view.h"

namespace tamrix {

class Wizard;
class OptionsDialog;

/// HTML Help command: show the help file's default topic.
inline constexpr int kHelpDisplayTopic = 0;
/// HTML Help command: show the topic of a context number.
inline constexpr int kHelpContext = 15;
/// HTML Help command: close every help window.
inline constexpr int kHelpCloseAll = 18;

/// The window the wizard runs in: the Qt window or the command line.
class IWizardView : public IView {
public:
    /// The step, captions, control values, enabled states or menus changed.
    virtual void WizardChanged(const Wizard& wizard) = 0;
    /// Shows the program's help; true when a help window opened.
    virtual bool ShowHelp(int command, int context) = 0;
    /// Closes the help windows the program opened.
    virtual void CloseHelp() = 0;
    /// Unloads the windows and ends the program.
    virtual void ExitProgram() = 0;
    /// Shows the About box.
    virtual void ShowAbout() = 0;
    /// Shows the options dialog modally; its buttons call OK or Cancel.
    virtual void ShowOptionsDialog(OptionsDialog& dialog) = 0;
    /// Whether a printer is installed; without one step 0 shows a note.
    virtual bool HasAnyPrinters() = 0;
};

}  // namespace tamrix
