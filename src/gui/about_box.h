#pragma once
// The About box with its System Information window.
#include <QDialog>
#include <QString>

class QPlainTextEdit;

namespace tamrix::gui {

// Operating system, architecture, kernel and Qt version, one per line.
QString SystemInformationText();

class AboutBox : public QDialog {
    Q_OBJECT

public:
    explicit AboutBox(QWidget* parent = nullptr);
    // Opens the System Information window (modal unless `modal` is false).
    void ShowSystemInformation(bool modal = true);
};

class SystemInformationDialog : public QDialog {
    Q_OBJECT

public:
    explicit SystemInformationDialog(QWidget* parent = nullptr);
    QPlainTextEdit* TextBox() const { return text_; }
    // Puts the text on the clipboard.
    void Copy();

private:
    QPlainTextEdit* text_ = nullptr;
};

}  // namespace tamrix::gui
