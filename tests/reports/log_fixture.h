#pragma once
// The shared fixture of the log tests: a fresh model at a fixed date, a
// scripted view, the report being written and the topics it lists.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "model/conversion.h"
#include "model/project_state.h"
#include "platform/program_identity.h"
#include "reports/c_summary.h"
#include "support/environment.h"
#include "support/scanned_topic.h"
#include "support/scripted_view.h"

namespace tamrix::testing {

// The lines of a log, which must end with a line break.
inline std::vector<std::string> LogLines(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find("\r\n", start)) != std::string::npos; start = end + 2)
        lines.push_back(text.substr(start, end - start));
    EXPECT_EQ(start, text.size()) << "the log must end with a line break";
    return lines;
}

// Expects `wanted` among the log's lines in this order; other lines may lie between.
inline void ExpectInOrder(const std::vector<std::string>& lines,
                          const std::vector<std::string>& wanted) {
    auto at = lines.begin();
    for (const auto& line : wanted) {
        at = std::find(at, lines.end(), line);
        ASSERT_NE(at, lines.end()) << "missing or out of order: \"" << line << '"';
        ++at;
    }
}

inline std::string Sp(std::size_t n) { return std::string(n, ' '); }

class LogTest : public ::testing::Test {
protected:
    explicit LogTest(const char* epoch) : epoch_(epoch) {}
    void SetUp() override {
        testing::SetEnvironment("SOURCE_DATE_EPOCH", epoch_);
        wizard.Globals.TopicFiles = std::make_shared<CTopicFiles>();
    }
    void TearDown() override { testing::ClearEnvironment("SOURCE_DATE_EPOCH"); }
    std::shared_ptr<CTopicFile> AddTopic(const std::string& file, const std::string& context,
                                         bool hasTitle) {
        return AddScannedTopic(*wizard.Globals.TopicFiles, "html\\" + file, context, hasTitle);
    }

    ScriptedView view;
    Conversion wizard{view};
    CSummary report{wizard.Errors};

private:
    const char* epoch_;
};

}  // namespace tamrix::testing
