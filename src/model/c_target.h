#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>

#include "model/keyed_collection.h"
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

/// The unique link targets of a file; callers avoid duplicates (see Contains).
class CTargets {
public:
    /// Appends a target; reports an error with "CTargets:Add" and returns nullptr on failure.
    std::shared_ptr<CTarget> Add(std::string_view targetString);
    /// How many targets are held.
    long Count() const { return items_.Count(); }
    /// The target at 1-based `index`; out of range raises error 9.
    const std::shared_ptr<CTarget>& Item(long index) const { return items_.Item(index); }
    /// Removes the target at 1-based `index`.
    void Delete(long index);
    /// Whether an equal target (without regard to case) is present.
    bool ContainsNoCase(std::string_view targetString) const;

    /// Iteration over the targets in order.
    auto begin() const { return items_.begin(); }
    /// The end of that iteration.
    auto end() const { return items_.end(); }

private:
    KeyedCollection<CTarget> items_;
    std::unordered_multiset<std::string, FoldedHash, FoldedEqual> folded_;
};

}  // namespace tamrix
