#include "model/c_context_id.h"

namespace tamrix {

std::shared_ptr<CContextID> CContextIDs::Add(ErrorReporter& errors, std::string_view contextString,
                                             std::string_view contextID, std::string_view key) {
    return Guarded(errors, "CContextIDs Collection:Add", std::shared_ptr<CContextID>(), [&] {
        auto record = std::make_shared<CContextID>();
        record->ContextString = std::string(contextString);
        record->ContextID = std::string(contextID);
        items_.Add(record, key);
        return record;
    });
}

}  // namespace tamrix
