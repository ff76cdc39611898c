#pragma once
// Writes done by a second thread, in the order they were handed over, so that
// the system's work of creating files overlaps the rewriting of the next one.
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace tamrix {

/// A queue of file operations run one after another on a thread of its own.
class WriteQueue {
public:
    /// An operation: returns 0 or a Basic error number.
    using Operation = std::function<int()>;
    /// The first operation that failed.
    struct Failure {
        /// Its Basic error number.
        int error = 0;
        /// The disk path it was writing.
        std::string path;
    };

    WriteQueue() = default;
    WriteQueue(const WriteQueue&) = delete;
    WriteQueue& operator=(const WriteQueue&) = delete;
    /// Runs what is queued, then ends the thread.
    ~WriteQueue();

    /// Queues an operation on `path` that holds about `bytes` of content; waits
    /// while the queue already holds more than its share, so memory stays bounded.
    void Post(std::string path, std::size_t bytes, Operation operation);
    /// Whether nothing is queued or running.
    bool Idle();
    /// Whether a Post of `bytes` would be queued at once, without waiting for room.
    bool HasRoom(std::size_t bytes);
    /// How many operations wait to be run.
    std::size_t Queued();
    /// Waits until nothing is queued or running; then gives the first failure
    /// since the last call, and forgets it.
    std::optional<Failure> Wait();
    /// Waits until nothing is queued or running; a failure stays to be taken.
    void WaitKeepingFailure();
    /// The first failure so far, without waiting for the rest; forgets it.
    std::optional<Failure> TakeFailure();

private:
    struct Job {
        std::string path;
        std::size_t bytes = 0;
        Operation operation;
    };
    void Run();
    // Whether nothing is queued or running; mutex_ held.
    bool Done() const { return jobs_.empty() && !running_; }
    // Whether a job of `bytes` fits in the queue now; mutex_ held.
    bool Fits(std::size_t bytes) const;
    // Wakes the thread when it sleeps and has work; mutex_ held.
    void WakeIfAsleep();

    std::mutex mutex_;
    std::condition_variable work_;  // the thread waits here for jobs
    std::condition_variable room_;  // callers wait here for room or the end
    std::deque<Job> jobs_;
    std::size_t queuedBytes_ = 0;  // of the jobs queued or running
    bool running_ = false;         // the thread holds jobs taken off the queue
    bool asleep_ = false;
    bool stopping_ = false;
    int waiting_ = 0;  // callers waiting on room_
    std::optional<Failure> failure_;
    std::thread thread_;  // started by the first Post
};

}  // namespace tamrix
