// A conversion reads its input only: a read-only copy of the sample converts to
// the same files as a writable one, and stays byte for byte and stamp for stamp
// as it was. Tests run as root, where permissions do not bite, so the conversion
// runs as an unprivileged user when one can be switched to.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "hostile/hostile_fixture.h"
#include "support/cli_run.h"
#include "support/temp_dir.h"

namespace tamrix {
namespace {

namespace fs = std::filesystem;

using testing::Quote;

// Runs tamrix-cli (through `prefix`, e.g. a user switch) and returns its exit status.
int Convert(const std::string& in, const std::string& out, const std::string& prefix = {}) {
    return testing::Shell("SOURCE_DATE_EPOCH=1299333420 " + prefix + Quote(TAMRIX_CLI_PATH) +
                          " convert " + Quote(in + "/TideClock.hhp") + " " +
                          Quote(out + "/TideClock.hhp") + " --hpj " + Quote(in + "/TideClock.hpj") +
                          " --popups --yes --quiet > " + Quote(out + ".txt") + " 2>&1");
}

void SetWritePermission(const std::string& root, fs::perm_options how) {
    const auto write = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    for (const auto& entry : fs::recursive_directory_iterator(root))
        fs::permissions(entry.path(), write, how);
    fs::permissions(root, write, how);
}

TEST(ReadOnlyInput, ConvertsToTheSameFilesAndLeavesTheInputAsItWas) {
    testing::TempDir dir;
    // The logs name the input and the new folder, so both runs use the same two.
    const std::string out = dir / "shared/out";
    fs::copy(std::string(TAMRIX_SOURCE_DIR) + "/samples/tideclock", dir / "in",
             fs::copy_options::recursive);
    fs::permissions(dir.Path(), fs::perms::owner_all | fs::perms::group_read |
                                    fs::perms::group_exec | fs::perms::others_read |
                                    fs::perms::others_exec);
    fs::create_directory(dir / "shared");
    fs::permissions(dir / "shared", fs::perms::all);  // the unprivileged user writes here
    ASSERT_EQ(Convert(dir / "in", out), 0) << dir.Read("shared/out.txt");
    const auto reference = testing::FilesUnder(out);
    EXPECT_GT(reference.size(), 40u);
    fs::rename(out, dir / "ref");
    SetWritePermission(dir / "in", fs::perm_options::remove);
    struct Restore {  // so that the folder can be removed
        std::string root;
        ~Restore() { SetWritePermission(root, fs::perm_options::add); }
    } restore{dir / "in"};
    const testing::Snapshot before = testing::TakeSnapshot(dir / "in");

    std::string user = "setpriv --reuid=65534 --regid=65534 --clear-groups ";
    if (::geteuid() != 0 || ::access("/usr/bin/setpriv", X_OK) != 0 ||
        testing::Shell(user + "test -x " + Quote(TAMRIX_CLI_PATH) + " -a -r " +
                       Quote(dir / "in/TideClock.hhp")) != 0)
        user.clear();  // as root the input stays writable in fact
    else               // Here a write into the input would fail.
        EXPECT_NE(testing::Shell(user + "touch " + Quote(dir / "in/probe") + " 2>/dev/null"), 0);
    ASSERT_EQ(Convert(dir / "in", out, user), 0) << dir.Read("shared/out.txt");
    EXPECT_EQ(testing::FilesUnder(out), reference);
    EXPECT_TRUE(testing::Differences(before, testing::TakeSnapshot(dir / "in")).empty());
    EXPECT_EQ(fs::status(dir / "in/TideClock.hhp").permissions() & fs::perms::owner_write,
              fs::perms::none);
}

}  // namespace
}  // namespace tamrix
