#include "platform/text_buffer.h"

#include <gtest/gtest.h>

#include "support/temp_dir.h"

namespace tamrix {
namespace {

TEST(TextBuffer, FindIsCaseInsensitiveFromAPositionAndSelectsTheMatch) {
    TextBuffer b;
    b.SetText("<HEAD></head><Head>");
    EXPECT_EQ(b.Find("</HEAD>", 0), 6);
    EXPECT_EQ(b.SelStart(), 6);
    EXPECT_EQ(b.SelLength(), 7);
    EXPECT_EQ(b.Find("<head>", 1), 13);
    EXPECT_EQ(b.Find("missing", 0), -1);
    EXPECT_EQ(b.SelStart(), 13);  // unchanged by a failed find
    EXPECT_EQ(b.Find("", 0), -1);
    EXPECT_EQ(b.Find("<", 99), -1);
    EXPECT_EQ(b.Find("<", -1), -1);
}

TEST(TextBuffer, ReplaceSelectionPutsTheCaretAfterTheInsertedText) {
    TextBuffer b;
    b.SetText("see a.htm and A.HTM");
    long from = 0;
    int replaced = 0;
    while (b.Find("a.htm", from) >= 0) {
        b.ReplaceSel("a.htm.a.htm");  // the new text contains the old
        from = b.SelStart();
        ++replaced;
    }
    EXPECT_EQ(replaced, 2);
    EXPECT_EQ(b.Text(), "see a.htm.a.htm and a.htm.a.htm");
    b.SetSelStart(0);
    b.ReplaceSel("X");
    EXPECT_EQ(b.Text().substr(0, 5), "Xsee ");
    EXPECT_EQ(b.SelStart(), 1);
    EXPECT_EQ(b.SelLength(), 0);
}

TEST(TextBuffer, SelectionIsClampedAndSettingTheStartCollapsesIt) {
    TextBuffer b;
    b.SetText("abcdef");
    b.SetSelStart(2);
    b.SetSelLength(99);
    EXPECT_EQ(b.SelLength(), 4);
    EXPECT_EQ(b.SelText(), "cdef");
    b.SetSelStart(1);
    EXPECT_EQ(b.SelLength(), 0);
    b.SetSelStart(100);
    EXPECT_EQ(b.SelStart(), 6);
    b.SetSelStart(-5);
    EXPECT_EQ(b.SelStart(), 0);
}

TEST(TextBuffer, LoadsAndSavesBytesUnchanged) {
    testing::TempDir dir;
    const std::string bytes = std::string("a\r\nb\rc\n\xF1\0z", 11);
    dir.Write("in.htm", bytes);
    TextBuffer b;
    FileSystem fs;
    b.LoadFile(fs, dir / "in.htm");
    EXPECT_EQ(b.Text(), bytes);
    EXPECT_EQ(b.Find("\xD1", 0), 7);  // folded Windows-1252 letter
    b.SaveFile(fs, dir / "out.htm");
    EXPECT_EQ(dir.Read("out.htm"), bytes);
}

}  // namespace
}  // namespace tamrix
