#pragma once
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>

#include "model/keyed_collection.h"

namespace tamrix {

// A link target exactly as written between the quotes of an HREF or a sitemap Local value.
class CTarget {
public:
    std::string TargetString;
};

// The unique link targets of a file; callers avoid duplicates (see Contains).
class CTargets {
public:
    // Appends a target; reports an error with "CTargets:Add" and returns nullptr on failure.
    std::shared_ptr<CTarget> Add(std::string_view targetString);
    long Count() const { return items_.Count(); }
    const std::shared_ptr<CTarget>& Item(long index) const { return items_.Item(index); }
    void Delete(long index);
    // Whether an equal target (without regard to case) is present.
    bool ContainsNoCase(std::string_view targetString) const;

    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

private:
    KeyedCollection<CTarget> items_;
    std::unordered_multiset<std::string> folded_;
};

}  // namespace tamrix
