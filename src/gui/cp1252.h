#pragma once
// Windows-1252, the 8-bit text of the logs and of RTF files, to and from Qt text.
#include <QList>
#include <QString>
#include <string>
#include <string_view>

namespace tamrix::gui {

/// The character of one Windows-1252 byte (the five unassigned bytes map to themselves).
char16_t Cp1252ToUnicode(unsigned char byte);
/// The Windows-1252 byte of a character, or -1 when the code page lacks it.
int UnicodeToCp1252(char32_t ch);

/// Windows-1252 bytes as Qt text.
QString DecodeCp1252(std::string_view bytes);
/// Characters the code page lacks become "?".
std::string EncodeCp1252(const QString& text);

}  // namespace tamrix::gui
