#pragma once
// Helpers for 8-bit text. Case-insensitive operations fold ASCII and the
// letters of Windows-1252, the code page of the projects this program reads.
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tamrix {

/// What the finding helpers return when there is no match.
inline constexpr std::size_t kNotFound = std::string_view::npos;

/// The text with ASCII and Windows-1252 letters folded to lower case, for keys and comparisons.
std::string Fold(std::string_view text);

/// One character folded as Fold folds it.
char FoldChar(char c);

/// True when the two texts differ only in the case of their letters.
bool EqualsNoCase(std::string_view a, std::string_view b);

/// For hashed containers keyed by folded text: hashes any text as Fold would
/// make it, without making it, so that a look-up in any case allocates nothing.
struct FoldedHash {
    using is_transparent = void;
    /// The hash of Fold(text).
    std::size_t operator()(std::string_view text) const;
};
/// Key equality for those containers: EqualsNoCase.
struct FoldedEqual {
    using is_transparent = void;
    /// Whether the texts are equal, case aside.
    bool operator()(std::string_view a, std::string_view b) const { return EqualsNoCase(a, b); }
};
/// A map from text, compared without regard to case, to V.
template <class V>
using FoldedMap = std::unordered_map<std::string, V, FoldedHash, FoldedEqual>;
/// Position of the first match at or after `from`, or kNotFound. An empty needle is never found.
std::size_t FindNoCase(std::string_view text, std::string_view needle, std::size_t from = 0);
/// True when `needle` occurs anywhere in `text`, case aside.
bool ContainsNoCase(std::string_view text, std::string_view needle);
/// True when `text` begins with `prefix`, case aside.
bool StartsWithNoCase(std::string_view text, std::string_view prefix);
/// True when `text` ends with `suffix`, case aside.
bool EndsWithNoCase(std::string_view text, std::string_view suffix);

/// Replaces every occurrence of `find` (compared without regard to case); the
/// inserted text is never searched again, so a replacement that contains the
/// searched text cannot loop. An empty `find` leaves the text unchanged.
std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement);
/// The same with an exact (case-sensitive) comparison.
std::string ReplaceAllExact(std::string_view text, std::string_view find,
                            std::string_view replacement);

/// Trimming removes blanks only (not tabs), as the project readers expect.
std::string Trim(std::string_view text);
/// Removes the leading blanks only.
std::string TrimLeft(std::string_view text);
/// Removes the trailing blanks only.
std::string TrimRight(std::string_view text);

/// Every tab becomes one space.
std::string TabsToSpaces(std::string_view text);

/// Splits at every separator; an empty text gives no pieces, "a^" gives "a" and "".
std::vector<std::string> Split(std::string_view text, char separator);

/// Text before the first occurrence of `c` (the whole text when absent).
std::string_view Before(std::string_view text, char c);

/// Extension of a file name (text after the last dot of its last component), empty when none.
std::string FileExtension(std::string_view name);
/// The name without its extension and dot.
std::string FileBaseName(std::string_view name);

/// Where the first "\\" or "/" at or after `from` stands, or npos. (find_first_of
/// searches its set for every character, which the paths of every topic pay for.)
std::size_t FindSeparator(std::string_view text, std::size_t from = 0);
/// Where the last "\\" or "/" stands, or npos.
std::size_t FindLastSeparator(std::string_view text);

/// Where the first CR or LF at or after `from` stands, or npos.
std::size_t FindLineBreak(std::string_view text, std::size_t from = 0);

/// The line end a text uses (its first one: CR LF, LF or CR), CR LF when it has
/// none, so that inserted lines match the lines around them.
std::string_view LineEndOf(std::string_view text);

/// Windows-1252 to UTF-8 and back; Back fails (returns false) for characters outside the code page.
std::string Cp1252ToUtf8(std::string_view text);
/// Writes the Windows-1252 form of a UTF-8 text to `out`; false when a character has none or the
/// text is cut short.
bool Utf8ToCp1252(std::string_view text, std::string& out);

}  // namespace tamrix
