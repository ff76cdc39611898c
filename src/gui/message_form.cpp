#include "gui/message_form.h"

#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

namespace tamrix::gui {
namespace {

constexpr int kMaxTextWidth = 560;

const char* ButtonCaption(int code) {
    switch (code) {
        case mb::kOK: return "OK";
        case mb::kCancel: return "Cancel";
        case mb::kAbort: return "&Abort";
        case mb::kRetry: return "&Retry";
        case mb::kIgnore: return "&Ignore";
        case mb::kYes: return "&Yes";
        case mb::kNo: return "&No";
        default: return "";
    }
}

QDialogButtonBox::ButtonRole RoleOf(int code) {
    switch (code) {
        case mb::kOK:
        case mb::kRetry: return QDialogButtonBox::AcceptRole;
        case mb::kYes: return QDialogButtonBox::YesRole;
        case mb::kNo: return QDialogButtonBox::NoRole;
        case mb::kCancel:
        case mb::kAbort: return QDialogButtonBox::RejectRole;
        default: return QDialogButtonBox::ActionRole;
    }
}

QStyle::StandardPixmap IconOf(int style) {
    switch (style & 0x70) {
        case mb::kCritical: return QStyle::SP_MessageBoxCritical;
        case mb::kQuestion: return QStyle::SP_MessageBoxQuestion;
        case mb::kExclamation: return QStyle::SP_MessageBoxWarning;
        case mb::kInformation: return QStyle::SP_MessageBoxInformation;
        default: return QStyle::SP_CustomBase;
    }
}

// The first affirmative button of a style (Retry rather than Abort).
int DefaultButton(int style) {
    switch (style & 0x0F) {
        case mb::kAbortRetryIgnore:
        case mb::kRetryCancel: return mb::kRetry;
        case mb::kYesNoCancel:
        case mb::kYesNo: return mb::kYes;
        default: return mb::kOK;
    }
}

}  // namespace

MessageForm::MessageForm(QWidget* parent) : QDialog(parent) {
    setObjectName("MessageForm");
    setWindowTitle(kDefaultCaption);
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);

    icon_ = new QLabel(this);
    icon_->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    lblMessage_ = new QLabel(this);
    lblMessage_->setObjectName("lblMessage");
    lblMessage_->setTextFormat(Qt::PlainText);
    lblMessage_->setWordWrap(true);
    lblMessage_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblMessage_->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    auto* buttons = new QDialogButtonBox(this);
    buttons->setObjectName("fraControls");
    buttons->setCenterButtons(true);
    for (int code = mb::kOK; code <= mb::kNo; ++code) {
        auto* button = buttons->addButton(ButtonCaption(code), RoleOf(code));
        button->setObjectName(QString("cmdButton_%1").arg(code));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, code] { ButtonClicked(code); });
        cmdButton_[static_cast<std::size_t>(code)] = button;
    }

    auto* top = new QHBoxLayout;
    top->setSpacing(16);
    top->addWidget(icon_);
    top->addWidget(lblMessage_, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 14);
    layout->setSpacing(18);
    layout->addLayout(top);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QPushButton* MessageForm::Button(int code) const {
    if (code < mb::kOK || code > mb::kNo) return nullptr;
    return cmdButton_[static_cast<std::size_t>(code)];
}

void MessageForm::Prepare(const std::string& text, int buttonStyle, const std::string& title) {
    status_ = mb::kOK;
    int codes[3] = {};
    const int shown = ButtonsOfStyle(buttonStyle, codes);
    const int defaultCode = DefaultButton(buttonStyle);
    for (int code = mb::kOK; code <= mb::kNo; ++code) {
        QPushButton* button = Button(code);
        button->setVisible(std::find(codes, codes + shown, code) != codes + shown);
        button->setDefault(code == defaultCode);
    }
    setWindowTitle(title.empty() ? QString(kDefaultCaption) : QString::fromStdString(title));

    QString message = QString::fromStdString(text);
    message.replace("\r\n", "\n").replace('\r', '\n');
    lblMessage_->setText(message);
    // As wide as the longest line, up to a readable measure; longer lines wrap.
    int widest = 0;
    const QFontMetrics metrics(lblMessage_->font());
    for (const QString& line : message.split('\n'))
        widest = std::max(widest, metrics.horizontalAdvance(line));
    lblMessage_->setFixedWidth(std::clamp(widest + 8, 160, kMaxTextWidth));

    const QStyle::StandardPixmap icon = IconOf(buttonStyle);
    if (icon == QStyle::SP_CustomBase) {
        icon_->clear();
        icon_->hide();
    } else {
        const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
        icon_->setPixmap(this->style()->standardIcon(icon, nullptr, this).pixmap(size, size));
        icon_->show();
    }
    if (QPushButton* button = Button(defaultCode)) button->setFocus();
    adjustSize();
    PlaceAtPosition();
}

int MessageForm::MessageBox(const std::string& text, int buttonStyle, const std::string& title) {
    Prepare(text, buttonStyle, title);
    exec();
    return status_;
}

void MessageForm::SetPosition(const BoxPosition& position) {
    position_ = position;
    PlaceAtPosition();
}

void MessageForm::PlaceAtPosition() {
    if (!position_.left && !position_.top) return;
    QRect frame = frameGeometry();
    if (frame.width() < width()) frame.setSize(size());
    int left =
        position_.left ? static_cast<int>(std::lround(*position_.left)) - frame.width() / 2 : x();
    int top =
        position_.top ? static_cast<int>(std::lround(*position_.top)) - frame.height() / 2 : y();
    // Kept on the screen the point lies on.
    if (QScreen* screen = QGuiApplication::screenAt(QPoint(left + frame.width() / 2, top)))
        if (const QRect area = screen->availableGeometry(); area.isValid()) {
            left =
                std::clamp(left, area.left(), std::max(area.left(), area.right() - frame.width()));
            top = std::clamp(top, area.top(), std::max(area.top(), area.bottom() - frame.height()));
        }
    move(left, top);
}

void MessageForm::ButtonClicked(int code) {
    status_ = code;
    done(code);
}

// The close box and Escape answer OK, whatever buttons were shown.
void MessageForm::reject() {
    status_ = mb::kOK;
    QDialog::done(mb::kOK);
}

}  // namespace tamrix::gui
