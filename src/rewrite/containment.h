#pragma once
// Keeping every written file inside the new project folder. Names that come
// from the old project ([FILES] entries, topic IDs, file names held by the
// wizard) are checked before a file is written from them; a refused name is
// shown to the user and kept for the rewrite log.
#include <string>
#include <string_view>
#include <vector>

#include "model/wizard_state.h"

namespace tamrix::modRewrite {

// Whether a Windows-style name relative to the new project folder stays inside
// it: not empty, not absolute, no drive letter or other ":", no ".." component
// (nor one of dots only, which Windows reads as ".."), no NUL.
bool IsSafeRelativeName(std::string_view relativeName);

// Tells the user that `relativeName` is not written and keeps it for the log.
void RefuseOutsideFile(WizardState& wizard, const std::string& relativeName);

// The names refused since the last ClearRefusedFiles, in order, without repeats.
const std::vector<std::string>& RefusedFiles();
void ClearRefusedFiles();

}  // namespace tamrix::modRewrite
