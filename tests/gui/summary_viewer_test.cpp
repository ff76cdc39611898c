#include "gui/summary_viewer.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTextEdit>
#include <QTimer>

#include "gui/gui_test_helpers.h"
#include "support/scripted_view.h"
#include "support/temp_dir.h"

namespace tamrix::gui {
namespace {

class SummaryViewerTest : public ::testing::Test {
protected:
    void SetUp() override {
        FrmSummary::Options options;
        options.printerPresent = false;
        options.dialogs.openFile = [this](QWidget*, const FileDialogRequest& request) {
            openRequests.push_back(request);
            return openAnswer;
        };
        InstallSummaryViewer(options);
    }
    void TearDown() override { UninstallSummaryViewer(); }

    static FrmSummary& FormOf(const CSummary& report) {
        return static_cast<SummaryViewer*>(report.Viewer())->Form();
    }

    testing::ScriptedView view;
    ErrorReporter errors{view};
    testing::TempDir dir;
    std::string openAnswer;
    std::vector<FileDialogRequest> openRequests;
};

TEST_F(SummaryViewerTest, ShowsTheLogAndHidesOnCloseModalOrNot) {
    CSummary report{errors};
    ASSERT_NE(report.Viewer(), nullptr);
    report.SetName("Scan Summary");
    ASSERT_TRUE(report.OpenSummary(0));
    report.AddString("a");
    report.AddLine("b");
    report.AddLine("second");
    FrmSummary& form = FormOf(report);
    EXPECT_EQ(form.windowTitle(), "Scan Summary");

    report.Show(0);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.RTFItems()->toPlainText(), "ab\nsecond\n");
    form.CloseButton()->click();
    EXPECT_FALSE(form.isVisible());
    report.Show(0);
    EXPECT_FALSE(form.close());  // the close box hides as well
    EXPECT_FALSE(form.isVisible());

    // Shown modal, Show returns when the window is closed.
    bool wasModal = false;
    QTimer::singleShot(0, &form, [&] {
        wasModal = form.isModal() && form.isVisible();
        form.CloseButton()->click();
    });
    report.Show(1);
    EXPECT_TRUE(wasModal);
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(form.isModal());
}

TEST_F(SummaryViewerTest, ViewFileLoadsRichTextOnlyForAnRtfExtensionOrAsksForAFile) {
    const std::string rtf = "{\\rtf1{\\b Hello} there}";
    const std::string bak = dir.Write("notes.RTF.bak", rtf);
    const std::string rich = dir.Write("Report.Rtf", rtf);
    CSummary report{errors};

    report.ViewFile("Logs|*.log", true, bak);
    FrmSummary& form = FormOf(report);
    EXPECT_EQ(form.RTFItems()->toPlainText().toStdString(), rtf);
    EXPECT_EQ(form.windowTitle().toStdString(), bak);
    EXPECT_EQ(form.SaveFileName(), "notes.RTF.bak");
    EXPECT_TRUE(form.ReadOnly());

    report.ViewFile("Logs|*.log", false, rich);
    EXPECT_EQ(form.RTFItems()->toPlainText(), "Hello there");
    EXPECT_EQ(testing::FormatAt(*form.RTFItems()->document(), 0).fontWeight(), QFont::Bold);
    EXPECT_EQ(form.SaveFileName(), "Report.Rtf");
    EXPECT_FALSE(form.ReadOnly());
    EXPECT_TRUE(openRequests.empty());

    // Without a name it asks for an existing file.
    const std::string log = dir.Write("scan.log", "line\r\n");
    form.hide();
    openAnswer = "";
    report.ViewFile("Log Files (*.log)|*.log", true, "");
    ASSERT_EQ(openRequests.size(), 1u);
    EXPECT_EQ(openRequests[0].title, "Select File for Viewing");
    EXPECT_FALSE(form.isVisible());

    openAnswer = dir / "missing.log";
    report.ViewFile("Log Files (*.log)|*.log", true, "");
    EXPECT_FALSE(form.isVisible());

    openAnswer = log;
    report.ViewFile("Log Files (*.log)|*.log", true, "");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.RTFItems()->toPlainText(), "line\n");
    EXPECT_EQ(form.LoadedFileName(), log);
    EXPECT_TRUE(view.errors.empty());
}

}  // namespace
}  // namespace tamrix::gui
