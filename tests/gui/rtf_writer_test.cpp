#include "gui/rtf_writer.h"

#include <gtest/gtest.h>

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <string>

#include "gui/gui_test_helpers.h"
#include "gui/rtf_reader.h"
#include "support/temp_dir.h"

namespace tamrix::gui {
namespace {

using testing::BlockText;
using testing::FormatAt;
using testing::U;

QTextCharFormat Format(bool bold, bool italic, bool underline, bool strike, const QString& family,
                       double points) {
    QTextCharFormat f;
    f.setFontWeight(bold ? QFont::Bold : QFont::Normal);
    f.setFontItalic(italic);
    f.setFontUnderline(underline);
    f.setFontStrikeOut(strike);
    f.setFontFamilies(QStringList{family});
    f.setFontPointSize(points);
    return f;
}

// A document with every kind of formatting the viewer offers; `latin1` keeps
// to what unrtf can show: Latin-1, no tabs.
void FillSample(QTextDocument& doc, bool latin1 = false) {
    doc.setDefaultFont(QFont("Courier New", 9));
    QTextCursor c(&doc);
    c.insertText("Scan Summary", Format(true, false, false, false, "Courier New", 9));
    QTextBlockFormat centre;
    centre.setAlignment(Qt::AlignHCenter);
    c.setBlockFormat(centre);
    c.insertBlock(QTextBlockFormat());
    c.insertText("plain ", Format(false, false, false, false, "Courier New", 9));
    c.insertText("italic ", Format(false, true, false, false, "Courier New", 9));
    c.insertText("under ", Format(false, false, true, false, "Arial", 12));
    c.insertText("struck", Format(false, false, false, true, "Times New Roman", 10.5));
    QTextBlockFormat right;
    right.setAlignment(Qt::AlignRight);
    c.insertBlock(right);
    c.insertText(U(latin1 ? "{braces} \\ caf\u00e9 end"
                          : "{braces} \\ caf\u00e9 \u20ac \u03a9 \U0001F600\tend"),
                 Format(false, false, false, false, "Courier New", 9));
    c.insertText(QString(QChar::LineSeparator) + "second line");
    c.insertBlock(QTextBlockFormat());
    c.insertBlock(QTextBlockFormat());
    c.insertText("last", Format(true, true, true, true, "Courier New", 9));
}

TEST(RtfWriter, WritesAsciiRtfWithEscapes) {
    QTextDocument doc;
    FillSample(doc);
    const std::string rtf = WriteRtf(doc);
    EXPECT_EQ(rtf.rfind("{\\rtf1\\ansi\\ansicpg1252\\deff0", 0), 0u) << rtf;
    EXPECT_EQ(rtf.substr(rtf.size() - 3), "}\r\n");
    for (const char ch : rtf) EXPECT_LT(static_cast<unsigned char>(ch), 0x80) << rtf;
    EXPECT_NE(rtf.find("{\\f0\\fnil\\fcharset0 Courier New;}"), std::string::npos) << rtf;
    EXPECT_NE(rtf.find("\\{braces\\} \\\\ caf\\'e9 \\'80 \\u937?"), std::string::npos) << rtf;
    EXPECT_NE(rtf.find("\\u-10179?\\u-8704?\\tab end\\line second line"), std::string::npos) << rtf;
    EXPECT_NE(rtf.find("\\pard\\qc\\fs18\\b Scan Summary\\par\r\n\\pard\\b0 plain"),
              std::string::npos)
        << rtf;
    EXPECT_NE(rtf.find("\\f2\\fs21\\ulnone\\strike struck\\par"), std::string::npos) << rtf;
    // every line ends in CR LF
    for (std::size_t i = rtf.find('\n'); i != std::string::npos; i = rtf.find('\n', i + 1))
        EXPECT_EQ(rtf[i - 1], '\r');
}

TEST(RtfWriter, RoundTripKeepsTextAndFormatsAndIsStable) {
    QTextDocument doc;
    FillSample(doc);
    const std::string first = WriteRtf(doc);
    QTextDocument again;
    again.setDefaultFont(QFont("Courier New", 9));
    ASSERT_TRUE(ReadRtf(first, again));
    EXPECT_EQ(BlockText(again), BlockText(doc));
    for (int pos = 0; pos < doc.characterCount() - 1; ++pos) {
        if (doc.characterAt(pos) == QChar::ParagraphSeparator) continue;
        const QFont a = FormatAt(doc, pos).font();
        const QFont b = FormatAt(again, pos).font();
        EXPECT_EQ(a.bold(), b.bold()) << pos;
        EXPECT_EQ(a.italic(), b.italic()) << pos;
        EXPECT_EQ(a.underline(), b.underline()) << pos;
        EXPECT_EQ(a.strikeOut(), b.strikeOut()) << pos;
        EXPECT_EQ(a.families(), b.families()) << pos;
        EXPECT_EQ(a.pointSizeF(), b.pointSizeF()) << pos;
    }
    EXPECT_EQ(testing::Alignments(again),
              (std::vector<Qt::Alignment>{Qt::AlignHCenter, Qt::AlignLeft, Qt::AlignRight,
                                          Qt::AlignLeft, Qt::AlignLeft}));
    EXPECT_EQ(WriteRtf(again), first);
}

TEST(RtfWriter, EmptyDocumentStillNamesItsFont) {
    QTextDocument doc;
    doc.setDefaultFont(QFont("Tahoma", 9));
    const std::string rtf = WriteRtf(doc);
    EXPECT_NE(rtf.find("Tahoma;"), std::string::npos) << rtf;
    QTextDocument again;
    ASSERT_TRUE(ReadRtf(rtf, again));
    EXPECT_TRUE(again.isEmpty());
}

TEST(RtfWriter, UnrtfReadsTheSameText) {
    // unrtf's text output knows Latin-1 only, turns tabs into runs of spaces and
    // runs of spaces into one, so the check compares with single spaces (the
    // round trip above keeps every space).
    QTextDocument doc;
    FillSample(doc, true);
    testing::TempDir dir;
    const std::string path = dir.Write("sample.rtf", WriteRtf(doc));
    const auto output = testing::RunProgram("unrtf", {"--text", QString::fromStdString(path)});
    if (!output) GTEST_SKIP() << "unrtf is not available";
    QStringList lines = QString::fromLatin1(*output).split(u'\n');
    // Its comment lines and the rule under them come first.
    while (!lines.isEmpty() && (lines.first().startsWith("###") || lines.first().isEmpty() ||
                                lines.first().startsWith("-----")))
        lines.removeFirst();
    while (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
    QStringList expected = BlockText(doc).replace(QChar::LineSeparator, u'\n').split(u'\n');
    for (QStringList* list : {&lines, &expected})
        for (QString& line : *list) line = line.simplified();
    EXPECT_EQ(lines.join(u'\n').toStdString(), expected.join(u'\n').toStdString());
}

}  // namespace
}  // namespace tamrix::gui
