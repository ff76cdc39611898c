#pragma once
// A scanned project in memory and two folders: "old" holds the input project,
// "work/new" receives the new one, so that a name leading two levels up from
// the new folder still lands inside the temporary folder where it can be seen.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "model/conversion.h"
#include "model/project_state.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"
#include "rewrite/containment.h"
#include "support/environment.h"
#include "support/scanned_topic.h"
#include "support/scripted_view.h"
#include "support/temp_dir.h"

namespace tamrix::testing {

class RewriteTest : public ::testing::Test {
protected:
    void SetUp() override {
        testing::SetEnvironment("SOURCE_DATE_EPOCH", "1299333960");  // March 05, 2011 14:06 UTC
        wizard.Globals.TopicFiles = std::make_shared<CTopicFiles>();
        std::filesystem::create_directories(oldDir);
        std::filesystem::create_directories(newDir);
        wizard.Files.SetWriteRoot(newDir);
        wizard.CssFileName = "HHStyles.css";
    }

    // A topic as the scan leaves it.
    std::shared_ptr<CTopicFile> AddTopic(const std::string& autoNamePath,
                                         const std::string& context,
                                         std::initializer_list<const char*> targets = {}) {
        auto topic = AddScannedTopic(*wizard.Globals.TopicFiles, autoNamePath, context);
        for (const char* t : targets) topic->targets().Add(t);
        return topic;
    }

    // Every regular file under the temporary folder, by relative path, with its bytes.
    std::map<std::string, std::string> Tree(const std::string& under = {}) const {
        return FilesUnder(under.empty() ? tmp.Path() : under);
    }

    TempDir tmp;
    const std::string oldDir = tmp / "old";
    const std::string newDir = tmp / "work/new";
    ScriptedView view;
    Conversion wizard{view};
};

}  // namespace tamrix::testing
