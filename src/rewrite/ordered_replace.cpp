#include "rewrite/ordered_replace.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <optional>
#include <set>
#include <unordered_map>

#include "platform/byte_text.h"

namespace tamrix::modRewrite {
namespace {

// More different name lengths than this make the single pass slower than it is worth.
constexpr std::size_t kMaxLengths = 32;

struct Occurrence {
    std::size_t start;
    std::size_t length;
    int group;
};

// The folded names, each once, and where each occurs in a text.
class NameIndex {
public:
    explicit NameIndex(const std::vector<std::string>& foldedNames) {
        for (std::size_t i = 0; i < foldedNames.size(); ++i) {
            const std::string& name = foldedNames[i];
            if (name.empty()) continue;
            if (!groups_.emplace(name, static_cast<int>(i)).second) continue;
            lengths_.insert(name.size());
            const auto first = static_cast<unsigned char>(name[0]);
            firsts_[first] = true;
            if (name.size() == 1)
                singles_.set(first);
            else
                pairs_.set(PairOf(name[0], name[1]));
            for (std::size_t j = 1; j < name.size(); ++j) inner_.set(PairOf(name[j - 1], name[j]));
        }
        if (groups_.empty()) return;
        shortest_ = *lengths_.begin();
        if (shortest_ < kMinSkipLength) return;
        // How far the end of a window of the shortest length may move on from a
        // pair of characters: no further than to where that pair stands in the
        // first `shortest_` characters of some name.
        skips_.assign(kSkipSlots,
                      static_cast<unsigned char>(std::min<std::size_t>(shortest_ - 1, kMaxSkip)));
        for (const auto& entry : groups_) {
            const std::string& name = entry.first;
            for (std::size_t j = 1; j < shortest_; ++j) {
                unsigned char& skip = skips_[SlotOf(name[j - 1], name[j])];
                skip = static_cast<unsigned char>(std::min<std::size_t>(skip, shortest_ - 1 - j));
            }
        }
    }
    std::size_t LengthCount() const { return lengths_.size(); }
    std::size_t MaxLength() const { return lengths_.empty() ? 0 : *lengths_.rbegin(); }
    // The group (first entry with this folded name), or -1.
    int GroupOf(std::string_view folded) const {
        const auto it = groups_.find(folded);
        return it == groups_.end() ? -1 : it->second;
    }
    // Every occurrence in the text, by start. A large text is folded a block at a
    // time, so that no folded copy of the whole of it is ever held; each block
    // reaches as far as the longest name, and is never shorter than that reach,
    // so that no character is folded more than twice.
    std::vector<Occurrence> FindAll(std::string_view text) const {
        std::vector<Occurrence> found;
        const std::size_t reach = MaxLength() > 0 ? MaxLength() - 1 : 0;
        const std::size_t block = std::max(kBlock, reach);
        for (std::size_t from = 0; from < text.size(); from += block) {
            const std::size_t starts = std::min(block, text.size() - from);
            FindIn(Fold(text.substr(from, starts + reach)), starts, from, found);
        }
        return found;
    }
    // Whether some name holds the two characters side by side.
    bool HasPair(char a, char b) const { return inner_.test(PairOf(a, b)); }
    // Whether a name occurs in the folded window over [from, to), or across `from`
    // when the range is empty.
    bool OccursOver(std::string_view window, std::size_t from, std::size_t to) const {
        std::vector<Occurrence> found;
        FindIn(window, window.size(), 0, found);
        for (const Occurrence& o : found) {
            const std::size_t end = o.start + o.length;
            if (from == to ? o.start < from && end > from : o.start < to && end > from) return true;
        }
        return false;
    }

private:
    // How much of a large text is folded at once.
    static constexpr std::size_t kBlock = 64 * 1024;
    // Names at least this long are looked for by skipping.
    static constexpr std::size_t kMinSkipLength = 4;
    static constexpr std::size_t kMaxSkip = 255;
    static constexpr std::size_t kSkipSlots = 4096;
    // Pairs of characters share slots; a shared slot only skips less.
    static std::size_t SlotOf(char a, char b) {
        return (static_cast<unsigned char>(a) * 31u + static_cast<unsigned char>(b)) % kSkipSlots;
    }
    static std::size_t PairOf(char a, char b) {
        return static_cast<std::size_t>(static_cast<unsigned char>(a)) << 8 |
               static_cast<unsigned char>(b);
    }
    // Adds the occurrences in a folded piece of text that start in its first
    // `starts` characters; `offset` is where the piece stands in the whole text.
    void FindIn(std::string_view folded, std::size_t starts, std::size_t offset,
                std::vector<Occurrence>& found) const {
        if (skips_.empty()) {
            for (std::size_t i = 0; i < starts; ++i) AddAt(folded, i, offset, found);
            return;
        }
        // Long names: the end of a window of the shortest length jumps over the
        // text while its last two characters cannot end any name's first part.
        for (std::size_t end = shortest_ - 1;
             end < folded.size() && end + 1 < starts + shortest_;) {
            const unsigned char skip = skips_[SlotOf(folded[end - 1], folded[end])];
            if (skip > 0) {
                end += skip;
                continue;
            }
            AddAt(folded, end + 1 - shortest_, offset, found);
            ++end;
        }
    }
    // Adds the names that start at position i, shortest first.
    void AddAt(std::string_view folded, std::size_t i, std::size_t offset,
               std::vector<Occurrence>& found) const {
        if (!MayStartAt(folded, i)) return;
        for (const std::size_t length : lengths_) {
            if (i + length > folded.size()) break;
            const int group = GroupOf(folded.substr(i, length));
            if (group >= 0) found.push_back({offset + i, length, group});
        }
    }
    // Whether a name can start at position i: most positions are passed over
    // on their first two characters without hashing anything.
    bool MayStartAt(std::string_view folded, std::size_t i) const {
        const auto first = static_cast<unsigned char>(folded[i]);
        if (!firsts_[first]) return false;
        if (singles_.test(first)) return true;
        return i + 1 < folded.size() && pairs_.test(PairOf(folded[i], folded[i + 1]));
    }

    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view s) const {
            return std::hash<std::string_view>{}(s);
        }
    };
    std::unordered_map<std::string, int, Hash, std::equal_to<>> groups_;
    std::set<std::size_t> lengths_;
    std::array<bool, 256> firsts_{};  // first characters of all names
    std::bitset<256> singles_;        // first characters of one-character names
    std::bitset<65536> pairs_;        // first two characters of longer names
    std::bitset<65536> inner_;        // every two neighbouring characters of a name
    std::size_t shortest_ = 0;
    std::vector<unsigned char> skips_;  // by pair of characters; empty: no skipping
};

