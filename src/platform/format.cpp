#include "platform/format.h"

#include <cmath>
#include <cstdio>
#include <string>

#include "platform/byte_text.h"

namespace tamrix {
namespace {

const char* const kMonths[] = {"January",   "February", "March",    "April",
                               "May",       "June",     "July",     "August",
                               "September", "October",  "November", "December"};

std::string TwoDigits(int n) {
    std::string s = std::to_string(n);
    return s.size() < 2 ? "0" + s : s;
}

// Decimal digits of |value| rounded half away from zero to `decimals` places,
// taken from its 15 significant digits as Basic does.
void RoundDecimal(double value, int decimals, std::string& intPart, std::string& fracPart) {
    intPart.clear();
    fracPart.clear();
    const double a = std::fabs(value);
    if (a == 0.0 || !std::isfinite(a)) {
        fracPart.assign(static_cast<std::size_t>(decimals), '0');
        return;
    }
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.14e", a);
    std::string digits;
    const char* p = buf;
    for (; *p != 'e'; ++p)
        if (*p >= '0' && *p <= '9') digits += *p;
    const int exponent = std::atoi(p + 1);
    // value = 0.digits * 10^(exponent + 1)
    int point = exponent + 1;  // digits before the decimal point
    const int kept = point + decimals;
    if (kept < 0) {
        fracPart.assign(static_cast<std::size_t>(decimals), '0');
        return;
    }
    if (kept < static_cast<int>(digits.size())) {
        const bool up = digits[static_cast<std::size_t>(kept)] >= '5';
        digits.resize(static_cast<std::size_t>(kept));
        if (up) {
            int i = kept - 1;
            while (i >= 0 && digits[static_cast<std::size_t>(i)] == '9') {
                digits[static_cast<std::size_t>(i)] = '0';
                --i;
            }
            if (i >= 0) {
                ++digits[static_cast<std::size_t>(i)];
            } else {
                digits.insert(digits.begin(), '1');
                ++point;
            }
        }
    }
    while (static_cast<int>(digits.size()) < point + decimals) digits += '0';
    if (point > 0) {
        intPart = digits.substr(0, static_cast<std::size_t>(point));
        fracPart = digits.substr(static_cast<std::size_t>(point));
    } else {
        fracPart = std::string(static_cast<std::size_t>(-point), '0') + digits;
        fracPart.resize(static_cast<std::size_t>(decimals), '0');
    }
    const std::size_t nz = intPart.find_first_not_of('0');
    intPart = nz == std::string::npos ? std::string() : intPart.substr(nz);
}

}  // namespace

std::string SignedText(long long value) {
    return value < 0 ? std::to_string(value) : " " + std::to_string(value);
}

std::string FormatNumber(double value, std::string_view pattern) {
    std::size_t pos = 0;
    std::string prefix;
    while (pos < pattern.size() && pattern[pos] != '0' && pattern[pos] != '#' &&
           pattern[pos] != '.')
        prefix += pattern[pos++];
    int minInt = 0;
    for (; pos < pattern.size() && (pattern[pos] == '0' || pattern[pos] == '#'); ++pos)
        if (pattern[pos] == '0') ++minInt;
    bool hasPoint = false;
    int decimals = 0;
    if (pos < pattern.size() && pattern[pos] == '.') {
        hasPoint = true;
        for (++pos; pos < pattern.size() && (pattern[pos] == '0' || pattern[pos] == '#'); ++pos)
            ++decimals;
    }
    std::string intPart, fracPart;
    RoundDecimal(value, decimals, intPart, fracPart);
    const bool isZero = intPart.empty() && fracPart.find_first_not_of('0') == std::string::npos;
    while (static_cast<int>(intPart.size()) < minInt) intPart.insert(intPart.begin(), '0');
    std::string out = prefix;
    if (value < 0 && !isZero) out += '-';
    out += intPart;
    if (hasPoint) out += "." + fracPart;
    return out;
}

long long RoundHalfEven(double value) { return std::llrint(value); }

std::string GeneralNumber(double value) {
    if (value == std::floor(value) && std::fabs(value) < 1e15) {
        return std::to_string(static_cast<long long>(value));
    }
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.15g", value);
    std::string s = buf;
    const std::size_t e = s.find('e');
    if (e != std::string::npos) s[e] = 'E';
    return s;
}

std::string BooleanText(bool value) { return value ? "True" : "False"; }

std::string FormatDate(const DateTime& when, std::string_view pattern) {
    const bool twelveHour = ContainsNoCase(pattern, "AMPM") || ContainsNoCase(pattern, "AM/PM");
    const char* meridiem = when.hour < 12 ? "AM" : "PM";
    int hour = when.hour;
    if (twelveHour) {
        hour %= 12;
        if (hour == 0) hour = 12;
    }
    std::string out;
    bool afterHour = false;
    for (std::size_t i = 0; i < pattern.size();) {
        const std::string_view rest = pattern.substr(i);
        if (StartsWithNoCase(rest, "mmmm")) {
            out += kMonths[(when.month - 1) % 12];
            i += 4;
        } else if (StartsWithNoCase(rest, "yyyy")) {
            out += std::to_string(when.year);
            i += 4;
        } else if (StartsWithNoCase(rest, "dd")) {
            out += TwoDigits(when.day);
            i += 2;
        } else if (StartsWithNoCase(rest, "hh")) {
            out += TwoDigits(hour);
            afterHour = true;
            i += 2;
            continue;
        } else if (StartsWithNoCase(rest, "mm")) {
            out += afterHour ? TwoDigits(when.minute) : TwoDigits(when.month);
            i += 2;
        } else if (StartsWithNoCase(rest, "ss")) {
            out += TwoDigits(when.second);
            i += 2;
        } else if (StartsWithNoCase(rest, "AM/PM")) {
            out += meridiem;
            i += 5;
        } else if (StartsWithNoCase(rest, "AMPM")) {
            out += meridiem;
            i += 4;
        } else {
            out += pattern[i++];
            if (pattern[i - 1] != ':') afterHour = false;
            continue;
        }
        afterHour = false;
    }
    return out;
}

std::string GeneralDate(const DateTime& when) {
    int hour = when.hour % 12;
    if (hour == 0) hour = 12;
    return std::to_string(when.month) + "/" + std::to_string(when.day) + "/" +
           std::to_string(when.year) + " " + std::to_string(hour) + ":" + TwoDigits(when.minute) +
           ":" + TwoDigits(when.second) + (when.hour < 12 ? " AM" : " PM");
}

}  // namespace tamrix
