#include "parser/topics_ahead.h"

#include "parser/project_fixture.h"
#include "support/error_of.h"

namespace tamrix::modParser {
namespace {

using TopicsAheadTest = testing::ProjectFixture;

// Whichever thread parses a file, the caller gets what a parse of its own gives,
// hears each message once, and the files read count as read by it.
TEST_F(TopicsAheadTest, GivesWhatTheCallerWouldParseAndProtectsWhatItRead) {
    constexpr std::size_t kFiles = 400;
    std::vector<std::string> paths;
    std::size_t untitled = 0;
    for (std::size_t i = 0; i < kFiles; ++i) {
        // Beside the project's folder, as a [FILES] line with ".." may put them.
        const std::string name = "shared/t" + std::to_string(i) + ".htm";
        paths.push_back(dir / name);
        if (i % 10 == 3) paths.back().clear();  // not a topic file: passed over
        if (i % 53 == 7) continue;              // listed, never written
        if (i % 37 == 5) {
            if (!paths.back().empty()) ++untitled;
            dir.Write(name, "<HTML><BODY><A NAME=\"n" + std::to_string(i) + "\"></A>");
            continue;
        }
        dir.Write(name, testing::TopicHtml(i % 4 == 0 ? "(Untitled)" : "T" + std::to_string(i),
                                           i % 6 == 0 ? "" : "IDH_" + std::to_string(i),
                                           "<A HREF=\"t" + std::to_string(i + 1) +
                                               ".htm\">next</A><A NAME=\"x\"></A>"));
    }
    wizard.Files.KeepInputReads(true);
    testing::ScriptedView referenceView;
    Conversion reference(referenceView);
    {
        TopicsAhead ahead(wizard, paths);
        for (std::size_t i = 0; i < kFiles; ++i) {
            if (paths[i].empty()) continue;
            SCOPED_TRACE(paths[i]);
            ParsedTopic got, expected;
            const bool found = reference.Files.FileExists(paths[i]);
            if (found) ParseTopicFile(reference, paths[i], expected);
            if (!ahead.Take(i, got)) {
                ASSERT_EQ(wizard.Files.FileExists(paths[i]), found);
                if (!found) continue;
                ParseTopicFile(wizard, paths[i], got);
            }
            ASSERT_TRUE(found);
            EXPECT_EQ(got.ok, expected.ok);
            EXPECT_EQ(got.title + "|" + got.topicId + "|" + got.targets + "|" + got.extraIds,
                      expected.title + "|" + expected.topicId + "|" + expected.targets + "|" +
                          expected.extraIds);
        }
    }
    EXPECT_EQ(view.MessageIds(), referenceView.MessageIds());
    EXPECT_EQ(view.MessageIds(), std::vector<long>(untitled, 5003));
    EXPECT_EQ(view.errors, referenceView.errors);

    // Read once: the last file comes from memory after a change on disk, and it
    // may not be written over.
    dir.Write("shared/t399.htm", "changed");
    EXPECT_NE(wizard.Files.ReadAll(paths.back()), "changed");
    std::filesystem::create_directories(dir / "proj");
    wizard.Files.SetWriteRoot(dir.Path());
    wizard.Files.SetInputFolders({dir / "proj"});
    EXPECT_EQ(testing::ErrorOf([&] { wizard.Files.WriteAll(paths.back(), "new"); }),
              err::kOutsideNewFolder);
    EXPECT_EQ(testing::ErrorOf([&] { wizard.Files.WriteAll(dir / "shared/other.htm", "new"); }), 0);
}

}  // namespace
}  // namespace tamrix::modParser