// An occurrence and, folded, the text that replaces it (none when it is kept).
struct Site {
    std::size_t start;
    std::size_t length;
    int group;
    int entry;                       // the list entry that replaces it, or -1
    const std::string* replacement;  // that entry's text, folded
};

// Every text of `need` characters (fewer at the ends of the text) that can stand
// just before (or after) site i while the names are replaced: the gaps and the
// neighbouring sites, each as found or as replaced. Nothing when that gives too
// many texts to check.
std::optional<std::vector<std::string>> Contexts(std::string_view whole,
                                                 const std::vector<Site>& sites, std::size_t i,
                                                 std::size_t need, bool before) {
    constexpr std::size_t kMaxContexts = 16;
    // Mostly the text reaches `need` characters (or the end) before any neighbour.
    const Site& site = sites[i];
    if (before) {
        const std::size_t edge = site.start;
        const std::size_t limit = i > 0 ? sites[i - 1].start + sites[i - 1].length : 0;
        if (edge - limit >= need || i == 0) {
            const std::size_t from = edge - std::min(need, edge - limit);
            return std::vector<std::string>{Fold(whole.substr(from, edge - from))};
        }
    } else {
        const std::size_t edge = site.start + site.length;
        const bool last = i + 1 == sites.size();
        const std::size_t limit = last ? whole.size() : sites[i + 1].start;
        if (limit - edge >= need || last)
            return std::vector<std::string>{Fold(whole.substr(edge, need))};
    }
    std::vector<std::string> out{std::string()};
    // Walks away from site i, one gap and one neighbouring site at a time.
    std::size_t edge = before ? sites[i].start : sites[i].start + sites[i].length;
    std::size_t next = i;  // sites[next] is the next neighbour in the walk, when in range
    while (true) {
        const bool more = before ? next > 0 : next + 1 < sites.size();
        const Site* neighbour = more ? &sites[before ? next - 1 : next + 1] : nullptr;
        const std::size_t gapEnd = before ? edge : (neighbour ? neighbour->start : whole.size());
        const std::size_t gapStart =
            before ? (neighbour ? neighbour->start + neighbour->length : 0) : edge;
        const std::string gap = Fold(whole.substr(gapStart, gapEnd - gapStart));
        bool shortOnes = false;
        for (std::string& text : out) {
            text = before ? gap + text : text + gap;
            shortOnes = shortOnes || text.size() < need;
        }
        if (!shortOnes || neighbour == nullptr) break;
        const std::string found = Fold(whole.substr(neighbour->start, neighbour->length));
        std::vector<std::string> grown;
        for (const std::string& text : out) {
            if (text.size() >= need) {
                grown.push_back(text);
                continue;
            }
            grown.push_back(before ? found + text : text + found);
            if (neighbour->replacement != nullptr)
                grown.push_back(before ? *neighbour->replacement + text
                                       : text + *neighbour->replacement);
        }
        if (grown.size() > kMaxContexts) return std::nullopt;
        out = std::move(grown);
        edge = before ? neighbour->start : neighbour->start + neighbour->length;
        next = before ? next - 1 : next + 1;
    }
    for (std::string& text : out) {
        if (text.size() <= need) continue;
        if (before)
            text.erase(0, text.size() - need);
        else
            text.resize(need);
    }
    std::sort(out.begin(), out.end());
    out.erase(std::unique(out.begin(), out.end()), out.end());
    return out;
}

