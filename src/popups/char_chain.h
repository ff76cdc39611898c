#pragma once
// A text as a chain of characters, so that removing a tag costs its own length
// and not the length of what follows it. Positions are indices into the
// original text; they stay valid while characters around them are removed, and
// the order of the characters left is the order of their positions.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tamrix::modStrings {

/// A text as a chain of characters from which tags are cut at the cost of their own length.
class CharChain {
public:
    /// The position past the end, and "not found".
    static constexpr std::uint32_t kEnd = UINT32_MAX;

    /// `text` must outlive the chain and be shorter than kEnd.
    explicit CharChain(std::string_view text);

    /// The first character left, or kEnd.
    std::uint32_t Head() const { return head_; }
    /// The character after `at`, or kEnd.
    std::uint32_t Next(std::uint32_t at) const { return at == kEnd ? kEnd : next_[at]; }
    /// The character before `at`, or kEnd.
    std::uint32_t Prev(std::uint32_t at) const { return at == kEnd ? kEnd : prev_[at]; }
    /// `count` characters on (kEnd past the end) or back (the first at the start).
    std::uint32_t Step(std::uint32_t at, int count) const;
    /// `count` characters back, stopping at the first.
    std::uint32_t StepBack(std::uint32_t at, int count) const;

    /// Whether `word` starts at `at`, without regard to case.
    bool MatchAt(std::uint32_t at, std::string_view word) const;
    /// The first match at or after `from`, without regard to case; kEnd when none.
    std::uint32_t Find(std::string_view word, std::uint32_t from) const;
    /// The first `c` at or after `from`; kEnd when none.
    std::uint32_t FindChar(char c, std::uint32_t from) const;

    /// Removes the characters from `first` to `last`, both included.
    void Remove(std::uint32_t first, std::uint32_t last);

    /// The characters left, in order.
    std::string Text() const;

private:
    std::string_view text_;
    std::vector<std::uint32_t> next_, prev_;
    std::uint32_t head_ = kEnd;
};

}  // namespace tamrix::modStrings
