// The message window: buttons by style, the default button, the result codes.
#include "gui/message_form.h"

#include <gtest/gtest.h>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <vector>

namespace tamrix::gui {
namespace {

std::vector<int> ShownButtons(const MessageForm& form) {
    std::vector<int> shown;
    for (int code = mb::kOK; code <= mb::kNo; ++code)
        if (!form.Button(code)->isHidden()) shown.push_back(code);
    return shown;
}

int DefaultButton(const MessageForm& form) {
    for (int code = mb::kOK; code <= mb::kNo; ++code)
        if (!form.Button(code)->isHidden() && form.Button(code)->isDefault()) return code;
    return 0;
}

TEST(MessageFormTest, EveryStyleShowsItsButtonsWithTheFirstAffirmativeAsDefault) {
    const struct {
        int style;
        std::vector<int> buttons;
        int defaultButton;
    } cases[] = {
        {mb::kOKOnly, {mb::kOK}, mb::kOK},
        {mb::kOKCancel, {mb::kOK, mb::kCancel}, mb::kOK},
        {mb::kAbortRetryIgnore, {mb::kAbort, mb::kRetry, mb::kIgnore}, mb::kRetry},
        {mb::kYesNoCancel, {mb::kCancel, mb::kYes, mb::kNo}, mb::kYes},
        {mb::kYesNo + mb::kQuestion, {mb::kYes, mb::kNo}, mb::kYes},
        {mb::kRetryCancel + mb::kExclamation, {mb::kCancel, mb::kRetry}, mb::kRetry},
    };
    MessageForm form;
    for (const auto& c : cases) {
        form.Prepare("Text", c.style, "Title");
        EXPECT_EQ(ShownButtons(form), c.buttons) << "style " << c.style;
        EXPECT_EQ(DefaultButton(form), c.defaultButton) << "style " << c.style;
    }
}

TEST(MessageFormTest, CaptionTextAndIcon) {
    MessageForm form;
    form.Prepare("Line one\r\nLine two", mb::kInformation, "StepResults");
    EXPECT_EQ(form.windowTitle(), "StepResults");
    EXPECT_EQ(form.MessageLabel()->text(), "Line one\nLine two");
    EXPECT_FALSE(form.IconLabel()->isHidden());
    form.Prepare("Plain", mb::kOKOnly, "");
    EXPECT_EQ(form.windowTitle(), "Tamrix Message");
    EXPECT_TRUE(form.IconLabel()->isHidden());
}

TEST(MessageFormTest, AButtonReturnsItsCodeAndTheCloseBoxReturnsOK) {
    MessageForm form;
    QTimer::singleShot(0, &form, [&form] { form.Button(mb::kNo)->click(); });
    EXPECT_EQ(
        form.MessageBox("Do you want to exit the program?", mb::kYesNo + mb::kQuestion, "Cancel"),
        mb::kNo);
    QTimer::singleShot(0, &form, [&form] { form.Button(mb::kYes)->click(); });
    EXPECT_EQ(form.MessageBox("Again?", mb::kYesNo + mb::kQuestion, "Cancel"), mb::kYes);
    // Closed through the close box: neither Yes nor No.
    QTimer::singleShot(0, &form, [&form] { form.close(); });
    EXPECT_EQ(form.MessageBox("Again?", mb::kYesNo + mb::kQuestion, "Cancel"), mb::kOK);
    QTimer::singleShot(0, &form, [&form] { form.Button(mb::kIgnore)->click(); });
    EXPECT_EQ(form.MessageBox("Missing", mb::kAbortRetryIgnore, "Scan"), mb::kIgnore);
}

TEST(MessageFormTest, IsCentredOnTheGivenPoint) {
    MessageForm form;
    form.Prepare("A message of some length", mb::kOKOnly, "Title");
    form.SetPosition(BoxPosition{400.0, 300.0});
    const QPoint centre = form.frameGeometry().center();
    EXPECT_NEAR(centre.x(), 400, 2);
    EXPECT_NEAR(centre.y(), 300, 2);
}

}  // namespace
}  // namespace tamrix::gui
