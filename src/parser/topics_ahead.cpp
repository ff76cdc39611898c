#include "parser/topics_ahead.h"

#include <utility>

#include "model/conversion.h"
#include "platform/view.h"

namespace tamrix::modParser {
namespace {

// Shows nothing, and counts what it was asked to show.
class CountingView : public SilentView {
public:
    int MessageBox(const MessageRequest& request) override {
        ++said;
        return SilentView::MessageBox(request);
    }
    void ErrorBox(const std::string&, const std::string&) override { ++said; }
    void ErrorRepeated(const std::string&, const std::string&, int) override { ++said; }
    std::optional<std::string> InputBox(const std::string&, const std::string&,
                                        const std::string&) override {
        ++said;
        return std::nullopt;
    }

    int said = 0;
};

}  // namespace

struct TopicsAhead::Helper {
    CountingView view;
    Conversion conversion{view};
};

TopicsAhead::TopicsAhead(Conversion& wizard, std::vector<std::string> paths)
    : wizard_(wizard), paths_(std::move(paths)) {
    static const bool twoCores = std::thread::hardware_concurrency() >= 2;
    if (!twoCores || paths_.size() < 2 || !wizard.Files.ReadsFromDisk()) return;
    slots_ = std::make_unique<Slot[]>(paths_.size());
    helper_ = std::make_unique<Helper>();
    helper_->conversion.Files.KeepInputReads(wizard.Files.KeepsInputReads());
    try {
        thread_ = std::thread([this] { Run(); });
    } catch (...) {
        helper_.reset();  // no thread to be had: the caller parses every file
    }
}

TopicsAhead::~TopicsAhead() {
    if (!thread_.joinable()) return;
    stopping_.store(true, std::memory_order_relaxed);
    thread_.join();
    try {
        wizard_.Files.TakeReadsOf(helper_->conversion.Files);
    } catch (...) {
        // Out of memory: the input folders stay protected as folders.
    }
}

void TopicsAhead::Run() {
    Conversion& own = helper_->conversion;
    for (std::size_t i = paths_.size(); i-- > 0;) {
        if (stopping_.load(std::memory_order_relaxed)) return;
        if (paths_[i].empty()) continue;
        Slot& slot = slots_[i];
        int expected = kFree;
        // The caller came this far: the files before are its own.
        if (!slot.state.compare_exchange_strong(expected, kAhead)) return;
        // As the caller would: a look for the file, then its parse.
        const int said = helper_->view.said;
        const bool found = own.Files.FileExists(paths_[i]);
        if (found) ParseTopicFile(own, paths_[i], slot.topic);
        slot.state.store(found && helper_->view.said == said ? kParsed : kLeft,
                         std::memory_order_release);
    }
}

bool TopicsAhead::Take(std::size_t index, ParsedTopic& topic) {
    if (!helper_ || paths_[index].empty()) return false;
    Slot& slot = slots_[index];
    int state = kFree;
    if (slot.state.compare_exchange_strong(state, kCaller)) return false;
    // Where the two threads meet: the one file the second thread is on. Yielding
    // rather than std::atomic::wait, which can miss its wake-up with MinGW.
    while (state == kAhead) {
        std::this_thread::yield();
        state = slot.state.load(std::memory_order_acquire);
    }
    if (state != kParsed) return false;
    wizard_.Files.CheckInterrupt();
    topic = std::move(slot.topic);
    return true;
}

}  // namespace tamrix::modParser
