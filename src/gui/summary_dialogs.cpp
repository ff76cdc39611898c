#include "gui/summary_dialogs.h"

#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QStringList>

namespace tamrix::gui {

QString QtFilterList(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split(u'|');
    QStringList entries;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString& name = parts[i];
        entries << (name.contains(u'(')
                        ? name
                        : name + " (" + QString(parts[i + 1]).replace(u';', u' ') + ")");
    }
    return entries.join(";;");
}

namespace {

QString StartPath(const FileDialogRequest& request) {
    QString folder = QString::fromStdString(request.initialFolder);
    const QString name = QString::fromStdString(request.initialName);
    if (folder.isEmpty()) return name;
    if (name.isEmpty()) return folder;
    return QDir(folder).filePath(name);
}

int FilterIndex(const QString& filters, const QString& chosen) {
    const int index = static_cast<int>(filters.split(";;").indexOf(chosen));
    return index < 0 ? 1 : index + 1;
}

}  // namespace

SummaryDialogs QtSummaryDialogs() {
    SummaryDialogs d;
    d.saveFile = [](QWidget* parent, const FileDialogRequest& request) {
        const QString filters = QtFilterList(request.filter);
        QString chosen;
        const QString path = QFileDialog::getSaveFileName(
            parent, QString::fromStdString(request.title), StartPath(request), filters, &chosen);
        return SaveChoice{path.toStdString(), FilterIndex(filters, chosen)};
    };
    d.openFile = [](QWidget* parent, const FileDialogRequest& request) {
        return QFileDialog::getOpenFileName(parent, QString::fromStdString(request.title),
                                            StartPath(request), QtFilterList(request.filter))
            .toStdString();
    };
    d.printSetup = [](QWidget* parent, QPrinter& printer) {
        QPageSetupDialog dialog(&printer, parent);
        return dialog.exec() == QDialog::Accepted;
    };
    d.print = [](QWidget* parent, QPrinter& printer, int pageCount,
                 bool hasSelection) -> std::optional<PrintChoice> {
        QPrintDialog dialog(&printer, parent);
        QAbstractPrintDialog::PrintDialogOptions options = QAbstractPrintDialog::PrintPageRange;
        if (hasSelection) options |= QAbstractPrintDialog::PrintSelection;
        dialog.setOptions(options);
        dialog.setMinMax(1, pageCount < 1 ? 1 : pageCount);
        if (dialog.exec() != QDialog::Accepted) return std::nullopt;
        PrintChoice choice;
        switch (dialog.printRange()) {
            case QAbstractPrintDialog::Selection:
                choice.range = PrintChoice::Range::Selection;
                break;
            case QAbstractPrintDialog::PageRange:
                choice.range = PrintChoice::Range::Pages;
                choice.fromPage = printer.fromPage();
                choice.toPage = printer.toPage();
                break;
            default: break;
        }
        return choice;
    };
    d.chooseFont = [](QWidget* parent, const QFont& current) -> std::optional<QFont> {
        bool ok = false;
        const QFont font = QFontDialog::getFont(&ok, current, parent);
        if (!ok) return std::nullopt;
        return font;
    };
    d.findText = [](QWidget* parent, const QString& last) -> std::optional<QString> {
        bool ok = false;
        const QString text =
            QInputDialog::getText(parent, "Find", "Find what:", QLineEdit::Normal, last, &ok);
        if (!ok) return std::nullopt;
        return text;
    };
    return d;
}

}  // namespace tamrix::gui
