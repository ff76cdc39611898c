// Real WinHelp projects from the shared corpus, read as they were committed.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "model/project_state.h"
#include "parser/winhelp_reader.h"
#include "support/scripted_view.h"

namespace tamrix::modParser {
namespace {

std::string CorpusFile(const std::string& relative) {
    const char* env = std::getenv("TAMRIX_CORPUS_DIR");
    const std::string root = env != nullptr && *env != '\0' ? env : TAMRIX_CORPUS_DIR;
    const std::string path = root + "/" + relative;
    return std::filesystem::exists(path) ? path : std::string();
}

class WinHelpCorpus : public ::testing::Test {
  protected:
    void SetUp() override { modGlobals::ResetAll(); }
    void TearDown() override { modGlobals::ResetAll(); }

    testing::ScriptedView view;
    ScopedActiveView active{view};
    WizardState wizard{&view};
};

TEST_F(WinHelpCorpus, DraftCableAliasesAreReadAndAbsoluteIncludesSkipped) {
    const std::string hpj = CorpusFile("draftcable/DraftCable.hpj");
    if (hpj.empty()) GTEST_SKIP() << "corpus not available";
    bool hasAlias = false, hasMap = false;
    ASSERT_TRUE(OpenWinProjectFile(wizard, hpj, hasAlias, hasMap));
    EXPECT_TRUE(hasAlias);
    EXPECT_TRUE(hasMap);
    ASSERT_TRUE(ParseWinProjectFile(wizard, hpj));

    ASSERT_TRUE(modGlobals::ProjectAliases);
    EXPECT_EQ(modGlobals::ProjectAliases->Count(), 41);
    EXPECT_EQ(modGlobals::ProjectAliases->Item(1)->ContextID, "HIDR_MAINFRAME");
    EXPECT_EQ(modGlobals::ProjectAliases->Item(1)->TopicID, "main_index");
    EXPECT_EQ(modGlobals::ProjectAliases->Item(41)->ContextID, "AFX_HIDP_FAILED_TO_AUTO_REGISTER");
    EXPECT_EQ(modGlobals::ProjectAliases->Item(41)->TopicID, "AFX_HIDP_default");
    EXPECT_EQ(modGlobals::MapFileCount, 0);
    EXPECT_EQ(view.MessageIds(), (std::vector<long>{10036, 10036}));
    EXPECT_EQ(modGlobals::ContentsTopic, "main_index");
    EXPECT_TRUE(view.errors.empty());
}

TEST_F(WinHelpCorpus, DraftCableMapHeaderReadsItsHexadecimalDefinitions) {
    const std::string map = CorpusFile("draftcable/DraftCable.h");
    if (map.empty()) GTEST_SKIP() << "corpus not available";
    ASSERT_TRUE(ParseMapFile(map, 1));
    ASSERT_TRUE(modGlobals::MapContextIDs);
    EXPECT_EQ(modGlobals::MapContextIDs->Count(), 103);
    const auto first = modGlobals::MapContextIDs->Item(1);
    EXPECT_EQ(first->ContextString, "HID_VIEW_ARRANGE");
    EXPECT_EQ(first->ContextID, "&H1007F");
    EXPECT_EQ(first->ContextIDVal, 0x1007F);
    EXPECT_TRUE(modGlobals::InvalidContextIDs.empty());
    EXPECT_FALSE(modGlobals::DuplicateContextIDs);
}

TEST_F(WinHelpCorpus, WaveSoapWithoutItsMapHeadersIsReadWithoutFailing) {
    const std::string hpj = CorpusFile("wavesoap/WaveSoapFront.hpj");
    if (hpj.empty()) GTEST_SKIP() << "corpus not available";
    bool hasAlias = false, hasMap = false;
    ASSERT_TRUE(OpenWinProjectFile(wizard, hpj, hasAlias, hasMap));
    ASSERT_TRUE(ParseWinProjectFile(wizard, hpj));
    EXPECT_EQ(modGlobals::MapFileCount, 0);
    EXPECT_EQ(view.MessageIds(), (std::vector<long>{10036, 10036}));
    EXPECT_EQ(modGlobals::ProjectAliases->Count(), 41);
    EXPECT_EQ(modGlobals::ProjectContextIDs->Count(), 0);
    EXPECT_TRUE(view.errors.empty());
}

}  // namespace
}  // namespace tamrix::modParser
