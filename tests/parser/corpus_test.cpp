// Real projects as HTML Help Workshop generated them, and their WinHelp projects.
#include "model/project_state.h"
#include "parser/project_fixture.h"
#include "parser/reference_resolution.h"
#include "parser/winhelp_reader.h"
#include "platform/byte_text.h"

namespace tamrix::modParser {
namespace {

using testing::CorpusPath;

class CorpusProjects : public testing::ProjectFixture {
protected:
    void SetUp() override {
        ProjectFixture::SetUp();
        ASSERT_FALSE(CorpusPath("").empty())
            << "no corpus at " TAMRIX_CORPUS_DIR " (set TAMRIX_CORPUS_DIR)";
        view.answersById[10044] = mb::kYes;
        view.answersById[10005] = mb::kYes;
        view.answersById[10052] = mb::kOK;
    }
    // Reads a WinHelp project; the include lines of both corpus projects name
    // absolute Windows paths, skipped with a message each.
    void ReadWinHelp(const std::string& hpj) {
        bool hasAlias = false, hasMap = false;
        ASSERT_TRUE(OpenWinProjectFile(wizard, CorpusPath(hpj), hasAlias, hasMap));
        EXPECT_TRUE(hasAlias);
        EXPECT_TRUE(hasMap);
        ASSERT_TRUE(ParseWinProjectFile(wizard, CorpusPath(hpj)));
        EXPECT_EQ(wizard.Globals.MapFileCount, 0);
        EXPECT_EQ(view.MessageIds(), (std::vector<long>{10036, 10036}));
        EXPECT_EQ(wizard.Globals.ProjectAliases->Count(), 41);
        EXPECT_TRUE(view.errors.empty());
    }
};

TEST_F(CorpusProjects, DraftCableCopyGivesOneTopicFilePerListedFile) {
    ASSERT_TRUE(Parse(CorpusPath("draftcable/Copia de DraftCable.hhp")));
    EXPECT_EQ(missing, 0);
    EXPECT_FALSE(stopped);
    // All 82 [FILES] entries exist on disk, each with a head and a non-empty title.
    const CTopicFiles& topics = *wizard.Globals.TopicFiles;
    ASSERT_EQ(topics.Count(), 82);
    // The project names it in Windows-1252; the disk holds it as UTF-8.
    const auto disenos = topics.Find("dise\xF1os.htm");
    ASSERT_NE(disenos, nullptr);
    EXPECT_EQ(disenos->AutoNamePath, "html\\dise\xF1os.htm");
    EXPECT_EQ(disenos->TopicTitle, "Dise\xF1os");
    EXPECT_EQ(topics.Item("afxc0c4l.htm")->Context, "menu_file");
    EXPECT_EQ(topics.Item("afxc0c4l.htm")->TopicTitle, "Comandos del men\xFA Archivo");
    long generatedWithId = 0;
    for (const auto& topic : topics) {
        if (!StartsWithNoCase(topic->AutoFileName, "afx") || topic->Context.empty()) continue;
        ++generatedWithId;
        EXPECT_EQ(topic->Context, Fold(topic->Context)) << topic->AutoFileName;
        EXPECT_EQ(topic->NewFileName, topic->Context + ".htm");
    }
    EXPECT_GT(generatedWithId, 30);
    // Counted by hand: the listed files holding <TITLE>(Untitled)</TITLE>, found with
    //   grep -il '<title>(untitled)</title>' over the 82 entries of [FILES]
    // (the entries converted from Windows-1252 to the UTF-8 names on disk): 41.
    EXPECT_EQ(modUtilities::UntitledTopics(wizard.Errors, &topics), 41);
    EXPECT_TRUE(view.messages.empty());
    EXPECT_TRUE(view.errors.empty());
    EXPECT_TRUE(modUtilities::UpdateInternalReferences(wizard));
}

TEST_F(CorpusProjects, DraftCableWinHelpAliasesAreReadAndAbsoluteIncludesSkipped) {
    ReadWinHelp("draftcable/DraftCable.hpj");
    const auto& aliases = *wizard.Globals.ProjectAliases;
    EXPECT_EQ(aliases.Item(1)->ContextID + "=" + aliases.Item(1)->TopicID,
              "HIDR_MAINFRAME=main_index");
    EXPECT_EQ(aliases.Item(41)->ContextID + "=" + aliases.Item(41)->TopicID,
              "AFX_HIDP_FAILED_TO_AUTO_REGISTER=AFX_HIDP_default");
    EXPECT_EQ(wizard.Globals.ContentsTopic, "main_index");
}

TEST_F(CorpusProjects, DraftCableMapHeaderReadsItsHexadecimalDefinitions) {
    ASSERT_TRUE(ParseMapFile(wizard, CorpusPath("draftcable/DraftCable.h"), 1));
    ASSERT_EQ(wizard.Globals.MapContextIDs->Count(), 103);
    const auto first = wizard.Globals.MapContextIDs->Item(1);
    EXPECT_EQ(first->ContextString + "=" + first->ContextID, "HID_VIEW_ARRANGE=&H1007F");
    EXPECT_EQ(first->ContextIDVal, 0x1007F);
    EXPECT_TRUE(wizard.Globals.InvalidContextIDs.empty());
    EXPECT_FALSE(wizard.Globals.DuplicateContextIDs);
}

TEST_F(CorpusProjects, WaveSoapWithoutItsMapHeadersIsReadWithoutFailing) {
    ReadWinHelp("wavesoap/WaveSoapFront.hpj");
    EXPECT_EQ(wizard.Globals.ProjectContextIDs->Count(), 0);
}

}  // namespace
}  // namespace tamrix::modParser
