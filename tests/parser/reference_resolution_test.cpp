#include "parser/reference_resolution.h"

#include "parser/project_fixture.h"

namespace tamrix::modUtilities {
namespace {

using ReferenceResolution = testing::ProjectFixture;

TEST_F(ReferenceResolution, LinksCountForTheFileTheyReach) {
    auto a = Add("a.htm", "A", {"B.HTM#x", "b.htm#y", "#self", "a.htm"});
    auto b = Add("b.htm", "B", {"a.htm#top"});
    EXPECT_TRUE(UpdateInternalReferences(wizard));
    EXPECT_EQ(b->InternalReferences, 2);  // two targets that differ in text
    EXPECT_EQ(a->InternalReferences, 2);
    EXPECT_TRUE(view.messages.empty());
}

TEST_F(ReferenceResolution, UnresolvedLinksCountForThePreviousLookup) {
    auto a = Add("a.htm", "A", {"b.htm", "http://x.org/page.htm#p", "c.htm"});
    auto b = Add("b.htm", "B");
    view.answersById[10052] = mb::kOK;
    EXPECT_TRUE(UpdateInternalReferences(wizard));
    EXPECT_EQ(b->InternalReferences, 3);
    ASSERT_EQ(view.MessageIds(), (std::vector<long>{10052, 10052}));
    view.ExpectMessage(0, 10052, "Checking internal references to topic files", mb::kOKCancel);
    EXPECT_NE(view.messages[0].text.find("http://x.org/page.htm "), std::string::npos);
    EXPECT_EQ(view.messages[0].text.find("#p"), std::string::npos);

    view.answersById[10052] = mb::kCancel;
    EXPECT_FALSE(UpdateInternalReferences(wizard));
    EXPECT_TRUE(view.errors.empty());
    EXPECT_EQ(a->InternalReferences, 0);

    // An unresolved first link has no previous lookup: an unexpected error.
    wizard.Globals.TopicFiles = std::make_shared<CTopicFiles>();
    Add("a.htm", "A", {"missing.htm", "a.htm"});
    view.answersById[10052] = mb::kOK;
    EXPECT_FALSE(UpdateInternalReferences(wizard));
    ASSERT_EQ(view.errors.size(), 1u);
    EXPECT_TRUE(view.ErrorNamed("modUtilities:UpdateInternalReferences"));
}

TEST_F(ReferenceResolution, ValidityAsksWhenMoreThanAQuarterLackAnId) {
    Add("a.htm", "");
    for (int i = 0; i < 3; ++i) Add("t" + std::to_string(i) + ".htm", "T" + std::to_string(i));
    EXPECT_TRUE(CheckProjectValidity(wizard.Errors, wizard.Globals.TopicFiles.get()));
    EXPECT_TRUE(view.messages.empty());

    wizard.Globals.TopicFiles = std::make_shared<CTopicFiles>();
    for (int i = 0; i < 7; ++i)
        Add("u" + std::to_string(i) + ".htm", i < 2 ? "" : "U" + std::to_string(i));
    EXPECT_FALSE(CheckProjectValidity(wizard.Errors, wizard.Globals.TopicFiles.get()));
    ASSERT_EQ(view.messages.size(), 1u);
    view.ExpectMessage(0, 10023, "HTML Project Check");
    EXPECT_EQ(view.messages[0].style & 7, mb::kYesNo);
    EXPECT_NE(view.messages[0].text.find("includes  2 .htm files"), std::string::npos);
    EXPECT_NE(view.messages[0].text.find("total of  7 .htm"), std::string::npos);
    view.answersById[10023] = mb::kYes;
    EXPECT_TRUE(CheckProjectValidity(wizard.Errors, wizard.Globals.TopicFiles.get()));
    EXPECT_TRUE(CheckProjectValidity(wizard.Errors, nullptr));
}

TEST_F(ReferenceResolution, ExternalReferencesCountTopicIdsAndExtraIds) {
    auto a = Add("a.htm", "idh_main", {}, "IDH_SUB^other^idh_sub");
    auto b = Add("b.htm", "IDH_SUB");
    auto c = Add("c.htm", "");
    wizard.Globals.MapContextIDs = std::make_shared<CContextIDs>();
    wizard.Globals.MapContextIDs->Add(wizard.Errors, "IDH_MAIN", "1", "IDH_MAIN");
    wizard.Globals.MapContextIDs->Add(wizard.Errors, "idh_sub", "2", "idh_sub");
    wizard.Globals.ProjectContextIDs = std::make_shared<CContextIDs>();
    wizard.Globals.ProjectContextIDs->Add(wizard.Errors, "IDH_MAIN", "1", "IDH_MAIN");
    EXPECT_TRUE(CountExternalReferences(wizard));
    EXPECT_EQ(a->ExternalReferences, 4);  // main twice, sub twice as an extra ID
    EXPECT_EQ(b->ExternalReferences, 1);
    EXPECT_EQ(c->ExternalReferences, 0);
    EXPECT_EQ(view.Captions().front(), "Setting External References ...");
}

TEST_F(ReferenceResolution, ValuesGoToTheFirstTopicOfADefinedContext) {
    auto a = Add("a.htm", "IDH_X");
    auto b = Add("b.htm", "idh_x");
    auto c = Add("c.htm", "IDH_Y");
    wizard.Globals.MapContextIDs = std::make_shared<CContextIDs>();
    wizard.Globals.MapContextIDs->Add(wizard.Errors, "idh_X", "&H10", "idh_X")->FileDefined = true;
    wizard.Globals.MapContextIDs->Add(wizard.Errors, "IDH_Y", "7", "IDH_Y");
    EXPECT_TRUE(UpdateExternalReferences(wizard));
    EXPECT_EQ(
        a->ContextIDValueString + "|" + b->ContextIDValueString + "|" + c->ContextIDValueString,
        "&H10||");
}

}  // namespace
}  // namespace tamrix::modUtilities
