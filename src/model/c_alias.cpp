#include "model/c_alias.h"

namespace tamrix {

std::shared_ptr<CAlias> CAliases::Add(std::string_view contextID) {
    // Without a key nothing but memory can fail, and the caller's guard reports that.
    auto alias = std::make_shared<CAlias>();
    alias->ContextID = std::string(contextID);
    items_.Add(alias);
    return alias;
}

}  // namespace tamrix
