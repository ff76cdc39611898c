#pragma once
// The shared fixture of the parser tests: a fresh model, a scripted view, a
// temporary folder and small HTML Help projects written into it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "model/conversion.h"
#include "model/project_state.h"
#include "parser/project_reader.h"
#include "support/scanned_topic.h"
#include "support/scripted_view.h"
#include "support/temp_dir.h"

namespace tamrix::testing {

// A topic file whose first anchor after the body start is `id` (none when empty).
inline std::string TopicHtml(const std::string& title, const std::string& id,
                             const std::string& body = {}) {
    std::string html = "<HTML>\r\n<HEAD>\r\n<TITLE>" + title + "</TITLE>\r\n</HEAD>\r\n<BODY>\r\n";
    if (!id.empty()) html += "<P><A NAME=\"" + id + "\"></A>" + title + "</P>\r\n";
    return html + body + "\r\n</BODY>\r\n</HTML>\r\n";
}

inline std::string ProjectText(const std::vector<std::string>& files,
                               const std::string& options = {}) {
    std::string text = "[OPTIONS]\r\nCompatibility=1.1 or later\r\n" + options + "\r\n[FILES]\r\n";
    for (const auto& f : files) text += f + "\r\n";
    return text + "\r\n[ALIAS]\r\nx=y\r\n";
}

// The shared corpus (TAMRIX_CORPUS_DIR or TAMRIX_CORPUS in the environment
// overrides the built-in place, which a worktree checkout misses).
inline std::string CorpusPath(const std::string& relative) {
    std::string root = TAMRIX_CORPUS_DIR;
    for (const char* name : {"TAMRIX_CORPUS", "TAMRIX_CORPUS_DIR"})
        if (const char* over = std::getenv(name); over != nullptr && *over != 0) root = over;
    const std::string path = root + "/" + relative;
    return std::filesystem::exists(path) ? path : std::string();
}

class ProjectFixture : public ::testing::Test {
protected:
    std::string WriteProject(const std::vector<std::string>& files,
                             const std::string& options = {}) {
        return dir.Write("proj/old.hhp", ProjectText(files, options));
    }
    void WriteTopic(const std::string& entry, const std::string& title, const std::string& id,
                    const std::string& body = {}) {
        std::string relative = entry;
        std::replace(relative.begin(), relative.end(), '\\', '/');
        dir.Write("proj/" + relative, TopicHtml(title, id, body));
    }
    bool Parse(const std::string& project) {
        missing = 0;
        stopped = false;
        return modParser::ParseProjectFile(wizard, project, missing, stopped);
    }
    const CTopicFile& Topic(long index) const { return *wizard.Globals.TopicFiles->Item(index); }
    // A topic as the scan leaves it, for the steps that follow the scan.
    std::shared_ptr<CTopicFile> Add(const std::string& file, const std::string& context,
                                    const std::vector<std::string>& targets = {},
                                    const std::string& extras = {}) {
        if (!wizard.Globals.TopicFiles) wizard.Globals.TopicFiles = std::make_shared<CTopicFiles>();
        auto topic = AddScannedTopic(*wizard.Globals.TopicFiles, "html\\" + file, context);
        topic->ExtraIds = extras;
        for (const auto& t : targets) topic->targets().Add(t);
        return topic;
    }
    ScriptedView view;
    Conversion wizard{view};
    TempDir dir;
    int missing = 0;
    bool stopped = false;
};

}  // namespace tamrix::testing
