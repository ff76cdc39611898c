#pragma once
// What the core needs from whoever shows it to the user: the Qt window, the
// command line or a scripted test double. Nothing here names a toolkit.
#include <optional>
#include <string>

namespace tamrix {

/// Result codes and button styles of the standard message box.
namespace mb {
/// The result codes: the button pressed.
inline constexpr int kOK = 1;
inline constexpr int kCancel = 2;
inline constexpr int kAbort = 3;
inline constexpr int kRetry = 4;
inline constexpr int kIgnore = 5;
inline constexpr int kYes = 6;
inline constexpr int kNo = 7;

/// The button styles: which buttons a box shows.
inline constexpr int kOKOnly = 0;
inline constexpr int kOKCancel = 1;
inline constexpr int kAbortRetryIgnore = 2;
inline constexpr int kYesNoCancel = 3;
inline constexpr int kYesNo = 4;
inline constexpr int kRetryCancel = 5;

/// The icons, added to a button style.
inline constexpr int kCritical = 16;
inline constexpr int kQuestion = 32;
inline constexpr int kExclamation = 48;
inline constexpr int kInformation = 64;
}  // namespace mb

/// Where a message box is placed (the wizard passes its centre).
struct BoxPosition {
    /// From the left of the screen; unset for the default place.
    std::optional<double> left;
    /// From the top of the screen; unset for the default place.
    std::optional<double> top;
};

/// What a message box shows.
struct MessageRequest {
    /// The message.
    std::string text;
    /// A button style plus an icon, as in mb.
    int style = 0;
    /// The window title.
    std::string title;
    long catalogueId = 0;  ///< the catalogue ID the text came from, 0 when none
    /// Where the box stands.
    BoxPosition position;
};

/// What a file dialog asks.
struct FileDialogRequest {
    /// The window title.
    std::string title;
    std::string filter;  ///< "Name (*.x)|*.x|All Files (*.*)|*.*"
    /// Added to a name typed without one.
    std::string defaultExtension;
    /// The folder shown first.
    std::string initialFolder;
    /// The name proposed.
    std::string initialName;
};

/// What the core asks of whoever shows it: boxes, dialogs and the progress display.
class IView {
public:
    /// Lets each view clean up its own way.
    virtual ~IView() = default;

    /// A message window; returns the result code of the button pressed (1 when closed).
    virtual int MessageBox(const MessageRequest& request) = 0;
    /// The plain error box of the common error report.
    virtual void ErrorBox(const std::string& text, const std::string& title) = 0;
    /// The error shown last came `times` times more in the same operation; a
    /// window has nothing to add to the one box it showed.
    virtual void ErrorRepeated(const std::string& /*text*/, const std::string& /*title*/,
                               int /*times*/) {}
    /// A line of text; nullopt when cancelled.
    virtual std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                                const std::string& defaultText) = 0;
    /// File dialogs return the chosen full path, or empty when cancelled.
    virtual std::string OpenFileDialog(const FileDialogRequest& request) = 0;
    /// The save dialog; the chosen full path, or empty when cancelled.
    virtual std::string SaveFileDialog(const FileDialogRequest& request) = 0;

    /// The progress display: sets the caption above the bar.
    virtual void SetProgressCaption(const std::string& caption) = 0;
    /// Sets the value at which the bar is full.
    virtual void SetProgressMax(int maximum) = 0;
    /// Moves the bar.
    virtual void SetProgressValue(int value) = 0;
    /// Shows or hides the progress display.
    virtual void SetProgressVisible(bool visible) = 0;
    /// Lets the window repaint during a long operation.
    virtual void ProcessEvents() = 0;
};

/// A view that shows nothing and answers every question with its negative
/// button (No, Cancel, Abort; OK when that is the only one).
class SilentView : public IView {
public:
    /// Gives the negative answer of the request's style.
    int MessageBox(const MessageRequest& request) override;
    /// Shows nothing.
    void ErrorBox(const std::string&, const std::string&) override {}
    /// Cancels.
    std::optional<std::string> InputBox(const std::string&, const std::string&,
                                        const std::string&) override {
        return std::nullopt;
    }
    /// Cancels.
    std::string OpenFileDialog(const FileDialogRequest&) override { return {}; }
    /// Cancels.
    std::string SaveFileDialog(const FileDialogRequest&) override { return {}; }
    /// The progress display is not shown.
    void SetProgressCaption(const std::string&) override {}
    /// Likewise.
    void SetProgressMax(int) override {}
    /// Likewise.
    void SetProgressValue(int) override {}
    /// Likewise.
    void SetProgressVisible(bool) override {}
    /// Nothing to repaint.
    void ProcessEvents() override {}
};

/// The answer "Yes or OK" / "No or Cancel" for a style, as the command line's --yes and --no give.
int AffirmativeAnswerOfStyle(int style);
/// The answer "No or Cancel" of a style (the --no answer).
int NegativeAnswerOfStyle(int style);
/// The buttons a style shows, in order.
int ButtonsOfStyle(int style, int (&codes)[3]);

}  // namespace tamrix
