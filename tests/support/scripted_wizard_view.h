#pragma once
// The scripted view of the wizard: records help requests, exits and changes.
#include <string>
#include <utility>
#include <vector>

#include "support/scripted_view.h"
#include "wizard/options_dialog.h"
#include "wizard/wizard_view.h"

namespace tamrix::testing {

class ScriptedWizardView : public ScriptedViewOf<IWizardView> {
public:
    std::vector<std::pair<int, int>> helpRequests;  // command, context
    int exits = 0;
    int changes = 0;
    bool printers = false;
    // What the options dialog does when shown: tick the style sheet, name it, press OK.
    bool optionsTickCss = false;
    std::optional<std::string> optionsCssName;

    void WizardChanged(const Wizard&) override { ++changes; }
    bool ShowHelp(int command, int context) override {
        helpRequests.emplace_back(command, context);
        return true;
    }
    void CloseHelp() override {}
    void ExitProgram() override { ++exits; }
    void ShowAbout() override {}
    void ShowOptionsDialog(OptionsDialog& dialog) override {
        if (optionsTickCss) dialog.chkCssFile = true;
        if (optionsCssName) dialog.txtCssFileName = *optionsCssName;
        dialog.OK(*this);
    }
    bool HasAnyPrinters() override { return printers; }
};

}  // namespace tamrix::testing
