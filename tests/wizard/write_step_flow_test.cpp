// The whole write step, through RewriteHelpProject and the map and alias writer.

#include <gtest/gtest.h>

#include <filesystem>

#include "messages/messages.h"
#include "model/project_state.h"
#include "platform/file_system.h"
#include "platform/profile.h"
#include "support/environment.h"
#include "support/scripted_view.h"
#include "support/temp_dir.h"
#include "wizard/write_step.h"

namespace tamrix::testing {
namespace {

// Records the calls the write step makes on the wizard.
class RecordingWizard : public Conversion {
public:
    using Conversion::Conversion;
    bool GetHTMLOptions() override {
        calls += "options;";
        AddCssLink = true;
        CssFileName = "HHStyles.css";
        return true;
    }
    void Refresh() override { calls += "refresh;"; }
    std::string calls;
};

class WriteStepFlow : public ::testing::Test {
protected:
    void SetUp() override {
        testing::SetEnvironment("SOURCE_DATE_EPOCH", "1299333960");
        wizard.Globals.TopicFiles = std::make_shared<CTopicFiles>();
        wizard.Projectname = tmp.Write("old/p.hhp",
                                       "[OPTIONS]\r\nTitle=t\r\n\r\n[FILES]\r\n"
                                       "html\\afxc0001.htm\r\nhtml\\afxc0002.htm\r\n");
        tmp.Write("old/html/afxc0001.htm", "<HEAD></HEAD><A HREF=\"afxc0002.htm\">");
        tmp.Write("old/html/afxc0002.htm", "<HEAD></HEAD>two");
        Add("html\\afxc0001.htm", "main", "afxc0002.htm");
        Add("html\\afxc0002.htm", "second", nullptr);
        wizard.ScanComplete = true;
        wizard.NewRootPath = tmp / "new/";
        wizard.NewProjectName = "n.hhp";
    }
    void Add(const std::string& path, const std::string& context, const char* target) {
        auto topic = std::make_shared<CTopicFile>();
        topic->AutoNamePath = path;
        topic->AutoFileName = path.substr(5);
        topic->Context = context;
        topic->NewFileName = context + ".htm";
        topic->HasTitle = true;
        topic->JavaModified = true;
        if (target != nullptr) topic->targets().Add(target);
        wizard.Globals.TopicFiles->Add(topic, topic->AutoFileName);
    }
    bool Run() { return cmdRewrite(wizard, wizard.NewRootPath + wizard.NewProjectName); }

    TempDir tmp;
    ScriptedView view;
    RecordingWizard wizard{view};
};

// An ID without an alias is reported in the step message.
TEST_F(WriteStepFlow, CreatesTheFolderAndWritesTheProject) {
    wizard.Globals.ProjectContextIDs = std::make_shared<CContextIDs>();
    wizard.Globals.ProjectContextIDs->Add(wizard.Errors, "IDH_NOWHERE", "7", "IDH_NOWHERE")
        ->ContextIDVal = 7;
    wizard.StepMessage = "Before. ";
    view.answers = {mb::kYes};
    EXPECT_TRUE(Run());
    EXPECT_TRUE(wizard.RewriteDone);
    EXPECT_EQ(wizard.calls, "refresh;options;");
    EXPECT_EQ(wizard.StepMessage, "Before. " + modMessages::GetMessageString(10051, "1"));
    EXPECT_EQ(tmp.Read("new/html/main.htm"),
              "<HEAD><link rel=\"stylesheet\" type=\"text/css\" href=\"../HHStyles.css\">\r\n"
              "</HEAD><A HREF=\"second.htm\">");
    std::string files;
    profile::GetSection(wizard.Files, tmp / "new/n.hhp", "FILES", files);
    EXPECT_EQ(files, std::string("HHStyles.css\0html\\main.htm\0html\\second.htm\0", 43));
    for (const auto& topic : *wizard.Globals.TopicFiles) EXPECT_FALSE(topic->JavaModified);
    EXPECT_EQ(wizard.Files.WriteRoot(), tmp / "new");
}

TEST_F(WriteStepFlow, AFailedWriterStillEndsTheStep) {
    std::filesystem::create_directories(tmp / "new");
    std::filesystem::remove(tmp / "old/html/afxc0002.htm");  // the last topic file
    EXPECT_TRUE(Run());
    // The driver's result is that of its last step, which runs whatever failed before.
    EXPECT_TRUE(wizard.RewriteDone);
    EXPECT_EQ(view.errors.size(), 1u);
    EXPECT_TRUE(tmp.Exists("new/html/main.htm"));

    // An images folder that cannot be made clears the flag.
    tmp.Write("old/html/afxc0002.htm", "two");
    tmp.Write("old/images/a.gif", "GIF89a");
    tmp.Write("new/images", "a file where the folder should go");
    view.answers = {mb::kYes};  // overwrite the project
    EXPECT_TRUE(Run());
    EXPECT_FALSE(wizard.RewriteDone);
    EXPECT_EQ(view.MessageIds().back(), 10013);
}

TEST_F(WriteStepFlow, AnExistingProjectAnsweredNoWritesNothing) {
    tmp.Write("new/n.hhp", "mine");
    EXPECT_FALSE(Run());
    EXPECT_EQ(view.MessageIds(), std::vector<long>{10038});
    EXPECT_EQ(wizard.calls, "");
    EXPECT_EQ(tmp.Read("new/n.hhp"), "mine");
    EXPECT_FALSE(tmp.Exists("new/html"));
}

}  // namespace
}  // namespace tamrix::testing
