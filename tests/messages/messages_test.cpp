#include "messages/messages.h"

#include <gtest/gtest.h>

#include "support/scripted_view.h"

namespace tamrix {
namespace {

using namespace modMessages;

TEST(MessageCatalogue, HoldsEveryGroupWithLineFeeds) {
    EXPECT_EQ(*CatalogueText(103), "&Next >");
    EXPECT_EQ(*CatalogueText(1005), "Finished");
    EXPECT_EQ(*CatalogueText(4003), "Location of New HTML Help Project File:");
    EXPECT_EQ(*CatalogueText(9000), "<link rel=\"stylesheet\" type=\"text/css\" href=\"<INSERT_TEXT>\">");
    EXPECT_EQ(*CatalogueText(10065),
              "There were <INSERT_TEXT> duplicate Topic Id's that were renamed. \nSee the Scan log "
              "for details. The names are: \n");
    EXPECT_EQ(*CatalogueText(10070), "popfont = \"Arial,10,,plain\"");
    EXPECT_FALSE(CatalogueText(10001).has_value());
    EXPECT_FALSE(CatalogueText(10054).has_value());
}

TEST(GetMessageString, FillsBothPlaceholders) {
    EXPECT_EQ(GetMessageString(10069, "a.hhp"), "The file \"a.hhp\" could not be found.");
    EXPECT_EQ(GetMessageString(10023, " 3", " 10"),
              "NOTE: This project file includes  3 .htm files \nof a total of  10 .htm files that "
              "do not contain \na Topic ID. Do you wish to continue processing \nthe project with "
              "Tamrix?");
    EXPECT_EQ(GetMessageString(10044, "a.htm").substr(0, 22), "The .htm file \"a.htm\" ");
}

TEST(GetMessageString, AnEmptySecondTextKeepsItsPlaceholder) {
    EXPECT_EQ(GetMessageString(10045, "2"), "Interrupted project scan; 2 missing file<INSERT_TEXT2>");
    EXPECT_EQ(GetMessageString(10045, "2", "s."), "Interrupted project scan; 2 missing files.");
}

TEST(GetMessageString, FillsPlaceholdersInsideLongTexts) {
    const std::string text = GetMessageString(10063, "popups.js", "\\html\\NoPopups");
    EXPECT_NE(text.find("strings in \"popups.js\" to use"), std::string::npos);
    EXPECT_NE(text.find("the folder \"\\html\\NoPopups\" of"), std::string::npos);
    EXPECT_EQ(text.find("<INSERT_TEXT"), std::string::npos);
}

TEST(GetMessageString, AnInsertHoldingItsOwnPlaceholderDoesNotLoop) {
    EXPECT_EQ(GetMessageString(10069, "<INSERT_TEXT>"), "The file \"<INSERT_TEXT>\" could not be found.");
    // The second placeholder is filled after the first, inside the first insert too.
    EXPECT_EQ(GetMessageString(10066, "x<INSERT_TEXT2>", "y"), "\"xy\" was renamed \"y\"");
}

TEST(GetMessageString, AMissingIdNamesTheResource) {
    EXPECT_EQ(GetMessageString(12345), "Resource ID 12345 Missing");
    EXPECT_EQ(GetMessageString(-7), "Resource ID-7 Missing");
}

TEST(MessageBoxes, ShowMessageIdAppendsTheExtraTextAndCarriesTheId) {
    testing::ScriptedView view;
    ScopedActiveView active(view);
    ShowMessageID(10008, mb::kInformation, "HTML Help Project File", "", BoxPosition{10, 20});
    ShowMessageID(99999, mb::kOKOnly, "T");
    ASSERT_EQ(view.messages.size(), 2u);
    EXPECT_EQ(view.messages[0].text, *CatalogueText(10008) + "\r\n");
    EXPECT_EQ(view.messages[0].catalogueId, 10008);
    EXPECT_EQ(view.messages[0].title, "HTML Help Project File");
    EXPECT_EQ(view.messages[0].style, 64);
    EXPECT_EQ(*view.messages[0].position.left, 10);
    EXPECT_EQ(view.messages[1].text, "Unknown message ID");
}

TEST(MessageBoxes, AskReturnsTheButtonPressedIncludingTheCloseBoxAnswer) {
    testing::ScriptedView view;
    ScopedActiveView active(view);
    view.answers = {mb::kYes, mb::kNo, mb::kOK};
    EXPECT_EQ(AskMessage("q", 36, "t"), mb::kYes);
    EXPECT_EQ(AskMessage("q", 36, "t"), mb::kNo);
    EXPECT_EQ(AskMessage("q", 36, "t"), mb::kOK);  // closed through the system menu
    view.answersById[10038] = mb::kYes;
    EXPECT_EQ(AskMessage(GetMessageString(10038, "a", "b"), 36, "t", {}, 10038), mb::kYes);
    EXPECT_EQ(AskMessage("unknown", 36, "t"), mb::kNo);  // the silent answer is the negative one
}

}  // namespace
}  // namespace tamrix
