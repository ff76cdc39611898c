#pragma once
// "Check New Project…": checks a project and shows the report in the log viewer.
#include <memory>
#include <string>

#include "reports/c_summary.h"

namespace tamrix::gui {

/// Checks `projectFile` and shows the report in a log viewer window, which lives
/// as long as the report returned.
std::unique_ptr<CSummary> CheckProjectAndShowReport(ErrorReporter& errors,
                                                    const std::string& projectFile);

}  // namespace tamrix::gui
