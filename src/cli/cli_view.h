#pragma once
// The wizard's view on a terminal or in a script: message boxes go to standard
// error, questions are answered by the options, by the user on a terminal, or No.
#include <cstdio>
#include <iosfwd>
#include <string>

#include "cli/cli_options.h"
#include "wizard/wizard_view.h"

namespace tamrix::cli {

class CliView : public IWizardView {
public:
    CliView(const CliOptions& options, std::istream& in, std::ostream& err, bool interactive,
            bool showProgress);

    int MessageBox(const MessageRequest& request) override;
    void ErrorBox(const std::string& text, const std::string& title) override;
    std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultText) override;
    std::string OpenFileDialog(const FileDialogRequest&) override { return {}; }
    std::string SaveFileDialog(const FileDialogRequest&) override { return {}; }
    void SetProgressCaption(const std::string& caption) override;
    void SetProgressMax(int maximum) override;
    void SetProgressValue(int value) override;
    void SetProgressVisible(bool visible) override;
    void ProcessEvents() override {}

    void WizardChanged(const Wizard&) override {}
    bool ShowHelp(int, int) override { return false; }
    void CloseHelp() override {}
    void ExitProgram() override {}
    void ShowAbout() override {}
    void ShowOptionsDialog(OptionsDialog& dialog) override;
    bool HasAnyPrinters() override { return false; }

private:
    int Answer(const MessageRequest& request, bool& asked);
    void DrawProgress();
    void ClearProgress();
    static std::string OneLine(const std::string& text);

    const CliOptions& options_;
    std::istream& in_;
    std::ostream& err_;
    bool interactive_;
    bool showProgress_;
    std::string caption_;
    int max_ = 0;
    int value_ = 0;
    bool visible_ = false;
    bool drawn_ = false;
};

}  // namespace tamrix::cli
