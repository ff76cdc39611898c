#include <gtest/gtest.h>

#include "model/conversion.h"
#include "model/project_state.h"
#include "support/error_of.h"
#include "support/scripted_view.h"

namespace tamrix {
namespace {

class ModelTest : public ::testing::Test {
protected:
    testing::ScriptedView view;
    ErrorReporter errors{view};
};

// Records without a key may share a name; a keyed one may not, in any case.
TEST_F(ModelTest, ContextIdsWithAnEmptyKeyMayShareANameAndKeysAreUnique) {
    CContextIDs ids;
    EXPECT_NE(ids.Add(errors, "IDH_A", "1", ""), nullptr);
    EXPECT_NE(ids.Add(errors, "IDH_A", "2", ""), nullptr);
    EXPECT_NE(ids.Add(errors, "IDH_B", "&H10", "IDH_B"), nullptr);
    EXPECT_EQ(ids.Item("idh_b")->ContextID, "&H10");
    EXPECT_EQ(ids.Item(2)->ContextID, "2");
    EXPECT_TRUE(view.errors.empty());
    EXPECT_EQ(ids.Add(errors, "idh_b", "2", "IDH_b"), nullptr);
    EXPECT_EQ(ids.Count(), 3);
    ASSERT_EQ(view.errors.size(), 1u);
    EXPECT_EQ(view.errors[0].first,
              "CContextIDs Collection:Add\r\nError: This key is already associated with an "
              "element of this collection");
}

TEST_F(ModelTest, TopicFileKeysCompareWithoutRegardToCase) {
    CTopicFiles topics;
    auto a = std::make_shared<CTopicFile>();
    a->AutoFileName = "AFXC0001.htm";
    topics.Add(a, a->AutoFileName);
    auto b = std::make_shared<CTopicFile>();
    EXPECT_EQ(testing::ErrorOf([&] { topics.Add(b, "afxc0001.HTM"); }), err::kDuplicateKey);
    EXPECT_EQ(topics.Count(), 1);
    EXPECT_EQ(topics.Item("Afxc0001.Htm"), a);
    EXPECT_EQ(topics.Find("none"), nullptr);
    EXPECT_EQ(testing::ErrorOf([&] { topics.Item("none"); }), err::kInvalidCall);
    EXPECT_THROW(topics.Item(2), BasicError);

    // A link target names the topic of its text before "#"; the answer follows
    // the collection as it changes, and a second collection asks again.
    CTargets targets;
    for (const char* target : {"AFXC0001.HTM#Top", "late.htm", "#afxc0001.htm"})
        targets.Add(target);
    const CTarget& toA = targets.Item(1);
    const CTarget& toLate = targets.Item(2);
    const CTarget& anchor = targets.Item(3);
    EXPECT_EQ(topics.TargetTopic(toA), a.get());
    EXPECT_EQ(topics.TargetTopic(toLate), nullptr);
    EXPECT_EQ(topics.TargetTopic(anchor), nullptr);
    auto late = std::make_shared<CTopicFile>();
    topics.Add(late, "Late.htm");
    EXPECT_EQ(topics.TargetTopic(toLate), late.get());
    topics.Delete(1);
    EXPECT_EQ(topics.TargetTopic(toA), nullptr);
    CTopicFiles other;
    other.Add(a, a->AutoFileName);
    EXPECT_EQ(other.TargetTopic(toA), a.get());
    EXPECT_EQ(other.TargetTopic(toLate), nullptr);
}

// A short list is searched as it stands, a long one through a hashed copy: both
// answer alike as the list grows past the switch and shrinks below it again.
TEST_F(ModelTest, LinkTargetsAreFoundInAnyCaseInShortAndLongLists) {
    CTargets targets;
    for (int i = 0; i < 40; ++i) {
        const std::string name = "Topic" + std::to_string(i) + ".htm";
        EXPECT_FALSE(targets.ContainsNoCase(name));
        targets.Add(name);
        for (int j = 0; j <= i; j += 7)
            ASSERT_TRUE(targets.ContainsNoCase("TOPIC" + std::to_string(j) + ".HTM")) << i;
    }
    EXPECT_EQ(targets.Item(40).TargetString, "Topic39.htm");
    while (targets.Count() > 1) {
        targets.Delete(1);
        EXPECT_FALSE(
            targets.ContainsNoCase("topic" + std::to_string(39 - targets.Count()) + ".htm"));
        ASSERT_TRUE(targets.ContainsNoCase("topic39.HTM")) << targets.Count();
    }
    EXPECT_EQ(testing::ErrorOf([&] { targets.Item(2); }), err::kSubscript);
}

TEST_F(ModelTest, IndexedLookupsKeepTheFirstMatchInCollectionOrder) {
    CTopicFiles topics;
    const char* contexts[] = {"Help", "help", "Other", ""};
    const char* extras[] = {"", "x^Y", "y", "x"};
    for (int i = 0; i < 4; ++i) {
        auto t = std::make_shared<CTopicFile>();
        t->AutoFileName = "f" + std::to_string(i) + ".htm";
        t->Context = contexts[i];
        t->ExtraIds = extras[i];
        topics.Add(t, t->AutoFileName);
    }
    EXPECT_EQ(topics.FirstWithContext("HELP")->AutoFileName, "f0.htm");
    EXPECT_EQ(topics.FirstWithExtraId("y")->AutoFileName, "f1.htm");
    EXPECT_EQ(topics.FirstWithExtraId("X")->AutoFileName, "f1.htm");
    EXPECT_EQ(topics.FirstWithContext("missing"), nullptr);
    auto late = std::make_shared<CTopicFile>();
    late->AutoFileName = "late.htm";
    late->Context = "Late";
    topics.Add(late, late->AutoFileName);
    EXPECT_EQ(topics.FirstWithContext("late"), late);  // added after the index was built
    topics.Item(1)->Context = "Renamed";
    topics.ContextsChanged();
    EXPECT_EQ(topics.FirstWithContext("help")->AutoFileName, "f1.htm");
    topics.Delete(2);
    EXPECT_EQ(topics.FirstWithContext("help"), nullptr);
}

TEST_F(ModelTest, ProgressIgnoresValuesAboveTheMaximumAndRepaintsEveryTenth) {
    Conversion wizard(view);
    modUtilities::InitializeProgressBar(wizard, 0, "Parsing Project File");
    EXPECT_EQ(wizard.ProgressCaption(), "Parsing Project File");
    EXPECT_FALSE(wizard.ProgressVisible());
    modUtilities::InitializeProgressBar(wizard, 25, "Writing");
    EXPECT_TRUE(wizard.ProgressVisible());
    EXPECT_EQ(wizard.ProgressMax(), 25);
    const int before = view.eventsProcessed;
    for (int i = 1; i <= 30; ++i) modUtilities::UpdateProgressBar(wizard, i);
    EXPECT_EQ(wizard.Progress(), 25);
    EXPECT_EQ(view.eventsProcessed - before, 3);  // 10, 20, 30
    modUtilities::InitializeProgressBar(wizard, 40000, "Too many");
    ASSERT_EQ(view.errors.size(), 1u);
    EXPECT_EQ(view.errors[0].first, "modUtilities:InitializeProgressBar\r\nError: Overflow");
}

}  // namespace
}  // namespace tamrix
