#include "messages/messages.h"

#include <gtest/gtest.h>

#include "support/scripted_view.h"

namespace tamrix {
namespace {

using namespace modMessages;

TEST(GetMessageString, FillsPlaceholdersOnceAndNamesAMissingId) {
    struct Case {
        long id;
        const char* insert;
        const char* insert2;
        const char* expected;
    };
    const Case cases[] = {
        {10069, "a.hhp", "", "The file \"a.hhp\" could not be found."},
        // An empty second text keeps its placeholder.
        {10045, "2", "", "Interrupted project scan; 2 missing file<INSERT_TEXT2>"},
        {10045, "2", "s.", "Interrupted project scan; 2 missing files."},
        // An insert holding a placeholder is not searched again, so nothing loops;
        // the second placeholder is filled inside the first insert too.
        {10069, "<INSERT_TEXT>", "", "The file \"<INSERT_TEXT>\" could not be found."},
        {10066, "x<INSERT_TEXT2>", "y", "\"xy\" was renamed \"y\""},
        {12345, "", "", "Resource ID 12345 Missing"},
        {-7, "", "", "Resource ID-7 Missing"},
    };
    for (const Case& c : cases) EXPECT_EQ(GetMessageString(c.id, c.insert, c.insert2), c.expected);
    const std::string text = GetMessageString(10063, "popups.js", "\\html\\NoPopups");
    EXPECT_NE(text.find("the folder \"\\html\\NoPopups\" of"), std::string::npos);
    EXPECT_EQ(text.find("<INSERT_TEXT"), std::string::npos);
}

TEST(MessageBoxes, CarryTheCatalogueIdAndReturnTheButtonPressed) {
    testing::ScriptedView view;
    ShowMessageID(view, 10008, mb::kInformation, "HTML Help Project File", "", BoxPosition{10, 20});
    ShowMessageID(view, 99999, mb::kOKOnly, "T");
    ShowMessage(view, FromCatalogue(10069, "a.hhp"), mb::kOKOnly, "Open");
    ASSERT_EQ(view.messages.size(), 3u);
    EXPECT_EQ(view.messages[0].text, *CatalogueText(10008) + "\r\n");
    EXPECT_EQ(view.messages[0].catalogueId, 10008);
    EXPECT_EQ(view.messages[0].title, "HTML Help Project File");
    EXPECT_EQ(view.messages[0].style, 64);
    EXPECT_EQ(*view.messages[0].position.left, 10);
    EXPECT_EQ(view.messages[1].text, "Unknown message ID");
    EXPECT_EQ(view.messages[2].text, "The file \"a.hhp\" could not be found.");
    EXPECT_EQ(view.messages[2].catalogueId, 10069);

    // The view answers by the catalogue ID the question carries.
    view.answersById[10038] = mb::kYes;
    EXPECT_EQ(AskMessage(view, FromCatalogue(10038, "a", "b"), 36, "t"), mb::kYes);
}

}  // namespace
}  // namespace tamrix
