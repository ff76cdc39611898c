#include "gui/rtf_reader.h"

#include <gtest/gtest.h>

#include <QTextBlock>
#include <QTextDocument>
#include <random>
#include <string>

#include "gui/gui_test_helpers.h"

namespace tamrix::gui {
namespace {

using testing::BlockText;
using testing::FormatAt;
using testing::U;

TEST(RtfReader, ReadsTheTextOfEachConstructAndSurvivesMalformedInput) {
    const struct {
        const char* name;
        std::string rtf;
        QString text;
    } cases[] = {
        {"paragraphs", R"({\rtf1\ansi Hello\par World})", "Hello\nWorld"},
        {"pard keeps the paragraph", R"({\rtf1 a\pard b\par\pard c})", "ab\nc"},
        {"escaped characters", R"({\rtf1 a\\b\{c\}})", "a\\b{c}"},
        {"hex characters are code page 1252", R"({\rtf1 caf\'e9 \'80\'96\'93})", U("café €–“")},
        {"delimiting space is eaten", R"({\rtf1\b  two})", " two"},
        {"unicode with one fallback", R"({\rtf1 \u937?x})", U("Ωx")},
        {"unicode with two fallbacks", R"({\rtf1\uc2 \u8364\'80\'80y})", U("€y")},
        {"no fallback", R"({\rtf1\uc0 \u8364 y})", U("€y")},
        {"negative unicode", R"({\rtf1 \u-3913?})", QString(QChar(0xF0B7))},
        {"fallback ends at a group", R"({\rtf1\uc3 {\u937?}z})", U("Ωz")},
        {"tab and line", R"({\rtf1 a\tab b\line c})", QString("a\tb") + QChar(0x2028) + "c"},
        {"symbols", R"({\rtf1 a\~b\emdash\endash\bullet\lquote\rquote\ldblquote\rdblquote})",
         U("a\u00A0b—–•‘’“”")},
        {"font table, colours, style sheet and info are skipped",
         R"({\rtf1{\fonttbl{\f0 Arial;}}{\colortbl;\red0\green0\blue0;})"
         R"({\stylesheet{\s0 Normal;}}{\info{\title T}{\author A}}Body})",
         "Body"},
        {"pictures are skipped", R"({\rtf1 a{\pict\wmetafile8 0123abcdef}b})", "ab"},
        {"ignorable destinations are skipped", R"({\rtf1 a{\*\unknown x{y}z}b})", "ab"},
        {"known destinations without star are skipped", R"({\rtf1 {\header H}a{\footer F}})", "a"},
        {"unknown control words are ignored", R"({\rtf1 \foo \bar12 a})", "a"},
        {"field results are kept", R"({\rtf1 {\field{\*\fldinst HYPERLINK "x"}{\fldrslt link}}})",
         "link"},
        {"binary data is skipped", "{\\rtf1 a\\bin3 {}}b}", "ab"},
        {"text after the document is ignored", R"({\rtf1 a}b)", "a"},
        {"line breaks in the file are not text", "{\\rtf1 a\r\nb\n}", "ab"},
        {"escaped line break is a paragraph", "{\\rtf1 a\\\nb}", "a\nb"},
        {"table cells and rows", R"({\rtf1 a\cell b\cell\row c})", "a\tb\t\nc"},
        // malformed input
        {"extra closing braces", R"({\rtf1 a}}}b)", "a"},
        {"missing closing braces", R"({\rtf1 {\b a)", "a"},
        {"lone backslash at the end", "{\\rtf1 a\\", "a"},
        {"truncated hex", "{\\rtf1 a\\'4", "a"},
        {"hex without digits", R"({\rtf1 a\'zz})", "azz"},
        {"truncated control word", "{\\rtf1 a\\pa", "a"},
        {"unicode without a number", R"({\rtf1 \u a})", "a"},
        {"huge parameters", R"({\rtf1\fs99999999999999999999999 a\uc99999999 \u66 bcd})", "aB"},
        {"binary length beyond the end", R"({\rtf1 a\bin999999 xyz})", "a"},
        {"negative binary length", R"({\rtf1 a\bin-5 b})", "ab"},
        {"groups nested too deep are skipped whole",
         "{\\rtf1 " + std::string(100000, '{') + "x" + std::string(100000, '}') + "y}", "y"},
        {"deep groups within the limit",
         "{\\rtf1 " + std::string(150, '{') + "x" + std::string(150, '}') + "y}", "xy"},
        {"closing brace inside a skipped deep group",
         "{\\rtf1 " + std::string(300, '{') + "\\}" + std::string(300, '}') + "z}", "z"},
    };
    for (const auto& c : cases) {
        QTextDocument doc;
        ASSERT_TRUE(ReadRtf(c.rtf, doc)) << c.name;
        EXPECT_EQ(BlockText(doc), c.text) << c.name;
    }
}

TEST(RtfReader, RandomBytesNeverBreakIt) {
    std::mt19937 random(20240611);
    const std::string alphabet = "{}\\'*abfilnpqrstu0123456789- ;\x80\xff\r\n";
    std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
    std::uniform_int_distribution<int> length(0, 400);
    for (int round = 0; round < 2000; ++round) {
        std::string rtf = "{\\rtf1 ";
        for (int i = length(random); i > 0; --i) rtf += alphabet[pick(random)];
        QTextDocument doc;
        ASSERT_TRUE(ReadRtf(rtf, doc));
    }
}

TEST(RtfReader, RefusesTextThatIsNotRtf) {
    QTextDocument doc;
    doc.setPlainText("old");
    EXPECT_FALSE(ReadRtf("plain text {\\rtf1 x}", doc));
    EXPECT_TRUE(doc.isEmpty());
    EXPECT_FALSE(ReadRtf("", doc));
    EXPECT_TRUE(LooksLikeRtf("\r\n {\\rtf1}"));
    EXPECT_FALSE(LooksLikeRtf("{\\rt"));
}

TEST(RtfReader, CharacterFormats) {
    QTextDocument doc;
    ASSERT_TRUE(ReadRtf(
        R"({\rtf1\deff1{\fonttbl{\f0\fswiss Arial;}{\f1\fmodern{\*\panose 0203}Courier New;}})"
        R"(\fs20 a{\b b}\i c\i0\ul d\ulnone\strike e\strike0\ulc1 f\f0\fs31 g)"
        R"(\b\i\plain h\ul0 i\uld j\b0 k})",
        doc));
    ASSERT_EQ(BlockText(doc), "abcdefghijk");
    const auto family = [&](int pos) { return FormatAt(doc, pos).fontFamilies().toStringList(); };
    EXPECT_EQ(family(0), QStringList{"Courier New"});  // the default font
    EXPECT_EQ(FormatAt(doc, 0).fontPointSize(), 10.0);
    EXPECT_EQ(FormatAt(doc, 1).fontWeight(), QFont::Bold);
    EXPECT_EQ(FormatAt(doc, 2).fontWeight(), QFont::Normal);  // the group ended
    EXPECT_TRUE(FormatAt(doc, 2).fontItalic());
    EXPECT_TRUE(FormatAt(doc, 3).fontUnderline());
    EXPECT_FALSE(FormatAt(doc, 3).fontItalic());
    EXPECT_TRUE(FormatAt(doc, 4).fontStrikeOut());
    EXPECT_FALSE(FormatAt(doc, 4).fontUnderline());
    EXPECT_FALSE(FormatAt(doc, 5).fontUnderline());  // \ulc is a colour, not underlining
    EXPECT_EQ(family(6), QStringList{"Arial"});
    EXPECT_EQ(FormatAt(doc, 6).fontPointSize(), 15.5);
    // \plain returns to the default font at 12 points
    EXPECT_EQ(family(7), QStringList{"Courier New"});
    EXPECT_EQ(FormatAt(doc, 7).fontPointSize(), 12.0);
    EXPECT_EQ(FormatAt(doc, 7).fontWeight(), QFont::Normal);
    EXPECT_FALSE(FormatAt(doc, 7).fontItalic());
    EXPECT_FALSE(FormatAt(doc, 8).fontUnderline());
    EXPECT_TRUE(FormatAt(doc, 9).fontUnderline());
}

TEST(RtfReader, ParagraphAlignment) {
    QTextDocument doc;
    ASSERT_TRUE(ReadRtf(R"({\rtf1\pard\qc a\par\qr b\par\pard c\par\qj d\par{\qc e}\par f})", doc));
    EXPECT_EQ(BlockText(doc), "a\nb\nc\nd\ne\nf");
    EXPECT_EQ(testing::Alignments(doc),
              (std::vector<Qt::Alignment>{Qt::AlignHCenter, Qt::AlignRight, Qt::AlignLeft,
                                          Qt::AlignJustify, Qt::AlignJustify, Qt::AlignJustify}));
}

}  // namespace
}  // namespace tamrix::gui
