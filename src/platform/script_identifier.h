#pragma once
// Whether a name can stand as a variable name in the popup script.
#include <string_view>

namespace tamrix {

/// True for an ASCII script identifier that is not a reserved word.
bool IsScriptIdentifier(std::string_view name);

}  // namespace tamrix
