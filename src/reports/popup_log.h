#pragma once
// The popup extraction log ("popups.log").
#include "model/conversion.h"
#include "reports/c_summary.h"

namespace tamrix::modUtilities {

/// Writes which untitled topics had their text extracted into popups.js and
/// cshelp.txt, and from where they are referenced.
bool MakePopupLogSummary(Conversion& wizard, CSummary& report);

}  // namespace tamrix::modUtilities
