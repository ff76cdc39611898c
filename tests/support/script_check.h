#pragma once
// Checking a written script with a real JavaScript parser (Node.js).
#include <string>

namespace tamrix::testing {

// The output of `node --check path` when the script does not parse, empty when
// it does. Without node the result says so, so that the check fails loudly
// instead of passing unchecked.
std::string ScriptSyntaxErrors(const std::string& path);

}  // namespace tamrix::testing
