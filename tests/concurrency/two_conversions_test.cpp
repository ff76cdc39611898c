// Two conversions at once in one process: each has its own project state, file
// system, error reports and view, so running them in two threads gives the same
// folders, byte for byte, as running them one after the other.
#include <gtest/gtest.h>

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

// The wizard driven as the command line drives it, without a WinHelp project
// when `hpj` is empty; the step it ended at.
int Convert(const std::string& hhp, const std::string& hpj, const std::string& out) {
    testing::ScriptedWizardView view;
    view.answersById[10011] = mb::kYes;  // create the missing folder
    Wizard wizard(view);
    wizard.Start();
    wizard.cmdNav_Click(kNavNext);
    wizard.controls.txtProjectName = hhp;
    wizard.cmdNav_Click(kNavNext);
    wizard.controls.txtWinhelpProjectName = hpj;
    wizard.cmdNav_Click(kNavNext);
    wizard.controls.txtRootPath = out + "/TideClock.hhp";
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

TEST(TwoConversions, InTwoThreadsWriteWhatTheyWriteOneAfterTheOther) {
    testing::SetEnvironment("SOURCE_DATE_EPOCH", "1299333420");  // set before any thread starts
    testing::TempDir dir;
    fs::copy(std::string(TAMRIX_SOURCE_DIR) + "/samples/tideclock", dir / "in",
             fs::copy_options::recursive);
    fs::create_directories(dir / "serial");
    fs::create_directories(dir / "parallel");
    const std::string hhp = dir / "in/TideClock.hhp", hpj = dir / "in/TideClock.hpj";
    EXPECT_EQ(Convert(hhp, hpj, dir / "serial/a"), 5);
    EXPECT_EQ(Convert(hhp, "", dir / "serial/b"), 5);
    int steps[2] = {0, 0};
    std::thread first([&] { steps[0] = Convert(hhp, hpj, dir / "parallel/a"); });
    std::thread second([&] { steps[1] = Convert(hhp, "", dir / "parallel/b"); });
    first.join();
    second.join();
    EXPECT_EQ(steps[0], 5);
    EXPECT_EQ(steps[1], 5);
    for (const char* name : {"a", "b"}) {
        SCOPED_TRACE(name);
        const auto serial = Folder(dir / (std::string("serial/") + name));
        EXPECT_GT(serial.size(), 10u);
        EXPECT_EQ(Folder(dir / (std::string("parallel/") + name)), serial);
    }
    EXPECT_NE(Folder(dir / "serial/a"), Folder(dir / "serial/b"));
    testing::ClearEnvironment("SOURCE_DATE_EPOCH");
}

}  // namespace
}  // namespace tamrix
