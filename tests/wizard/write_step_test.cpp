#include "wizard/write_step.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>

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

TEST_F(WriteStepChecks, RefusesTheInputFolderHoweverItIsWritten) {
    std::string upper = tmp / "old";
    std::transform(upper.end() - 3, upper.end(), upper.end() - 3,
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    for (const std::string& folder : {tmp / "old", tmp / "old/", upper + "\\", tmp / "old/./"}) {
        view.messages.clear();
        Target(folder, "n.hhp");
        EXPECT_FALSE(Check()) << folder;
        EXPECT_EQ(view.MessageIds(), std::vector<long>{10014}) << folder;
    }
    EXPECT_EQ(view.messages[0].style, mb::kOKOnly);
}

TEST_F(WriteStepChecks, AMissingFolderIsCreatedOnlyWhenTheUserSaysYes) {
    const struct {
        int answer;
        std::vector<long> messages;
    } cases[] = {{mb::kNo, {10011, 10014}}, {mb::kCancel, {10011}}, {mb::kYes, {10011}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.answer);
        view.messages.clear();
        view.answers = {c.answer};
        EXPECT_EQ(Check(), c.answer == mb::kYes);
        EXPECT_EQ(view.MessageIds(), c.messages);
        EXPECT_EQ(tmp.Exists("new"), c.answer == mb::kYes);
    }
    EXPECT_EQ(view.messages[0].style, mb::kYesNoCancel | mb::kQuestion);
    EXPECT_NE(view.messages[0].text.find("The folder \"" + tmp / "new/" + "\""), std::string::npos);
    EXPECT_EQ(wizard.Files.WriteRoot(), tmp / "new");
}

TEST_F(WriteStepChecks, AFolderThatCannotBeCreatedIsReported) {
    Target(tmp / "missing/deeper/", "n.hhp");
    view.answers = {mb::kYes};
    EXPECT_FALSE(Check());
    EXPECT_EQ(view.MessageIds(), (std::vector<long>{10011, 10013}));
    EXPECT_FALSE(tmp.Exists("missing"));
}

TEST_F(WriteStepChecks, NeedsANameAndAsksBeforeOverwritingAProject) {
    std::filesystem::create_directories(tmp / "new");
    txtRootPath.clear();
    EXPECT_FALSE(Check());
    EXPECT_EQ(view.MessageIds(), std::vector<long>{10015});

    txtRootPath = tmp / "new/n.hhp";
    view.messages.clear();
    EXPECT_TRUE(Check());
    EXPECT_TRUE(view.messages.empty());

    tmp.Write("new/n.hhp", "mine");
    view.answers = {mb::kNo};
    EXPECT_FALSE(Check());
    ASSERT_EQ(view.MessageIds(), std::vector<long>{10038});
    EXPECT_EQ(view.messages[0].text,
              "Overwrite the project \"n.hhp\" ,etc. in \n\"" + tmp / "new/" + "\"?");
    EXPECT_EQ(tmp.Read("new/n.hhp"), "mine");
    view.answers = {mb::kYes};
    EXPECT_TRUE(Check());
}

}  // namespace
}  // namespace tamrix::testing
