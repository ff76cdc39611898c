#include "gui/about_box.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSysInfo>
#include <QVBoxLayout>

#include "gui/app_icon.h"
#include "messages/messages.h"
#include "platform/program_identity.h"

namespace tamrix::gui {

QString SystemInformationText() {
    return QString(
               "Operating system: %1\nArchitecture: %2 (built for %3)\nKernel: %4 %5\n"
               "Qt version: %6 (built with %7)\nTamrix version: %8\n")
        .arg(QSysInfo::prettyProductName(), QSysInfo::currentCpuArchitecture(),
             QSysInfo::buildCpuArchitecture(), QSysInfo::kernelType(), QSysInfo::kernelVersion(),
             qVersion(), QT_VERSION_STR, QString::fromStdString(VersionString()));
}

SystemInformationDialog::SystemInformationDialog(QWidget* parent) : QDialog(parent) {
    setObjectName("SystemInformation");
    setWindowTitle("System Information");
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    text_ = new QPlainTextEdit(SystemInformationText(), this);
    text_->setObjectName("txtSystemInfo");
    text_->setReadOnly(true);
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto* copy = buttons->addButton("&Copy", QDialogButtonBox::ActionRole);
    copy->setObjectName("cmdCopy");
    connect(copy, &QPushButton::clicked, this, &SystemInformationDialog::Copy);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text_, 1);
    layout->addWidget(buttons);
    resize(520, 240);
}

void SystemInformationDialog::Copy() { QApplication::clipboard()->setText(text_->toPlainText()); }

AboutBox::AboutBox(QWidget* parent) : QDialog(parent) {
    setObjectName("frmAbout");
    setWindowTitle("About Tamrix");
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);

    auto* icon = new QLabel(this);
    icon->setPixmap(AppIcon().pixmap(64, 64));
    icon->setAlignment(Qt::AlignTop);
    auto* name = new QLabel("Tamrix", this);
    name->setObjectName("lblTitle");
    QFont big = name->font();
    big.setPointSizeF(big.pointSizeF() * 1.6);
    big.setBold(true);
    name->setFont(big);
    auto* version = new QLabel("Version " + QString::fromStdString(VersionString()), this);
    version->setObjectName("lblVersion");
    auto* description = new QLabel(
        QString::fromStdString(modMessages::GetMessageString(10000)).replace("\r\n", "\n"), this);
    description->setObjectName("lblDescription");
    description->setWordWrap(true);
    auto* note = new QLabel(QString::fromStdString(modMessages::GetMessageString(10002)), this);
    note->setWordWrap(true);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    auto* sysInfo = buttons->addButton("&System Information...", QDialogButtonBox::ActionRole);
    sysInfo->setObjectName("cmdSysInfo");
    connect(sysInfo, &QPushButton::clicked, this, [this] { ShowSystemInformation(); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* text = new QVBoxLayout;
    text->addWidget(name);
    text->addWidget(version);
    text->addSpacing(8);
    text->addWidget(description);
    text->addWidget(note);
    auto* top = new QHBoxLayout;
    top->setSpacing(18);
    top->addWidget(icon);
    top->addLayout(text, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(18, 18, 18, 12);
    layout->addLayout(top);
    layout->addSpacing(8);
    layout->addWidget(buttons);
    setMinimumWidth(480);
}

void AboutBox::ShowSystemInformation(bool modal) {
    auto* dialog = new SystemInformationDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    if (modal)
        dialog->exec();
    else
        dialog->show();
}

}  // namespace tamrix::gui
