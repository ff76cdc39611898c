#pragma once
// Small HTML Help projects written into a temporary folder for the reader tests.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/project_state.h"
#include "model/wizard_state.h"
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

class ProjectFixture : public ::testing::Test {
  protected:
    void SetUp() override { modGlobals::ResetAll(); }
    void TearDown() override { modGlobals::ResetAll(); }

    std::string WriteProject(const std::vector<std::string>& files,
                             const std::string& options = {}) {
        return dir.Write("proj/old.hhp", ProjectText(files, options));
    }
    void WriteTopic(const std::string& entry, const std::string& title, const std::string& id,
                    const std::string& body = {}) {
        std::string relative = entry;
        for (char& c : relative)
            if (c == '\\') c = '/';
        dir.Write("proj/" + relative, TopicHtml(title, id, body));
    }
    const CTopicFile& Topic(long index) const { return *modGlobals::TopicFiles->Item(index); }

    ScriptedView view;
    ScopedActiveView active{view};
    WizardState wizard{&view};
    TempDir dir;
};

}  // namespace tamrix::testing
