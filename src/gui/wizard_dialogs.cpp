#include "gui/wizard_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>

#include "gui/message_form.h"
#include "gui/summary_dialogs.h"

namespace tamrix::gui {

QString DialogStartPath(const FileDialogRequest& request) {
    const QString folder = QString::fromStdString(request.initialFolder);
    const QString name = QString::fromStdString(request.initialName);
    if (folder.isEmpty()) return name;
    if (name.isEmpty()) return folder;
    return QDir(folder).filePath(name);
}

namespace {

// Qt adds no extension on its own; the wizard expects one on a typed name.
std::string WithDefaultExtension(const QString& path, const FileDialogRequest& request) {
    if (path.isEmpty() || request.defaultExtension.empty()) return path.toStdString();
    if (!QFileInfo(path).suffix().isEmpty()) return path.toStdString();
    return (path + "." + QString::fromStdString(request.defaultExtension)).toStdString();
}

}  // namespace

WizardDialogs QtWizardDialogs() {
    WizardDialogs d;
    d.message = [](QWidget* parent, const MessageRequest& request) {
        MessageForm form(parent);
        form.SetPosition(request.position);
        return form.MessageBox(request.text, request.style, request.title);
    };
    d.error = [](QWidget* parent, const std::string& text, const std::string& title) {
        QMessageBox::critical(parent, QString::fromStdString(title), QString::fromStdString(text));
    };
    d.input = [](QWidget* parent, const std::string& prompt, const std::string& title,
                 const std::string& defaultText) -> std::optional<std::string> {
        bool ok = false;
        const QString text =
            QInputDialog::getText(parent, QString::fromStdString(title),
                                  QString::fromStdString(prompt).replace("\r\n", "\n"),
                                  QLineEdit::Normal, QString::fromStdString(defaultText), &ok);
        if (!ok) return std::nullopt;
        return text.toStdString();
    };
    d.openFile = [](QWidget* parent, const FileDialogRequest& request) {
        return QFileDialog::getOpenFileName(parent, QString::fromStdString(request.title),
                                            DialogStartPath(request), QtFilterList(request.filter))
            .toStdString();
    };
    d.saveFile = [](QWidget* parent, const FileDialogRequest& request) {
        const QString path =
            QFileDialog::getSaveFileName(parent, QString::fromStdString(request.title),
                                         DialogStartPath(request), QtFilterList(request.filter));
        return WithDefaultExtension(path, request);
    };
    return d;
}

}  // namespace tamrix::gui
