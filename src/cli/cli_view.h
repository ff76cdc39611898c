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

/// Shows the wizard's boxes and progress on standard error and answers its questions.
class CliView : public IWizardView {
public:
    /// `interactive`: questions may be asked on `in`; `showProgress`: draw a progress bar on `err`.
    CliView(const CliOptions& options, std::istream& in, std::ostream& err, bool interactive,
            bool showProgress);

    /// Prints the box with its catalogue ID; a question is answered by --answer, the default
    /// answer, the user, or No.
    int MessageBox(const MessageRequest& request) override;
    /// Prints the error on one line under its title.
    void ErrorBox(const std::string& text, const std::string& title) override;
    /// Says how many more times an error came in one operation.
    void ErrorRepeated(const std::string& text, const std::string& title, int times) override;
    /// Asks on a terminal; elsewhere the input is cancelled.
    std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultText) override;
    /// No file dialogs on the command line: nothing is chosen.
    std::string OpenFileDialog(const FileDialogRequest&) override { return {}; }
    /// Nothing is chosen either.
    std::string SaveFileDialog(const FileDialogRequest&) override { return {}; }
    /// The progress bar's caption, drawn at once.
    void SetProgressCaption(const std::string& caption) override;
    /// Starts a new count to `maximum`.
    void SetProgressMax(int maximum) override;
    /// Moves the bar; redrawn at most ten times a second, and at the last item.
    void SetProgressValue(int value) override;
    /// Hiding the bar clears its line.
    void SetProgressVisible(bool visible) override;
    /// Nothing to process; the command line has no event loop.
    void ProcessEvents() override {}

    /// The command line follows the wizard through its state, not its window.
    void WizardChanged(const Wizard&) override {}
    /// There is no help window; the wizard's Help does nothing here.
    bool ShowHelp(int, int) override { return false; }
    /// Nothing to close.
    void CloseHelp() override {}
    /// The run ends when the command returns.
    void ExitProgram() override {}
    /// No About box on the command line.
    void ShowAbout() override {}
    /// Takes the options from the command line instead of a dialog.
    void ShowOptionsDialog(OptionsDialog& dialog) override;
    /// Nothing is printed from the command line.
    bool HasAnyPrinters() override { return false; }

    /// The error reports shown so far, repeats included.
    int ErrorCount() const { return errors_; }

    /// A source of the current time.
    using Clock = std::function<std::chrono::steady_clock::time_point()>;
    /// The progress bar's time source; tests pass their own.
    void SetClock(Clock clock) { clock_ = std::move(clock); }

private:
    int Answer(const MessageRequest& request, bool& asked);
    bool Preanswered(const MessageRequest& request) const;
    /// Redraws at most every kRedrawInterval unless `force` (a new caption, the last item).
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