// Whether the replacement of site i can form no occurrence whatever its neighbours
// become: it holds no name, and no name holds the pair of characters at either of
// its edges (those stay as they are when the site does not touch a neighbour).
bool StandsApart(std::string_view text, const std::vector<Site>& sites, std::size_t i,
                 const NameIndex& index) {
    const Site& site = sites[i];
    const std::string& inserted = *site.replacement;
    const std::size_t end = site.start + site.length;
    if (inserted.empty() || (i > 0 && sites[i - 1].start + sites[i - 1].length == site.start) ||
        (i + 1 < sites.size() && sites[i + 1].start == end))
        return false;
    if (site.start > 0 && index.HasPair(FoldChar(text[site.start - 1]), inserted.front()))
        return false;
    if (end < text.size() && index.HasPair(inserted.back(), FoldChar(text[end]))) return false;
    return !index.OccursOver(inserted, 0, inserted.size());
}

std::optional<ReplaceOutcome> ReplaceInOnePass(std::string_view text,
                                               const std::vector<NameReplacement>& list) {
    std::vector<std::string> names;
    for (const auto& entry : list) names.push_back(Fold(entry.name));
    const NameIndex index(names);
    if (index.LengthCount() > kMaxLengths) return std::nullopt;

    std::vector<Occurrence> found = index.FindAll(text);
    for (std::size_t i = 1; i < found.size(); ++i)
        if (found[i].start < found[i - 1].start + found[i - 1].length) return std::nullopt;

    // Which entry replaces each group: the first listing that is no probe, unless
    // the name stands at position 0, which ends every search for it. A probe finds
    // its name while no earlier entry has replaced it.
    const int atStart = !found.empty() && found[0].start == 0 ? found[0].group : -1;
    ReplaceOutcome outcome;
    outcome.counts.assign(list.size(), 0);
    std::unordered_map<int, std::size_t> replacer;
    std::unordered_map<int, int> occurrences;
    for (const Occurrence& o : found) ++occurrences[o.group];
    for (std::size_t k = 0; k < list.size(); ++k) {
        const int group = index.GroupOf(names[k]);
        if (group < 0 || group == atStart || replacer.count(group) != 0) continue;
        if (list[k].probeOnly) {
            outcome.counts[k] = occurrences[group] > 0 ? 1 : 0;
            continue;
        }
        replacer.emplace(group, k);
        outcome.counts[k] = occurrences[group];
    }

    // Each replacing entry's text folded once, however many sites it replaces.
    std::vector<std::string> foldedReplacements(list.size());
    for (const auto& [group, k] : replacer) foldedReplacements[k] = Fold(list[k].replacement);
    std::vector<Site> sites;
    sites.reserve(found.size());
    for (const Occurrence& o : found) {
        const auto it = replacer.find(o.group);
        const int entry = it == replacer.end() ? -1 : static_cast<int>(it->second);
        sites.push_back({o.start, o.length, o.group, entry,
                         entry < 0 ? nullptr : &foldedReplacements[it->second]});
    }
    found = {};
    // No inserted text may form an occurrence with what can stand around it.
    const std::size_t need = index.MaxLength() > 0 ? index.MaxLength() - 1 : 0;
    for (std::size_t i = 0; i < sites.size(); ++i) {
        if (sites[i].replacement == nullptr) continue;
        if (StandsApart(text, sites, i, index)) continue;
        const auto left = Contexts(text, sites, i, need, true);
        const auto right = Contexts(text, sites, i, need, false);
        if (!left || !right) return std::nullopt;
        for (const std::string& l : *left)
            for (const std::string& r : *right)
                if (index.OccursOver(l + *sites[i].replacement + r, l.size(),
                                     l.size() + sites[i].replacement->size()))
                    return std::nullopt;
    }

    // The last entry's group: where its first site starts and its last one ends.
    const int lastGroup = list.empty() ? -1 : index.GroupOf(names.back());
    std::optional<std::size_t> firstStart;
    std::size_t lastEnd = 0;
    std::size_t done = 0;
    // Made at its final size at once: a large text grown piece by piece would be
    // copied to fresh memory several times.
    std::size_t size = text.size();
    for (const Site& o : sites)
        if (o.entry >= 0) size += list[o.entry].replacement.size() - o.length;
    outcome.text.reserve(size);
    for (const Site& o : sites) {
        outcome.text.append(text.substr(done, o.start - done));
        if (o.group == lastGroup && !firstStart) firstStart = outcome.text.size();
        outcome.text += o.entry < 0 ? text.substr(o.start, o.length)
                                    : std::string_view(list[o.entry].replacement);
        if (o.group == lastGroup) lastEnd = outcome.text.size();
        done = o.start + o.length;
    }
    outcome.text.append(text.substr(done));
    if (!list.empty() && outcome.counts.back() > 0)
        outcome.caret = list.back().probeOnly ? *firstStart : lastEnd;
    outcome.onePass = true;
    return outcome;
}

