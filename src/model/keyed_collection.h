#pragma once
// An ordered collection whose items may carry a key (compared without regard
// to case), addressed by 1-based position or by key, like the Basic collection
// the project model was designed around.
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/byte_text.h"
#include "platform/program_error.h"

namespace tamrix {

/// Items of type T in insertion order, each optionally under a case-blind key.
template <class T>
class KeyedCollection {
public:
    /// Items are shared: a caller may keep one after it leaves the collection.
    using Ptr = std::shared_ptr<T>;

    /// Appends the item; a key already present raises error 457 and nothing is added.
    void Add(Ptr item, std::string_view key = {}) {
        std::string folded = Fold(key);
        if (!key.empty()) {
            if (index_.count(folded) != 0) RaiseError(err::kDuplicateKey);
            index_.emplace(folded, items_.size());
        }
        items_.push_back(std::move(item));
        keys_.push_back(std::move(folded));
    }

    /// How many items are held.
    long Count() const { return static_cast<long>(items_.size()); }
    /// Whether no item is held.
    bool Empty() const { return items_.empty(); }

    /// 1-based position; out of range raises error 9.
    const Ptr& Item(long index) const {
        if (index < 1 || index > Count()) RaiseError(err::kSubscript);
        return items_[static_cast<std::size_t>(index - 1)];
    }
    /// By key; an unknown key raises error 5.
    const Ptr& Item(std::string_view key) const {
        const auto it = index_.find(key);
        if (key.empty() || it == index_.end()) RaiseError(err::kInvalidCall);
        return items_[it->second];
    }
    /// By key, or nullptr.
    Ptr Find(std::string_view key) const {
        if (key.empty()) return nullptr;
        const auto it = index_.find(key);
        return it == index_.end() ? nullptr : items_[it->second];
    }
    /// Whether an item is held under `key`.
    bool Contains(std::string_view key) const { return Find(key) != nullptr; }

    /// Removes the item at 1-based `index`; out of range raises error 9.
    void Delete(long index) {
        if (index < 1 || index > Count()) RaiseError(err::kSubscript);
        const auto pos = static_cast<std::size_t>(index - 1);
        items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(pos));
        keys_.erase(keys_.begin() + static_cast<std::ptrdiff_t>(pos));
        Reindex();
    }
    /// Removes the item under `key`; an unknown key raises error 5.
    void Delete(std::string_view key) {
        const auto it = index_.find(key);
        if (key.empty() || it == index_.end()) RaiseError(err::kInvalidCall);
        Delete(static_cast<long>(it->second) + 1);
    }
    /// Removes every item.
    void Clear() {
        items_.clear();
        keys_.clear();
        index_.clear();
    }

    /// Iteration over the items in order.
    auto begin() const { return items_.begin(); }
    /// The end of that iteration.
    auto end() const { return items_.end(); }

private:
    void Reindex() {
        index_.clear();
        for (std::size_t i = 0; i < keys_.size(); ++i)
            if (!keys_[i].empty()) index_.emplace(keys_[i], i);
    }

    std::vector<Ptr> items_;
    std::vector<std::string> keys_;
    FoldedMap<std::size_t> index_;
};

}  // namespace tamrix
