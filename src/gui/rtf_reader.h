#pragma once
// Reads the part of RTF a log viewer needs (paragraphs, bold, italic, underline,
// strike-through, alignment, fonts and sizes, special characters) into a Qt
// document. Everything else (pictures, tables of styles and colours, document
// information, unknown destinations) is skipped. Malformed input never makes it
// fail or hang: unbalanced braces are tolerated, truncated control words end
// the text, and groups nested deeper than kMaxRtfDepth are skipped whole.
#include <string_view>

class QTextDocument;

namespace tamrix::gui {

/// Groups nested deeper than this are skipped whole.
inline constexpr int kMaxRtfDepth = 200;

/// Replaces the content of `doc`; false (document left empty) when the bytes do
/// not start with "{\rtf".
bool ReadRtf(std::string_view rtf, QTextDocument& doc);

/// Whether the bytes look like RTF (optional blanks, then "{\rtf").
bool LooksLikeRtf(std::string_view bytes);

}  // namespace tamrix::gui
