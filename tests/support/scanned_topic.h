#pragma once
// A topic as the scan leaves it, for the tests of the steps that follow the scan.
#include <memory>
#include <string>

#include "model/project_state.h"
#include "platform/path_helpers.h"

namespace tamrix::testing {

// Adds the topic listed as `autoNamePath` whose topic ID is `context` (none when empty).
inline std::shared_ptr<CTopicFile> AddScannedTopic(CTopicFiles& topics,
                                                   const std::string& autoNamePath,
                                                   const std::string& context,
                                                   bool hasTitle = true) {
    auto topic = std::make_shared<CTopicFile>();
    topic->AutoNamePath = autoNamePath;
    topic->AutoFileName = modUtilities::FileNameNoPath(autoNamePath);
    topic->Context = context;
    topic->NewFileName = context.empty() ? topic->AutoFileName : context + ".htm";
    topic->HasTitle = hasTitle;
    topics.Add(topic, topic->AutoFileName);
    return topic;
}

}  // namespace tamrix::testing
