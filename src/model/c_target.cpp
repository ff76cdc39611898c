#include "model/c_target.h"

namespace tamrix {

std::shared_ptr<CTarget> CTargets::Add(std::string_view targetString) {
    // Without a key nothing but memory can fail, and the caller's guard reports that.
    auto target = std::make_shared<CTarget>();
    target->TargetString = std::string(targetString);
    items_.Add(target);
    folded_.insert(Fold(targetString));
    return target;
}

void CTargets::Delete(long index) {
    const std::string folded = Fold(items_.Item(index)->TargetString);
    items_.Delete(index);
    if (auto it = folded_.find(folded); it != folded_.end()) folded_.erase(it);
}

bool CTargets::ContainsNoCase(std::string_view targetString) const {
    return folded_.count(targetString) != 0;
}

}  // namespace tamrix
