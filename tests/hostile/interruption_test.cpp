// tamrix-cli killed at random moments of a conversion of the sample: what it
// leaves in the new folder is what a complete run writes, or nothing.
//
// Files are written through a temporary ".tamrix-XXXXXX" file and renamed into
// place, so a kill can leave such a temporary file behind but never a torn file.
// Those temporary files are ignored here; the next run into the same folder
// removes them (checked at the end).
//
// Two files are written more than once in a run, each time whole: the new
// project file (sections added by later steps) and the topic files that popup
// activation edits (saved once, after a backup of the earlier version). For them
// an earlier complete version is accepted: the project file without the sections
// and the default topic later steps set, a topic file equal to its backup in
// html/NoPopups.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>
#include <vector>

#include "hostile/hostile_fixture.h"
#include "platform/profile.h"
#include "support/cli_run.h"
#include "support/environment.h"
#include "support/temp_dir.h"

namespace tamrix {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr const char* kTempPrefix = ".tamrix-";

// Starts tamrix-cli with `args`; its standard error goes to `log`, the rest to /dev/null.
pid_t StartCli(const std::vector<std::string>& args, const std::string& log = "/dev/null") {
    const pid_t pid = ::fork();
    if (pid != 0) return pid;
    testing::SetEnvironment("SOURCE_DATE_EPOCH", "1299333420");
    ::dup2(::open("/dev/null", O_WRONLY), 1);
    ::dup2(::open(log.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644), 2);
    std::vector<char*> argv{const_cast<char*>(TAMRIX_CLI_PATH)};
    for (const std::string& arg : args) argv.push_back(const_cast<char*>(arg.c_str()));
    argv.push_back(nullptr);
    ::execv(TAMRIX_CLI_PATH, argv.data());
    ::_exit(127);
}

// Starts tamrix-cli converting the sample in `in` into `out`.
pid_t StartConversion(const std::string& in, const std::string& out) {
    return StartCli({"convert", in + "/TideClock.hhp", out + "/TideClock.hhp", "--hpj",
                     in + "/TideClock.hpj", "--popups", "--yes", "--quiet"});
}

// Waits for the child; kills it with SIGKILL once `after` has passed.
void KillAfter(pid_t pid, Clock::duration after) {
    const auto deadline = Clock::now() + after;
    int status = 0;
    while (Clock::now() < deadline) {
        if (::waitpid(pid, &status, WNOHANG) == pid) return;
        const timespec pause{0, 200000};  // 0.2 ms
        ::nanosleep(&pause, nullptr);
    }
    ::kill(pid, SIGKILL);
    ::waitpid(pid, &status, 0);
}

// The project file as an earlier step leaves it: without the sections later steps add.
std::string WithoutLaterSections(std::string hhp) {
    for (const char* section : {"MAP", "ALIAS", "TEXT POPUPS"})
        hhp = profile::text::DeleteSection(hhp, section);
    return profile::text::WriteString(hhp, "OPTIONS", "Default Topic", "set later");
}

TEST(Interruption, KilledConversionsLeaveOnlyCompleteFiles) {
    testing::TempDir dir;
    fs::copy(std::string(TAMRIX_SOURCE_DIR) + "/samples/tideclock", dir / "in",
             fs::copy_options::recursive);
    const testing::Snapshot input = testing::TakeSnapshot(dir / "in");

    // A complete run gives the reference files and how long a run takes.
    const auto started = Clock::now();
    // Every run writes into the same folder, since the logs name it; each result
    // is moved aside before the next run.
    const std::string out = dir / "out";
    const pid_t full = StartConversion(dir / "in", out);
    int status = 0;
    ASSERT_EQ(::waitpid(full, &status, 0), full);
    const auto duration = Clock::now() - started;
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    const auto reference = testing::FilesUnder(out);
    fs::rename(out, dir / "ref");
    ASSERT_GT(reference.size(), 40u);

    std::mt19937 random(20261122);
    std::uniform_int_distribution<Clock::rep> moment(0, duration.count());
    for (int run = 0; run < 20; ++run) {
        const auto at = Clock::duration(moment(random));
        KillAfter(StartConversion(dir / "in", out), at);
        if (!fs::exists(out)) continue;  // killed before the folder was made
        for (const auto& [name, bytes] : testing::FilesUnder(out)) {
            if (fs::path(name).filename().string().rfind(kTempPrefix, 0) == 0) continue;
            const auto ref = reference.find(name);
            ASSERT_NE(ref, reference.end()) << "run " << run << ": unexpected file " << name;
            if (bytes == ref->second) continue;
            if (name == "TideClock.hhp") {
                EXPECT_EQ(WithoutLaterSections(bytes), WithoutLaterSections(ref->second))
                    << "run " << run << " at " << at.count() << ": " << name;
                continue;
            }
            const auto backup =
                reference.find("html/NoPopups/" + fs::path(name).filename().string());
            EXPECT_TRUE(fs::path(name).parent_path() == "html" && backup != reference.end() &&
                        bytes == backup->second)
                << "run " << run << " at " << at.count() << ": " << name << " differs";
        }
        fs::rename(out, dir / ("killed" + std::to_string(run)));
    }
    EXPECT_TRUE(testing::Differences(input, testing::TakeSnapshot(dir / "in")).empty());

    // A complete run into a folder that holds temporary files of a killed run
    // removes them.
    fs::create_directories(out + "/html");
    std::ofstream(out + "/.tamrix-Ab12Cd") << "partial";
    std::ofstream(out + "/html/.tamrix-Zz99yY") << "partial";
    const pid_t rerun = StartConversion(dir / "in", out);
    ASSERT_EQ(::waitpid(rerun, &status, 0), rerun);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    EXPECT_EQ(testing::FilesUnder(out), reference);
}

// SIGINT: the run says where it stopped, leaves its marker and no temporary
// files, and the next run into the folder says that one was interrupted.
TEST(Interruption, AnInterruptedRunSaysWhereItStoppedAndTheNextRunKnows) {
    testing::TempDir dir;
    // Enough topics that the write step is still running when the signal comes.
    std::string hhp = "[OPTIONS]\r\nCompatibility=1.1 or later\r\n\r\n[FILES]\r\n";
    for (int i = 0; i < 3000; ++i) {
        hhp += "html\\g" + std::to_string(i) + ".htm\r\n";
        dir.Write("big/html/g" + std::to_string(i) + ".htm",
                  testing::Topic("T", "IDH_T" + std::to_string(i)));
    }
    dir.Write("big/big.hhp", hhp);
    const auto bigBefore = testing::TakeSnapshot(dir / "big");
    fs::create_directory(dir / "out");
    const pid_t pid =
        StartCli({"convert", dir / "big/big.hhp", dir / "out/big.hhp", "--yes"}, dir / "err.txt");
    while (!fs::exists(dir / "out/.tamrix-running") && !fs::exists(dir / "out/big.hhp"))
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    ::kill(pid, SIGINT);
    int status = 0;
    ::waitpid(pid, &status, 0);
    const std::string said = dir.Read("err.txt");
    ASSERT_TRUE(WIFEXITED(status));
    ASSERT_EQ(WEXITSTATUS(status), 130) << said;
    EXPECT_NE(said.find("interrupted at step 3 (New HTML Project)"), std::string::npos) << said;
    EXPECT_NE(said.find("is incomplete"), std::string::npos);
    EXPECT_TRUE(fs::exists(dir / "out/.tamrix-running"));
    for (const auto& entry : fs::directory_iterator(dir / "out")) {
        const std::string name = entry.path().filename().string();
        EXPECT_TRUE(name.rfind(kTempPrefix, 0) != 0 || name == ".tamrix-running") << name;
    }
    EXPECT_TRUE(testing::Differences(bigBefore, testing::TakeSnapshot(dir / "big")).empty());
    const testing::CliRun again =
        testing::RunCliWith({"convert", dir / "big/big.hhp", dir / "out/big.hhp", "--yes"});
    EXPECT_NE(again.err.find("an earlier run into"), std::string::npos) << again.err;
    EXPECT_NE(again.err.find("was interrupted"), std::string::npos);
    EXPECT_FALSE(fs::exists(dir / "out/.tamrix-running"));
}

}  // namespace
}  // namespace tamrix
