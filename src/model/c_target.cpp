#include "model/c_target.h"

#include <algorithm>

#include "platform/program_error.h"

namespace tamrix {
namespace {
// Up to this many targets a search of the list is quicker than a hashed look-up.
constexpr std::size_t kListed = 16;
}  // namespace

const CTarget& CTargets::Add(std::string_view targetString) {
    items_.emplace_back().TargetString = targetString;
    if (items_.size() > kListed) {
        if (!hashed_) {
            hashed_ = std::make_unique<Hashed>();
            for (const CTarget& target : items_) hashed_->insert(target.TargetString);
        } else {
            hashed_->insert(items_.back().TargetString);
        }
    }
    return items_.back();
}

const CTarget& CTargets::Item(long index) const {
    if (index < 1 || index > Count()) RaiseError(err::kSubscript);
    return items_[static_cast<std::size_t>(index - 1)];
}

void CTargets::Delete(long index) {
    if (index < 1 || index > Count()) RaiseError(err::kSubscript);
    const auto position = items_.begin() + (index - 1);
    if (hashed_) hashed_->erase(hashed_->find(position->TargetString));
    items_.erase(position);
    if (items_.size() <= kListed) hashed_.reset();
}

bool CTargets::ContainsNoCase(std::string_view targetString) const {
    if (hashed_) return hashed_->count(targetString) != 0;
    return std::any_of(items_.begin(), items_.end(), [&](const CTarget& target) {
        return EqualsNoCase(target.TargetString, targetString);
    });
}

}  // namespace tamrix
