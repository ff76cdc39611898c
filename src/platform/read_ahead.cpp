#include "platform/read_ahead.h"

#include <utility>

namespace tamrix {
namespace {
// About the time of a small file's read, at a few nanoseconds a look.
constexpr int kLooksBeforeYielding = 4096;
}  // namespace

ReadAhead::ReadAhead(std::vector<std::string> diskPaths)
    : slots_(std::make_unique<Slot[]>(diskPaths.size())), count_(diskPaths.size()) {
    for (std::size_t i = 0; i < count_; ++i) slots_[i].diskPath = std::move(diskPaths[i]);
    thread_ = std::thread([this] { Run(); });
}

ReadAhead::~ReadAhead() {
    stopping_ = true;
    thread_.join();
}

void ReadAhead::Run() {
    for (std::size_t i = 0; i < count_ && !stopping_; ++i) {
        Slot& slot = slots_[i];
        int expected = kWaiting;
        if (!slot.state.compare_exchange_strong(expected, kReading)) continue;  // the caller's
        File& file = slot.file;
        file.error = native::ReadWholeFile(slot.diskPath, file.content, file.status);
        if (file.error != 0) file.content.clear();
        slot.state.store(kRead, std::memory_order_release);
    }
}

ReadAhead::File* ReadAhead::Find(std::size_t index) {
    Slot& slot = slots_[index];
    int expected = kWaiting;
    if (slot.state.compare_exchange_strong(expected, kLeft)) return nullptr;
    // Read or being read: a wait of one file at most, on the other core, so it
    // is spent looking rather than in a system call for each look.
    for (int looks = 0; expected == kReading; ++looks) {
        if (looks >= kLooksBeforeYielding) std::this_thread::yield();
        expected = slot.state.load(std::memory_order_acquire);
    }
    return expected == kRead ? &slot.file : nullptr;
}

void ReadAhead::Drop(std::size_t index) {
    Slot& slot = slots_[index];
    std::string().swap(slot.file.content);
    slot.state.store(kLeft, std::memory_order_relaxed);  // only the caller looks at it now
}

}  // namespace tamrix
