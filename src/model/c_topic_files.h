#pragma once
// The keyed collection of topic files (key: AutoFileName), in [FILES] order.
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "model/c_topic_file.h"
#include "model/keyed_collection.h"

namespace tamrix {

class CTopicFiles {
public:
    // Appends under `key`; a key already present raises error 457.
    void Add(std::shared_ptr<CTopicFile> topic, std::string_view key);
    long Count() const { return items_.Count(); }
    const std::shared_ptr<CTopicFile>& Item(long index) const { return items_.Item(index); }
    const std::shared_ptr<CTopicFile>& Item(std::string_view key) const { return items_.Item(key); }
    std::shared_ptr<CTopicFile> Find(std::string_view key) const { return items_.Find(key); }
    void Delete(long index);

    // The first topic file in collection order whose Context equals `context`
    // without regard to case, or nullptr. Looked up in an index kept in step with
    // the collection; call ContextsChanged after editing a Context in place.
    std::shared_ptr<CTopicFile> FirstWithContext(std::string_view context) const;
    // The first topic file whose ExtraIds list holds `id` (without regard to case).
    std::shared_ptr<CTopicFile> FirstWithExtraId(std::string_view id) const;
    void ContextsChanged() { indexed_ = 0; }

    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

private:
    void BuildIndexes() const;

    KeyedCollection<CTopicFile> items_;
    mutable long indexed_ = 0;  // topic files covered by the indexes
    mutable std::unordered_map<std::string, std::shared_ptr<CTopicFile>> byContext_;
    mutable std::unordered_map<std::string, std::shared_ptr<CTopicFile>> byExtraId_;
};

}  // namespace tamrix
