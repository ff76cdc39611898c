#pragma once
// The keyed collection of topic files (key: AutoFileName), in [FILES] order.
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "model/c_topic_file.h"
#include "model/keyed_collection.h"
#include "platform/byte_text.h"

namespace tamrix {

/// Topic files keyed by AutoFileName, with lookups by topic ID and extra ID.
class CTopicFiles {
public:
    /// Appends under `key`; a key already present raises error 457.
    void Add(std::shared_ptr<CTopicFile> topic, std::string_view key);
    /// How many topic files are held.
    long Count() const { return items_.Count(); }
    /// The topic file at 1-based `index`; out of range raises error 9.
    const std::shared_ptr<CTopicFile>& Item(long index) const { return items_.Item(index); }
    /// The topic file under `key`; a missing key raises error 5.
    const std::shared_ptr<CTopicFile>& Item(std::string_view key) const { return items_.Item(key); }
    /// The topic file under `key`, or nullptr when there is none.
    std::shared_ptr<CTopicFile> Find(std::string_view key) const { return items_.Find(key); }
    /// Removes the topic file at 1-based `index`.
    void Delete(long index);
    /// The topic file a link target names (the target's text before any "#"), or
    /// nullptr. Every step asks this of every link, so the answer stays with the
    /// target until the collection changes.
    CTopicFile* TargetTopic(const CTarget& target) const;

    /// The first topic file in collection order whose Context equals `context`
    /// without regard to case, or nullptr. Looked up in an index kept in step with
    /// the collection; call ContextsChanged after editing a Context in place.
    std::shared_ptr<CTopicFile> FirstWithContext(std::string_view context) const;
    /// The first topic file whose ExtraIds list holds `id` (without regard to case).
    std::shared_ptr<CTopicFile> FirstWithExtraId(std::string_view id) const;
    /// Drops the lookup indexes, to be rebuilt on the next lookup.
    void ContextsChanged() { indexed_ = 0; }

    /// Iteration over the topic files in [FILES] order.
    auto begin() const { return items_.begin(); }
    /// The end of that iteration.
    auto end() const { return items_.end(); }

private:
    void BuildIndexes() const;

    // A new stamp for every change, unique among all collections.
    static std::uint64_t NewStamp();

    KeyedCollection<CTopicFile> items_;
    std::uint64_t stamp_ = NewStamp();
    mutable long indexed_ = 0;  // topic files covered by the indexes
    mutable FoldedMap<std::shared_ptr<CTopicFile>> byContext_;
    mutable FoldedMap<std::shared_ptr<CTopicFile>> byExtraId_;
};

}  // namespace tamrix
