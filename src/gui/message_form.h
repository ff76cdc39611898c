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

class MessageForm : public QDialog {
    Q_OBJECT

public:
    static constexpr const char* kDefaultCaption = "Tamrix Message";

    explicit MessageForm(QWidget* parent = nullptr);

    // Shows the text modally with the buttons of the style; returns the code
    // of the button pressed, or 1 (OK) when the window was closed otherwise.
    int MessageBox(const std::string& text, int style, const std::string& title);
    // Sets everything MessageBox shows without showing it.
    void Prepare(const std::string& text, int style, const std::string& title);
    // Centres the window on the given screen point (the wizard's centre).
    void SetPosition(const BoxPosition& position);

    int Status() const { return status_; }
    // The button with result code 1-7 (cmdButton), or nullptr.
    QPushButton* Button(int code) const;
    QLabel* MessageLabel() const { return lblMessage_; }
    QLabel* IconLabel() const { return icon_; }

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
