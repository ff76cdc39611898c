#include "parser/context_id_value.h"

#include <gtest/gtest.h>

#include <utility>

namespace tamrix::modParser {
namespace {

TEST(ContextIDValue, ReadsNumbersTheWayTheProjectFilesMeanThem) {
    const std::pair<const char*, std::int32_t> cases[] = {
        // Hexadecimal and octal are bit patterns; leading zeros do not widen them.
        {"&H1F", 31},
        {"&h1f", 31},
        {"&HFFFF", -1},
        {"&H8000", -32768},
        {"&H7FFF", 32767},
        {"&H10000", 65536},
        {"&HFFFFFFFF", -1},
        {"&H80000000", INT32_MIN},
        {"&H0000FFFF", -1},
        {"&O17", 15},
        {"&O177777", -1},
        {"&O18", 1},
        {"&H1G", 1},
        {"&H", 0},
        {"&X12", 0},
        // Decimals round halves to even; an exponent needs digits; only "&H" is hex.
        {"10", 10},
        {"   -42", -42},
        {"+7", 7},
        {"2.5", 2},
        {"3.5", 4},
        {"-2.5", -2},
        {"2.51", 3},
        {".5", 0},
        {"1.5e1", 15},
        {"1E3", 1000},
        {"2D2", 200},
        {"1e", 1},
        {"1e-400", 0},
        {"12abc", 12},
        {"0x1F", 0},
        {"2147483647", INT32_MAX},
        {"-2147483648", INT32_MIN},
        {"2147483647.4", INT32_MAX},
        {"-2147483648.5", INT32_MIN},
        // No number reads as zero.
        {"abc", 0},
        {"", 0},
        {"   ", 0},
        {"-", 0},
        {".", 0}};
    for (const auto& [text, expected] : cases) {
        std::int32_t value = 12345;
        EXPECT_TRUE(ContextIDValue(text, value)) << text;
        EXPECT_EQ(value, expected) << text;
    }
    for (const char* text :
         {"&H100000000", "&HFFFFFFFFFFFFFFFFFFFF", "&O40000000000", "99999999999", "2147483648",
          "-2147483649", "2147483647.5", "1e400", "1e10"}) {
        std::int32_t value = 12345;
        EXPECT_FALSE(ContextIDValue(text, value)) << text;
        EXPECT_EQ(value, -1) << text;
    }
}

}  // namespace
}  // namespace tamrix::modParser
