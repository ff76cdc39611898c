#include "gui/frm_options.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

#include "wizard/options_dialog.h"

namespace tamrix::gui {

FrmOptions::FrmOptions(IView& view, QWidget* parent) : QDialog(parent), view_(view) {
    setObjectName("frmOptions");
    setWindowTitle("HTML Options");
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);

    auto* lblForm = new QLabel(
        "Additional modifications to .htm files when being written to the new project folder:",
        this);
    lblForm->setObjectName("lblForm");
    lblForm->setWordWrap(true);
    chkCssFile_ = new QCheckBox("Insert link to Style Sheet", this);
    chkCssFile_->setObjectName("chkCssFile");
    lblCssFile_ = new QLabel("Style Sheet Name:", this);
    lblCssFile_->setObjectName("lblCssFile");
    txtCssFileName_ = new QLineEdit(this);
    txtCssFileName_->setObjectName("txtCssFileName");
    lblCssFile_->setBuddy(txtCssFileName_);
    chkTopicClass_ = new QCheckBox("Define Topic_Title class", this);
    chkTopicClass_->setObjectName("chkTopicClass");

    auto* buttons = new QDialogButtonBox(this);
    cmdOK_ = buttons->addButton(QDialogButtonBox::Ok);
    cmdOK_->setObjectName("cmdOK");
    cmdCancel_ = buttons->addButton("Cancel", QDialogButtonBox::RejectRole);
    cmdCancel_->setObjectName("cmdCancel");
    connect(cmdOK_, &QPushButton::clicked, this, &FrmOptions::OK);
    connect(cmdCancel_, &QPushButton::clicked, this, &FrmOptions::reject);
    connect(chkCssFile_, &QCheckBox::toggled, this, &FrmOptions::UpdateCssVisibility);

    auto* name = new QHBoxLayout;
    name->setContentsMargins(24, 0, 0, 0);
    name->addWidget(lblCssFile_);
    name->addWidget(txtCssFileName_, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->addWidget(lblForm);
    layout->addSpacing(6);
    layout->addWidget(chkCssFile_);
    layout->addLayout(name);
    layout->addWidget(chkTopicClass_);
    layout->addStretch(1);
    layout->addWidget(buttons);
    setMinimumWidth(440);
}

void FrmOptions::Load(OptionsDialog& dialog) {
    dialog_ = &dialog;
    dialog.Paint();
    chkCssFile_->setChecked(dialog.chkCssFile);
    chkTopicClass_->setChecked(dialog.chkTopicClass);
    txtCssFileName_->setText(QString::fromStdString(dialog.txtCssFileName));
    UpdateCssVisibility();
}

void FrmOptions::ShowModal(OptionsDialog& dialog) {
    Load(dialog);
    exec();
}

void FrmOptions::Store() {
    if (!dialog_) return;
    dialog_->chkCssFile = chkCssFile_->isChecked();
    dialog_->chkTopicClass = chkTopicClass_->isChecked();
    dialog_->txtCssFileName = txtCssFileName_->text().toStdString();
}

void FrmOptions::UpdateCssVisibility() {
    const bool shown = chkCssFile_->isChecked();
    lblCssFile_->setVisible(shown);
    txtCssFileName_->setVisible(shown);
    // The window grows with the name row so the wrapped top label keeps its lines.
    layout()->activate();
    const int needed = layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(width())
                                                     : sizeHint().height();
    if (height() < needed) resize(width(), needed);
}

void FrmOptions::PutBackDefaultName() {
    if (!dialog_ || !txtCssFileName_->text().isEmpty()) return;
    dialog_->txtCssFileName.clear();
    dialog_->Paint();
    txtCssFileName_->setText(QString::fromStdString(dialog_->txtCssFileName));
}

void FrmOptions::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    PutBackDefaultName();
}

// Coming back to the front (after the refusal message, say) repaints the whole dialog.
void FrmOptions::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) PutBackDefaultName();
}

void FrmOptions::OK() {
    if (!dialog_) return;
    Store();
    dialog_->OK(view_);  // an empty name is refused with a message; the dialog stays
    if (dialog_->Status)
        accept();
    else
        PutBackDefaultName();  // the dialog is painted again once the message has gone
}

void FrmOptions::reject() {
    if (dialog_) dialog_->Cancel();
    QDialog::reject();
}

}  // namespace tamrix::gui
