#pragma once
// Checks an HTML Help project, new or not, for what stops it from compiling or
// from working: missing files, broken links and anchors, context IDs without
// aliases, faulty headers and popup scripts, and file names Windows cannot hold.
#include <string>
#include <vector>

#include "check/problem.h"

namespace tamrix::check {

/// The outcome of checking a project.
struct CheckReport {
    std::string projectFile;         ///< the project as given
    std::size_t topicCount = 0;      ///< HTML files of [FILES]
    std::size_t contextIdCount = 0;  ///< definitions of the context map
    std::vector<Problem> problems;   ///< files named relative to the project's folder
    std::string error;               ///< set when the project could not be read at all

    /// Problems that leave the exit status at 0 (IsWarning).
    std::size_t Warnings() const;
    /// Problems that are faults of the project.
    std::size_t Errors() const { return problems.size() - Warnings(); }
};

/// Checks the project at `projectFile`; an unreadable project sets `error` and nothing else.
CheckReport CheckProject(const std::string& projectFile);

/// "FILE:LINE: kind: message" lines (warnings first marked "warning: ") and a closing count.
std::string ReportText(const CheckReport& report);
/// {"project", "topics", "contextIds", "errors", "warnings",
///  "problems": [{"kind", "severity", "file", "line", "message"}]}
std::string ReportJson(const CheckReport& report);

}  // namespace tamrix::check
