#pragma once
// The writers' renaming loop over a whole file: for each name in order, every
// occurrence (without regard to case) is replaced, searching from the start and
// then from after each inserted text; a match at position 0 ends the search for
// that name. Done one name at a time this costs a pass over the file per name;
// here the common case is done in one pass with the same result.
#include <string>
#include <string_view>
#include <vector>

namespace tamrix::modRewrite {

/// One name to replace and what replaces it.
struct NameReplacement {
    /// The name looked for, in any case.
    std::string name;
    /// The text put in its place.
    std::string replacement;
    /// Only looks: the count is 1 when the search finds the name (not at position 0).
    bool probeOnly = false;
};

/// What ReplaceInOrder gives back.
struct ReplaceOutcome {
    /// The text with the replacements made.
    std::string text;
    std::vector<int> counts;  ///< replacements made (or names found) for each entry
    /// Where the caret stands after the last entry: after its last inserted text,
    /// at the name a probe found, or at 0 when the last search found nothing.
    std::size_t caret = 0;
    bool onePass = false;  ///< whether the single-pass way was taken
};

/// The result of the loop. The single pass is taken when the names' occurrences
/// do not overlap and no inserted text can form a new occurrence; otherwise the
/// names are replaced one at a time. With a limit, the work may stop as soon as
/// one entry's count passes it; the text is then of no use.
ReplaceOutcome ReplaceInOrder(std::string_view text, const std::vector<NameReplacement>& list,
                              int limit = 0);

}  // namespace tamrix::modRewrite
