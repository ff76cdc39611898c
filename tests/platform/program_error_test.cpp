#include "platform/program_error.h"

#include <gtest/gtest.h>

#include <climits>
#include <new>

#include "platform/counter16.h"
#include "support/error_of.h"
#include "support/scripted_view.h"

namespace tamrix {
namespace {

// A flood of one report (same number and source) within one operation is one box
// and a count; the detail of a program error says which file and why.
TEST(ProgramError, RepeatsWithinAnOperationAreShownOnceAndCounted) {
    testing::ScriptedView view;
    ErrorReporter errors{view};
    int failures = 0;
    {
        ErrorReportOperation operation(errors);
        ErrorReportOperation nested(errors);  // the outermost one counts
        for (int i = 0; i < 70000; ++i)
            failures += Guarded(errors, "modUtilities:UpdateProgressBar", 0,
                                []() -> int { RaiseError(err::kOverflow); }) == 0;
        Guarded(errors, "m:Write", false, []() -> bool {
            RaiseError(err::kOutsideNewFolder, "Refused to write \"/in/a.htm\": why.");
        });
        Guarded(errors, "m:Write", false,
                []() -> bool { RaiseError(err::kOutsideNewFolder, "b"); });
        EXPECT_TRUE(view.repeats.empty());
    }
    EXPECT_EQ(failures, 70000);  // every call still fails as before
    ASSERT_EQ(view.errors.size(), 2u);
    EXPECT_EQ(view.errors[0].first, "modUtilities:UpdateProgressBar\r\nError: Overflow");
    EXPECT_EQ(view.errors[1].first,
              "Program Error No.  600 From: m:Write\r\nRefused to write \"/in/a.htm\": why.");
    using Repeat = std::pair<std::string, int>;
    EXPECT_EQ(view.repeats,
              (std::vector<Repeat>{{view.errors[0].first, 69999}, {view.errors[1].first, 1}}));
    ReportProgramError(errors, 6, "modUtilities:UpdateProgressBar");  // a new operation shows again
    EXPECT_EQ(view.errors.size(), 3u);
}

// A system error names its source and description under "Error"; a program
// error its number, with a sign position, under the program's name.
TEST(ProgramError, GuardTurnsEveryExceptionIntoTheReportAndTheFailureValue) {
    testing::ScriptedView view;
    ErrorReporter errors{view};
    EXPECT_FALSE(Guarded(errors, "m:A", false, []() -> bool { RaiseError(err::kFileNotFound); }));
    EXPECT_EQ(Guarded(errors, "m:B", -1, []() -> int { throw std::bad_alloc(); }), -1);
    EXPECT_EQ(Guarded(errors, "m:C", 0, []() -> int { throw 42; }), 0);
    EXPECT_TRUE(Guarded(errors, "m:D", false, [] { return true; }));
    ReportProgramError(errors, 600, "modRewrite:RewriteTopicFile");
    using Box = std::pair<std::string, std::string>;
    EXPECT_EQ(
        view.errors,
        (std::vector<Box>{{"m:A\r\nError: File not found", "Error"},
                          {"m:B\r\nError: Out of memory", "Error"},
                          {"m:C\r\nError: Internal error", "Error"},
                          {"Program Error No.  600 From: modRewrite:RewriteTopicFile", "Tamrix"}}));
}

TEST(Counter16, OverflowPast32767RaisesErrorSix) {
    Counter16 c = 32766;
    ++c;
    EXPECT_EQ(c.Value(), 32767);
    EXPECT_EQ(testing::ErrorOf([&] { ++c; }), err::kOverflow);
    EXPECT_EQ(c.Value(), 32767);
    EXPECT_THROW(Counter16::Checked(LONG_MIN), BasicError);
    EXPECT_EQ(Counter16::Checked(-32768), -32768);
}

}  // namespace
}  // namespace tamrix
