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

class CPrintRTF;

struct SummaryOptions {
    SummaryDialogs dialogs = QtSummaryDialogs();
    std::optional<bool> printerPresent;  // default: whether a printer is installed
    QPrinter* printer = nullptr;         // default: the shared printer
    QWidget* owner = nullptr;            // shown over it; default: the active window
    // Where Save starts; default (or when it names no folder): the home folder.
    std::function<std::string()> saveFolder;
};

class FrmSummary : public QMainWindow {
    Q_OBJECT

public:
    enum FileKind { kRichText = 0, kPlainText = 1 };

    using Options = SummaryOptions;

    /// The window; its messages and error reports go to `errors`.
    explicit FrmSummary(ErrorReporter& errors, Options options = {}, QWidget* parent = nullptr);
    ~FrmSummary() override;

    const std::string& SaveFileName() const { return saveFileName_; }
    void SetSaveFileName(const std::string& name) { saveFileName_ = name; }
    bool ReadOnly() const { return readOnly_; }
    void SetReadOnly(bool readOnly) { readOnly_ = readOnly; }
    bool PrinterPresent() const { return printerPresent_; }
    // The full path of the file last loaded, empty for a composed log.
    const std::string& LoadedFileName() const { return loadedFile_; }

    // Wraps the text at the printer's printable width when a printer exists.
    bool InitRTFWidth();

    // Replaces the text with a plain (Windows-1252) text in "Courier New" 9 pt.
    void SetPlainText(const std::string& text);
    // The text as Windows-1252 with CR LF line ends.
    std::string PlainText() const;
    bool LoadFile(const std::string& path, FileKind kind);
    bool SaveFile(const std::string& path, FileKind kind);

    // The menu and button actions.
    // False when cancelled, refused or failed.
    bool Save();
    void PrintSetup();
    void Print();
    void ShowHelp();
    void Clear();
    void FormatFont();
    void Find();
    bool FindNext();
    // Asks about unsaved edits, then raises CloseForm.
    void RequestClose();

    static std::string HelpText(bool printerPresent);
    static const char* SaveFilter();

    QTextEdit* RTFItems() const { return rtfItems_; }
    QComboBox* FontNameBox() const { return cmbFontName_; }
    QComboBox* FontSizeBox() const { return cmbFontSize_; }
    QPushButton* ClearButton() const { return cmdClear_; }
    QPushButton* CloseButton() const { return cmdClose_; }
    // Toolbar buttons by key ("Print", "Save", "Bold", ..., "Centre").
    QAction* ToolbarButton(const QString& key) const;
    CPrintRTF& Printing();

signals:
    // The user asked to close the window (Close button or close box).
    void CloseForm();
    // The window was hidden.
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
