#pragma once
// Small helpers shared by the Qt tests.
#include <QString>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <optional>
#include <string>
#include <vector>

namespace tamrix::testing {

inline QString U(const char* utf8) { return QString::fromUtf8(utf8); }

// The raw text of every block joined with "\n" (line breaks stay U+2028).
inline QString BlockText(const QTextDocument& doc) {
    QStringList blocks;
    for (QTextBlock b = doc.begin(); b.isValid(); b = b.next()) blocks << b.text();
    return blocks.join(u'\n');
}

// The character format at a position (the format of the character after it).
inline QTextCharFormat FormatAt(const QTextDocument& doc, int position) {
    QTextCursor c(const_cast<QTextDocument*>(&doc));
    c.setPosition(position + 1);
    return c.charFormat();
}

// The horizontal alignment of every block.
inline std::vector<Qt::Alignment> Alignments(const QTextDocument& doc) {
    std::vector<Qt::Alignment> aligns;
    for (QTextBlock b = doc.begin(); b.isValid(); b = b.next())
        aligns.push_back(b.blockFormat().alignment() & Qt::AlignHorizontal_Mask);
    return aligns;
}

// Output of a program, or nullopt when it cannot be run.
std::optional<std::string> RunProgram(const QString& program, const QStringList& args);

}  // namespace tamrix::testing
