#pragma once
// The rewrite log: where the new project went, what was rewritten, which topic
// files need manual work and which context IDs could not be aliased.
#include "model/conversion.h"
#include "reports/c_summary.h"

namespace tamrix::modUtilities {

/// Builds the whole log into `report`; false after an unexpected error.
bool MakeRewriteLogSummary(Conversion& wizard, CSummary& report);

/// The log for given counts of unaliased non-zero context IDs and of zero-value
/// context IDs (what UndefinedIDs gives).
bool WriteRewriteLog(Conversion& wizard, CSummary& report, int undefinedCount, int zeroCount);

}  // namespace tamrix::modUtilities
