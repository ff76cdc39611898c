#include "platform/byte_text.h"

#include <gtest/gtest.h>

#include <random>

namespace tamrix {
namespace {

TEST(ByteText, FoldsAsciiAndWindows1252Letters) {
    EXPECT_TRUE(EqualsNoCase("HTML\\Dise\xD1os.HTM", "html\\dise\xF1os.htm"));
    EXPECT_TRUE(EqualsNoCase("\x8A\x8C\x8E\x9F", "\x9A\x9C\x9E\xFF"));
    // The multiplication sign and division sign are not letters.
    EXPECT_FALSE(EqualsNoCase("\xD7", "\xF7"));
    EXPECT_FALSE(EqualsNoCase("abc", "abcd"));
}

TEST(ByteText, FindsFromAPositionWithoutRegardToCase) {
    EXPECT_EQ(FindNoCase("<a href><A HREF>", "<a href", 1), 8u);
    EXPECT_EQ(FindNoCase("abc", "ABC", 0), 0u);
    EXPECT_EQ(FindNoCase("abc", "", 0), kNotFound);
    EXPECT_EQ(FindNoCase("abc", "c", 3), kNotFound);
    EXPECT_EQ(FindNoCase("abc", "abcd", 0), kNotFound);
    EXPECT_EQ(FindNoCase("abc", "b", 99), kNotFound);
    EXPECT_TRUE(StartsWithNoCase("#Include x", "#include"));
    EXPECT_FALSE(StartsWithNoCase("#inc", "#include"));
    EXPECT_TRUE(EndsWithNoCase("x.HTM", ".htm"));
}

// The searches skip ahead with memchr; they must find what a plain loop finds,
// across the windows they search in and with every spelling of a letter.
TEST(ByteText, SearchesAgreeWithAPlainLoop) {
    std::mt19937 random(20261124);
    const std::string letters = "aA\r\n<\xD1\xF1\x8A\x9A.";
    auto text = [&](std::size_t length) {
        std::string t(length, ' ');
        for (char& c : t) c = random() % 8 == 0 ? letters[random() % letters.size()] : 'x';
        return t;
    };
    for (int round = 0; round < 3000; ++round) {
        const std::string t = text(random() % 700);
        const std::size_t from = random() % (t.size() + 2);
        std::size_t lineBreak = std::string_view::npos;
        for (std::size_t i = from; i < t.size() && lineBreak == std::string_view::npos; ++i)
            if (t[i] == '\r' || t[i] == '\n') lineBreak = i;
        ASSERT_EQ(FindLineBreak(t, from), lineBreak) << round;

        const std::string needle = text(1 + random() % 3);
        std::size_t found = kNotFound;
        for (std::size_t i = from; i + needle.size() <= t.size() && found == kNotFound; ++i)
            if (EqualsNoCase(std::string_view(t).substr(i, needle.size()), needle)) found = i;
        ASSERT_EQ(FindNoCase(t, needle, from), found) << round;
    }
    EXPECT_EQ(Fold("AZ@[\xC0\xD7\xDE\xDF\x8A\x8C\x8E\x9F\xFF"),
              "az@[\xE0\xD7\xFE\xDF\x9A\x9C\x9E\xFF\xFF");
    // Long texts are folded by blocks and short ends one byte at a time: every
    // byte must fold the same both ways, and as the case-blind comparison sees it.
    std::string all;
    for (int c = 0; c < 256; ++c) all += static_cast<char>(c);
    const std::string folded = Fold(all);
    for (std::size_t i = 0; i < all.size(); ++i) {
        ASSERT_EQ(folded[i], Fold(all.substr(i, 1))[0]) << i;
        ASSERT_TRUE(EqualsNoCase(all.substr(i, 1), folded.substr(i, 1))) << i;
    }
}

TEST(ByteText, ReplaceAllNeverSearchesTheReplacementAgain) {
    EXPECT_EQ(ReplaceAll("a.htm A.HTM", "a.htm", "a.htm.htm"), "a.htm.htm a.htm.htm");
    EXPECT_EQ(ReplaceAll("<B>x</b>", "</B>", ""), "<B>x");
    EXPECT_EQ(ReplaceAll("aaa", "aa", "a"), "aa");
    EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(ReplaceAllExact("Aa", "a", "b"), "Ab");
}

TEST(ByteText, TrimsBlanksButNotTabs) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\ta\t"), "\ta\t");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(TrimLeft("  a "), "a ");
    EXPECT_EQ(TrimRight("  a "), "  a");
    EXPECT_EQ(TabsToSpaces("a\tb\t"), "a b ");
}

TEST(ByteText, SplitsLikeBasic) {
    EXPECT_TRUE(Split("", '^').empty());
    EXPECT_EQ(Split("a^", '^'), (std::vector<std::string>{"a", ""}));
    EXPECT_EQ(Split("a^b^c", '^'), (std::vector<std::string>{"a", "b", "c"}));
}

TEST(ByteText, ExtensionsLookOnlyAtTheLastComponent) {
    EXPECT_EQ(FileExtension("html\\a.HTM"), "HTM");
    EXPECT_EQ(FileExtension("dir.x\\name"), "");
    EXPECT_EQ(FileBaseName("c:\\maps\\ids.hh"), "ids");
}

TEST(ByteText, ConvertsBetweenWindows1252AndUtf8) {
    EXPECT_EQ(Cp1252ToUtf8("dise\xF1os"), "dise\xC3\xB1os");
    EXPECT_EQ(Cp1252ToUtf8("\x80"), "\xE2\x82\xAC");
    std::string back;
    ASSERT_TRUE(Utf8ToCp1252("dise\xC3\xB1os \xE2\x82\xAC", back));
    EXPECT_EQ(back, "dise\xF1os \x80");
    EXPECT_FALSE(Utf8ToCp1252("\xE4\xB8\xAD", back));  // not in the code page
    EXPECT_FALSE(Utf8ToCp1252("\xC3", back));          // cut short
}

}  // namespace
}  // namespace tamrix
