#pragma once
#include <memory>
#include <string>
#include <string_view>

#include "model/keyed_collection.h"

namespace tamrix {

// One alias line of the WinHelp project: ContextID = TopicID.
class CAlias {
public:
    std::string ContextID;
    std::string TopicID;
    bool AliasFound = false;
    std::string Comment;
};

class CAliases {
public:
    // Reports an error with "CAliases:Add" and returns nullptr on failure.
    std::shared_ptr<CAlias> Add(std::string_view contextID);
    long Count() const { return items_.Count(); }
    const std::shared_ptr<CAlias>& Item(long index) const { return items_.Item(index); }
    void Delete(long index) { items_.Delete(index); }

    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

private:
    KeyedCollection<CAlias> items_;
};

}  // namespace tamrix
