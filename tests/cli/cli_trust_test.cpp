// The command line tells the truth: exit status, summary, targets, quiet runs.
// Every run converts a copy of the sample, and the copy must be
// byte for byte the same afterwards.
#include <gtest/gtest.h>

#include <filesystem>

#include "hostile/hostile_fixture.h"
#include "support/cli_run.h"
#include "support/environment.h"

namespace tamrix {
namespace {

namespace fs = std::filesystem;

using testing::CliRun;

class CliTrust : public ::testing::Test {
protected:
    void SetUp() override {
        testing::SetEnvironment("SOURCE_DATE_EPOCH", "1299333420");
        fs::copy(std::string(TAMRIX_SOURCE_DIR) + "/samples/tideclock", dir / "in",
                 fs::copy_options::recursive);
        before = testing::TakeSnapshot(dir / "in");
    }
    void TearDown() override {
        const auto diff = testing::Differences(before, testing::TakeSnapshot(dir / "in"));
        EXPECT_TRUE(diff.empty()) << ::testing::PrintToString(diff);
        testing::ClearEnvironment("SOURCE_DATE_EPOCH");
    }
    CliRun Convert(const std::string& target, std::vector<std::string> extra = {"--yes"}) {
        std::vector<std::string> args = {"convert", dir / "in/TideClock.hhp", target, "--hpj",
                                         dir / "in/TideClock.hpj"};
        args.insert(args.end(), extra.begin(), extra.end());
        return testing::RunCliWith(args);
    }
    static bool Has(const std::string& text, const std::string& part) {
        return text.find(part) != std::string::npos;
    }

    testing::TempDir dir;
    testing::Snapshot before;
};

TEST_F(CliTrust, AFolderTargetGetsTheOldProjectFileName) {
    fs::create_directory(dir / "existing");
    for (const std::string& target : {dir / "existing", dir / "fresh/"}) {
        SCOPED_TRACE(target);
        const CliRun run = Convert(target);
        EXPECT_EQ(run.status, 0) << run.err;
        const std::string folder = target.back() == '/' ? target : target + "/";
        EXPECT_TRUE(fs::is_regular_file(folder + "TideClock.hhp"));
        EXPECT_TRUE(fs::is_directory(folder + "html"));
        EXPECT_TRUE(Has(run.out, "New project:            " + folder + "TideClock.hhp"));
        EXPECT_FALSE(fs::exists(folder + ".tamrix-running"));
    }
    const CliRun notAFolder = Convert(dir / "nothing");
    EXPECT_EQ(notAFolder.status, 2);
    EXPECT_TRUE(Has(notAFolder.err, "NEW must be a .hhp file or a folder"));
    EXPECT_FALSE(fs::exists(dir / "nothing"));
}

TEST_F(CliTrust, ALinkToTheInputFolderIsTheInputFolder) {
    fs::create_directory_symlink(dir / "in", dir / "new");
    const CliRun run = Convert(dir / "new/TideClock.hhp", {"--answer", "10038=yes"});
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(Has(run.err, "same as the folder of the input HTML project")) << run.err;
}

TEST_F(CliTrust, QuietPrintsNoAnsweredQuestionsAndHelpExplainsEveryOption) {
    const CliRun quiet = Convert(dir / "out/TideClock.hhp", {"--yes", "--quiet"});
    EXPECT_EQ(quiet.status, 0);
    EXPECT_EQ(quiet.out, "");
    EXPECT_EQ(quiet.err, "");
    const CliRun help = testing::RunCliWith({"convert", "--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* option : {"--hpj", "--css", "--popups", "--keep-zero-ids", "--yes", "--no",
                               "--answer", "--quiet", "130"})
        EXPECT_TRUE(Has(help.out, option)) << option;
}

// [ALIAS] names one generated file more than ten times: the project file is not
// written, and the run must say so instead of reporting a new project.
TEST_F(CliTrust, AProjectFileNotWrittenIsAProblemNotASuccess) {
    std::string hhp = testing::ReadFileBytes(dir / "in/TideClock.hhp");
    hhp += "\r\n[ALIAS]\r\n";
    for (int i = 0; i < 11; ++i) hhp += "IDH_X" + std::to_string(i) + "=html\\tidejmp9.htm\r\n";
    fs::remove(dir / "in/TideClock.hhp");
    dir.Write("in/TideClock.hhp", hhp);
    before = testing::TakeSnapshot(dir / "in");
    const CliRun run = Convert(dir / "out/TideClock.hhp");
    EXPECT_EQ(run.status, 3) << run.err;
    EXPECT_FALSE(Has(run.out, "New project:"));
    EXPECT_TRUE(Has(run.err, "The new project file was not written")) << run.err;
    EXPECT_FALSE(fs::exists(dir / "out/TideClock.hhp"));
}

// The input project lies in X/html and the new one in X, so the new topic folder
// is the input folder: each refusal names the file and why, repeats are counted,
// and rewrite.log lists them.
TEST_F(CliTrust, WritesIntoTheInputFolderAreRefusedNamedAndCounted) {
    fs::create_directories(dir / "X/html");
    fs::copy(dir / "in", dir / "X/html", fs::copy_options::recursive);
    const auto inputBefore = testing::TakeSnapshot(dir / "X/html");
    const CliRun run =
        testing::RunCliWith({"convert", dir / "X/html/TideClock.hhp", dir / "X/New.hhp", "--yes"});
    EXPECT_EQ(run.status, 3) << run.err;
    EXPECT_TRUE(Has(run.err, "Program Error No.  600 From: ")) << run.err;
    EXPECT_TRUE(Has(run.err, "/X/html/main_index.htm\": it lies in the input project's folder"));
    EXPECT_TRUE(Has(run.err, "(repeated "));
    EXPECT_TRUE(Has(run.err, "Refused to write "));
    EXPECT_FALSE(Has(run.err, " 1 error report(s)")) << "repeats are counted too";
    EXPECT_TRUE(Has(run.err, " error report(s) during the run.")) << run.err;
    EXPECT_TRUE(Has(testing::ReadFileBytes(dir / "X/rewrite.log"),
                    "it lies in the input project's folder"));
    const auto diff = testing::Differences(inputBefore, testing::TakeSnapshot(dir / "X/html"));
    EXPECT_TRUE(diff.empty()) << ::testing::PrintToString(diff);
}

}  // namespace
}  // namespace tamrix
