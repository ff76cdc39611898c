#include "gui/rtf_reader.h"

#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "gui/cp1252.h"

namespace tamrix::gui {
namespace {

// Destinations whose text is not part of the document.
const std::set<std::string, std::less<>>& SkippedDestinations() {
    static const std::set<std::string, std::less<>> names = {
        "annotation", "atnauthor",    "atnid",
        "author",     "background",   "bkmkend",
        "bkmkstart",  "buptim",       "colorschememapping",
        "colortbl",   "comment",      "creatim",
        "datastore",  "doccomm",      "filetbl",
        "fldinst",    "footer",       "footerf",
        "footerl",    "footerr",      "footnote",
        "ftncn",      "ftnsep",       "ftnsepc",
        "generator",  "header",       "headerf",
        "headerl",    "headerr",      "info",
        "keywords",   "latentstyles", "listoverridetable",
        "listtable",  "mmathPr",      "nonshppict",
        "objdata",    "object",       "operator",
        "pgdsctbl",   "pict",         "pn",
        "printim",    "private",      "revtbl",
        "revtim",     "rsidtbl",      "rxe",
        "shp",        "shpinst",      "stylesheet",
        "subject",    "tc",           "themedata",
        "title",      "txe",          "xe",
        "xmlnsdecl"};
    return names;
}

enum class Destination { Text, FontTable, Skip };

struct CharState {
    int font = -1;  // -1: the default font
    int halfPoints = 24;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    bool operator==(const CharState&) const = default;
};

struct GroupState {
    CharState ch;
    Qt::Alignment align = Qt::AlignLeft;
    int uc = 1;
    Destination dest = Destination::Text;
};

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

int HexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

class Reader {
public:
    Reader(std::string_view rtf, QTextDocument& doc) : s_(rtf), cursor_(&doc) {}

    void Run() {
        stack_.push_back(GroupState{});  // outside the document's group
        std::size_t i = 0;
        const std::size_t n = s_.size();
        while (i < n && !done_) {
            const char c = s_[i];
            if (overflow_ > 0) {
                i = SkipOverflow(i);
                continue;
            }
            if (c == '{') {
                pendingSkip_ = 0;
                if (static_cast<int>(stack_.size()) > kMaxRtfDepth)
                    overflow_ = 1;
                else
                    stack_.push_back(stack_.back());
                ++i;
            } else if (c == '}') {
                pendingSkip_ = 0;
                CloseGroup();
                ++i;
            } else if (c == '\\') {
                i = ControlAt(i);
            } else if (c == '\r' || c == '\n') {
                ++i;
            } else if (c == '\t') {
                Emit(u'\t');
                ++i;
            } else if (static_cast<unsigned char>(c) < 0x20) {
                ++i;
            } else {
                Emit(Cp1252ToUnicode(static_cast<unsigned char>(c)));
                ++i;
            }
        }
        Flush();
        EndParagraph(false);
    }

private:
    GroupState& State() { return stack_.back(); }

