// The terminal progress bar: few redraws for many items, with the numbers.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "cli/cli_options.h"
#include "cli/cli_view.h"

namespace tamrix {
namespace {

using namespace std::chrono_literals;

TEST(CliProgress, RedrawsAtMostTenTimesASecond) {
    const struct {
        int items;
        std::chrono::milliseconds perItem;
        int minDraws, maxDraws;  // the maximum's and the caption's draws included
        const char* lastLine;
    } cases[] = {
        // 3,000 topics in 3 s: about 30 frames, not 3,000; the last item always shows.
        {3000, 1ms, 31, 33,
         "\r\x1b[K[##############################] 100% 3000/3000 0:03  Writing New Project Files"},
        // Slow items each get their frame.
        {3, 2000ms, 5, 5,
         "\r\x1b[K[##############################] 100% 3/3 0:06  Writing New Project Files"},
        // Nothing to count: the caption alone.
        {0, 1ms, 2, 2, "\r\x1b[K[                              ] Writing New Project Files"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.items);
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
        const auto draws = std::count(text.begin(), text.end(), '\r');
        EXPECT_GE(draws, c.minDraws);
        EXPECT_LE(draws, c.maxDraws);
        EXPECT_EQ(text.substr(text.rfind('\r')), c.lastLine);
    }
}

}  // namespace
}  // namespace tamrix
