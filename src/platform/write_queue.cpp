#include "platform/write_queue.h"

#include <new>
#include <utility>

#include "platform/program_error.h"

namespace tamrix {
namespace {
// Enough to keep the thread busy while the next files are rewritten, little
// next to a project's size.
constexpr std::size_t kMaxJobs = 128;
constexpr std::size_t kMaxBytes = std::size_t{4} << 20;
// The thread is woken for this many jobs at once: waking it for each would cost
// two system calls per file.
constexpr std::size_t kWakeBatch = 32;
}  // namespace

WriteQueue::~WriteQueue() {
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
        work_.notify_one();
    }
    if (thread_.joinable()) thread_.join();
}

void WriteQueue::WakeIfAsleep() {
    if (asleep_ && (!jobs_.empty() || stopping_)) {
        asleep_ = false;
        work_.notify_one();
    }
}

void WriteQueue::Post(std::string path, std::size_t bytes, Operation operation) {
    std::unique_lock lock(mutex_);
    if (!thread_.joinable()) thread_ = std::thread([this] { Run(); });
    if (!Fits(bytes)) {
        WakeIfAsleep();
        ++waiting_;
        room_.wait(lock, [&] { return Fits(bytes); });
        --waiting_;
    }
    queuedBytes_ += bytes;
    jobs_.push_back({std::move(path), bytes, std::move(operation)});
    if (jobs_.size() >= kWakeBatch) WakeIfAsleep();
}

bool WriteQueue::Fits(std::size_t bytes) const {
    // One oversized job may always wait alone.
    return Done() || (jobs_.size() < kMaxJobs && queuedBytes_ + bytes <= kMaxBytes);
}

bool WriteQueue::HasRoom(std::size_t bytes) {
    std::lock_guard lock(mutex_);
    return Fits(bytes);
}

bool WriteQueue::Idle() {
    std::lock_guard lock(mutex_);
    return Done();
}

std::size_t WriteQueue::Queued() {
    std::lock_guard lock(mutex_);
    return jobs_.size();
}

void WriteQueue::WaitKeepingFailure() {
    std::unique_lock lock(mutex_);
    if (Done()) return;
    WakeIfAsleep();
    ++waiting_;
    room_.wait(lock, [&] { return Done(); });
    --waiting_;
}

std::optional<WriteQueue::Failure> WriteQueue::Wait() {
    WaitKeepingFailure();
    return TakeFailure();
}

std::optional<WriteQueue::Failure> WriteQueue::TakeFailure() {
    std::lock_guard lock(mutex_);
    return std::exchange(failure_, std::nullopt);
}

void WriteQueue::Run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        while (jobs_.empty() && !stopping_) {
            asleep_ = true;
            work_.wait(lock);
            asleep_ = false;
        }
        if (jobs_.empty()) return;  // stopping, and everything is done
        // Everything queued is taken at once, so the lock is taken once per batch.
        std::deque<Job> batch;
        batch.swap(jobs_);
        running_ = true;
        lock.unlock();
        std::optional<Failure> failed;
        std::size_t bytes = 0;
        for (Job& job : batch) {
            int error = 0;
            try {
                error = job.operation();
            } catch (const std::bad_alloc&) {
                error = err::kOutOfMemory;
            }
            if (error != 0 && !failed) failed = Failure{error, std::move(job.path)};
            bytes += job.bytes;
        }
        batch.clear();
        lock.lock();
        running_ = false;
        queuedBytes_ -= bytes;
        if (failed && !failure_) failure_ = std::move(failed);
        if (waiting_ > 0) room_.notify_all();
    }
}

}  // namespace tamrix
