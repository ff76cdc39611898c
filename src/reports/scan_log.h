#pragma once
// The scan log ("scan.log"): what the scan of the HTML Help project, and of the
// WinHelp project with its map and alias files, found.
#include "model/c_topic_file.h"
#include "model/conversion.h"
#include "reports/c_summary.h"
#include "reports/i_report.h"

namespace tamrix::modUtilities {

/// Writes the whole log into `report`; true on success.
bool MakeScanLogSummary(Conversion& wizard, CSummary& report);
/// Appends the block of one topic file; `titleFlag` puts the title in its first
/// line, otherwise the reference counts. False when the user cancelled or an error occurred.
bool DisplayTopicFile(const CTopicFile& topic, IReport& report, bool titleFlag, Conversion& wizard);

}  // namespace tamrix::modUtilities
