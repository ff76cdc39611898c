#pragma once
#include "model/conversion.h"

namespace tamrix {

/// Reads the whole old project in a fixed order, sets ScanComplete, MissingCount
/// and IncompleteData, reports in the progress label and gathers the scan
/// summary into StepMessage.
bool ScanProjectFiles(Conversion& wizard);

}  // namespace tamrix
