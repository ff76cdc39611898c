#include "popups/char_chain.h"

#include "platform/byte_text.h"

namespace tamrix::modStrings {

CharChain::CharChain(std::string_view text) : text_(text), next_(text.size()), prev_(text.size()) {
    const auto size = static_cast<std::uint32_t>(text.size());
    for (std::uint32_t i = 0; i < size; ++i) {
        next_[i] = i + 1 < size ? i + 1 : kEnd;
        prev_[i] = i > 0 ? i - 1 : kEnd;
    }
    head_ = text.empty() ? kEnd : 0;
}

std::uint32_t CharChain::Step(std::uint32_t at, int count) const {
    for (; count > 0 && at != kEnd; --count) at = next_[at];
    return at;
}

std::uint32_t CharChain::StepBack(std::uint32_t at, int count) const {
    for (; count > 0 && prev_[at] != kEnd; --count) at = prev_[at];
    return at;
}

bool CharChain::MatchAt(std::uint32_t at, std::string_view word) const {
    for (const char c : word) {
        if (at == kEnd || !EqualsNoCase(text_.substr(at, 1), std::string_view(&c, 1))) return false;
        at = next_[at];
    }
    return true;
}

std::uint32_t CharChain::Find(std::string_view word, std::uint32_t from) const {
    while (from != kEnd && !MatchAt(from, word)) from = next_[from];
    return from;
}

std::uint32_t CharChain::FindChar(char c, std::uint32_t from) const {
    while (from != kEnd && text_[from] != c) from = next_[from];
    return from;
}

void CharChain::Remove(std::uint32_t first, std::uint32_t last) {
    const std::uint32_t before = prev_[first], after = next_[last];
    (before == kEnd ? head_ : next_[before]) = after;
    if (after != kEnd) prev_[after] = before;
}

std::string CharChain::Text() const {
    std::string out;
    for (std::uint32_t at = head_; at != kEnd; at = next_[at]) out += text_[at];
    return out;
}

}  // namespace tamrix::modStrings
