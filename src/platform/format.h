#pragma once
// The few Basic formatting rules the program's files and logs are written with.
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace tamrix {

/// A whole number with a sign position: " 42", "-3".
std::string SignedText(long long value);

/// Number patterns such as "0", "00", "#.00", "#.000", "0.0000", " 0.000" and "#":
/// a "#" digit is left out when it is a leading zero, halves round away from zero.
std::string FormatNumber(double value, std::string_view pattern);

/// Conversion of a value to a whole number: halves round to even.
long long RoundHalfEven(double value);

/// General number formatting: up to 15 significant digits, no trailing zeros.
std::string GeneralNumber(double value);
/// "True" or "False", as Basic writes a Boolean.
std::string BooleanText(bool value);

/// Date patterns built from mmmm, yyyy, dd, hh, mm (minutes after hh), AMPM and AM/PM;
/// with AMPM or AM/PM in the pattern, hh is the 12-hour clock.
std::string FormatDate(const DateTime& when, std::string_view pattern);
/// General date formatting: "3/5/2011 2:07:09 PM".
std::string GeneralDate(const DateTime& when);

}  // namespace tamrix
