#include "platform/byte_text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace tamrix {
namespace {

// One case for the letters of ASCII and Windows-1252: A-Z, the accented capitals
// but the multiplication sign, S caron, OE, Z caron and Y diaeresis. By arithmetic
// rather than a table, so that the compiler turns Fold into vector code: folding
// whole texts for the renaming is a large share of a conversion's work.
constexpr unsigned char FoldByte(unsigned char c) {
    const bool ascii = static_cast<unsigned char>(c - 'A') < 26;
    const bool latin = static_cast<unsigned char>(c - 0xC0) < 31 && c != 0xD7;
    const bool marked = c == 0x8A || c == 0x8C || c == 0x8E;
    return static_cast<unsigned char>(c + (ascii || latin ? 32 : 0) + (marked ? 0x10 : 0) +
                                      (c == 0x9F ? 0x60 : 0));
}

struct FoldTables {
    std::array<unsigned char, 256> fold{};   // each byte folded
    std::array<unsigned char, 256> other{};  // by folded byte: the other byte folding to it
};

constexpr FoldTables MakeFoldTables() {
    FoldTables t;
    for (int c = 0; c < 256; ++c) {
        const auto b = static_cast<unsigned char>(c);
        t.fold[b] = FoldByte(b);
        t.other[b] = b;
    }
    for (int c = 0; c < 256; ++c)
        if (t.fold[c] != c) t.other[t.fold[c]] = static_cast<unsigned char>(c);
    return t;
}

constexpr FoldTables kTables = MakeFoldTables();
constexpr const std::array<unsigned char, 256>& kFold = kTables.fold;

// Windows-1252 characters 0x80-0x9F as Unicode code points (0 = undefined).
constexpr std::array<unsigned, 32> kHigh = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void AppendUtf8(std::string& out, unsigned cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

}  // namespace

std::string Fold(std::string_view text) {
    std::string out(text.size(), '\0');
    const auto* in = reinterpret_cast<const unsigned char*>(text.data());
    auto* folded = reinterpret_cast<unsigned char*>(out.data());
    // Whole blocks by arithmetic, which becomes vector code; the few bytes left
    // over (most of a short name) by the table, which is cheaper one at a time.
    const std::size_t blocks = text.size() - text.size() % 16;
    for (std::size_t i = 0; i < blocks; ++i) folded[i] = FoldByte(in[i]);
    for (std::size_t i = blocks; i < text.size(); ++i) folded[i] = kFold[in[i]];
    return out;
}

char FoldChar(char c) { return static_cast<char>(kFold[static_cast<unsigned char>(c)]); }

std::size_t FoldedHash::operator()(std::string_view text) const {
    std::uint64_t hash = 14695981039346656037ULL;  // FNV-1a
    for (const char c : text) {
        hash ^= kFold[static_cast<unsigned char>(c)];
        hash *= 1099511628211ULL;
    }
    return static_cast<std::size_t>(hash);
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (kFold[static_cast<unsigned char>(a[i])] != kFold[static_cast<unsigned char>(b[i])])
            return false;
    return true;
}

std::size_t FindNoCase(std::string_view text, std::string_view needle, std::size_t from) {
    if (needle.empty() || from > text.size() || needle.size() > text.size() - from)
        return kNotFound;
    // The first character is looked for with memchr in each of its spellings (a
    // letter has two); each spelling's next place is searched again only once
    // the search has passed it, so the text is gone through once.
    const unsigned char first = kFold[static_cast<unsigned char>(needle[0])];
    const unsigned char spellings[2] = {first, kTables.other[first]};
    const char* const begin = text.data();
    const char* const end = begin + (text.size() - needle.size()) + 1;  // past the last start
    const auto next = [&](const char* at, unsigned char c) {
        const void* hit =
            at < end ? std::memchr(at, c, static_cast<std::size_t>(end - at)) : nullptr;
        return hit != nullptr ? static_cast<const char*>(hit) : end;
    };
    const char* found[2] = {next(begin + from, spellings[0]), nullptr};
    found[1] = spellings[1] == spellings[0] ? end : next(begin + from, spellings[1]);
    for (;;) {
        const char* at = std::min(found[0], found[1]);
        if (at == end) return kNotFound;
        if (EqualsNoCase(std::string_view(at, needle.size()), needle))
            return static_cast<std::size_t>(at - begin);
        for (int k = 0; k < 2; ++k)
            if (found[k] == at) found[k] = next(at + 1, spellings[k]);
    }
}

bool ContainsNoCase(std::string_view text, std::string_view needle) {
    return FindNoCase(text, needle) != kNotFound;
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
    return text.size() >= prefix.size() && EqualsNoCase(text.substr(0, prefix.size()), prefix);
}

bool EndsWithNoCase(std::string_view text, std::string_view suffix) {
    return text.size() >= suffix.size() &&
           EqualsNoCase(text.substr(text.size() - suffix.size()), suffix);
}

namespace {

// Every match `next` finds, left to right, replaced. The result is made at its
// final size at once (at most the text's when it shrinks): a large text grown
// piece by piece would be copied to fresh memory several times.
template <class Finder>
std::string ReplaceEach(std::string_view text, std::string_view find, std::string_view replacement,
                        Finder next) {
    if (find.empty()) return std::string(text);
    std::size_t size = text.size();
    if (replacement.size() > find.size())
        for (std::size_t hit = next(text, find, 0); hit != kNotFound;
             hit = next(text, find, hit + find.size()))
            size += replacement.size() - find.size();
    std::string result;
    result.reserve(size);
    std::size_t pos = 0;
    for (std::size_t hit = next(text, find, 0); hit != kNotFound; hit = next(text, find, pos)) {
        result.append(text.substr(pos, hit - pos));
        result.append(replacement);
        pos = hit + find.size();
    }
    result.append(text.substr(pos));
    return result;
}

}  // namespace

std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement) {
    return ReplaceEach(text, find, replacement,
                       [](std::string_view t, std::string_view f, std::size_t from) {
                           return FindNoCase(t, f, from);
                       });
}

