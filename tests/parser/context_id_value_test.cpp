#include "parser/context_id_value.h"

#include <gtest/gtest.h>

namespace tamrix::modParser {
namespace {

std::int32_t ValueOf(std::string_view text) {
    std::int32_t value = 12345;
    EXPECT_TRUE(ContextIDValue(text, value)) << text;
    return value;
}

bool Overflows(std::string_view text) {
    std::int32_t value = 12345;
    const bool ok = ContextIDValue(text, value);
    EXPECT_EQ(value, ok ? value : -1) << text;
    return !ok;
}

TEST(ContextIDValue, ReadsHexadecimalAndOctalAsBitPatterns) {
    EXPECT_EQ(ValueOf("&H1F"), 31);
    EXPECT_EQ(ValueOf("&h1f"), 31);
    EXPECT_EQ(ValueOf("&HFFFF"), -1);
    EXPECT_EQ(ValueOf("&H8000"), -32768);
    EXPECT_EQ(ValueOf("&H7FFF"), 32767);
    EXPECT_EQ(ValueOf("&H10000"), 65536);
    EXPECT_EQ(ValueOf("&HFFFFFFFF"), -1);
    EXPECT_EQ(ValueOf("&H80000000"), INT32_MIN);
    EXPECT_EQ(ValueOf("&H0000FFFF"), -1);  // leading zeros do not widen the pattern
    EXPECT_EQ(ValueOf("&O17"), 15);
    EXPECT_EQ(ValueOf("&O177777"), -1);
    EXPECT_EQ(ValueOf("&O18"), 1);  // 8 is no octal digit
    EXPECT_EQ(ValueOf("&H1G"), 1);
    EXPECT_EQ(ValueOf("&H"), 0);
    EXPECT_EQ(ValueOf("&X12"), 0);
    EXPECT_TRUE(Overflows("&H100000000"));
    EXPECT_TRUE(Overflows("&HFFFFFFFFFFFFFFFFFFFF"));
    EXPECT_TRUE(Overflows("&O40000000000"));
}

TEST(ContextIDValue, ReadsDecimalsRoundingHalvesToEven) {
    EXPECT_EQ(ValueOf("10"), 10);
    EXPECT_EQ(ValueOf("   -42"), -42);
    EXPECT_EQ(ValueOf("+7"), 7);
    EXPECT_EQ(ValueOf("2.5"), 2);
    EXPECT_EQ(ValueOf("3.5"), 4);
    EXPECT_EQ(ValueOf("-2.5"), -2);
    EXPECT_EQ(ValueOf("2.51"), 3);
    EXPECT_EQ(ValueOf(".5"), 0);
    EXPECT_EQ(ValueOf("1.5e1"), 15);
    EXPECT_EQ(ValueOf("1E3"), 1000);
    EXPECT_EQ(ValueOf("2D2"), 200);
    EXPECT_EQ(ValueOf("1e"), 1);  // an exponent without digits is not read
    EXPECT_EQ(ValueOf("1e-400"), 0);
    EXPECT_EQ(ValueOf("12abc"), 12);
    EXPECT_EQ(ValueOf("0x1F"), 0);  // only "&H" is hexadecimal here
    EXPECT_EQ(ValueOf("2147483647"), INT32_MAX);
    EXPECT_EQ(ValueOf("-2147483648"), INT32_MIN);
    EXPECT_EQ(ValueOf("2147483647.4"), INT32_MAX);
}

TEST(ContextIDValue, NoNumberReadsAsZero) {
    EXPECT_EQ(ValueOf("abc"), 0);
    EXPECT_EQ(ValueOf(""), 0);
    EXPECT_EQ(ValueOf("   "), 0);
    EXPECT_EQ(ValueOf("-"), 0);
    EXPECT_EQ(ValueOf("."), 0);
}

TEST(ContextIDValue, ValuesOutsideThirtyTwoBitsOverflow) {
    EXPECT_TRUE(Overflows("99999999999"));
    EXPECT_TRUE(Overflows("2147483648"));
    EXPECT_TRUE(Overflows("-2147483649"));
    EXPECT_TRUE(Overflows("2147483647.5"));
    EXPECT_TRUE(Overflows("1e400"));
    EXPECT_TRUE(Overflows("1e10"));
    EXPECT_FALSE(Overflows("-2147483648.5"));  // rounds to even: still in range
}

}  // namespace
}  // namespace tamrix::modParser
