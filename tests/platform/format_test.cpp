#include "platform/format.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/clock.h"
#include "support/environment.h"

namespace tamrix {
namespace {

TEST(FormatNumber, LeavesOutLeadingHashDigitsAndRoundsHalvesAwayFromZero) {
    EXPECT_EQ(FormatNumber(0.5, "#.00"), ".50");
    EXPECT_EQ(FormatNumber(123.456, "#.00"), "123.46");
    EXPECT_EQ(FormatNumber(0.125, "#.00"), ".13");
    EXPECT_EQ(FormatNumber(-0.125, "#.00"), "-.13");
    EXPECT_EQ(FormatNumber(2.675, "#.00"), "2.68");  // decimal digits, not binary
    EXPECT_EQ(FormatNumber(1.0005, "#.000"), "1.001");
    EXPECT_EQ(FormatNumber(0.5, "0.0000"), "0.5000");
    EXPECT_EQ(FormatNumber(9.9996, "0.000"), "10.000");
    EXPECT_EQ(FormatNumber(7, "0"), "7");
    EXPECT_EQ(FormatNumber(2.5, "0"), "3");
    EXPECT_EQ(FormatNumber(-5, "00"), "-05");
    EXPECT_EQ(FormatNumber(4, "00"), "04");
    EXPECT_EQ(FormatNumber(1.2345, " 0.000"), " 1.235");
    EXPECT_EQ(FormatNumber(0, "#"), "");
}

TEST(FormatNumber, SignPositionAndWholeNumberConversion) {
    EXPECT_EQ(SignedText(42), " 42");
    EXPECT_EQ(SignedText(0), " 0");
    EXPECT_EQ(SignedText(-3), "-3");
    EXPECT_EQ(RoundHalfEven(2.5), 2);
    EXPECT_EQ(RoundHalfEven(3.5), 4);
    EXPECT_EQ(RoundHalfEven(-2.5), -2);
    EXPECT_EQ(RoundHalfEven(2.51), 3);
    EXPECT_EQ(GeneralNumber(3.14159), "3.14159");
    EXPECT_EQ(GeneralNumber(7), "7");
    EXPECT_EQ(BooleanText(true), "True");
    EXPECT_EQ(BooleanText(false), "False");
}

TEST(FormatDate, EnglishMonthsAndTwelveHourClockWithAmPm) {
    const DateTime t{2011, 3, 5, 14, 7, 9};
    EXPECT_EQ(FormatDate(t, "mmmm dd, yyyy, hh:mm AMPM"), "March 05, 2011, 02:07 PM");
    EXPECT_EQ(FormatDate(t, "mmmm dd, yyyy: hh:mm AM/PM"), "March 05, 2011: 02:07 PM");
    EXPECT_EQ(FormatDate(t, "yyyy/mm/dd  hh:mm"), "2011/03/05  14:07");
    const DateTime midnight{2020, 12, 31, 0, 30, 0};
    EXPECT_EQ(FormatDate(midnight, "mmmm dd, yyyy, hh:mm AMPM"), "December 31, 2020, 12:30 AM");
    const DateTime noon{2020, 1, 1, 12, 0, 0};
    EXPECT_EQ(FormatDate(noon, "hh:mm AM/PM"), "12:00 PM");
    EXPECT_EQ(GeneralDate(t), "3/5/2011 2:07:09 PM");
}

// The logs' dates show that SOURCE_DATE_EPOCH is honoured; a bad value is not.
TEST(Clock, FallsBackToTheRealClockForABadSourceDateEpoch) {
    testing::SetEnvironment("SOURCE_DATE_EPOCH", "not a number");
    EXPECT_GT(Now().year, 2020);
    testing::ClearEnvironment("SOURCE_DATE_EPOCH");
}

}  // namespace
}  // namespace tamrix
