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

TEST(ProfileSections, WritingAKeyKeepsTheRestOfTheFileByteForByte) {
    const std::string replaced =
        profile::text::WriteString(kProject, "Options", "CONTENTS FILE", "new.hhc");
    std::string expected = kProject;
    expected.replace(expected.find("Contents File=Table of Contents.hhc"),
                     std::string("Contents File=Table of Contents.hhc").size(),
                     "CONTENTS FILE=new.hhc");
    EXPECT_EQ(replaced, expected);

    const std::string added =
        profile::text::WriteString(kProject, "OPTIONS", "Default Topic", "html\\a.htm");
    EXPECT_NE(added.find("Index File = \"Index.hhk\"\r\nDefault Topic=html\\a.htm\r\n\r\n[FILES]"),
              std::string::npos);

    const std::string appended = profile::text::WriteString("[A]\r\nx=1", "B", "k", "v");
    EXPECT_EQ(appended, "[A]\r\nx=1\r\n[B]\r\nk=v\r\n");
}

TEST(ProfileSections, ReplacingAndDeletingSections) {
    const std::string cleared = profile::text::WriteSection(kProject, "FILES", "");
    EXPECT_NE(cleared.find("[FILES]\r\n\r\n[ALIAS]"), std::string::npos);
    EXPECT_EQ(cleared.find("a.htm\r\n\r\n"), std::string::npos);

    const std::string lines = std::string("#include x.h\0#include y.h\0", 26);
    const std::string replaced = profile::text::WriteSection(kProject, "files", lines);
    EXPECT_NE(replaced.find("[FILES]\r\n#include x.h\r\n#include y.h\r\n\r\n[ALIAS]"),
              std::string::npos);
    EXPECT_EQ(replaced.substr(0, 100), std::string(kProject).substr(0, 100));

    const std::string deleted = profile::text::DeleteSection(kProject, "ALIAS");
    EXPECT_EQ(deleted.find("[ALIAS]"), std::string::npos);
    EXPECT_EQ(deleted, std::string(kProject).substr(0, std::string(kProject).find("[ALIAS]")));

    const std::string appended =
        profile::text::WriteSection(deleted, "ALIAS", std::string("a=b\0", 4));
    EXPECT_EQ(appended, deleted + "[ALIAS]\r\na=b\r\n");
}

TEST(ProfileSections, InsertedLinesEndAsTheFilesOwnLinesDo) {
    using profile::text::WriteSection;
    using profile::text::WriteString;
    const std::string section("#include a.h\0", 13);
    struct Case {
        std::string written, expected;
    } const cases[] = {
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
