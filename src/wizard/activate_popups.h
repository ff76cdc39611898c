#pragma once
#include "model/wizard_state.h"

namespace tamrix {

// Step 4 with "Yes": edits the topic files that call popups to use script
// popups, when popup strings were extracted, and sets PopupsActivated.
void ActivatePopups(WizardState& wizard);

}  // namespace tamrix
