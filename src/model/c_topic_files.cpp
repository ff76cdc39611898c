#include "model/c_topic_files.h"

#include <atomic>

#include "platform/byte_text.h"

namespace tamrix {

std::uint64_t CTopicFiles::NewStamp() {
    static std::atomic<std::uint64_t> last{0};
    return ++last;
}

void CTopicFiles::Add(std::shared_ptr<CTopicFile> topic, std::string_view key) {
    items_.Add(std::move(topic), key);
    stamp_ = NewStamp();
}

void CTopicFiles::Delete(long index) {
    items_.Delete(index);
    stamp_ = NewStamp();
    indexed_ = 0;
    byContext_.clear();
    byExtraId_.clear();
}

void CTopicFiles::BuildIndexes() const {
    if (indexed_ == 0) {
        byContext_.clear();
        byExtraId_.clear();
    }
    // Only topic files added since the last call are indexed; emplace keeps the first.
    for (long i = indexed_ + 1; i <= Count(); ++i) {
        const auto& topic = items_.Item(i);
        if (!topic->Context.empty()) byContext_.emplace(Fold(topic->Context), topic);
        for (const std::string& id : Split(topic->ExtraIds, '^'))
            if (!id.empty()) byExtraId_.emplace(Fold(id), topic);
    }
    indexed_ = Count();
}

CTopicFile* CTopicFiles::TargetTopic(const CTarget& target) const {
    if (target.stamp_ != stamp_) {
        target.topic_ = items_.Find(Before(target.TargetString, '#')).get();
        target.stamp_ = stamp_;
    }
    return target.topic_;
}

std::shared_ptr<CTopicFile> CTopicFiles::FirstWithContext(std::string_view context) const {
    if (context.empty()) {
        for (const auto& topic : items_)
            if (topic->Context.empty()) return topic;
        return nullptr;
    }
    BuildIndexes();
    const auto it = byContext_.find(context);
    return it == byContext_.end() ? nullptr : it->second;
}

std::shared_ptr<CTopicFile> CTopicFiles::FirstWithExtraId(std::string_view id) const {
    if (id.empty()) return nullptr;
    BuildIndexes();
    const auto it = byExtraId_.find(id);
    return it == byExtraId_.end() ? nullptr : it->second;
}

}  // namespace tamrix
