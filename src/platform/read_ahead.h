#pragma once
// Reading a known list of files on a second thread while the caller works on the
// ones before: the system's work of opening and reading a file overlaps the
// parse of the last one.
#include <atomic>
#include <cstddef>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/native_files.h"

namespace tamrix {

/// Files read in order by a thread of its own. Whichever of the two threads
/// comes to a file first reads it, so the caller never waits for more than the
/// one file the thread is reading.
class ReadAhead {
public:
    /// A file as the thread read it.
    struct File {
        /// The system's error, or 0 when content and status hold the file.
        int error = 0;
        std::string content;
        native::Status status;
    };

    /// Starts reading the files at these disk paths, in this order.
    explicit ReadAhead(std::vector<std::string> diskPaths);
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;
    /// Stops the thread after the file it is reading.
    ~ReadAhead();

    /// The file at `index` when the thread read it (waiting while it reads it);
    /// null when the caller is to read it, and the thread then passes it over.
    File* Find(std::size_t index);
    /// Forgets the file at `index` once its content was taken: the caller reads it
    /// from then on.
    void Drop(std::size_t index);

private:
    enum State : int { kWaiting, kReading, kRead, kLeft };
    struct Slot {
        std::string diskPath;
        std::atomic<int> state{kWaiting};
        File file;
    };
    void Run();

    std::unique_ptr<Slot[]> slots_;
    std::size_t count_ = 0;
    std::atomic<bool> stopping_{false};
    std::thread thread_;
};

}  // namespace tamrix
