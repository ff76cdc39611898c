#pragma once
// Writes a Qt document as RTF: ANSI text in code page 1252, "\uN" for the
// characters it lacks, with paragraphs, alignment, fonts, sizes, bold, italic,
// underline and strike-through. Lines end in CR LF.
#include <string>

class QTextDocument;

namespace tamrix::gui {

/// The document as RTF text; a document written and read back gives the same text and formats.
std::string WriteRtf(const QTextDocument& doc);

}  // namespace tamrix::gui
