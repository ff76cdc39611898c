#pragma once
// A text as a chain of characters, so that removing a tag costs its own length
// and not the length of what follows it. Positions are indices into the
// original text; they stay valid while characters around them are removed, and
// the order of the characters left is the order of their positions.
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
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
    std::uint32_t Next(std::uint32_t at) const {
        if (at == kEnd) return kEnd;
        if (nextMoved_[at]) return next_.At(at);
        return at + 1 < text_.size() ? at + 1 : kEnd;
    }
    /// The character before `at`, or kEnd.
    std::uint32_t Prev(std::uint32_t at) const {
        if (at == kEnd) return kEnd;
        if (prevMoved_[at]) return prev_.At(at);
        return at > 0 ? at - 1 : kEnd;
    }
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
    // The links that no longer go to the neighbouring position, by position: only
    // the characters on either side of a removed run have one, so a table of
    // them takes a fraction of a link per character.
    class Links {
    public:
        /// The link kept for `at`, which must have one.
        std::uint32_t At(std::uint32_t at) const;
        /// Keeps `link` for `at`.
        void Set(std::uint32_t at, std::uint32_t link);

    private:
        std::size_t SlotOf(std::uint32_t at) const;
        void Grow();
        std::vector<std::pair<std::uint32_t, std::uint32_t>> slots_;  // kEnd: a free slot
        std::size_t used_ = 0;
        int bits_ = 0;  // slots_ holds 2^bits_ slots
    };

    // The first position from `from` on that is removed (or kept), or the text's size.
    std::size_t FirstMarked(std::size_t from, bool removed) const;

    std::string_view text_;
    std::uint32_t head_ = kEnd;
    // Whether the link after (before) a position was changed by a removal.
    std::vector<bool> nextMoved_, prevMoved_;
    Links next_, prev_;
    std::vector<std::uint64_t> removed_;  // a bit for each position
};

}  // namespace tamrix::modStrings
