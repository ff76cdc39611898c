#include "platform/file_system.h"

#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <filesystem>
#include <random>
#include <thread>

#include "platform/byte_text.h"
#include "platform/path_helpers.h"
#include "platform/program_error.h"
#include "support/error_of.h"
#include "support/scripted_view.h"
#include "support/temp_dir.h"

namespace tamrix {
namespace {

using testing::ErrorOf;

// Names that exist only in another case or spelling, on a file system that tells
// them apart; native_files_windows_test covers Windows paths.
#ifdef _WIN32
#define SKIP_ON_WINDOWS(why) GTEST_SKIP() << why
#else
#define SKIP_ON_WINDOWS(why)
#endif

TEST(FileSystemNames, WindowsNamesAreFoundOnDisk) {
    SKIP_ON_WINDOWS("Windows itself finds names without regard to case");
    testing::TempDir dir;
    dir.Write("Proj/HTML/Afxc0085.htm", "x");
    dir.Write("Proj/html2/dise\xC3\xB1os.htm", "utf8 name");  // as a Linux checkout stores it
    FileSystem fs;
    EXPECT_TRUE(fs.FileExists(dir / "Proj\\html\\afxc0085.HTM"));
    EXPECT_EQ(fs.DiskPath(dir / "Proj\\html\\afxc0085.HTM"), dir / "Proj/HTML/Afxc0085.htm");
    EXPECT_TRUE(fs.FileExists(dir / "Proj\\html2\\dise\xF1os.htm"));  // Windows-1252 text
    EXPECT_TRUE(fs.FileExists(dir / "Proj/HTML2/DISE\xD1OS.HTM"));
    EXPECT_EQ(fs.ReadAll(dir / "Proj\\html2\\dise\xF1os.htm"), "utf8 name");
    EXPECT_FALSE(fs.FileExists(dir / "Proj\\html\\missing.htm"));
    EXPECT_FALSE(fs.FileExists(dir / "Proj\\html"));  // a folder is not a file
    EXPECT_TRUE(fs.FolderExists(dir / "proj\\Html\\"));
    EXPECT_FALSE(fs.FileExists(""));
    // The part that does not exist is kept as written.
    EXPECT_EQ(fs.DiskPath(dir / "proj\\New\\x.htm"), dir / "Proj/New/x.htm");
}

TEST(FileSystemNames, AbsolutePathsResolveParentStepsTextually) {
    SKIP_ON_WINDOWS("Windows paths start with a drive; native_files_windows_test covers them");
    FileSystem fs;
    EXPECT_EQ(fs.GetAbsolutePathName("/a/b/../c/./d.htm"), "/a/c/d.htm");
    EXPECT_EQ(fs.GetAbsolutePathName("/a/b\\..\\..\\..\\x.htm"), "/x.htm");
    EXPECT_EQ(fs.GetAbsolutePathName("/a/b/"), "/a/b");
    EXPECT_EQ(fs.GetAbsolutePathName("/a/new/\\html\\\\x.htm"), "/a/new/html/x.htm");
    EXPECT_EQ(fs.GetAbsolutePathName("/a/b/../.."), "/");
    EXPECT_EQ(fs.GetAbsolutePathName("x\\y.htm"),
              std::filesystem::current_path().string() + "/x/y.htm");
    EXPECT_EQ(fs.BuildPath("/a", "b.htm"), "/a/b.htm");
    EXPECT_EQ(fs.BuildPath("/a/", "b.htm"), "/a/b.htm");
    EXPECT_EQ(fs.BuildPath("/a\\", "\\b.htm"), "/a\\b.htm");
    EXPECT_EQ(modUtilities::MakeFullPathforFile("/p/old/", "html\\..\\..\\x.htm"), "/p/x.htm");
}

TEST(FileSystemText, ReadsLinesEndingInCrLfLfOrCr) {
    const auto lines = [](const std::string& text) {
        TextReader reader;
        reader.OpenText(text);
        std::vector<std::string> found;
        for (std::string line; reader.ReadLine(line);) found.push_back(line);
        EXPECT_TRUE(reader.AtEnd());
        return found;
    };
    EXPECT_EQ(lines("a\r\nb\nc\rd\r\n\r\ne"),
              (std::vector<std::string>{"a", "b", "c", "d", "", "e"}));
    EXPECT_TRUE(lines("").empty());
    EXPECT_EQ(lines("x\r\n"), std::vector<std::string>{"x"});
}

// Skipping to the line that holds a word reads the same lines, in the same
// place, as reading line by line and looking in each.
TEST(FileSystemText, SkippingToALineWithAWordMatchesReadingEveryLine) {
    std::mt19937 random(20261124);
    const std::string pieces[] = {"<a", "<A b", "x", "\r\n", "\n", "\r", "<", "a"};
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        for (auto i = random() % 20; i > 0; --i) text += pieces[random() % 8];
        TextReader skipping;
        TextReader reading;
        skipping.OpenView(text);
        reading.OpenText(text);
        for (int step = 0; step < 4; ++step) {
            std::string expected;
            std::size_t at = kNotFound;
            while (at == kNotFound && reading.ReadLine(expected)) at = FindNoCase(expected, "<a");
            std::string line = "stale";
            ASSERT_EQ(skipping.ReadLineWith(line, "<A"), at) << round;
            ASSERT_EQ(line, at == kNotFound ? "" : expected) << round;
            ASSERT_EQ(skipping.AtEnd(), reading.AtEnd()) << round;
        }
    }
}

TEST(FileSystemText, BadInputGivesAnErrorNumberNotACrash) {
    testing::TempDir dir;
    FileSystem fs;
    EXPECT_EQ(ErrorOf([&] { fs.ReadAll(dir / "missing.htm"); }), err::kFileNotFound);
    EXPECT_EQ(ErrorOf([&] { fs.ReadAll(dir.Path()); }), err::kPathFileAccess);
    const std::string big(10 * 1024 * 1024, 'x');
    dir.Write("big.htm", big + std::string("\0\r\n", 3));
    TextReader reader(fs, dir / "big.htm");
    std::string line;
    ASSERT_TRUE(reader.ReadLine(line));
    EXPECT_EQ(line.size(), big.size() + 1);
#ifndef _WIN32               // no mode bits there: native_files_windows_test locks a file instead
    if (::geteuid() != 0) {  // root reads everything
        const std::string locked = dir.Write("locked.htm", "x");
        ::chmod(locked.c_str(), 0);
        EXPECT_EQ(ErrorOf([&] { fs.ReadAll(locked); }), err::kPermission);
    }
#endif
}

// Kept input reads serve one later read of the same file, however its path is
// spelled, and only what was read before writing began.
TEST(FileSystemText, KeptInputReadsAreTakenOnce) {
    testing::TempDir dir;
    FileSystem fs;
    dir.Write("in/a.htm", "A1");
    dir.Write("in/b.htm", "B1");
    fs.KeepInputReads(true);
    EXPECT_EQ(fs.ReadAll(dir / "in\\a.htm"), "A1");
    fs.SetWriteRoot(dir / "out");
    EXPECT_EQ(fs.ReadAll(dir / "in/b.htm"), "B1");  // read while writing: not kept
    dir.Write("in/a.htm", "A2");
    dir.Write("in/b.htm", "B2");
    EXPECT_EQ(fs.ReadAll(dir / "in/./a.htm"), "A1");
    EXPECT_EQ(fs.ReadAll(dir / "in/a.htm"), "A2");
    EXPECT_EQ(fs.ReadAll(dir / "in/b.htm"), "B2");
    // Turned off, or at the end of a run, nothing kept is served.
    fs.SetWriteRoot({});
    EXPECT_EQ(fs.ReadAll(dir / "in/a.htm"), "A2");
    dir.Write("in/a.htm", "A3");
    fs.KeepInputReads(false);
    EXPECT_EQ(fs.ReadAll(dir / "in/a.htm"), "A3");
    fs.KeepInputReads(true);
    EXPECT_EQ(fs.ReadAll(dir / "in/a.htm"), "A3");
    dir.Write("in/a.htm", "A4");
    fs.SetWriteRoot({});
    EXPECT_EQ(fs.ReadAll(dir / "in/a.htm"), "A4");
}

TEST(FileSystemWrites, WritesAtomicallyAndListsFolders) {
    testing::TempDir dir;
    FileSystem fs;
    fs.CreateFolder(dir / "new");
    fs.CreateFolder(dir / "new");  // existing: no error
    fs.WriteAll(dir / "new\\b.htm", "B");
    fs.WriteAll(dir / "new\\a.htm", "A");
    fs.CopyFile(dir / "new\\a.htm", dir / "new\\c.htm");
    fs.CreateFolder(dir / "new\\sub");
    EXPECT_EQ(fs.ListFiles(dir / "new"), (std::vector<std::string>{"a.htm", "b.htm", "c.htm"}));
    EXPECT_EQ(dir.Read("new/c.htm"), "A");
    // A copy of a file this run wrote keeps its content when the file is replaced,
    // and a file kept in memory is read as last written.
    fs.WriteAll(dir / "new\\k.htm", "K1", FileSystem::Keep::kForReading);
    fs.CopyFile(dir / "new\\k.htm", dir / "new\\k-copy.htm");
    fs.WriteAll(dir / "new\\k.htm", "K2");
    EXPECT_EQ(fs.ReadAll(dir / "new\\K.htm"), "K2");
    EXPECT_EQ(dir.Read("new/k-copy.htm"), "K1");
    fs.RemoveFile(dir / "new\\k.htm");
    fs.RemoveFile(dir / "new\\k-copy.htm");
    // Overwriting an existing file with another case writes that file.
    fs.WriteAll(dir / "new\\A.HTM", "A2");
    EXPECT_EQ(dir.Read("new/a.htm"), "A2");
    EXPECT_EQ(ErrorOf([&] { fs.ListFiles(dir / "none"); }), err::kPathNotFound);
    EXPECT_EQ(ErrorOf([&] { fs.WriteAll(dir / "none\\x.htm", "x"); }), err::kPathNotFound);
    EXPECT_EQ(ErrorOf([&] { fs.WriteAll(dir / "new\\sub", "x"); }), err::kPathFileAccess);
    for (const auto& entry : std::filesystem::directory_iterator(dir / "new"))
        EXPECT_EQ(entry.path().filename().string().rfind(".tamrix-", 0), std::string::npos);
}

// Writes handed to the second thread are seen by every later call as if done at
// once, in the order they were made; a write that fails there is told once.
TEST(FileSystemWrites, QueuedWritesAreSeenInOrderAndTheirFailuresTold) {
    if (std::thread::hardware_concurrency() < 2) GTEST_SKIP() << "one core: writes are not queued";
    testing::TempDir dir;
    FileSystem fs;
    fs.CreateFolder(dir / "new");
    const std::string large(std::size_t{1} << 20, 'x');
    {
        FileSystem::QueuedWrites queued(fs);
        for (int i = 0; i < 300; ++i)
            fs.WriteAll(dir / ("new\\t" + std::to_string(i) + ".htm"), std::to_string(i));
        EXPECT_EQ(fs.ReadAll(dir / "new\\T299.htm"), "299");
        // Written again at once: the second, large writes fill the queue, so one finds
        // it full while the first write of its file still waits in it.
        for (int i = 0; i < 10; ++i) {
            const std::string name = dir / ("new\\twice" + std::to_string(i) + ".htm");
            fs.WriteAll(name, "first");
            fs.WriteAll(name, large + std::to_string(i));
        }
        fs.CreateFolder(dir / "new\\NoPopups");
        fs.WriteAll(dir / "new\\k.htm", "K1", FileSystem::Keep::kForReading);
        fs.ReplaceKeepingOld(dir / "new\\k.htm", dir / "new\\NoPopups\\k.htm", "K2");
        fs.CopyFile(dir / "new\\t1.htm", dir / "new\\copy.htm");
        fs.WriteAll(dir / "new\\t1.htm", "one");  // after the copy was queued
        EXPECT_TRUE(fs.FileExists(dir / "new\\copy.htm"));
        queued.Finish();
    }
    EXPECT_EQ(fs.ListFiles(dir / "new").size(), 312u);
    EXPECT_EQ(dir.Read("new/t150.htm"), "150");
    for (int i = 0; i < 10; ++i)
        ASSERT_EQ(dir.Read("new/twice" + std::to_string(i) + ".htm"), large + std::to_string(i));
    EXPECT_EQ(dir.Read("new/k.htm"), "K2");
    EXPECT_EQ(dir.Read("new/NoPopups/k.htm"), "K1");
    EXPECT_EQ(dir.Read("new/copy.htm"), "1");
    EXPECT_EQ(dir.Read("new/t1.htm"), "one");

    // The folder goes behind the service's back, so the queued writes fail. The
    // thread may fail one before the call that queued it returns, which then raises it.
    std::filesystem::remove_all(dir / "new");
    EXPECT_EQ(ErrorOf([&] {
                  FileSystem::QueuedWrites queued(fs);
                  fs.WriteAll(dir / "new\\late.htm", "x");
                  queued.Finish();
              }),
              err::kPathNotFound);
    const int early = ErrorOf([&] {
        FileSystem::QueuedWrites queued(fs);
        fs.WriteAll(dir / "new\\later.htm", "x");
    });  // not finished: else the next call that waits raises it
    const int late = ErrorOf([&] { fs.FileExists(dir / "new\\later.htm"); });
    EXPECT_EQ(early == 0 ? late : early, err::kPathNotFound);
    EXPECT_TRUE(early == 0 || late == 0);  // told once
    EXPECT_FALSE(fs.FileExists(dir / "new\\later.htm"));
    // Ending the run never raises what a failed loop left behind.
    ErrorOf([&] {
        FileSystem::QueuedWrites queued(fs);
        fs.WriteAll(dir / "new\\last.htm", "x");
    });
    EXPECT_EQ(ErrorOf([&] { fs.SetWriteRoot({}); }), 0);
}

// A held file is read and counted as written at once, and reaches the disk with
// the content it was given as soon as anything could see it there missing.
TEST(FileSystemWrites, HeldFilesReachTheDiskWhenReplacedOrSeen) {
    using Keep = FileSystem::Keep;
    testing::TempDir dir;
    FileSystem fs;
    fs.SetWriteRoot(dir / "new");
    fs.CreateFolder(dir / "new");
    fs.CreateFolder(dir / "new\\NoPopups");
    fs.WriteAll(dir / "new\\first.htm", "F");  // the folder is met before holding
    const auto held = [&](const char* name, const char* text) {
        fs.WriteAll(dir / (std::string("new\\") + name), text, Keep::kHeld);
        EXPECT_FALSE(dir.Exists(std::string("new/") + name)) << name;
    };
    {
        FileSystem::QueuedWrites queued(fs);
        held("a.htm", "A1");
        EXPECT_EQ(fs.ReadAll(dir / "new\\A.htm"), "A1");
        EXPECT_TRUE(fs.Written(dir / "new\\a.htm"));
        fs.ReplaceKeepingOld(dir / "new\\a.htm", dir / "new\\NoPopups\\a.htm", "A2");
        held("b.htm", "B1");
        EXPECT_TRUE(fs.FileExists(dir / "new\\B.htm"));
        held("c.htm", "C1");
        fs.CopyFile(dir / "new\\c.htm", dir / "new\\c-copy.htm");
        held("d.htm", "D1");
        fs.WriteAll(dir / "new\\d.htm", "D2");  // replaced before it was ever written
        held("e.htm", "E1");
        EXPECT_FALSE(fs.FileExists(dir / "elsewhere.htm"));  // does not write it
        EXPECT_FALSE(dir.Exists("new/e.htm"));
        EXPECT_EQ(fs.ListFiles(dir / "new").size(), 7u);
        held("f.htm", "F1");
        fs.WriteHeld();
        queued.Finish();
    }
    held("g.htm", "G1");
    fs.SetWriteRoot({});  // a run that ends writes what is left
    const std::vector<std::pair<const char*, const char*>> expected = {
        {"a.htm", "A2"}, {"NoPopups/a.htm", "A1"}, {"b.htm", "B1"},
        {"c.htm", "C1"}, {"c-copy.htm", "C1"},     {"d.htm", "D2"},
        {"e.htm", "E1"}, {"f.htm", "F1"},          {"g.htm", "G1"}};
    for (const auto& [name, text] : expected)
        EXPECT_EQ(dir.Read(std::string("new/") + name), text) << name;
}

// Nothing is written outside the write root, and the input project's folder tree
// is refused by what a path resolves to, not by how it is spelled; a new folder
// strictly inside it is the one place to write.
TEST(FileSystemWrites, OutsideTheWriteRootAndTheInputFoldersNothingIsWritten) {
    SKIP_ON_WINDOWS("creating symbolic links needs a privilege there");
    testing::TempDir dir;
    dir.Write("in/t.hhp", "x");
    dir.Write("in/new/old.htm", "input");  // read before the write root is set
    dir.Write("hpj/t.hpj", "x");
    std::filesystem::create_directory_symlink(dir / "in", dir / "alias");
    std::filesystem::create_directory_symlink(dir / "elsewhere", dir / "in/new/dangling");
    struct Case {
        std::string root;  // the write root, relative to dir
        std::string path;  // what is written
        bool folder;
        bool refused;
    };
    const std::vector<Case> cases = {
        {"alias", "alias/x.htm", false, true},     // the input folder under another name
        {"in/./", "in/x.htm", false, true},        // ... or spelled another way
        {"", "in/y.htm", false, true},             // no write root: still the input
        {"", "hpj/y.h", false, true},              // the WinHelp project's folder too
        {"in", "in/html", true, true},             // the input folder chosen as the new one
        {"in/new", "in/new/a.htm", false, false},  // a new folder inside the input
        {"in/new", "in/new/sub", true, false},
        {"alias/new", "alias/new/b.htm", false, false},
        {"in/new", "in/new/old.htm", false, true},         // an input file is never replaced
        {"in/new", "in/new/dangling/x.htm", false, true},  // cannot be resolved
        {"in/new", "in/z.htm", false, true},
        {"out", "out/a.htm", false, false},
        {"out", "out\\..\\evil.htm", false, true},
        {"out", "outer.htm", false, true},  // the root's name is a prefix of it
        {"out", "other", true, true},
        {"out", "out\\link\\evil.htm", false, true},  // a link out of the root
    };
    FileSystem fs;
    std::filesystem::create_directory(dir / "out");
    std::filesystem::create_directory_symlink(dir.Path(), dir / "out/link");
    for (const Case& c : cases) {
        SCOPED_TRACE(c.path);
        fs.SetWriteRoot({});  // the scan, then the write
        EXPECT_EQ(fs.ReadAll(dir / "in/new/old.htm"), "input");
        fs.SetWriteRoot(c.root.empty() ? std::string() : dir / c.root);
        fs.SetInputFolders({dir / "in", dir / "hpj/"});
        const int error = ErrorOf([&] {
            if (c.folder)
                fs.CreateFolder(dir / c.path);
            else
                fs.WriteAll(dir / c.path, "new");
        });
        EXPECT_EQ(error, c.refused ? err::kOutsideNewFolder : 0);
        ASSERT_EQ(fs.RefusedWrites().size(), c.refused ? 1u : 0u);
        if (c.refused) {
            const std::string name = c.path.substr(c.path.find_last_of("/\\") + 1);
            EXPECT_NE(fs.RefusedWrites()[0].path.find(name), std::string::npos);
        } else {
            EXPECT_TRUE(fs.Written(dir / c.path));
        }
    }
    EXPECT_EQ(dir.Read("in/new/old.htm"), "input");
    EXPECT_FALSE(dir.Exists("in/x.htm") || dir.Exists("in/y.htm") || dir.Exists("hpj/y.h") ||
                 dir.Exists("elsewhere") || dir.Exists("in/html") || dir.Exists("evil.htm") ||
                 dir.Exists("outer.htm") || dir.Exists("other"));
    EXPECT_TRUE(fs.SameEntry(dir / "alias/", dir / "in/./new/.."));
    EXPECT_FALSE(fs.SameEntry(dir / "in", dir / "out"));
    EXPECT_FALSE(fs.SameEntry(dir / "none", dir / "in"));
}

TEST(PathHelpers, SplitNamesTheWayProjectFilesWriteThem) {
    using namespace modUtilities;
    EXPECT_EQ(FileNameNoPath("html\\a/b.htm"), "a/b.htm");
    EXPECT_EQ(FileNameNoPath("html/b.htm"), "b.htm");
    EXPECT_EQ(FileNameNoPath("b.htm"), "b.htm");
    EXPECT_EQ(FileNameNoPath(""), "");
    EXPECT_EQ(FilePathOnly("c:\\help\\x.hhp"), "c:\\help\\");
    EXPECT_EQ(FilePathOnly("/tmp/x.hhp"), "/tmp/");
    EXPECT_EQ(FilePathOnly("x.hhp"), "");
    EXPECT_EQ(AddBackslash("c:\\help"), "c:\\help\\");
    EXPECT_EQ(AddBackslash("c:\\help\\"), "c:\\help\\");
    EXPECT_EQ(AddBackslash(""), "");
    EXPECT_TRUE(IsTheSamePath("C:\\Help\\", "c:\\help"));
    EXPECT_FALSE(IsTheSamePath("C:\\Help", "C:\\Help\\Sub"));
    EXPECT_TRUE(IsTheSamePath("/tmp/Out/", "/tmp/out"));
}

TEST(PathHelpers, CreateFolderOnAnExistingFolderCreatesNothing) {
    testing::TempDir dir;
    testing::ScriptedView view;
    FileSystem fs;
    ErrorReporter errors{view};
    EXPECT_TRUE(modUtilities::CreateFolder(fs, errors, dir.Path(), "sub"));
    EXPECT_TRUE(modUtilities::CreateFolder(fs, errors, dir.Path() + "/", "sub"));
    EXPECT_TRUE(modUtilities::FolderExists(fs, dir / "sub"));
    EXPECT_FALSE(modUtilities::CreateFolder(fs, errors, dir / "a/b/c", "d"));  // one level only
    ASSERT_EQ(view.errors.size(), 1u);
    EXPECT_EQ(view.errors[0].first.rfind("modUtilities:CreateFolder\r\nError: ", 0), 0u);
    EXPECT_FALSE(modUtilities::FileExists(fs, ""));
}

}  // namespace
}  // namespace tamrix
