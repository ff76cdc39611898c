#pragma once
// The Qt log viewer behind the core's reports: every CSummary created after
// InstallSummaryViewer() shows its log in its own FrmSummary window.
#include <memory>
#include <string>

#include "gui/frm_summary.h"
#include "reports/c_summary.h"

namespace tamrix::gui {

class SummaryViewer : public ISummaryViewer {
public:
    /// A viewer whose messages and error reports go to `errors`.
    explicit SummaryViewer(ErrorReporter& errors, FrmSummary::Options options = {});
    ~SummaryViewer() override;

    void SetCaption(const std::string& caption) override;
    void SetSaveFileName(const std::string& name) override;
    void SetReadOnly(bool readOnly) override;
    void SetDocument(const std::string& plainText) override;
    bool LoadFile(const std::string& path, bool richText) override;
    void InitRTFWidth() override;
    // A modal show returns when the window is hidden again.
    void Show(bool modal) override;
    void Hide() override;
    // "Select File for Viewing"; only an existing file is returned.
    std::string ChooseFileToView(const std::string& filter, bool readOnly) override;

    FrmSummary& Form() { return *form_; }

private:
    SummaryDialogs dialogs_;
    std::unique_ptr<FrmSummary> form_;
};

// Makes every report created from now on use a Qt viewer with these options.
void InstallSummaryViewer(FrmSummary::Options options = {});
// Reports created from now on run without a viewer again.
void UninstallSummaryViewer();

}  // namespace tamrix::gui
