#include "gui/summary_viewer.h"

#include <QEventLoop>

#include "platform/file_system.h"

namespace tamrix::gui {

SummaryViewer::SummaryViewer(ErrorReporter& errors, FrmSummary::Options options)
    : dialogs_(options.dialogs), form_(std::make_unique<FrmSummary>(errors, std::move(options))) {
    QObject::connect(form_.get(), &FrmSummary::CloseForm, [this] {
        if (onCloseForm) onCloseForm();
    });
}

SummaryViewer::~SummaryViewer() = default;

void SummaryViewer::SetCaption(const std::string& caption) {
    form_->setWindowTitle(QString::fromStdString(caption));
}

void SummaryViewer::SetSaveFileName(const std::string& name) { form_->SetSaveFileName(name); }

void SummaryViewer::SetReadOnly(bool readOnly) { form_->SetReadOnly(readOnly); }

void SummaryViewer::SetDocument(const std::string& plainText) { form_->SetPlainText(plainText); }

bool SummaryViewer::LoadFile(const std::string& path, bool richText) {
    return form_->LoadFile(path, richText ? FrmSummary::kRichText : FrmSummary::kPlainText);
}

void SummaryViewer::InitRTFWidth() { form_->InitRTFWidth(); }

void SummaryViewer::Show(bool modal) {
    form_->setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
    form_->show();
    form_->raise();
    form_->activateWindow();
    if (!modal) return;
    QEventLoop loop;
    QObject::connect(form_.get(), &FrmSummary::Hidden, &loop, &QEventLoop::quit);
    if (form_->isVisible()) loop.exec();
    form_->setWindowModality(Qt::NonModal);
}

void SummaryViewer::Hide() { form_->hide(); }

std::string SummaryViewer::ChooseFileToView(const std::string& filter, bool /*readOnly*/) {
    FileDialogRequest request;
    request.title = "Select File for Viewing";
    request.filter = filter;
    const std::string chosen = dialogs_.openFile(form_.get(), request);
    if (chosen.empty() || !FileSystem().FileExists(chosen)) return {};
    return chosen;
}

void InstallSummaryViewer(FrmSummary::Options options) {
    SetSummaryViewerFactory([options](ErrorReporter& errors) -> std::unique_ptr<ISummaryViewer> {
        return std::make_unique<SummaryViewer>(errors, options);
    });
}

void UninstallSummaryViewer() { SetSummaryViewerFactory(nullptr); }

}  // namespace tamrix::gui
