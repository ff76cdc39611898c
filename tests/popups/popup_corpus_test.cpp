// The popup reading and cleaning over the topic files of real converted projects.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "model/project_state.h"
#include "platform/byte_text.h"
#include "platform/file_system.h"
#include "popups/body_reader.h"
#include "popups/popup_text.h"
#include "support/scripted_view.h"

namespace tamrix::modPopups {
namespace {

std::string CorpusDir() {
    if (const char* dir = std::getenv("TAMRIX_CORPUS_DIR"); dir != nullptr && *dir != 0) return dir;
    return TAMRIX_CORPUS_DIR;
}

TEST(PopupCorpus, EveryTopicFileOfTheCorpusYieldsText) {
    FileSystem fs;
    testing::ScriptedView view;
    ErrorReporter errors{view};
    int files = 0;
    for (const char* project : {"draftcable", "wavesoap"}) {
        const std::string folder = CorpusDir() + "/" + project + "/html";
        ASSERT_TRUE(fs.FolderExists(folder))
            << "no corpus at " << folder << " (set TAMRIX_CORPUS_DIR)";
        for (const std::string& name : fs.ListFiles(folder)) {
            if (!EndsWithNoCase(name, ".htm")) continue;
            SCOPED_TRACE(folder + "/" + name);
            ++files;
            TextReader reader(fs, folder + "/" + name);
            const std::string body = HTMLBodyContents(errors, reader);
            EXPECT_FALSE(ContainsNoCase(body, "<BODY"));
            EXPECT_FALSE(ContainsNoCase(body, "</BODY>"));
            for (auto kind : {PopupKind::Script, PopupKind::TextPopup}) {
                const PopupText popup = CleanPopupBody(errors, ProjectState{}, body, kind);
                if (!body.empty()) {
                    EXPECT_FALSE(popup.text.empty());
                }
                // A script string is one line.
                if (kind == PopupKind::Script) {
                    EXPECT_EQ(popup.text.find("\r\n"), std::string::npos);
                }
            }
        }
    }
    EXPECT_GT(files, 100);
}

}  // namespace
}  // namespace tamrix::modPopups
