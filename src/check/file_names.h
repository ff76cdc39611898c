#pragma once
// Topic file names that Windows cannot store, or that name one file twice when
// case is ignored, as it is on Windows.
#include <vector>

#include "check/problem.h"
#include "check/project_sections.h"

namespace tamrix::check {

/// Why a path component is no valid Windows file name, or empty when it is.
std::string InvalidWindowsName(std::string_view component);

/// Checks the names of the [FILES] entries.
void CheckFileNames(const std::vector<SourceLine>& files, std::vector<Problem>& problems);

}  // namespace tamrix::check
