#pragma once
// The About box with its System Information window.
#include <QDialog>
#include <QString>

class QPlainTextEdit;

namespace tamrix::gui {

/// Operating system, architecture, kernel and Qt version, one per line.
QString SystemInformationText();

/// The About box: name, version, and a button for the System Information window.
class AboutBox : public QDialog {
    Q_OBJECT

public:
    /// Builds the box; it is shown with exec().
    explicit AboutBox(QWidget* parent = nullptr);
    /// Opens the System Information window (modal unless `modal` is false).
    void ShowSystemInformation(bool modal = true);
};

/// A read-only window of SystemInformationText(), with Copy.
class SystemInformationDialog : public QDialog {
    Q_OBJECT

public:
    /// Fills the text box with SystemInformationText().
    explicit SystemInformationDialog(QWidget* parent = nullptr);
    /// The read-only text box.
    QPlainTextEdit* TextBox() const { return text_; }
    /// Puts the text on the clipboard.
    void Copy();

private:
    QPlainTextEdit* text_ = nullptr;
};

}  // namespace tamrix::gui
