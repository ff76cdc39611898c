#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "platform/byte_text.h"

namespace tamrix {

class CTopicFile;

/// A link target exactly as written between the quotes of an HREF or a sitemap Local value.
class CTarget {
public:
    /// The target text, unchanged.
    std::string TargetString;

private:
    friend class CTopicFiles;
    // The topic file it names, as CTopicFiles::TargetTopic last found it, and the
    // state of the collection it was found in.
    mutable CTopicFile* topic_ = nullptr;
    mutable std::uint64_t stamp_ = 0;
};

/// The unique link targets of a file; callers avoid duplicates (see ContainsNoCase).
class CTargets {
public:
    /// Appends a target; the reference stays valid until the next Add or Delete.
    const CTarget& Add(std::string_view targetString);
    /// How many targets are held.
    long Count() const { return static_cast<long>(items_.size()); }
    /// The target at 1-based `index`; out of range raises error 9.
    const CTarget& Item(long index) const;
    /// Removes the target at 1-based `index`; out of range raises error 9.
    void Delete(long index);
    /// Whether an equal target (without regard to case) is present.
    bool ContainsNoCase(std::string_view targetString) const;

    /// Iteration over the targets in order.
    auto begin() const { return items_.begin(); }
    /// The end of that iteration.
    auto end() const { return items_.end(); }

private:
    // Held by value: a project has several per topic file, most of them short.
    std::vector<CTarget> items_;
    // The same texts for ContainsNoCase, made only once a file has many targets:
    // a pointer, so that the many files with few pay for no empty set.
    using Hashed = std::unordered_multiset<std::string, FoldedHash, FoldedEqual>;
    std::unique_ptr<Hashed> hashed_;
};

}  // namespace tamrix
