#pragma once
// The popup extraction log ("popups.log").
#include "model/wizard_state.h"
#include "reports/c_summary.h"

namespace tamrix::modUtilities {

// Writes which untitled topics had their text extracted into popups.js and
// cshelp.txt, and from where they are referenced.
bool MakePopupLogSummary(WizardState& wizard, CSummary& report);

}  // namespace tamrix::modUtilities
