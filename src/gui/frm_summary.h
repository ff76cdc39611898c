#pragma once
// The log viewer window: a rich-text editor showing a log in "Courier New"
// 9 pt, with formatting, saving as text or RTF, page setup and printing.
#include <QMainWindow>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "gui/summary_dialogs.h"
#include "platform/file_system.h"
#include "platform/program_error.h"

class QAction;
class QComboBox;
class QPrinter;
class QPushButton;
class QTextCharFormat;
class QTextEdit;

namespace tamrix::gui {

/// Prints the log.
class CPrintRTF;

/// What a log viewer is given; the defaults are the real dialogs and printer.
struct SummaryOptions {
    /// The dialogs it asks through; tests script them.
    SummaryDialogs dialogs = QtSummaryDialogs();
    std::optional<bool> printerPresent;  ///< default: whether a printer is installed
    QPrinter* printer = nullptr;         ///< default: the shared printer
    QWidget* owner = nullptr;            ///< shown over it; default: the active window
    /// Where Save starts; default (or when it names no folder): the home folder.
    std::function<std::string()> saveFolder;
};

/// The log viewer: one window per log, editable, saved as RTF or text and printed.
class FrmSummary : public QMainWindow {
    Q_OBJECT

public:
    /// The two formats a log is loaded and saved in.
    enum FileKind { kRichText = 0, kPlainText = 1 };

    /// What the window is given.
    using Options = SummaryOptions;

    /// The window; its messages and error reports go to `errors`.
    explicit FrmSummary(ErrorReporter& errors, Options options = {}, QWidget* parent = nullptr);
    /// Out of line, where CPrintRTF is complete.
    ~FrmSummary() override;

    /// The file Save writes to, empty until one is chosen.
    const std::string& SaveFileName() const { return saveFileName_; }
    /// Sets the file Save writes to.
    void SetSaveFileName(const std::string& name) { saveFileName_ = name; }
    /// True when Save may not overwrite the file the text was loaded from.
    bool ReadOnly() const { return readOnly_; }
    /// Forbids or allows saving over the loaded file.
    void SetReadOnly(bool readOnly) { readOnly_ = readOnly; }
    /// True when a printer was found (or one was given) when the window was made.
    bool PrinterPresent() const { return printerPresent_; }
    /// The full path of the file last loaded, empty for a composed log.
    const std::string& LoadedFileName() const { return loadedFile_; }

    /// Wraps the text at the printer's printable width when a printer exists.
    bool InitRTFWidth();

    /// Replaces the text with a plain (Windows-1252) text in "Courier New" 9 pt.
    void SetPlainText(const std::string& text);
    /// The text as Windows-1252 with CR LF line ends.
    std::string PlainText() const;
    /// Replaces the text with a file's (RTF when `kind` says so and it is RTF); false when it
    /// cannot be read.
    bool LoadFile(const std::string& path, FileKind kind);
    /// Writes the text to `path` in the format `kind`; false (with the error report) when that
    /// fails.
    bool SaveFile(const std::string& path, FileKind kind);

    // The menu and button actions.
    /// False when cancelled, refused or failed.
    bool Save();
    /// Shows the page setup of the printer and wraps the text anew.
    void PrintSetup();
    /// Shows the print dialog and prints the pages chosen.
    void Print();
    /// Shows HelpText in a message box.
    void ShowHelp();
    /// Empties the text.
    void Clear();
    /// Shows the font dialog for the selection.
    void FormatFont();
    /// Asks for a text and selects its next occurrence.
    void Find();
    /// Selects the next occurrence of the text found last, from the caret, then once more from
    /// the top; false (and a message) when there is none.
    bool FindNext();
    /// Asks about unsaved edits, then raises CloseForm.
    void RequestClose();

    /// The text of the Help button; it leaves out printing when there is no printer.
    static std::string HelpText(bool printerPresent);
    /// The file types Save offers, in the "Name|*.ext|" form of the save dialog.
    static const char* SaveFilter();

    /// The text editor; the parts are exposed for tests.
    QTextEdit* RTFItems() const { return rtfItems_; }
    /// The toolbar's font name box.
    QComboBox* FontNameBox() const { return cmbFontName_; }
    /// The toolbar's font size box.
    QComboBox* FontSizeBox() const { return cmbFontSize_; }
    /// The Clear button.
    QPushButton* ClearButton() const { return cmdClear_; }
    /// The Close button.
    QPushButton* CloseButton() const { return cmdClose_; }
    /// Toolbar buttons by key ("Print", "Save", "Bold", ..., "Centre").
    QAction* ToolbarButton(const QString& key) const;
    /// The page layout and printing of this window.
    CPrintRTF& Printing();

signals:
    /// The user asked to close the window (Close button or close box).
    void CloseForm();
    /// The window was hidden.
    void Hidden();

protected:
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void BuildMenus();
    void BuildToolbar();
    QAction* AddToolbarToggle(const QString& key, const QIcon& icon);
    void ToolbarClicked(const QString& key);
    void RefreshToolbar();
    void FillFontBoxes(bool printerFonts);
    void MergeFormat(const QTextCharFormat& format);
    std::string SaveFolder() const;

    Options options_;
    std::string saveFileName_;
    bool readOnly_ = false;
    bool printerPresent_ = false;
    ErrorReporter& errors_;
    mutable FileSystem files_;  // the viewer reads outside any conversion
    std::string loadedFile_;
    std::unique_ptr<CPrintRTF> printing_;
    QString findText_;
    bool placed_ = false;

    QTextEdit* rtfItems_ = nullptr;
    QComboBox* cmbFontName_ = nullptr;
    QComboBox* cmbFontSize_ = nullptr;
    QPushButton* cmdClear_ = nullptr;
    QPushButton* cmdClose_ = nullptr;
    QToolBar* toolbar_ = nullptr;
};

}  // namespace tamrix::gui
