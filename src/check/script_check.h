#pragma once
// Checks a popup script file against the JavaScript the program writes: comments
// and statements "[var] NAME = "text"[;]", one per line, with the escapes of
// JavaScript string literals.
#include <string>
#include <string_view>
#include <vector>

#include "check/problem.h"

namespace tamrix::check {

/// Adds one problem per faulty statement, naming `file` and the line.
void CheckPopupScript(std::string_view text, const std::string& file,
                      std::vector<Problem>& problems);

}  // namespace tamrix::check
