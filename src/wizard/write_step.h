#pragma once
// Step 3 of the wizard: the checks on the new project's folder and name, the
// overwrite questions, and the write itself.
#include <string>

#include "model/conversion.h"

namespace tamrix {

/// True when the write was run (its own success goes to wizard.RewriteDone),
/// false when a check or the user stopped it. Nothing is written outside
/// wizard.NewRootPath.
bool cmdRewrite(Conversion& wizard, const std::string& txtRootPath);

/// The checks and questions before the write, creating the new folder when the
/// user agrees: true when the write may go ahead. Also fixes the write root of
/// the file-system service to the new folder.
bool CheckNewProjectTarget(Conversion& wizard, const std::string& txtRootPath);

}  // namespace tamrix
