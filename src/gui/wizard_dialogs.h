#pragma once
// The dialogs the wizard window opens, as plain functions so that tests can
// answer them without a window appearing.
#include <QString>
#include <functional>
#include <optional>
#include <string>

#include "platform/view.h"

class QWidget;

namespace tamrix::gui {

/// The dialogs of the wizard window; each may be replaced by a test.
struct WizardDialogs {
    /// A message window; returns the result code (1 when closed through the close box).
    std::function<int(QWidget* parent, const MessageRequest& request)> message;
    /// The plain error box of the common error report.
    std::function<void(QWidget* parent, const std::string& text, const std::string& title)> error;
    /// A line of text; nullopt when cancelled.
    std::function<std::optional<std::string>(QWidget* parent, const std::string& prompt,
                                             const std::string& title,
                                             const std::string& defaultText)>
        input;
    /// Full path, or empty when cancelled.
    std::function<std::string(QWidget* parent, const FileDialogRequest& request)> openFile;
    /// Full path to save to, or empty when cancelled.
    std::function<std::string(QWidget* parent, const FileDialogRequest& request)> saveFile;
};

/// The Qt dialogs: MessageForm, QMessageBox, QInputDialog and QFileDialog.
WizardDialogs QtWizardDialogs();

/// The file a save dialog proposes: the initial folder joined with the initial name.
QString DialogStartPath(const FileDialogRequest& request);

}  // namespace tamrix::gui
