#include "wizard/write_step.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <deque>

#include "model/project_state.h"
#include "platform/file_system.h"
#include "support/scripted_view.h"
#include "support/temp_dir.h"

namespace tamrix::testing {
namespace {

class WriteStepChecks : public ::testing::Test {
protected:
    void SetUp() override {
        wizard.Globals.TopicFiles = std::make_shared<CTopicFiles>();
        auto topic = std::make_shared<CTopicFile>();
        wizard.Globals.TopicFiles->Add(topic, "a.htm");
        wizard.Projectname = tmp.Write("old/p.hhp", "[FILES]\r\n");
        wizard.ScanComplete = true;
        wizard.BoxLeft = 10;
        wizard.BoxTop = 20;
        Target(tmp / "new/", "n.hhp");
    }
    void Target(const std::string& folder, const std::string& name) {
        wizard.NewRootPath = folder;
        wizard.NewProjectName = name;
        txtRootPath = folder + name;
    }
    bool Check() { return CheckNewProjectTarget(wizard, txtRootPath); }

    TempDir tmp;
    ScriptedView view;
    Conversion wizard{view};
    std::string txtRootPath;
};

TEST_F(WriteStepChecks, NeedsAScannedProject) {
    wizard.Projectname.clear();
    EXPECT_FALSE(Check());
    wizard.Projectname = tmp / "old/p.hhp";
    wizard.ScanComplete = false;
    EXPECT_FALSE(Check());
    wizard.ScanComplete = true;
    wizard.Globals.TopicFiles->Delete(1);
    EXPECT_FALSE(Check());
    wizard.Globals.TopicFiles.reset();
    EXPECT_FALSE(Check());
    EXPECT_EQ(view.MessageIds(), (std::vector<long>{10010, 10009, 10009, 10009}));
    // Only the empty collection's message is placed at the wizard.
    EXPECT_FALSE(view.messages[1].position.left.has_value());
    EXPECT_EQ(view.messages[2].position.left, 10);
    for (const auto& m : view.messages) EXPECT_EQ(m.title, "Writing New Project Files");
    EXPECT_FALSE(tmp.Exists("new"));
}

// The input folder however it is written, a folder that is missing or cannot be
// made, no name, an existing project: each asked or refused in its turn.
TEST_F(WriteStepChecks, RefusesOrAcceptsTheTargetByTheAnswers) {
    std::string upper = tmp / "old";
    std::transform(upper.end() - 3, upper.end(), upper.end() - 3,
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    tmp.Write("made/mine.hhp", "mine");
    const struct {
        std::string folder, name;  // no name: nothing typed
        std::deque<int> answers;
        std::vector<long> messages;
        bool accepted;
    } cases[] = {
        {tmp / "old", "n.hhp", {}, {10014}, false},
        {tmp / "old/", "n.hhp", {}, {10014}, false},
        {upper + "\\", "n.hhp", {}, {10014}, false},
        {tmp / "old/./", "n.hhp", {}, {10014}, false},
        {tmp / "missing/deeper/", "n.hhp", {mb::kYes}, {10011, 10013}, false},
        {tmp / "new/", "n.hhp", {mb::kNo}, {10011, 10014}, false},
        {tmp / "new/", "n.hhp", {mb::kCancel}, {10011}, false},  // so nothing was made
        {tmp / "new/", "n.hhp", {mb::kYes}, {10011}, true},
        {tmp / "made/", "", {}, {10015}, false},
        {tmp / "made/", "n.hhp", {}, {}, true},
        {tmp / "made/", "mine.hhp", {mb::kNo}, {10038}, false},
        {tmp / "made/", "mine.hhp", {mb::kYes}, {10038}, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.folder + c.name);
        view.messages.clear();
        view.answers = c.answers;
        Target(c.folder, c.name);
        if (c.name.empty()) txtRootPath.clear();
        EXPECT_EQ(Check(), c.accepted);
        EXPECT_EQ(view.MessageIds(), c.messages);
    }
    EXPECT_FALSE(tmp.Exists("missing"));
    EXPECT_EQ(tmp.Read("made/mine.hhp"), "mine");
    EXPECT_EQ(wizard.Files.WriteRoot(), tmp / "made");
}

}  // namespace
}  // namespace tamrix::testing
