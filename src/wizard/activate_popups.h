#pragma once
#include "model/conversion.h"

namespace tamrix {

/// Step 4 with "Yes": edits the topic files that call popups to use script
/// popups, when popup strings were extracted, and sets PopupsActivated.
void ActivatePopups(Conversion& wizard);

}  // namespace tamrix
