#pragma once
// The report of every log: a plain-text document with CR LF line breaks, laid
// out in columns by spaces. A viewer (the Qt log window) may be attached to
// show, edit, save and print it; without one the document lives here alone.
#include <functional>
#include <memory>
#include <string>

#include "platform/file_system.h"
#include "platform/program_error.h"
#include "reports/i_report.h"

namespace tamrix {

/// What the log viewer window offers to a report.
class ISummaryViewer {
public:
    /// Closes the viewer window along with it.
    virtual ~ISummaryViewer() = default;
    /// Sets the window title.
    virtual void SetCaption(const std::string& caption) = 0;
    /// Sets the name offered when the user saves the document.
    virtual void SetSaveFileName(const std::string& name) = 0;
    /// Locks or unlocks editing of the document.
    virtual void SetReadOnly(bool readOnly) = 0;
    /// Replaces the shown document by plain text.
    virtual void SetDocument(const std::string& plainText) = 0;
    /// Loads a file as rich text (RTF) or plain text; false when it cannot be read.
    virtual bool LoadFile(const std::string& path, bool richText) = 0;
    /// Sizes the text area to the width of a log line.
    virtual void InitRTFWidth() = 0;
    /// Shows the window, waiting until it closes when `modal`.
    virtual void Show(bool modal) = 0;
    /// Hides the window without destroying it.
    virtual void Hide() = 0;
    /// Asks the user for a file to view; empty when cancelled.
    virtual std::string ChooseFileToView(const std::string& filter, bool readOnly) = 0;
    /// Called by the viewer when the user closes it.
    std::function<void()> onCloseForm;
};

/// Makes the viewer of a report; its messages and error reports go to `errors`.
using SummaryViewerFactory = std::function<std::unique_ptr<ISummaryViewer>(ErrorReporter& errors)>;
/// The GUI installs a factory once at start-up, before any conversion runs, so it
/// stays process-wide; the command line and the tests run without one.
void SetSummaryViewerFactory(SummaryViewerFactory factory);

/// A text report (the logs) and the viewer that shows it.
class CSummary : public IReport {
public:
    /// A report whose unexpected errors go to `errors`.
    explicit CSummary(ErrorReporter& errors);
    /// Closes the viewer, if one was made.
    ~CSummary() override;

    /// Drops the viewer; the document stays.
    void CloseSummary() override;
    /// Starts an empty document and readies the viewer; true unless that fails.
    bool OpenSummary(int mode) override;
    /// Adds a "name: value" line, or the bare value when the name is empty.
    void AddItem(const std::string& itemName, const ItemValue& itemValue) override;
    /// Shows the document in the viewer, modal when `modal` is not 0.
    void Show(int modal) override;
    /// The section the next lines belong to.
    std::string Section() const override { return base_.Section(); }
    /// Sets the section the next lines belong to.
    void SetSection(const std::string& value) override { base_.SetSection(value); }
    /// The report's name, also its window caption and save name.
    std::string Name() const override { return base_.Name(); }
    /// Sets the report's name.
    void SetName(const std::string& value) override { base_.SetName(value); }
    /// Appends `data` and a CR LF line break.
    void AddLine(const std::string& data) override;
    /// Appends `data` with no line break.
    void AddString(const std::string& data) override;

    /// The document so far.
    const std::string& Text() const { return document_; }
    /// Saves the document as plain text; false (and no message) on failure.
    bool SaveAsTextFile(FileSystem& fs, const std::string& fileName) const;
    /// Shows a file in the viewer; an empty name asks for one.
    void ViewFile(const std::string& filter, bool readOnly, const std::string& fileName);

    /// A fixed-width number for column output.
    static std::string dblFormat(double value);
    /// Scientific notation with `digits` decimals: " 1.235E+04", "-1.230E-04".
    static std::string dblEFormat(double value, int digits);

    /// The viewer, or null when none was made yet.
    ISummaryViewer* Viewer() const { return viewer_.get(); }

private:
    ErrorReporter& errors_;
    static std::string FormatItemValue(const ItemValue& value);
    void EnsureViewer();

    IReport base_;
    std::string document_;
    std::unique_ptr<ISummaryViewer> viewer_;
};

/// Saves a report as plain text: true when the report is set, whatever the save gave.
bool SaveReport(FileSystem& fs, const CSummary* report, const std::string& fileName);

}  // namespace tamrix
