#include "platform/profile.h"

#include <gtest/gtest.h>

#include "support/temp_dir.h"

namespace tamrix {
namespace {

const char* const kProject =
    "[OPTIONS]\r\n"
    "Compatibility=1.1 or later\r\n"
    "Contents File=Table of Contents.hhc\r\n"
    "Index File = \"Index.hhk\"\r\n"
    "\r\n"
    "[FILES]\r\n"
    "; generated\r\n"
    "html\\a.htm\r\n"
    "\r\n"
    "   html\\b.htm   \r\n"
    "\r\n"
    "[ALIAS]\r\n"
    "IDH_A=html\\a.htm\r\n";

TEST(ProfileSections, ReadsTrimmedLinesJoinedWithNuls) {
    std::string out;
    const long n = profile::text::GetSection(kProject, "files", out);
    EXPECT_EQ(out, std::string("html\\a.htm\0html\\b.htm\0", 22));
    EXPECT_EQ(n, 22);
    EXPECT_EQ(profile::text::GetSection(kProject, "MISSING", out), 0);
    EXPECT_EQ(out, "");
}

TEST(ProfileSections, ALongSectionIsCutToTheBufferLessTwo) {
    std::string content = "[MAP]\r\n";
    for (int i = 0; i < 3000; ++i)
        content += "IDH_TOPIC_" + std::to_string(i) + "=" + std::to_string(i) + "\r\n";
    std::string out;
    EXPECT_EQ(profile::text::GetSection(content, "MAP", out), 32763);
    EXPECT_EQ(out.size(), 32763u);
    // A section that just fits is returned whole.
    std::string small;
    EXPECT_EQ(profile::text::GetSection("[S]\r\nabc\r\n", "S", small, 5), 4);
    EXPECT_EQ(profile::text::GetSection("[S]\r\nabcd\r\n", "S", small, 5), 3);
}

// A written key or section changes only itself; the rest of the file stays byte
// for byte, and inserted lines end as the file's own lines do.
TEST(ProfileSections, WritesKeepTheRestOfTheFileAndItsLineEnds) {
    using profile::text::WriteSection;
    using profile::text::WriteString;
    const std::string project = kProject;
    const auto with = [&](const std::string& from, const std::string& to) {
        return project.substr(0, project.find(from)) + to +
               project.substr(project.find(from) + from.size());
    };
    const std::string files =
        "[FILES]\r\n; generated\r\nhtml\\a.htm\r\n\r\n   html\\b.htm   \r\n\r\n";
    const std::string deleted = project.substr(0, project.find("[ALIAS]"));
    const std::string section("#include a.h\0", 13);
    struct Case {
        std::string written, expected;
    } const cases[] = {
        {WriteString(project, "Options", "CONTENTS FILE", "new.hhc"),
         with("Contents File=Table of Contents.hhc", "CONTENTS FILE=new.hhc")},
        {WriteString(project, "OPTIONS", "Default Topic", "html\\a.htm"),
         with("\r\n\r\n[FILES]", "\r\nDefault Topic=html\\a.htm\r\n\r\n[FILES]")},
        {WriteString("[A]\r\nx=1", "B", "k", "v"), "[A]\r\nx=1\r\n[B]\r\nk=v\r\n"},
        {WriteSection(project, "FILES", ""), with(files, "[FILES]\r\n\r\n")},
        {WriteSection(project, "files", std::string("#include x.h\0#include y.h\0", 26)),
         with(files, "[FILES]\r\n#include x.h\r\n#include y.h\r\n\r\n")},
        {profile::text::DeleteSection(project, "ALIAS"), deleted},
        {WriteSection(deleted, "ALIAS", std::string("a=b\0", 4)), deleted + "[ALIAS]\r\na=b\r\n"},
        {WriteString("[OPTIONS]\nTitle=x\n\n[FILES]\n", "OPTIONS", "Default topic", "a.htm"),
         "[OPTIONS]\nTitle=x\nDefault topic=a.htm\n\n[FILES]\n"},
        {WriteString("[FILES]\na.htm", "OPTIONS", "Title", "x"),
         "[FILES]\na.htm\n[OPTIONS]\nTitle=x\n"},
        {WriteSection("[OPTIONS]\rTitle=x\r[MAP]\rold\r", "MAP", section),
         "[OPTIONS]\rTitle=x\r[MAP]\r#include a.h\r"},
        {WriteSection("[FILES]\na.htm\n", "MAP", section), "[FILES]\na.htm\n[MAP]\n#include a.h\n"},
        {WriteSection("", "MAP", section), "[MAP]\r\n#include a.h\r\n"}};
    for (const Case& c : cases) EXPECT_EQ(c.written, c.expected);
}

// The file functions read and write through the text ones; what they add is the
// file: a missing one reads as the default and is created on write.
TEST(ProfileSections, ReadsAndWritesFilesWithDefaultsAndQuotesRemoved) {
    testing::TempDir dir;
    FileSystem fs;
    const std::string file = dir.Write("p.hhp", kProject);
    std::string out;
    profile::GetString(fs, file, "OPTIONS", "contents file", "!!!!", out);
    EXPECT_EQ(out, "Table of Contents.hhc");
    profile::GetString(fs, file, "options", "Index File", "!!!!", out);
    EXPECT_EQ(out, "Index.hhk");
    profile::GetString(fs, file, "OPTIONS", "Default Topic", "!!!!", out);
    EXPECT_EQ(out, "!!!!");
    profile::GetString(fs, dir / "missing.hhp", "OPTIONS", "x", "dflt", out);
    EXPECT_EQ(out, "dflt");
    EXPECT_EQ(profile::GetString(fs, file, "OPTIONS", "Contents File", "", out, 6), 5);
    EXPECT_EQ(out, "Table");
    EXPECT_EQ(profile::WriteString(fs, file, "OPTIONS", "Default Topic", "html\\a.htm"), 1);
    profile::GetString(fs, file, "OPTIONS", "Default topic", "", out);
    EXPECT_EQ(out, "html\\a.htm");
    EXPECT_EQ(profile::DeleteSection(fs, file, "FILES"), 1);
    EXPECT_EQ(profile::GetSection(fs, file, "FILES", out), 0);
    EXPECT_EQ(profile::WriteSection(fs, dir / "new.hhp", "MAP", std::string("#include a.h\0", 13)),
              1);
    EXPECT_EQ(dir.Read("new.hhp"), "[MAP]\r\n#include a.h\r\n");
    EXPECT_EQ(profile::WriteString(fs, dir / "no/such/folder/x.hhp", "A", "b", "c"), 0);
}

}  // namespace
}  // namespace tamrix