// One pass over the text per name. The search for a name always goes on after
// the text just inserted, so each name's replacements are one left-to-right pass.
ReplaceOutcome ReplaceNameByName(std::string_view text, const std::vector<NameReplacement>& list,
                                 int limit) {
    ReplaceOutcome outcome;
    outcome.text = std::string(text);
    outcome.counts.assign(list.size(), 0);
    for (std::size_t k = 0; k < list.size(); ++k) {
        const std::string& name = list[k].name;
        std::size_t hit = FindNoCase(outcome.text, name, 0);
        outcome.caret = 0;
        if (hit == kNotFound || hit == 0) continue;  // a match at position 0 ends the search
        if (list[k].probeOnly) {
            outcome.counts[k] = 1;
            outcome.caret = hit;
            continue;
        }
        std::string next;
        std::size_t done = 0;
        for (; hit != kNotFound; hit = FindNoCase(outcome.text, name, done)) {
            next.append(outcome.text, done, hit - done);
            next += list[k].replacement;
            outcome.caret = next.size();
            done = hit + name.size();
            if (++outcome.counts[k] > limit && limit > 0) return outcome;
        }
        next.append(outcome.text, done, std::string::npos);
        outcome.text = std::move(next);
    }
    return outcome;
}

}  // namespace

ReplaceOutcome ReplaceInOrder(std::string_view text, const std::vector<NameReplacement>& list,
                              int limit) {
    if (auto outcome = ReplaceInOnePass(text, list)) return std::move(*outcome);
    return ReplaceNameByName(text, list, limit);
}

}  // namespace tamrix::modRewrite
