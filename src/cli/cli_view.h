#pragma once
// The wizard's view on a terminal or in a script: message boxes go to standard
// error, questions are answered by the options, by the user on a terminal, or No.
#include <chrono>
#include <cstdio>
#include <functional>
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
    void ErrorRepeated(const std::string& text, const std::string& title, int times) override;
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

    int ErrorCount() const { return errors_; }

    using Clock = std::function<std::chrono::steady_clock::time_point()>;
    // The progress bar's time source; tests pass their own.
    void SetClock(Clock clock) { clock_ = std::move(clock); }

private:
    int Answer(const MessageRequest& request, bool& asked);
    bool Preanswered(const MessageRequest& request) const;
    // Redraws at most every kRedrawInterval unless `force` (a new caption, the last item).
    void DrawProgress(bool force);
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
    Clock clock_ = [] { return std::chrono::steady_clock::now(); };
    std::chrono::steady_clock::time_point started_{};
    std::chrono::steady_clock::time_point lastDrawn_{};
    int errors_ = 0;
};

}  // namespace tamrix::cli
