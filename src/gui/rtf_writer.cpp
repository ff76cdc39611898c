#include "gui/rtf_writer.h"

#include <QFont>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>
#include <map>
#include <vector>

#include "gui/cp1252.h"

namespace tamrix::gui {
namespace {

struct RunState {
    int font = 0;
    int halfPoints = 24;  // the RTF default of 12 points
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
};

QString FamilyOf(const QFont& font) {
    const QStringList families = font.families();
    return families.isEmpty() ? font.family() : families.first();
}

QFont ResolvedFont(const QTextDocument& doc, const QTextCharFormat& format) {
    return format.font().resolve(doc.defaultFont());
}

// The fonts the text uses, numbered in order of first use.
class FontTable {
public:
    int Number(const QString& family) {
        const auto it = numbers_.find(family);
        if (it != numbers_.end()) return it->second;
        const int n = static_cast<int>(names_.size());
        numbers_[family] = n;
        names_.push_back(family);
        return n;
    }
    const std::vector<QString>& Names() const { return names_; }

private:
    std::map<QString, int> numbers_;
    std::vector<QString> names_;
};

void AppendHex(std::string& out, int byte) {
    static const char kDigits[] = "0123456789abcdef";
    out += "\\'";
    out += kDigits[(byte >> 4) & 0xF];
    out += kDigits[byte & 0xF];
}

void AppendUnicode(std::string& out, char16_t unit) {
    // RTF parameters are signed 16-bit numbers; "?" is the fallback for old readers.
    const int value = unit > 32767 ? static_cast<int>(unit) - 65536 : static_cast<int>(unit);
    out += "\\u" + std::to_string(value) + "?";
}

void AppendText(std::string& out, const QString& text) {
    for (const char32_t ch : text.toUcs4()) {
        if (ch == '\\' || ch == '{' || ch == '}') {
            out += '\\';
            out += static_cast<char>(ch);
        } else if (ch == '\t') {
            out += "\\tab ";
        } else if (ch == 0x2028) {
            out += "\\line ";
        } else if (ch == 0x2029) {
            out += "\\par ";
        } else if (ch < 0x20 || ch == 0xFFFC) {
            // control characters and embedded objects have no text
        } else if (ch < 0x7F) {
            out += static_cast<char>(ch);
        } else if (const int b = UnicodeToCp1252(ch); b >= 0) {
            AppendHex(out, b);
        } else if (ch > 0xFFFF) {
            const char32_t v = ch - 0x10000;
            AppendUnicode(out, static_cast<char16_t>(0xD800 + (v >> 10)));
            AppendUnicode(out, static_cast<char16_t>(0xDC00 + (v & 0x3FF)));
        } else {
            AppendUnicode(out, static_cast<char16_t>(ch));
        }
    }
}

const char* AlignmentWord(Qt::Alignment align) {
    const Qt::Alignment h = align & Qt::AlignHorizontal_Mask;
    if (h & Qt::AlignHCenter) return "\\qc";
    if (h & Qt::AlignJustify) return "\\qj";
    if (h & (Qt::AlignRight)) return "\\qr";
    return "";
}

}  // namespace

std::string WriteRtf(const QTextDocument& doc) {
    FontTable fonts;
    for (QTextBlock block = doc.begin(); block.isValid(); block = block.next())
        for (auto it = block.begin(); !it.atEnd(); ++it)
            if (it.fragment().isValid())
                fonts.Number(FamilyOf(ResolvedFont(doc, it.fragment().charFormat())));
    if (fonts.Names().empty()) fonts.Number(FamilyOf(doc.defaultFont()));

    std::string out = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl";
    for (std::size_t i = 0; i < fonts.Names().size(); ++i) {
        out += "{\\f" + std::to_string(i) + "\\fnil\\fcharset0 ";
        AppendText(out, fonts.Names()[i]);
        out += ";}";
    }
    out += "}\r\n\\viewkind4\\pard";

    RunState cur;
    const char* align = "";
    bool first = true;
    bool needDelimiter = true;  // a control word was written last
    const auto word = [&](const std::string& w) {
        if (w.empty()) return;
        out += w;
        needDelimiter = true;
    };
    for (QTextBlock block = doc.begin(); block.isValid(); block = block.next()) {
        const char* blockAlign = AlignmentWord(block.blockFormat().alignment());
        if (!first) {
            out += "\\par\r\n";
            needDelimiter = false;
            if (std::string_view(blockAlign) != align) word("\\pard");
        }
        if (first || std::string_view(blockAlign) != align) word(blockAlign);
        align = blockAlign;
        first = false;
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            if (!fragment.isValid()) continue;
            const QFont font = ResolvedFont(doc, fragment.charFormat());
            RunState next;
            next.font = fonts.Number(FamilyOf(font));
            const double points = font.pointSizeF();
            next.halfPoints = points > 0 ? static_cast<int>(points * 2 + 0.5) : 24;
            next.bold = font.bold();
            next.italic = font.italic();
            next.underline = font.underline();
            next.strike = font.strikeOut();

            if (next.font != cur.font) word("\\f" + std::to_string(next.font));
            if (next.halfPoints != cur.halfPoints) word("\\fs" + std::to_string(next.halfPoints));
            if (next.bold != cur.bold) word(next.bold ? "\\b" : "\\b0");
            if (next.italic != cur.italic) word(next.italic ? "\\i" : "\\i0");
            if (next.underline != cur.underline) word(next.underline ? "\\ul" : "\\ulnone");
            if (next.strike != cur.strike) word(next.strike ? "\\strike" : "\\strike0");
            cur = next;
            if (needDelimiter) out += ' ';
            needDelimiter = false;
            AppendText(out, fragment.text());
        }
    }
    out += "\r\n}\r\n";
    return out;
}

}  // namespace tamrix::gui
