// The HTML Options dialog over the toolkit-free OptionsDialog.
#include "gui/frm_options.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>

#include "support/scripted_view.h"
#include "wizard/options_dialog.h"

namespace tamrix::gui {
namespace {

TEST(FrmOptionsTest, TheNameShowsOnlyWhileTheStyleSheetIsTickedAndMustNotBeEmpty) {
    testing::ScriptedView view;
    OptionsDialog dialog;
    dialog.txtCssFileName.clear();
    FrmOptions form(view);
    form.Load(dialog);
    EXPECT_EQ(form.windowTitle(), "HTML Options");
    EXPECT_EQ(form.CssFileName()->text(), "HHStyles.css");  // an empty name is put back
    EXPECT_TRUE(form.CssFileName()->isHidden());
    EXPECT_TRUE(form.CssFileLabel()->isHidden());
    form.CssFileName()->clear();  // emptied while hidden: back as soon as the window shows
    form.show();
    EXPECT_EQ(form.CssFileName()->text(), "HHStyles.css");
    const int before = form.height();
    form.CssFile()->click();
    EXPECT_FALSE(form.CssFileName()->isHidden());
    EXPECT_FALSE(form.CssFileLabel()->isHidden());
    // The window grows by the row, so nothing above it is squeezed.
    EXPECT_GT(form.height(), before);
    EXPECT_GE(form.height(), form.layout()->totalHeightForWidth(form.width()));

    // OK with an empty name is refused and the dialog stays.
    form.CssFileName()->clear();
    form.OKButton()->click();
    ASSERT_EQ(view.messages.size(), 1u);
    EXPECT_EQ(view.messages[0].text, "There must be a valid name for the style sheet");
    EXPECT_FALSE(dialog.Status);
    EXPECT_TRUE(form.isVisible());
    // Painted again once the message has gone, the dialog has its default name back.
    EXPECT_EQ(form.CssFileName()->text(), "HHStyles.css");

    form.CssFileName()->setText("site.css");
    form.OKButton()->click();
    EXPECT_TRUE(dialog.Status);
    EXPECT_TRUE(dialog.chkCssFile);
    EXPECT_EQ(dialog.txtCssFileName, "site.css");
    EXPECT_FALSE(form.isVisible());

    // Shown again, the last choices are still there; Cancel clears the status.
    form.Load(dialog);
    form.show();
    EXPECT_TRUE(form.CssFile()->isChecked());
    EXPECT_EQ(form.CssFileName()->text(), "site.css");
    form.CancelButton()->click();
    EXPECT_FALSE(dialog.Status);
    EXPECT_FALSE(form.isVisible());
}

}  // namespace
}  // namespace tamrix::gui