std::string ReplaceAllExact(std::string_view text, std::string_view find,
                            std::string_view replacement) {
    return ReplaceEach(text, find, replacement,
                       [](std::string_view t, std::string_view f, std::size_t from) {
                           return t.find(f, from);  // npos is kNotFound
                       });
}

std::string TrimLeft(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string() : std::string(text.substr(first));
}

std::string TrimRight(std::string_view text) {
    const std::size_t last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string() : std::string(text.substr(0, last + 1));
}

std::string Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    const std::size_t last = text.find_last_not_of(' ');
    return std::string(text.substr(first, last - first + 1));
}

std::string TabsToSpaces(std::string_view text) {
    std::string out(text);
    for (char& c : out) c = c == '\t' ? ' ' : c;  // a select: vector code
    return out;
}

std::vector<std::string> Split(std::string_view text, char separator) {
    std::vector<std::string> pieces;
    if (text.empty()) return pieces;
    std::size_t start = 0;
    while (true) {
        const std::size_t sep = text.find(separator, start);
        if (sep == std::string_view::npos) {
            pieces.emplace_back(text.substr(start));
            return pieces;
        }
        pieces.emplace_back(text.substr(start, sep - start));
        start = sep + 1;
    }
}

std::string_view Before(std::string_view text, char c) {
    const std::size_t pos = text.find(c);
    return pos == std::string_view::npos ? text : text.substr(0, pos);
}

std::size_t FindSeparator(std::string_view text, std::size_t from) {
    for (std::size_t i = from; i < text.size(); ++i)
        if (text[i] == '\\' || text[i] == '/') return i;
    return std::string_view::npos;
}

std::size_t FindLastSeparator(std::string_view text) {
    for (std::size_t i = text.size(); i > 0; --i)
        if (text[i - 1] == '\\' || text[i - 1] == '/') return i - 1;
    return std::string_view::npos;
}

std::string FileExtension(std::string_view name) {
    const std::size_t slash = FindLastSeparator(name);
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || (slash != std::string_view::npos && dot < slash))
        return {};
    return std::string(name.substr(dot + 1));
}

std::string FileBaseName(std::string_view name) {
    const std::size_t slash = FindLastSeparator(name);
    std::string_view base = slash == std::string_view::npos ? name : name.substr(slash + 1);
    const std::size_t dot = base.rfind('.');
    return std::string(dot == std::string_view::npos ? base : base.substr(0, dot));
}

std::size_t FindLineBreak(std::string_view text, std::size_t from) {
    // memchr for each of the two characters, a window at a time: a file with only
    // one kind of line end is then not searched to its end for the other on
    // every line.
    constexpr std::size_t kWindow = 256;
    for (std::size_t at = from; at < text.size(); at += kWindow) {
        const std::size_t length = std::min(kWindow, text.size() - at);
        const char* window = text.data() + at;
        const void* lf = std::memchr(window, '\n', length);
        const std::size_t before =
            lf != nullptr ? static_cast<std::size_t>(static_cast<const char*>(lf) - window)
                          : length;
        const void* cr = std::memchr(window, '\r', before);
        if (cr != nullptr)
            return at + static_cast<std::size_t>(static_cast<const char*>(cr) - window);
        if (lf != nullptr) return at + before;
    }
    return std::string_view::npos;
}

std::string_view LineEndOf(std::string_view text) {
    const std::size_t end = FindLineBreak(text);
    if (end == std::string_view::npos) return "\r\n";
    if (text[end] == '\n') return "\n";
    return end + 1 < text.size() && text[end + 1] == '\n' ? "\r\n" : "\r";
}

std::string Cp1252ToUtf8(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (const char ch : text) {
        const auto c = static_cast<unsigned char>(ch);
        if (c >= 0x80 && c < 0xA0)
            AppendUtf8(out, kHigh[c - 0x80] != 0 ? kHigh[c - 0x80] : c);
        else
            AppendUtf8(out, c);
    }
    return out;
}

bool Utf8ToCp1252(std::string_view text, std::string& out) {
    out.clear();
    for (std::size_t i = 0; i < text.size();) {
        const auto c = static_cast<unsigned char>(text[i]);
        unsigned cp = 0;
        std::size_t len = 0;
        if (c < 0x80) {
            cp = c;
            len = 1;
        } else if ((c & 0xE0) == 0xC0) {
            cp = c & 0x1Fu;
            len = 2;
        } else if ((c & 0xF0) == 0xE0) {
            cp = c & 0x0Fu;
            len = 3;
        } else {
            return false;
        }
        if (i + len > text.size()) return false;
        for (std::size_t k = 1; k < len; ++k) {
            const auto cc = static_cast<unsigned char>(text[i + k]);
            if ((cc & 0xC0) != 0x80) return false;
            cp = (cp << 6) | (cc & 0x3Fu);
        }
        i += len;
        if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) {
            out += static_cast<char>(cp);
            continue;
        }
        bool mapped = false;
        for (unsigned k = 0; k < kHigh.size(); ++k) {
            if (kHigh[k] == cp) {
                out += static_cast<char>(0x80 + k);
                mapped = true;
                break;
            }
        }
        if (!mapped) return false;
    }
    return true;
}

}  // namespace tamrix
