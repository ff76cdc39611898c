#include "model/context_id_index.h"

#include "platform/byte_text.h"

namespace tamrix {

ContextIDIndex::ContextIDIndex(const CContextIDs* mapFileIds, const CContextIDs* projectIds) {
    for (const CContextIDs* ids : {mapFileIds, projectIds}) {
        if (ids == nullptr) continue;
        for (const auto& id : *ids)
            byName_[Fold(id->ContextString)].push_back({id.get(), ids == mapFileIds});
    }
}

const std::vector<NamedDefinition>& ContextIDIndex::Named(std::string_view name) const {
    static const std::vector<NamedDefinition> kNone;
    const auto it = byName_.find(name);
    return it == byName_.end() ? kNone : it->second;
}

}  // namespace tamrix
