#pragma once
#include <memory>
#include <string>
#include <string_view>

#include "model/keyed_collection.h"

namespace tamrix {

/// One alias line of the WinHelp project: ContextID = TopicID.
class CAlias {
public:
    /// The context string on the left of the "=".
    std::string ContextID;
    /// The topic ID it stands for, on the right of the "=".
    std::string TopicID;
    /// Set when the rewritten alias file found a topic file for TopicID.
    bool AliasFound = false;
    /// The comment written after the line, if any.
    std::string Comment;
};

/// The alias lines of the project, in the order read.
class CAliases {
public:
    /// Reports an error with "CAliases:Add" and returns nullptr on failure.
    std::shared_ptr<CAlias> Add(std::string_view contextID);
    /// How many aliases are held.
    long Count() const { return items_.Count(); }
    /// The alias at 1-based `index`; out of range raises error 9.
    const std::shared_ptr<CAlias>& Item(long index) const { return items_.Item(index); }
    /// Removes the alias at 1-based `index`.
    void Delete(long index) { items_.Delete(index); }

    /// Iteration over the aliases in order.
    auto begin() const { return items_.begin(); }
    /// The end of that iteration.
    auto end() const { return items_.end(); }

private:
    KeyedCollection<CAlias> items_;
};

}  // namespace tamrix
