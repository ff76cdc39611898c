// Windows paths, names and attributes through the file-system service; built
// only for Windows.
#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "platform/file_system.h"
#include "platform/program_error.h"
#include "support/error_of.h"
#include "support/temp_dir.h"

namespace tamrix {
namespace {

using testing::ErrorOf;

TEST(WindowsPaths, DrivesAndSharesAreRoots) {
    FileSystem fs;
    const std::string drive = std::filesystem::current_path().string().substr(0, 2);
    const struct {
        const char* path;
        std::string absolute;
    } cases[] = {
        {"C:\\a\\b\\..\\c.htm", "C:/a/c.htm"},
        {"c:/a/./b/", "c:/a/b"},
        {"C:\\..\\..\\x.htm", "C:/x.htm"},
        {"C:\\", "C:/"},
        {"\\\\server\\share\\x\\..\\y.htm", "//server/share/y.htm"},
        {"\\\\server\\share\\..\\..", "//server/share/"},
        {"\\a\\b.htm", drive + "/a/b.htm"},  // the current drive
    };
    for (const auto& c : cases) EXPECT_EQ(fs.GetAbsolutePathName(c.path), c.absolute) << c.path;
}

TEST(WindowsNames, CaseCodePageAndLengthAreTheFileSystems) {
    testing::TempDir dir;
    FileSystem fs;
    fs.CreateFolder(dir / "New");
    fs.WriteAll(dir / "new\\a.htm", "A");
    fs.WriteAll(dir / "NEW\\A.HTM", "A2");  // the same file
    EXPECT_EQ(fs.ListFiles(dir / "new"), std::vector<std::string>{"a.htm"});
    EXPECT_EQ(fs.ReadAll(dir / "New/a.htm"), "A2");

    fs.WriteAll(dir / "new\\dise\xF1o.htm", "1252");  // Windows-1252 text
    EXPECT_TRUE(
        std::filesystem::exists(std::filesystem::path(dir.Path()) / L"new/dise\u00F1o.htm"));
    EXPECT_EQ(fs.ReadAll(dir / "NEW\\DISE\xD1O.HTM"), "1252");
    EXPECT_EQ(fs.ListFiles(dir / "new").back(), "dise\xF1o.htm");
}

TEST(WindowsNames, PathsLongerThanMaxPathWork) {
    // Wine's GetFinalPathNameByHandleW answers only up to MAX_PATH characters.
    if (::GetProcAddress(::GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr)
        GTEST_SKIP() << "Wine resolves no path longer than MAX_PATH";
    testing::TempDir dir;
    FileSystem fs;
    std::string deep = dir / "new";
    while (deep.size() < 300) {
        deep += "\\folder-with-a-long-name";
        fs.CreateFolder(deep);
    }
    fs.WriteAll(deep + "\\x.htm", "deep");
    EXPECT_EQ(fs.ReadAll(deep + "\\x.htm"), "deep");
}

TEST(WindowsWrites, DevicesAndReadOnlyFilesAreClearErrors) {
    testing::TempDir dir;
    FileSystem fs;
    fs.CreateFolder(dir / "new");
    fs.SetWriteRoot(dir / "new");
    for (const char* device : {"CON", "nul.txt", "Com1.htm", "LPT9", "aux.h", "PRN.log"}) {
        EXPECT_EQ(ErrorOf([&] { fs.WriteAll(dir / "new\\" + device, "x"); }),
                  err::kOutsideNewFolder)
            << device;
        ASSERT_FALSE(fs.RefusedWrites().empty());
        EXPECT_EQ(fs.RefusedWrites().back().reason, "its name is reserved for a device");
    }
    for (const char* name : {"console.htm", "com10.htm", "nully"})
        EXPECT_EQ(ErrorOf([&] { fs.WriteAll(dir / "new\\" + name, "x"); }), 0) << name;
    const std::string locked = dir / "new/locked.htm";
    fs.WriteAll(locked, "old");
    ASSERT_TRUE(::SetFileAttributesA(locked.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(ErrorOf([&] { fs.WriteAll(locked, "new"); }), err::kPermission);
    EXPECT_EQ(fs.ReadAll(locked), "old");
    ::SetFileAttributesA(locked.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(WindowsWrites, WritesStayInTheNewFolderWhateverTheCase) {
    testing::TempDir dir;
    dir.Write("in/t.hhp", "x");
    FileSystem fs;
    EXPECT_EQ(fs.ReadAll(dir / "IN\\T.HHP"), "x");
    fs.CreateFolder(dir / "out");
    fs.SetWriteRoot(dir / "OUT");
    fs.SetInputFolders({dir / "In"});
    EXPECT_TRUE(fs.SameEntry(dir / "in", dir / "IN\\"));
    EXPECT_EQ(ErrorOf([&] { fs.WriteAll(dir / "in\\x.htm", "x"); }), err::kOutsideNewFolder);
    for (const char* outside : {"OUT\\..\\evil.htm", "outer.htm", "out\\..\\in\\t.hhp"})
        EXPECT_EQ(ErrorOf([&] { fs.WriteAll(dir / outside, "x"); }), err::kOutsideNewFolder)
            << outside;
    EXPECT_FALSE(dir.Exists("evil.htm") || dir.Exists("outer.htm"));
    EXPECT_EQ(dir.Read("in/t.hhp"), "x");
    fs.WriteAll(dir / "out\\x.htm", "x");
    EXPECT_TRUE(fs.Written(dir / "Out/X.htm"));
}

}  // namespace
}  // namespace tamrix