    // Inside a group nested too deep: skip to its end, escapes included.
    std::size_t SkipOverflow(std::size_t i) {
        const char c = s_[i];
        if (c == '{') {
            if (overflow_ < 1'000'000'000) ++overflow_;
        } else if (c == '}') {
            --overflow_;
        } else if (c == '\\') {
            return i + 2;
        }
        return i + 1;
    }

    void CloseGroup() {
        if (State().dest == Destination::FontTable && stack_.size() > 1 &&
            stack_[stack_.size() - 2].dest == Destination::FontTable)
            CommitFontName();
        if (stack_.size() <= 2) {
            // The document's own group ends (text after it is not RTF); a stray
            // closing brace before any group is ignored.
            if (stack_.size() == 2) done_ = true;
            return;
        }
        stack_.pop_back();
    }

    std::size_t ControlAt(std::size_t i) {
        const std::size_t n = s_.size();
        if (i + 1 >= n) return n;  // a lone backslash ends the text
        const char next = s_[i + 1];
        if (!IsLetter(next)) return SymbolAt(i);

        std::size_t j = i + 1;
        while (j < n && IsLetter(s_[j])) ++j;
        const std::string_view word = s_.substr(i + 1, std::min<std::size_t>(j - i - 1, 32));
        bool negative = false;
        if (j < n && s_[j] == '-' && j + 1 < n && IsDigit(s_[j + 1])) {
            negative = true;
            ++j;
        }
        bool hasParam = false;
        long long param = 0;
        while (j < n && IsDigit(s_[j])) {
            hasParam = true;
            if (param < 100'000'000'000LL) param = param * 10 + (s_[j] - '0');
            ++j;
        }
        if (j < n && s_[j] == ' ') ++j;
        param = std::clamp(negative ? -param : param, -2'147'483'647LL, 2'147'483'647LL);

        if (word == "bin") {
            // Raw bytes follow; they are never text.
            const std::size_t count = hasParam && param > 0 ? static_cast<std::size_t>(param) : 0;
            return std::min(n, j + count);
        }
        if (pendingSkip_ > 0) {
            --pendingSkip_;
            return j;
        }
        Word(word, hasParam, static_cast<int>(param));
        return j;
    }

    std::size_t SymbolAt(std::size_t i) {
        const std::size_t n = s_.size();
        const char sym = s_[i + 1];
        if (sym == '\'') {
            const int hi = i + 2 < n ? HexValue(s_[i + 2]) : -1;
            const int lo = i + 3 < n ? HexValue(s_[i + 3]) : -1;
            if (hi < 0) return i + 2;
            if (lo < 0) return i + 3;
            Emit(Cp1252ToUnicode(static_cast<unsigned char>(hi * 16 + lo)));
            return i + 4;
        }
        if (pendingSkip_ > 0 && sym != '{' && sym != '}') {
            --pendingSkip_;
            return i + 2;
        }
        switch (sym) {
            case '\\':
            case '{':
            case '}': Emit(static_cast<char16_t>(sym)); break;
            case '~': Emit(u'\u00A0'); break;
            case '_': Emit(u'\u2011'); break;
            case '*': State().dest = Destination::Skip; break;
            case '\r':
            case '\n': Paragraph(); break;
            default: break;  // optional hyphen, index sub-entry and the like
        }
        return i + 2;
    }

    void Word(std::string_view w, bool hasParam, int param) {
        GroupState& st = State();
        const bool on = !hasParam || param != 0;
        if (SkippedDestinations().count(w) != 0) {
            st.dest = Destination::Skip;
        } else if (w == "fonttbl") {
            st.dest = Destination::FontTable;
        } else if (w == "deff") {
            defaultFont_ = param;
        } else if (w == "f") {
            if (st.dest == Destination::FontTable) {
                CommitFontName();
                fontNumber_ = param;
                fontName_.clear();
            } else {
                st.ch.font = param;
            }
        } else if (w == "fs") {
            st.ch.halfPoints = hasParam && param > 0 ? std::min(param, 3276) : 24;
        } else if (w == "b") {
            st.ch.bold = on;
        } else if (w == "i") {
            st.ch.italic = on;
        } else if (w == "strike" || w == "striked") {
            st.ch.strike = on;
        } else if (w == "ulnone") {
            st.ch.underline = false;
        } else if (w.substr(0, 2) == "ul" && w != "ulc") {
            st.ch.underline = on;
        } else if (w == "plain") {
            st.ch = CharState{};
        } else if (w == "pard") {
            st.align = Qt::AlignLeft;
        } else if (w == "ql") {
            st.align = Qt::AlignLeft;
        } else if (w == "qr") {
            st.align = Qt::AlignRight;
        } else if (w == "qc") {
            st.align = Qt::AlignHCenter;
        } else if (w == "qj") {
            st.align = Qt::AlignJustify;
        } else if (w == "par" || w == "page" || w == "sect" || w == "row") {
            Paragraph();
        } else if (w == "line") {
            Emit(u'\u2028');
        } else if (w == "tab" || w == "cell") {
            Emit(u'\t');
        } else if (w == "uc") {
            st.uc = std::clamp(param, 0, 16);
        } else if (w == "u" && hasParam) {
            Emit(static_cast<char16_t>(param < 0 ? param + 65536 : param));
            pendingSkip_ = st.uc;
        } else if (w == "emdash") {
            Emit(u'\u2014');
        } else if (w == "endash") {
            Emit(u'\u2013');
        } else if (w == "bullet") {
            Emit(u'\u2022');
        } else if (w == "lquote") {
            Emit(u'\u2018');
        } else if (w == "rquote") {
            Emit(u'\u2019');
        } else if (w == "ldblquote") {
            Emit(u'\u201C');
        } else if (w == "rdblquote") {
            Emit(u'\u201D');
        } else if (w == "emspace" || w == "enspace" || w == "qmspace") {
            Emit(u' ');
        }
    }

    void Emit(char16_t ch) {
        if (pendingSkip_ > 0) {
            --pendingSkip_;
            return;
        }
        const GroupState& st = State();
        if (stack_.size() < 2) return;  // text before the document's group
        if (st.dest == Destination::Skip) return;
        if (st.dest == Destination::FontTable) {
            if (ch == u';')
                CommitFontName();
            else
                fontName_.append(QChar(ch));
            return;
        }
        if (!pending_.isEmpty() && !(pendingState_ == st.ch)) Flush();
        if (pending_.isEmpty()) pendingState_ = st.ch;
        pending_.append(QChar(ch));
    }

    void CommitFontName() {
        const QString name = fontName_.trimmed();
        if (fontNumber_ >= 0 && !name.isEmpty() && fonts_.count(fontNumber_) == 0)
            fonts_[fontNumber_] = name;
        fontName_.clear();
    }

    QTextCharFormat FormatOf(const CharState& ch) const {
        QTextCharFormat f;
        const auto font = fonts_.find(ch.font < 0 ? defaultFont_ : ch.font);
        if (font != fonts_.end()) f.setFontFamilies(QStringList{font->second});
        f.setFontPointSize(ch.halfPoints / 2.0);
        f.setFontWeight(ch.bold ? QFont::Bold : QFont::Normal);
        f.setFontItalic(ch.italic);
        f.setFontUnderline(ch.underline);
        f.setFontStrikeOut(ch.strike);
        return f;
    }

    void Flush() {
        if (pending_.isEmpty()) return;
        cursor_.insertText(pending_, FormatOf(pendingState_));
        pending_.clear();
    }

    void EndParagraph(bool another) {
        QTextBlockFormat block = cursor_.blockFormat();
        block.setAlignment(stack_.size() >= 2 ? State().align : Qt::AlignLeft);
        cursor_.setBlockFormat(block);
        if (another) cursor_.insertBlock(QTextBlockFormat(), FormatOf(State().ch));
    }

    void Paragraph() {
        if (stack_.size() < 2 || State().dest != Destination::Text) return;
        Flush();
        EndParagraph(true);
    }

    std::string_view s_;
    QTextCursor cursor_;
    std::vector<GroupState> stack_;
    int overflow_ = 0;
    bool done_ = false;
    int pendingSkip_ = 0;
    QString pending_;
    CharState pendingState_;
    std::map<int, QString> fonts_;
    int defaultFont_ = 0;
    int fontNumber_ = -1;
    QString fontName_;
};

}  // namespace

bool LooksLikeRtf(std::string_view bytes) {
    const std::size_t start = bytes.find_first_not_of(" \t\r\n");
    return start != std::string_view::npos && bytes.substr(start, 5) == "{\\rtf";
}

bool ReadRtf(std::string_view rtf, QTextDocument& doc) {
    doc.clear();
    if (!LooksLikeRtf(rtf)) return false;
    Reader reader(rtf, doc);
    reader.Run();
    return true;
}

}  // namespace tamrix::gui
