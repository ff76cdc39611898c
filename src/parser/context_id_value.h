#pragma once
// The numeric value of a context-ID value text, read the way the WinHelp
// compiler's tools always read it: "&H" hexadecimal, "&O" octal, otherwise a
// decimal number with sign, fraction and exponent.
#include <cstdint>
#include <string>
#include <string_view>

namespace tamrix::modParser {

/// Reads `text` up to the first character that does not fit; no number reads as 0.
/// Hexadecimal and octal values up to &HFFFF are 16-bit patterns (&HFFFF is -1),
/// up to &HFFFFFFFF 32-bit patterns. Decimals round halves to even. Returns false
/// (value -1) when the result lies outside the signed 32-bit range.
bool ContextIDValue(std::string_view text, std::int32_t& value);

/// The value text in C form for a header: "&H1A" becomes "0x1A", "&O17" "017".
std::string CHeaderValue(std::string_view value);

}  // namespace tamrix::modParser
