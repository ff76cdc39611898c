// Real projects as HTML Help Workshop generated them.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "model/project_state.h"
#include "parser/project_reader.h"
#include "parser/reference_resolution.h"
#include "parser/sitemap_reader.h"
#include "platform/byte_text.h"
#include "support/scripted_view.h"

namespace tamrix::modParser {
namespace {

// The corpus folder; TAMRIX_CORPUS in the environment overrides the built-in
// place (a worktree checkout sits one level deeper than the main one).
std::string CorpusDir() {
    const char* over = std::getenv("TAMRIX_CORPUS");
    return over != nullptr && *over != 0 ? over : TAMRIX_CORPUS_DIR;
}

class CorpusProjects : public ::testing::Test {
  protected:
    void SetUp() override {
        modGlobals::ResetAll();
        if (!std::filesystem::is_directory(CorpusDir())) GTEST_SKIP() << "no corpus";
        view.answersById[10044] = mb::kYes;
        view.answersById[10005] = mb::kYes;
        view.answersById[10052] = mb::kOK;
    }
    void TearDown() override { modGlobals::ResetAll(); }

    bool Parse(const std::string& project) {
        return ParseProjectFile(wizard, CorpusDir() + "/" + project, missing, stopped);
    }

    testing::ScriptedView view;
    ScopedActiveView active{view};
    WizardState wizard{&view};
    int missing = 0;
    bool stopped = false;
};

TEST_F(CorpusProjects, DraftCableCopyGivesOneTopicFilePerListedFile) {
    ASSERT_TRUE(Parse("draftcable/Copia de DraftCable.hhp"));
    EXPECT_EQ(missing, 0);
    EXPECT_FALSE(stopped);
    // All 82 [FILES] entries exist on disk, each with a head and a non-empty title.
    const CTopicFiles& topics = *modGlobals::TopicFiles;
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
    EXPECT_EQ(modUtilities::UntitledTopics(&topics), 41);
    EXPECT_TRUE(view.messages.empty());
    EXPECT_TRUE(view.errors.empty());
    EXPECT_TRUE(modUtilities::UpdateInternalReferences(wizard));
}

TEST_F(CorpusProjects, DraftCableContentsAndIndexAreRead) {
    const std::string project = CorpusDir() + "/draftcable/Copia de DraftCable.hhp";
    const std::string contents = GetContentsFileName(project);
    const std::string index = GetIndexFileName(project);
    EXPECT_TRUE(EndsWithNoCase(contents, "/draftcable/Table of Contents.hhc")) << contents;
    EXPECT_TRUE(EndsWithNoCase(index, "/draftcable/DraftCable.hhk")) << index;
    modGlobals::ContentsTargets = std::make_shared<CTargets>();
    modGlobals::IndexTargets = std::make_shared<CTargets>();
    EXPECT_TRUE(ParseContentsFile(contents));
    EXPECT_TRUE(ParseIndexFile(index));
    EXPECT_GT(modGlobals::ContentsTargets->Count(), 10);
    EXPECT_GT(modGlobals::IndexTargets->Count(), 10);
    for (const auto& t : *modGlobals::ContentsTargets)
        EXPECT_EQ(t->TargetString.find('#'), std::string::npos) << t->TargetString;
}

TEST_F(CorpusProjects, WaveSoapParses) {
    ASSERT_TRUE(Parse("wavesoap/WaveSoap.hhp"));
    EXPECT_EQ(missing, 0);
    EXPECT_EQ(modGlobals::TopicFiles->Count(), 62);
    // 36 of its html\*.htm files hold <TITLE>(Untitled)</TITLE> (grep -il).
    EXPECT_EQ(modUtilities::UntitledTopics(modGlobals::TopicFiles.get()), 36);
    EXPECT_TRUE(view.errors.empty());
}

}  // namespace
}  // namespace tamrix::modParser
