#pragma once
// The program's own message window: a text, an icon and the buttons of a
// standard message-box style, each returning its standard result code.
#include <QDialog>
#include <array>
#include <string>

#include "platform/view.h"

class QLabel;
class QPushButton;

namespace tamrix::gui {

/// The message window every message box of the wizard shows.
class MessageForm : public QDialog {
    Q_OBJECT

public:
    /// The title when the caller gives none.
    static constexpr const char* kDefaultCaption = "Tamrix Message";

    /// Builds the window with all its buttons hidden.
    explicit MessageForm(QWidget* parent = nullptr);

    /// Shows the text modally with the buttons of the style; returns the code
    /// of the button pressed, or 1 (OK) when the window was closed otherwise.
    int MessageBox(const std::string& text, int style, const std::string& title);
    /// Sets everything MessageBox shows without showing it.
    void Prepare(const std::string& text, int style, const std::string& title);
    /// Centres the window on the given screen point (the wizard's centre).
    void SetPosition(const BoxPosition& position);

    /// The result code of the button pressed last.
    int Status() const { return status_; }
    /// The button with result code 1-7 (cmdButton), or nullptr.
    QPushButton* Button(int code) const;
    /// The label showing the text.
    QLabel* MessageLabel() const { return lblMessage_; }
    /// The label showing the style's icon; hidden when the style has none.
    QLabel* IconLabel() const { return icon_; }

    /// Escape and the close box end the window with OK.
    void reject() override;

private:
    void ButtonClicked(int code);
    void PlaceAtPosition();

    int status_ = mb::kOK;
    BoxPosition position_;
    QLabel* icon_ = nullptr;
    QLabel* lblMessage_ = nullptr;
    std::array<QPushButton*, 8> cmdButton_{};
};

}  // namespace tamrix::gui
