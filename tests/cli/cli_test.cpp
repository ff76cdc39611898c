// The command line: arguments, answer policies and exit codes, in process.
#include "cli/commands.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "cli/cli_options.h"
#include "platform/view.h"
#include "support/cli_run.h"
#include "support/environment.h"
#include "support/temp_dir.h"

namespace tamrix {
namespace {

using testing::CliRun;
using testing::RunCliWith;

std::string Sample(const std::string& name) {
    return std::string(TAMRIX_SOURCE_DIR) + "/samples/tideclock/" + name;
}

TEST(CliArguments, UsageErrorsExitWithTwo) {
    const struct {
        std::vector<std::string> args;
        int status;
        const char* output;  // what stdout and stderr together start with or hold
    } cases[] = {
        {{}, 2, ""},
        {{"frobnicate"}, 2, ""},
        {{"convert", "a.hhp"}, 2, ""},
        {{"scan", "a.hhp", "--popups"}, 2, ""},  // convert-only option
        {{"convert", "a.hhp", "b.hhp", "--answer", "10038=maybe"}, 2, "--answer takes ID="},
        {{"convert", "a.hhp", "b.hhp", "--css="}, 2, ""},
        {{"convert", "a.hhp", "b/", "c.hhp", "d/"}, 2, "give --yes or --no"},
        {{"convert", "a.hhp", "b/", "c.hhp", "--yes"}, 2, "for every project"},
        {{"convert", "a.hhp", "b/", "c.hhp", "d/", "--yes", "--hpj", "a.hpj"}, 2, "no --hpj"},
        {{"--help"}, 0, ""},
        {{"--version"}, 0, "Tamrix 1."},
    };
    for (const auto& c : cases) {
        const CliRun run = RunCliWith(c.args);
        EXPECT_EQ(run.status, c.status) << ::testing::PrintToString(c.args);
        EXPECT_NE((run.out + run.err).find(c.output), std::string::npos) << run.out << run.err;
    }
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

// The new folder's question: answered by ID, by the default, by the user on a
// terminal, or else No, which leaves the wizard at its step and writes nothing.
TEST(CliAnswers, ByIdByDefaultByTheUserElseNo) {
    testing::SetEnvironment("SOURCE_DATE_EPOCH", "1299333420");
    const struct {
        std::vector<std::string> extra;
        const char* input;
        bool interactive;
        int status;
        const char* err;      // what standard error holds
        const char* written;  // a file the run writes; none: no new folder at all
    } cases[] = {
        {{"--yes", "--popups", "--css"}, "", false, 0, "[message 10011]\n  -> Yes", "HHStyles.css"},
        {{}, "", false, 1, "[message 10011]\n  -> No", nullptr},
        {{"--no", "--answer", "10011=yes"}, "", false, 0, "[message 10011]\n  -> Yes", "New.hhp"},
        {{}, "y\n", true, 0, "[Yes/No/Cancel]? ", "New.hhp"},
    };
    for (const auto& c : cases) {
        testing::TempDir dir;
        std::vector<std::string> args = {"convert", Sample("TideClock.hhp"), dir / "out/New.hhp",
                                         "--hpj", Sample("TideClock.hpj")};
        args.insert(args.end(), c.extra.begin(), c.extra.end());
        const CliRun run = RunCliWith(args, c.input, c.interactive);
        SCOPED_TRACE(::testing::PrintToString(args) + run.err);
        EXPECT_EQ(run.status, c.status);
        EXPECT_NE(run.err.find(c.err), std::string::npos);
        EXPECT_EQ(dir.Exists(c.written ? std::string("out/") + c.written : "out"),
                  c.written != nullptr);
    }
    testing::ClearEnvironment("SOURCE_DATE_EPOCH");
}

TEST(CliScan, WritesTheScanLog) {
    testing::TempDir dir;
    const CliRun toStdout =
        RunCliWith({"scan", Sample("TideClock.hhp"), "--hpj", Sample("TideClock.hpj")});
    ASSERT_EQ(toStdout.status, 0) << toStdout.err;
    EXPECT_EQ(toStdout.out.rfind("Scan Results for HTML Project: TideClock.hhp\r\n", 0), 0u);
    const CliRun toFile = RunCliWith({"scan", Sample("TideClock.hhp"), "--log", dir / "scan.log"});
    ASSERT_EQ(toFile.status, 0);
    EXPECT_NE(dir.Read("scan.log").find("Untitled Topics: 11"), std::string::npos);
    EXPECT_EQ(RunCliWith({"scan", dir / "missing.hhp"}).status, 1);
}

// A batch reports every project on a line of its own, in the order given, then a
// total, and exits with the worst status; its good projects are written in full.
TEST(CliBatch, EveryProjectOnALineTheWorstStatusWins) {
    testing::TempDir dir;
    const std::string list =
        dir.Write("list.txt", "# projects\r\n\r\n\"" + Sample("TideClock.hhp") + "\" \"" +
                                  (dir / "one/") + "\" " + Sample("TideClock.hpj") + "\r\n" +
                                  (dir / "missing.hhp") + " " + (dir / "two/") + "\r\n" +
                                  Sample("TideClock.hhp") + "\t" + (dir / "three/") + "\n");
    const CliRun run = RunCliWith({"convert", "--batch", list, "--yes"});
    EXPECT_EQ(run.status, 1) << run.err;
    const std::size_t first = run.out.find("[1/3] ");
    const std::size_t second = run.out.find("[2/3] ");
    ASSERT_NE(second, std::string::npos) << run.out;
    EXPECT_LT(first, second);
    EXPECT_NE(run.out.find("two/: stopped at a step"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("Total: 3 projects, 2 done, 0 with problems, 1 stopped"),
              std::string::npos)
        << run.out;
    EXPECT_NE(run.err.find("    tamrix-cli: stopped at step 1"), std::string::npos) << run.err;
    // The first project had its .hpj, so its map header came along; the third had none.
    EXPECT_TRUE(std::filesystem::is_regular_file(dir / "one/NewMap.h"));
    EXPECT_TRUE(std::filesystem::is_regular_file(dir / "three/TideClock.hhp"));
    EXPECT_FALSE(std::filesystem::exists(dir / "three/NewMap.h"));

    const std::string bad = dir.Write("bad.txt", "a.hhp b/\n\"c.hhp d/\n");
    const CliRun refused = RunCliWith({"convert", "--batch", bad, "--no"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_NE(refused.err.find("bad.txt:2: a quoted name has no closing quote"), std::string::npos)
        << refused.err;
}

}  // namespace
}  // namespace tamrix
