#include "gui/check_report.h"

#include <QApplication>
#include <QCursor>

#include "check/project_check.h"
#include "platform/byte_text.h"

namespace tamrix::gui {

std::unique_ptr<CSummary> CheckProjectAndShowReport(ErrorReporter& errors,
                                                    const std::string& projectFile) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const check::CheckReport report = check::CheckProject(projectFile);
    QApplication::restoreOverrideCursor();

    auto summary = std::make_unique<CSummary>(errors);
    summary->SetName("check.log");
    summary->OpenSummary(0);
    for (const std::string& line : Split(check::ReportText(report), '\n'))
        if (!line.empty()) summary->AddLine(line);
    summary->Show(0);
    return summary;
}

}  // namespace tamrix::gui
