// The terminal progress bar: few redraws for many items, with the numbers.
#include <gtest/gtest.h>

#include <sstream>

#include "cli/cli_options.h"
#include "cli/cli_view.h"

namespace tamrix {
namespace {

using namespace std::chrono_literals;

struct ProgressCase {
    int items;
    std::chrono::milliseconds perItem;
    int minDraws, maxDraws;  // the maximum's and the caption's draws included
    const char* lastLine;
};

class CliProgress : public ::testing::TestWithParam<ProgressCase> {};

TEST_P(CliProgress, RedrawsAtMostTenTimesASecond) {
    const ProgressCase& c = GetParam();
    cli::CliOptions options;
    std::istringstream in;
    std::ostringstream err;
    cli::CliView view(options, in, err, false, true);
    std::chrono::steady_clock::time_point now{};
    view.SetClock([&] { return now; });
    view.SetProgressMax(c.items);
    view.SetProgressCaption("Writing New Project Files");
    for (int i = 1; i <= c.items; ++i) {
        now += c.perItem;
        view.SetProgressValue(i);
    }
    const std::string text = err.str();
    int draws = 0;
    for (char ch : text) draws += ch == '\r' ? 1 : 0;
    EXPECT_GE(draws, c.minDraws);
    EXPECT_LE(draws, c.maxDraws);
    EXPECT_EQ(text.substr(text.rfind('\r')), c.lastLine);
}

INSTANTIATE_TEST_SUITE_P(
    Items, CliProgress,
    ::testing::Values(
        // 3,000 topics in 3 s: about 30 frames, not 3,000; the last item always shows.
        ProgressCase{3000, 1ms, 31, 33,
                     "\r\x1b[K[##############################] 100% 3000/3000 0:03  Writing New "
                     "Project Files"},
        // Slow items each get their frame.
        ProgressCase{3, 2000ms, 5, 5,
                     "\r\x1b[K[##############################] 100% 3/3 0:06  Writing New Project "
                     "Files"},
        // Nothing to count: the caption alone.
        ProgressCase{0, 1ms, 2, 2,
                     "\r\x1b[K[                              ] Writing New Project Files"}));

}  // namespace
}  // namespace tamrix
