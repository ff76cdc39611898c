// Two conversions at once in one process: each has its own project state, file
// system, error reports and view, so running them in two threads gives the same
// folders, byte for byte, as running them one after the other.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <thread>

#include "support/environment.h"
#include "support/scripted_wizard_view.h"
#include "support/temp_dir.h"
#include "wizard/wizard.h"

namespace tamrix {
namespace {

namespace fs = std::filesystem;

struct Job {
    std::string hhp;
    std::string hpj;  // empty: no WinHelp project
    std::string out;
};

// The wizard driven as the command line drives it; the step it ended at.
int Convert(const Job& job) {
    testing::ScriptedWizardView view;
    view.answersById[10011] = mb::kYes;  // create the missing folder
    Wizard wizard(view);
    wizard.Start();
    wizard.cmdNav_Click(kNavNext);
    wizard.controls.txtProjectName = job.hhp;
    wizard.cmdNav_Click(kNavNext);
    wizard.controls.txtWinhelpProjectName = job.hpj;
    wizard.cmdNav_Click(kNavNext);
    wizard.controls.txtRootPath = job.out + "/TideClock.hhp";
    wizard.cmdNav_Click(kNavNext);
    wizard.controls.optYesPopups = true;
    wizard.controls.optNoPopups = false;
    wizard.cmdNav_Click(kNavNext);
    return wizard.CurrentStep();
}

// Every file under `root` by its relative path, with its bytes; the logs name
// the folder, which is written as "ROOT".
std::map<std::string, std::string> Folder(const fs::path& root) {
    auto files = testing::FilesUnder(root.string());
    const std::string name = root.string();
    for (auto& [path, bytes] : files)
        for (std::size_t at = bytes.find(name); at != std::string::npos; at = bytes.find(name, at))
            bytes.replace(at, name.size(), "ROOT");
    return files;
}

// The names of the files that differ between two folders.
std::string Differences(const std::map<std::string, std::string>& a,
                        const std::map<std::string, std::string>& b) {
    std::string names;
    for (const auto& [name, bytes] : a)
        if (auto it = b.find(name); it == b.end() || it->second != bytes) names += name + " ";
    for (const auto& [name, bytes] : b)
        if (a.count(name) == 0) names += name + " ";
    return names;
}

TEST(TwoConversions, InTwoThreadsWriteWhatTheyWriteOneAfterTheOther) {
    testing::SetEnvironment("SOURCE_DATE_EPOCH", "1299333420");  // set before any thread starts
    testing::TempDir dir;
    fs::copy(std::string(TAMRIX_SOURCE_DIR) + "/samples/tideclock", dir / "in",
             fs::copy_options::recursive);
    fs::create_directories(dir / "serial");
    fs::create_directories(dir / "parallel");
    const std::string hhp = dir / "in/TideClock.hhp";
    const Job jobs[] = {{hhp, dir / "in/TideClock.hpj", dir / "serial/a"},
                        {hhp, "", dir / "serial/b"},
                        {hhp, dir / "in/TideClock.hpj", dir / "parallel/a"},
                        {hhp, "", dir / "parallel/b"}};
    EXPECT_EQ(Convert(jobs[0]), 5);
    EXPECT_EQ(Convert(jobs[1]), 5);
    int steps[2] = {0, 0};
    std::thread first([&] { steps[0] = Convert(jobs[2]); });
    std::thread second([&] { steps[1] = Convert(jobs[3]); });
    first.join();
    second.join();
    EXPECT_EQ(steps[0], 5);
    EXPECT_EQ(steps[1], 5);
    for (const char* name : {"a", "b"}) {
        SCOPED_TRACE(name);
        const auto serial = Folder(dir / (std::string("serial/") + name));
        EXPECT_GT(serial.size(), 10u);
        EXPECT_EQ(Differences(Folder(dir / (std::string("parallel/") + name)), serial), "");
    }
    EXPECT_NE(Differences(Folder(dir / "serial/a"), Folder(dir / "serial/b")), "");
    testing::ClearEnvironment("SOURCE_DATE_EPOCH");
}

}  // namespace
}  // namespace tamrix
