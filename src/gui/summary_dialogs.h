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

struct SaveChoice {
    std::string path;     // empty when cancelled
    int filterIndex = 1;  // 1-based position of the chosen filter
};

struct PrintChoice {
    enum class Range { All, Pages, Selection };
    Range range = Range::All;
    int fromPage = 1;
    int toPage = 65535;
};

struct SummaryDialogs {
    std::function<SaveChoice(QWidget* parent, const FileDialogRequest& request)> saveFile;
    // An existing file, or empty when cancelled.
    std::function<std::string(QWidget* parent, const FileDialogRequest& request)> openFile;
    // Page setup of the printer (orientation among others); false when cancelled.
    std::function<bool(QWidget* parent, QPrinter& printer)> printSetup;
    std::function<std::optional<PrintChoice>(QWidget* parent, QPrinter& printer, int pageCount,
                                             bool hasSelection)>
        print;
    std::function<std::optional<QFont>(QWidget* parent, const QFont& current)> chooseFont;
    // The text to find; nullopt when cancelled.
    std::function<std::optional<QString>(QWidget* parent, const QString& last)> findText;
};

// The Qt dialogs.
SummaryDialogs QtSummaryDialogs();

// "Text Files (*.txt)|*.txt|All Files (*.*)|*.*" as Qt's ";;"-separated filter list.
QString QtFilterList(const std::string& filter);

}  // namespace tamrix::gui
