// The command line: arguments, answer policies and exit codes, in process.
#include "cli/commands.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "cli/cli_options.h"
#include "platform/view.h"
#include "support/cli_run.h"
#include "support/environment.h"
#include "support/temp_dir.h"

namespace tamrix {
namespace {

namespace fs = std::filesystem;

using testing::CliRun;

CliRun RunWith(const std::vector<std::string>& args, const std::string& input = {},
               bool interactive = false) {
    return testing::RunCliWith(args, input, interactive);
}

std::string Sample(const std::string& name) {
    return std::string(TAMRIX_SOURCE_DIR) + "/samples/tideclock/" + name;
}

TEST(CliArguments, UsageErrorsExitWithTwo) {
    EXPECT_EQ(RunWith({}).status, 2);
    EXPECT_EQ(RunWith({"frobnicate"}).status, 2);
    EXPECT_EQ(RunWith({"convert", "a.hhp"}).status, 2);
    EXPECT_EQ(RunWith({"scan", "a.hhp", "--popups"}).status, 2);  // convert-only option
    const CliRun bad = RunWith({"convert", "a.hhp", "b.hhp", "--answer", "10038=maybe"});
    EXPECT_EQ(bad.status, 2);
    EXPECT_NE(bad.err.find("--answer takes ID="), std::string::npos);
    EXPECT_EQ(RunWith({"convert", "a.hhp", "b.hhp", "--css="}).status, 2);
    EXPECT_EQ(RunWith({"--help"}).status, 0);
    const CliRun version = RunWith({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out.rfind("Tamrix 1.", 0), 0u);
}

TEST(CliArguments, ParsesEveryOption) {
    std::string error;
    const auto options = cli::ParseArguments(
        {"convert", "old.hhp", "new.hhp", "--hpj", "old.hpj", "--css=My.css", "--popups",
         "--keep-zero-ids", "--no", "--answer", "10038=yes", "--answer=10018=No", "--quiet"},
        error);
    ASSERT_TRUE(options) << error;
    EXPECT_EQ(options->hpj, "old.hpj");
    EXPECT_TRUE(options->css);
    EXPECT_EQ(options->cssName, "My.css");
    EXPECT_TRUE(options->popups);
    EXPECT_TRUE(options->keepZeroIds);
    EXPECT_EQ(options->defaultAnswer, cli::DefaultAnswer::kNo);
    EXPECT_EQ(options->answers.at(10038), mb::kYes);
    EXPECT_EQ(options->answers.at(10018), mb::kNo);
    EXPECT_TRUE(options->quiet);
    const auto scan = cli::ParseArguments({"scan", "old.hhp", "--log", "x.log"}, error);
    ASSERT_TRUE(scan);
    EXPECT_EQ(*scan->logFile, "x.log");
}

class CliConvert : public ::testing::Test {
protected:
    void SetUp() override { testing::SetEnvironment("SOURCE_DATE_EPOCH", "1299333420"); }
    void TearDown() override { testing::ClearEnvironment("SOURCE_DATE_EPOCH"); }
    std::vector<std::string> Convert(std::vector<std::string> extra = {}) {
        std::vector<std::string> args = {"convert", Sample("TideClock.hhp"), dir / "out/New.hhp",
                                         "--hpj", Sample("TideClock.hpj")};
        args.insert(args.end(), extra.begin(), extra.end());
        return args;
    }
    testing::TempDir dir;
};

TEST_F(CliConvert, ConvertsTheSampleWithYesAndPrintsASummary) {
    const CliRun run = RunWith(Convert({"--yes", "--popups", "--css"}));
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("Topic files renamed:    41 of 42"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("rewrite.log"), std::string::npos);
    EXPECT_TRUE(dir.Exists("out/New.hhp"));
    EXPECT_TRUE(dir.Exists("out/HHStyles.css"));
    // The folder question was answered without asking, and said so.
    EXPECT_NE(run.err.find("-> Yes"), std::string::npos);
}

TEST_F(CliConvert, WithoutAnswersAQuestionIsAnsweredNoAndTheWizardStays) {
    const CliRun run = RunWith(Convert());
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("[message 10011]"), std::string::npos) << run.err;
    EXPECT_NE(run.err.find("-> No"), std::string::npos);
    EXPECT_NE(run.err.find("stopped at step 3"), std::string::npos);
    EXPECT_FALSE(dir.Exists("out"));
}

TEST_F(CliConvert, AnAnswerByIdWinsOverTheDefault) {
    const CliRun run = RunWith(Convert({"--no", "--answer", "10011=yes"}));
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(dir.Exists("out/New.hhp"));
}

TEST_F(CliConvert, OnATerminalTheUserIsAsked) {
    const CliRun run = RunWith(Convert(), "y\n", true);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.err.find("[Yes/No/Cancel]? "), std::string::npos);
}

TEST_F(CliConvert, ASecondRunAsks10038AndNoLeavesTheFolderIntact) {
    ASSERT_EQ(RunWith(Convert({"--yes"})).status, 0);
    std::map<std::string, std::string> before;
    for (const auto& entry : fs::recursive_directory_iterator(dir / "out"))
        if (entry.is_regular_file())
            before[entry.path().string()] = testing::ReadFileBytes(entry.path().string());
    testing::SetEnvironment("SOURCE_DATE_EPOCH",
                            "1399333420");  // a later run would write other dates
    const CliRun no = RunWith(Convert({"--no"}));
    EXPECT_EQ(no.status, 1);
    EXPECT_NE(no.err.find("[message 10038]"), std::string::npos);
    std::map<std::string, std::string> after;
    for (const auto& entry : fs::recursive_directory_iterator(dir / "out"))
        if (entry.is_regular_file())
            after[entry.path().string()] = testing::ReadFileBytes(entry.path().string());
    EXPECT_EQ(before, after);
    EXPECT_EQ(RunWith(Convert({"--yes"})).status, 0);
}

TEST_F(CliConvert, ScanWritesTheScanLog) {
    const CliRun toStdout =
        RunWith({"scan", Sample("TideClock.hhp"), "--hpj", Sample("TideClock.hpj")});
    ASSERT_EQ(toStdout.status, 0) << toStdout.err;
    EXPECT_EQ(toStdout.out.rfind("Scan Results for HTML Project: TideClock.hhp\r\n", 0), 0u);
    const CliRun toFile = RunWith({"scan", Sample("TideClock.hhp"), "--log", dir / "scan.log"});
    ASSERT_EQ(toFile.status, 0);
    EXPECT_NE(dir.Read("scan.log").find("Untitled Topics: 11"), std::string::npos);
    EXPECT_EQ(RunWith({"scan", dir / "missing.hhp"}).status, 1);
}

}  // namespace
}  // namespace tamrix
