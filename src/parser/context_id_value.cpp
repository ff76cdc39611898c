#include "parser/context_id_value.h"

#include <charconv>
#include <cmath>
#include <string>

#include "platform/byte_text.h"
#include "platform/format.h"

namespace tamrix::modParser {
namespace {

constexpr std::uint64_t kMax32 = 0xFFFFFFFFULL;

int DigitValue(char c, int radix) {
    int d = -1;
    if (c >= '0' && c <= '9')
        d = c - '0';
    else if (c >= 'a' && c <= 'f')
        d = c - 'a' + 10;
    else if (c >= 'A' && c <= 'F')
        d = c - 'A' + 10;
    return d >= 0 && d < radix ? d : -1;
}

// Hexadecimal or octal digits as a bit pattern: 16 bits when it fits, else 32.
bool RadixValue(std::string_view digits, int radix, std::int32_t& value) {
    std::uint64_t n = 0;
    bool tooLarge = false;
    for (const char c : digits) {
        const int d = DigitValue(c, radix);
        if (d < 0) break;
        if (!tooLarge) {
            n = n * static_cast<std::uint64_t>(radix) + static_cast<std::uint64_t>(d);
            tooLarge = n > kMax32;
        }
    }
    if (tooLarge) return false;
    if (n <= 0xFFFF)
        value = static_cast<std::int16_t>(static_cast<std::uint16_t>(n));
    else
        value = static_cast<std::int32_t>(static_cast<std::uint32_t>(n));
    return true;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The longest prefix that reads as a decimal number, or empty.
std::string DecimalPrefix(std::string_view text) {
    std::size_t i = 0;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    const std::size_t digitsFrom = i;
    while (i < text.size() && IsDigit(text[i])) ++i;
    std::size_t mantissaDigits = i - digitsFrom;
    if (i < text.size() && text[i] == '.') {
        const std::size_t fractionFrom = ++i;
        while (i < text.size() && IsDigit(text[i])) ++i;
        mantissaDigits += i - fractionFrom;
    }
    if (mantissaDigits == 0) return {};
    std::string number(text.substr(0, i));
    // An exponent counts only when digits follow it; "D" is Basic's double exponent.
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E' || text[i] == 'd' || text[i] == 'D')) {
        std::size_t j = i + 1;
        if (j < text.size() && (text[j] == '+' || text[j] == '-')) ++j;
        const std::size_t expFrom = j;
        while (j < text.size() && IsDigit(text[j])) ++j;
        if (j > expFrom) number += "e" + std::string(text.substr(i + 1, j - i - 1));
    }
    return number;
}

}  // namespace

bool ContextIDValue(std::string_view text, std::int32_t& value) {
    value = 0;
    std::size_t start = text.find_first_not_of(' ');
    if (start == std::string_view::npos) return true;
    text.remove_prefix(start);

    bool ok = true;
    if (text.size() >= 2 && text[0] == '&' && (text[1] == 'H' || text[1] == 'h')) {
        ok = RadixValue(text.substr(2), 16, value);
    } else if (text.size() >= 2 && text[0] == '&' && (text[1] == 'O' || text[1] == 'o')) {
        ok = RadixValue(text.substr(2), 8, value);
    } else if (!text.empty() && text[0] == '&') {
        value = 0;
    } else {
        const std::string number = DecimalPrefix(text);
        if (!number.empty()) {
            // from_chars ignores the locale the window toolkit may have set.
            double d = 0;
            const char* first = number.c_str();
            if (*first == '+') ++first;
            const auto result = std::from_chars(first, number.c_str() + number.size(), d);
            if (result.ec == std::errc::result_out_of_range)
                d = number.find("e-") != std::string::npos ? 0.0 : HUGE_VAL;
            // Round first: 2147483647.4 still fits, 2147483647.5 does not.
            if (!std::isfinite(d) || std::fabs(d) > 4.0e9) {
                ok = false;
            } else {
                const long long rounded = RoundHalfEven(d);
                ok = rounded >= INT32_MIN && rounded <= INT32_MAX;
                if (ok) value = static_cast<std::int32_t>(rounded);
            }
        }
    }
    if (!ok) value = -1;
    return ok;
}

std::string CHeaderValue(std::string_view value) {
    if (StartsWithNoCase(value, "&H")) return "0x" + std::string(value.substr(2));
    if (StartsWithNoCase(value, "&O")) return "0" + std::string(value.substr(2));
    return std::string(value);
}

}  // namespace tamrix::modParser
