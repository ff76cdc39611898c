#pragma once
// The Qt log viewer behind the core's reports: every CSummary created after
// InstallSummaryViewer() shows its log in its own FrmSummary window.
#include <memory>
#include <string>

#include "gui/frm_summary.h"
#include "reports/c_summary.h"

namespace tamrix::gui {

/// A report's viewer: a FrmSummary window made for it.
class SummaryViewer : public ISummaryViewer {
public:
    /// A viewer whose messages and error reports go to `errors`.
    explicit SummaryViewer(ErrorReporter& errors, FrmSummary::Options options = {});
    /// Out of line, where FrmSummary is complete.
    ~SummaryViewer() override;

    /// The window title.
    void SetCaption(const std::string& caption) override;
    /// The file the window's Save writes to.
    void SetSaveFileName(const std::string& name) override;
    /// Forbids or allows saving over the log file shown.
    void SetReadOnly(bool readOnly) override;
    /// Shows a composed log as plain text.
    void SetDocument(const std::string& plainText) override;
    /// Shows a log file; false when it cannot be read.
    bool LoadFile(const std::string& path, bool richText) override;
    /// Wraps the text at the printer's width.
    void InitRTFWidth() override;
    /// A modal show returns when the window is hidden again.
    void Show(bool modal) override;
    /// Hides the window.
    void Hide() override;
    /// "Select File for Viewing"; only an existing file is returned.
    std::string ChooseFileToView(const std::string& filter, bool readOnly) override;

    /// The window, for tests.
    FrmSummary& Form() { return *form_; }

private:
    SummaryDialogs dialogs_;
    std::unique_ptr<FrmSummary> form_;
};

/// Makes every report created from now on use a Qt viewer with these options.
void InstallSummaryViewer(FrmSummary::Options options = {});
/// Reports created from now on run without a viewer again.
void UninstallSummaryViewer();

}  // namespace tamrix::gui
