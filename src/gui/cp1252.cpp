#include "gui/cp1252.h"

#include <QList>

namespace tamrix::gui {
namespace {

// 0x80..0x9F; the rest of the code page equals Latin-1.
constexpr char16_t kHigh[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

char16_t Cp1252ToUnicode(unsigned char byte) {
    if (byte >= 0x80 && byte <= 0x9F) return kHigh[byte - 0x80];
    return byte;
}

int UnicodeToCp1252(char32_t ch) {
    if (ch < 0x80 || (ch >= 0xA0 && ch <= 0xFF)) return static_cast<int>(ch);
    for (int i = 0; i < 32; ++i)
        if (kHigh[i] == ch) return 0x80 + i;
    return -1;
}

QString DecodeCp1252(std::string_view bytes) {
    QString out;
    out.reserve(static_cast<qsizetype>(bytes.size()));
    for (const char c : bytes) out.append(QChar(Cp1252ToUnicode(static_cast<unsigned char>(c))));
    return out;
}

std::string EncodeCp1252(const QString& text) {
    std::string out;
    out.reserve(static_cast<std::size_t>(text.size()));
    for (const char32_t ch : text.toUcs4()) {
        const int b = UnicodeToCp1252(ch);
        out += b < 0 ? '?' : static_cast<char>(b);
    }
    return out;
}

}  // namespace tamrix::gui
