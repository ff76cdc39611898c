// A conversion reads its input only: a read-only copy of the sample converts to
// the same files as a writable one, and stays byte for byte and stamp for stamp
// as it was. Tests run as root, where permissions do not bite, so the check is
// also made as an unprivileged user when one can be switched to.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <map>

#include "hostile/hostile_fixture.h"
#include "support/temp_dir.h"

namespace tamrix {
namespace {

namespace fs = std::filesystem;

std::string Quote(const std::string& s) { return "'" + s + "'"; }

// Runs tamrix-cli (through `prefix`, e.g. a user switch) and returns its exit status.
int Convert(const std::string& in, const std::string& out, const std::string& prefix = {}) {
    const std::string command =
        "SOURCE_DATE_EPOCH=1299333420 " + prefix + Quote(TAMRIX_CLI_PATH) + " convert " +
        Quote(in + "/TideClock.hhp") + " " + Quote(out + "/TideClock.hhp") + " --hpj " +
        Quote(in + "/TideClock.hpj") + " --popups --yes --quiet > " + Quote(out + ".txt") + " 2>&1";
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::map<std::string, std::string> FilesUnder(const std::string& root) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(root))
        if (entry.is_regular_file())
            files[fs::relative(entry.path(), root).string()] =
                testing::ReadFileBytes(entry.path().string());
    return files;
}

void RemoveWritePermission(const std::string& root) {
    for (const auto& entry : fs::recursive_directory_iterator(root))
        fs::permissions(entry.path(),
                        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                        fs::perm_options::remove);
    fs::permissions(root, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);
}

class ReadOnlyInput : public ::testing::Test {
protected:
    // The logs name the input and the new folder, so every run uses the same two.
    void SetUp() override {
        fs::copy(std::string(TAMRIX_SOURCE_DIR) + "/samples/tideclock", dir / "in",
                 fs::copy_options::recursive);
        fs::permissions(dir.Path(), fs::perms::owner_all | fs::perms::group_read |
                                        fs::perms::group_exec | fs::perms::others_read |
                                        fs::perms::others_exec);
        fs::create_directory(dir / "shared");
        fs::permissions(dir / "shared", fs::perms::all);  // the unprivileged user writes here
        ASSERT_EQ(Convert(dir / "in", out), 0) << dir.Read("shared/out.txt");
        reference = FilesUnder(out);
        fs::rename(out, dir / "ref");
        RemoveWritePermission(dir / "in");
        before = testing::TakeSnapshot(dir / "in");
    }
    void TearDown() override {
        // Gives the owner its write permission back so the folder can be removed.
        fs::permissions(dir / "in", fs::perms::owner_all, fs::perm_options::add);
        for (const auto& entry : fs::recursive_directory_iterator(dir / "in"))
            fs::permissions(entry.path(), fs::perms::owner_write, fs::perm_options::add);
    }

    testing::TempDir dir;
    const std::string out = dir / "shared/out";
    std::map<std::string, std::string> reference;
    testing::Snapshot before;
};

TEST_F(ReadOnlyInput, ConvertsToTheSameFilesAndLeavesTheInputAsItWas) {
    ASSERT_EQ(Convert(dir / "in", out), 0) << dir.Read("shared/out.txt");
    EXPECT_GT(reference.size(), 40u);
    EXPECT_TRUE(FilesUnder(out) == reference);
    EXPECT_TRUE(testing::Differences(before, testing::TakeSnapshot(dir / "in")).empty());
    EXPECT_EQ(fs::status(dir / "in/TideClock.hhp").permissions() & fs::perms::owner_write,
              fs::perms::none);
}

TEST_F(ReadOnlyInput, ConvertsAsAnUnprivilegedUser) {
    if (::geteuid() != 0 || ::access("/usr/bin/setpriv", X_OK) != 0)
        GTEST_SKIP() << "needs root and setpriv to switch to user 65534";
    const std::string user = "setpriv --reuid=65534 --regid=65534 --clear-groups ";
    if (std::system((user + "test -x " + Quote(TAMRIX_CLI_PATH) + " -a -r " +
                     Quote(dir / "in/TideClock.hhp"))
                        .c_str()) != 0)
        GTEST_SKIP() << "user 65534 cannot reach " << TAMRIX_CLI_PATH << " or the input";
    // Here a write into the input would fail.
    EXPECT_NE(std::system((user + "touch " + Quote(dir / "in/probe") + " 2>/dev/null").c_str()), 0);
    ASSERT_EQ(Convert(dir / "in", out, user), 0) << dir.Read("shared/out.txt");
    EXPECT_TRUE(FilesUnder(out) == reference);
    EXPECT_TRUE(testing::Differences(before, testing::TakeSnapshot(dir / "in")).empty());
}

}  // namespace
}  // namespace tamrix
