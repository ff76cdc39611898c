// Replays every saved fuzzer finding (tests/data/fuzz/HARNESS/) through the same
// harness body the fuzzer ran, so a fixed crash or hang stays fixed.
#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "harnesses.h"
#include "support/temp_dir.h"

namespace tamrix {
namespace {

namespace fs = std::filesystem;

using Harness = int (*)(const std::uint8_t*, std::size_t);

struct Case {
    const char* folder;
    Harness run;
};

class FuzzRegression : public ::testing::TestWithParam<Case> {};

TEST_P(FuzzRegression, EverySavedInputEnds) {
    const fs::path folder = fs::path(TAMRIX_SOURCE_DIR) / "tests/data/fuzz" / GetParam().folder;
    ASSERT_TRUE(fs::is_directory(folder)) << folder;
    int replayed = 0;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (!entry.is_regular_file() || entry.path().filename() == "README") continue;
        const std::string bytes = testing::ReadFileBytes(entry.path().string());
        // A hang is caught by the test's timeout.
        EXPECT_EQ(GetParam().run(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()),
                  0);
        ++replayed;
    }
    // Every folder holds at least one input, so a renamed folder cannot pass empty.
    EXPECT_GT(replayed, 0) << folder;
}

INSTANTIATE_TEST_SUITE_P(Harnesses, FuzzRegression,
                         ::testing::Values(Case{"project_reader", fuzz::ProjectReader},
                                           Case{"topic_scanner", fuzz::TopicScanner},
                                           Case{"winhelp_reader", fuzz::WinHelpReader},
                                           Case{"sitemap_reader", fuzz::SitemapReader},
                                           Case{"popup_strings", fuzz::PopupStrings}),
                         [](const auto& param) { return std::string(param.param.folder); });

}  // namespace
}  // namespace tamrix
