#include "popups/char_chain.h"

#include <algorithm>
#include <bit>

#include "platform/byte_text.h"

namespace tamrix::modStrings {

CharChain::CharChain(std::string_view text)
    : text_(text),
      nextMoved_(text.size()),
      prevMoved_(text.size()),
      removed_((text.size() + 63) / 64) {
    head_ = text.empty() ? kEnd : 0;
}

std::uint32_t CharChain::Step(std::uint32_t at, int count) const {
    for (; count > 0 && at != kEnd; --count) at = Next(at);
    return at;
}

std::uint32_t CharChain::StepBack(std::uint32_t at, int count) const {
    for (; count > 0; --count) {
        const std::uint32_t before = Prev(at);
        if (before == kEnd) break;
        at = before;
    }
    return at;
}

bool CharChain::MatchAt(std::uint32_t at, std::string_view word) const {
    for (const char c : word) {
        if (at == kEnd || FoldChar(text_[at]) != FoldChar(c)) return false;
        at = Next(at);
    }
    return true;
}

std::uint32_t CharChain::Find(std::string_view word, std::uint32_t from) const {
    while (from != kEnd && !MatchAt(from, word)) from = Next(from);
    return from;
}

std::uint32_t CharChain::FindChar(char c, std::uint32_t from) const {
    while (from != kEnd && text_[from] != c) from = Next(from);
    return from;
}

void CharChain::Remove(std::uint32_t first, std::uint32_t last) {
    const std::uint32_t before = Prev(first), after = Next(last);
    for (std::uint32_t at = first; at != after && at != kEnd; at = Next(at))
        removed_[at / 64] |= std::uint64_t{1} << (at % 64);
    if (before == kEnd) {
        head_ = after;
    } else {
        nextMoved_[before] = true;
        next_.Set(before, after);
    }
    if (after != kEnd) {
        prevMoved_[after] = true;
        prev_.Set(after, before);
    }
}

std::size_t CharChain::FirstMarked(std::size_t from, bool removed) const {
    const std::size_t size = text_.size();
    while (from < size) {
        std::uint64_t word = removed_[from / 64];
        if (!removed) word = ~word;
        word &= ~std::uint64_t{0} << (from % 64);
        if (word != 0) return std::min(size, from / 64 * 64 + std::countr_zero(word));
        from = (from / 64 + 1) * 64;
    }
    return size;
}

std::string CharChain::Text() const {
    // The characters left are those never removed, in the order of the text: taken
    // run by run, without following a single link, into a result made at its size.
    std::size_t size = text_.size();
    for (const std::uint64_t word : removed_) size -= std::popcount(word);
    std::string out;
    out.reserve(size);
    for (std::size_t at = FirstMarked(0, false); at < text_.size();) {
        const std::size_t end = FirstMarked(at, true);
        out.append(text_.substr(at, end - at));
        at = FirstMarked(end, false);
    }
    return out;
}

std::size_t CharChain::Links::SlotOf(std::uint32_t at) const {
    // Fibonacci hashing: the top bits of the product spread neighbouring positions.
    return static_cast<std::size_t>((at * 0x9E3779B97F4A7C15ULL) >> (64 - bits_));
}

std::uint32_t CharChain::Links::At(std::uint32_t at) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = SlotOf(at);
    while (slots_[slot].first != at) slot = (slot + 1) & mask;
    return slots_[slot].second;
}

void CharChain::Links::Set(std::uint32_t at, std::uint32_t link) {
    if (2 * (used_ + 1) > slots_.size()) Grow();
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = SlotOf(at);
    while (slots_[slot].first != kEnd && slots_[slot].first != at) slot = (slot + 1) & mask;
    if (slots_[slot].first == kEnd) ++used_;
    slots_[slot] = {at, link};
}

void CharChain::Links::Grow() {
    std::vector<std::pair<std::uint32_t, std::uint32_t>> old;
    old.swap(slots_);
    bits_ = old.empty() ? 4 : bits_ + 1;
    slots_.assign(std::size_t{1} << bits_, {kEnd, 0});
    used_ = 0;
    for (const auto& [at, link] : old)
        if (at != kEnd) Set(at, link);
}

}  // namespace tamrix::modStrings
