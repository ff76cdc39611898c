// The program's help project, its window and the captions.
#include "gui/help_window.h"

#include <gtest/gtest.h>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QTextBrowser>

#include "gui/localise_form.h"
#include "support/temp_dir.h"
#include "wizard/wizard_view.h"

namespace tamrix::gui {
namespace {

const QString kHelpProject = TAMRIX_SOURCE_DIR "/help/Tamrix.hhp";

TEST(HelpProjectTest, EveryStepContextHasAnExistingPage) {
    const auto project = HelpProject::Load(kHelpProject);
    ASSERT_TRUE(project.has_value());
    EXPECT_EQ(project->Contexts(), (QList<int>{5010, 5020, 5030, 5040, 5050, 5060}));
    for (int context : project->Contexts())
        EXPECT_TRUE(QFileInfo::exists(project->PageForContext(context))) << context;
    EXPECT_TRUE(project->DefaultTopic().endsWith("/index.htm"));
    EXPECT_TRUE(QFileInfo::exists(project->DefaultTopic()));
    EXPECT_TRUE(project->PageForContext(5000).isEmpty());
}

TEST(HelpProjectTest, NamesAreMatchedWithoutRegardToCaseAndUnaliasedNumbersIgnored) {
    testing::TempDir dir;
    const std::string hhp =
        dir.Write("h.hhp",
                  "[OPTIONS]\r\nDefault topic=start.htm\r\n[ALIAS]\r\nidh_one = pages\\one.htm\r\n"
                  "[MAP]\r\n#define IDH_ONE 7\r\n#define IDH_TWO 8\r\n");
    const auto project = HelpProject::Load(QString::fromStdString(hhp));
    ASSERT_TRUE(project.has_value());
    EXPECT_EQ(project->Contexts(), QList<int>{7});
    EXPECT_TRUE(project->PageForContext(7).endsWith("/pages/one.htm"));
    EXPECT_FALSE(HelpProject::Load(QString::fromStdString(dir / "missing.hhp")).has_value());
}

TEST(HelpWindowTest, ContextTopicAndCloseAll) {
    HelpWindow help;
    help.SetProject(HelpProject::Load(kHelpProject));
    EXPECT_TRUE(help.HtmlHelp(kHelpContext, 5010));
    EXPECT_TRUE(help.isVisible());
    EXPECT_TRUE(help.CurrentPage().endsWith("/step0_introduction.htm"));
    EXPECT_FALSE(help.HtmlHelp(kHelpContext, 5099));
    EXPECT_TRUE(help.HtmlHelp(kHelpDisplayTopic, 0));
    EXPECT_TRUE(help.CurrentPage().endsWith("/index.htm"));
    EXPECT_TRUE(help.Browser()->toPlainText().contains("The six steps"));
    EXPECT_TRUE(help.HtmlHelp(kHelpCloseAll, 0));
    EXPECT_FALSE(help.isVisible());
    // Without a help project nothing opens.
    help.SetProject(std::nullopt);
    EXPECT_FALSE(help.HtmlHelp(kHelpContext, 5010));
    EXPECT_FALSE(help.isVisible());
}

TEST(LocaliseFormTest, NumericTagsAndToolTipsComeFromTheCatalogue) {
    QWidget form;
    form.setProperty(kTagProperty, "1003");
    auto* numeric = new QPushButton("old", &form);
    numeric->setProperty(kTagProperty, "103");
    numeric->setProperty(kToolTipProperty, "1000");
    auto* named = new QLabel("kept", &form);
    named->setProperty(kTagProperty, "caption");
    named->setProperty(kToolTipProperty, "tip");
    named->setToolTip("kept tip");
    LocaliseForm(form);
    EXPECT_EQ(form.windowTitle(), "New HTML Project");
    EXPECT_EQ(numeric->text(), "&Next >");
    EXPECT_EQ(numeric->toolTip(), "Introduction");
    EXPECT_EQ(named->text(), "kept");
    EXPECT_EQ(named->toolTip(), "kept tip");
}

}  // namespace
}  // namespace tamrix::gui
