#pragma once
// The dialogs the log viewer opens. They are plain functions so that tests can
// answer them without showing a window.
#include <QFont>
#include <functional>
#include <optional>
#include <string>

#include "platform/view.h"

class QPrinter;
class QWidget;

namespace tamrix::gui {

/// The answer of the save dialog.
struct SaveChoice {
    std::string path;     ///< empty when cancelled
    int filterIndex = 1;  ///< 1-based position of the chosen filter
};

/// The answer of the print dialog: which pages to print.
struct PrintChoice {
    /// All pages, pages fromPage..toPage, or the selection.
    enum class Range { All, Pages, Selection };
    /// Which part of the text to print.
    Range range = Range::All;
    int fromPage = 1;    ///< first page, 1-based
    int toPage = 65535;  ///< last page; 65535 stands for the end
};

/// The log viewer's dialogs; each may be replaced by a test.
struct SummaryDialogs {
    /// The file to save to and the format chosen.
    std::function<SaveChoice(QWidget* parent, const FileDialogRequest& request)> saveFile;
    /// An existing file, or empty when cancelled.
    std::function<std::string(QWidget* parent, const FileDialogRequest& request)> openFile;
    /// Page setup of the printer (orientation among others); false when cancelled.
    std::function<bool(QWidget* parent, QPrinter& printer)> printSetup;
    /// The pages to print; nullopt when cancelled.
    std::function<std::optional<PrintChoice>(QWidget* parent, QPrinter& printer, int pageCount,
                                             bool hasSelection)>
        print;
    /// The font chosen; nullopt when cancelled.
    std::function<std::optional<QFont>(QWidget* parent, const QFont& current)> chooseFont;
    /// The text to find; nullopt when cancelled.
    std::function<std::optional<QString>(QWidget* parent, const QString& last)> findText;
};

/// The Qt dialogs.
SummaryDialogs QtSummaryDialogs();

/// "Text Files (*.txt)|*.txt|All Files (*.*)|*.*" as Qt's ";;"-separated filter list.
QString QtFilterList(const std::string& filter);

}  // namespace tamrix::gui
