#pragma once
// The context-ID definitions of the map files and of the project's [MAP] section
// by name, so that a lookup per topic need not walk both collections.
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "model/c_context_id.h"
#include "platform/byte_text.h"

namespace tamrix {

/// One definition found under a name, and which collection holds it.
struct NamedDefinition {
    /// The definition itself, owned by its collection.
    CContextID* definition;
    bool fromMapFiles;  ///< from the map-file collection, not the [MAP] section
};

/// The definitions of both collections by folded name, built once.
class ContextIDIndex {
public:
    /// Indexes both collections as they stand; either may be null.
    ContextIDIndex(const CContextIDs* mapFileIds, const CContextIDs* projectIds);
    /// The definitions whose ContextString equals `name` without regard to case:
    /// the map-file ones first, each collection in its order.
    const std::vector<NamedDefinition>& Named(std::string_view name) const;

private:
    FoldedMap<std::vector<NamedDefinition>> byName_;
};

}  // namespace tamrix
