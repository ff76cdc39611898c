#pragma once
// The scan's topic files looked for and parsed on a second core, from the last
// one back, while the scan works forward from the first: that is most of the
// scan, and every file is independent of the others.
#include <atomic>
#include <cstddef>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "parser/topic_scanner.h"

namespace tamrix::modParser {

/// Looks for and parses a list of topic files, each once, by whichever of two
/// threads comes to it first. The second thread works on a conversion of its
/// own; a file it did not find, or whose parse had anything to say (a message,
/// an error), is left to the caller, so that what the user sees comes in the
/// order of the files.
class TopicsAhead {
public:
    /// Starts the second thread on `paths` (full paths; an empty one is passed
    /// over) when there is a second core and reads in `wizard` go to the disk.
    TopicsAhead(Conversion& wizard, std::vector<std::string> paths);
    TopicsAhead(const TopicsAhead&) = delete;
    TopicsAhead& operator=(const TopicsAhead&) = delete;
    /// Stops the second thread; what it read counts as read by the conversion.
    ~TopicsAhead();

    /// The file at `index` as ParseTopicFile parses it, when the second thread
    /// found it and parsed it without a word (waiting while it does); false when
    /// the caller is to look for it and parse it. Call it with rising indexes.
    bool Take(std::size_t index, ParsedTopic& topic);

private:
    enum State : int { kFree, kCaller, kAhead, kParsed, kLeft };
    struct Slot {
        std::atomic<int> state{kFree};
        ParsedTopic topic;
    };
    struct Helper;  // the second thread's own conversion
    void Run();

    Conversion& wizard_;
    std::vector<std::string> paths_;
    std::unique_ptr<Slot[]> slots_;
    std::unique_ptr<Helper> helper_;
    std::atomic<bool> stopping_{false};
    std::thread thread_;
};

}  // namespace tamrix::modParser
