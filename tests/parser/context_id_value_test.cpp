#include "parser/context_id_value.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace tamrix::modParser {
namespace {

TEST(ContextIDValue, ReadsNumbersTheWayTheProjectFilesMeanThem) {
    // Texts by the value they read as. Hexadecimal and octal are bit patterns and
    // leading zeros do not widen them; only "&H" is hex. Decimals round halves to
    // even; an exponent needs digits. No number reads as zero.
    const std::pair<std::int32_t, std::vector<const char*>> cases[] = {
        {31, {"&H1F", "&h1f"}},
        {-1, {"&HFFFF", "&HFFFFFFFF", "&H0000FFFF", "&O177777"}},
        {-32768, {"&H8000"}},
        {32767, {"&H7FFF"}},
        {65536, {"&H10000"}},
        {INT32_MIN, {"&H80000000", "-2147483648", "-2147483648.5"}},
        {INT32_MAX, {"2147483647", "2147483647.4"}},
        {15, {"&O17", "1.5e1"}},
        {1, {"&O18", "&H1G", "1e"}},
        {0, {"&H", "&X12", ".5", "1e-400", "0x1F", "abc", "", "   ", "-", "."}},
        {10, {"10"}},
        {-42, {"   -42"}},
        {7, {"+7"}},
        {2, {"2.5"}},
        {4, {"3.5"}},
        {-2, {"-2.5"}},
        {3, {"2.51"}},
        {1000, {"1E3"}},
        {200, {"2D2"}},
        {12, {"12abc"}}};
    for (const auto& [expected, texts] : cases) {
        for (const char* text : texts) {
            std::int32_t value = 12345;
            EXPECT_TRUE(ContextIDValue(text, value)) << text;
            EXPECT_EQ(value, expected) << text;
        }
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
