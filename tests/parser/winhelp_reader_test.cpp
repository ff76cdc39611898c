#include "parser/winhelp_reader.h"

#include <gtest/gtest.h>

#include "model/project_state.h"
#include "parser/undefined_ids.h"
#include "parser/winhelp_definitions.h"
#include "parser/winhelp_includes.h"
#include "support/scripted_view.h"
#include "support/temp_dir.h"

namespace tamrix::modParser {
namespace {

using testing::ScriptedView;
using testing::TempDir;

class WinHelpReader : public ::testing::Test {
  protected:
    void SetUp() override { modGlobals::ResetAll(); }
    void TearDown() override { modGlobals::ResetAll(); }

    // Reads the map file text as map file 1.
    void ReadMap(const std::string& text) {
        const std::string path = dir.Write("map.h", text);
        ASSERT_TRUE(ParseMapFile(path, 1));
    }
    std::shared_ptr<CContextID> MapID(const std::string& name) const {
        return modGlobals::MapContextIDs ? modGlobals::MapContextIDs->Find(name) : nullptr;
    }
    bool Parse(const std::string& hpjText) {
        const std::string hpj = dir.Write("proj/help.hpj", hpjText);
        return ParseWinProjectFile(wizard, hpj);
    }

    TempDir dir;
    ScriptedView view;
    ScopedActiveView active{view};
    WizardState wizard{&view};
};

TEST_F(WinHelpReader, MapFileLinesGiveTheirDefinitions) {
    ReadMap(
        "// a comment\r\n"
        "#define IDH_A 10\r\n"
        "\t#define\tIDH_B 0x1F // note\r\n"
        "IDH_C=5\r\n"
        "IDH_D 7\r\n"
        "#define IDH_F abc\r\n"
        "#define IDH_ALONE\r\n"
        "; IDH_G = 1\r\n"
        "* IDH_H = 2\r\n"
        "#include \"other.h\"\r\n"
        "\r\n"
        "=9\r\n");
    const auto& ids = *modGlobals::MapContextIDs;
    ASSERT_EQ(ids.Count(), 4);

    EXPECT_EQ(ids.Item(1)->ContextString, "IDH_A");
    EXPECT_EQ(ids.Item(1)->ContextID, "10");
    EXPECT_EQ(ids.Item(1)->ContextIDVal, 10);
    EXPECT_EQ(ids.Item(1)->MapFileIndex, 1);
    EXPECT_EQ(ids.Item(1)->Comment, "");

    EXPECT_EQ(ids.Item(2)->ContextID, "&H1F");
    EXPECT_EQ(ids.Item(2)->ContextIDVal, 31);
    EXPECT_EQ(ids.Item(2)->Comment, " // note");

    EXPECT_EQ(ids.Item(3)->ContextString, "IDH_C");
    EXPECT_EQ(ids.Item(3)->ContextIDVal, 5);
    EXPECT_EQ(MapID("IDH_D"), nullptr);  // "NAME VALUE" only in the project file itself

    EXPECT_EQ(ids.Item(4)->ContextString, "IDH_F");
    EXPECT_EQ(ids.Item(4)->ContextIDVal, 0);
    EXPECT_TRUE(view.messages.empty());
    EXPECT_TRUE(view.errors.empty());
}

TEST_F(WinHelpReader, OverflowingValuesAreCollected) {
    ReadMap("#define IDH_E 99999999999\n#define IDH_X 0x1FFFFFFFF\n#define IDH_OK &HFFFF\n");
    EXPECT_EQ(MapID("IDH_E")->ContextIDVal, -1);
    EXPECT_EQ(MapID("IDH_X")->ContextIDVal, -1);
    EXPECT_EQ(MapID("IDH_OK")->ContextIDVal, -1);
    EXPECT_EQ(modGlobals::InvalidContextIDs,
              "IDH_E = overflow value: 99999999999^IDH_X = overflow value: 0x1FFFFFFFF");
}

TEST_F(WinHelpReader, ConflictingRedefinitionsAreNotedOncePerName) {
    ReadMap(
        "#define IDH_A 10\n"
        "#define idh_a 10\n"  // identical: silent
        "#define IDH_A 11\n"  // conflict
        "#define IDH_A 12\n"  // noted once only
        "#define IDH_H 0x10\n"
        "#define IDH_H 0x10\n"  // stored as &H10, so it conflicts
        "#define IDH_K &h10\n"
        "#define IDH_K &H10\n");
    EXPECT_EQ(MapID("IDH_A")->ContextID, "10");
    ASSERT_TRUE(modGlobals::DuplicateContextIDs);
    const auto& duplicates = *modGlobals::DuplicateContextIDs;
    ASSERT_EQ(duplicates.Count(), 2);
    EXPECT_EQ(duplicates.Item(1)->ContextString, "IDH_A");
    EXPECT_EQ(duplicates.Item(1)->MapFileIndex, 0);
    EXPECT_EQ(duplicates.Item(2)->ContextString, "IDH_H");
}

TEST_F(WinHelpReader, ProjectMapSectionTakesAllThreeFormsAndIncludes) {
    dir.Write("proj/inc/a.h", "#define IDH_A 1\n#include \"b.hm\"\n#include <missing.h>\n");
    dir.Write("proj/inc/b.hm", "#define IDH_B 2\n#include \"c.h\"\n");
    dir.Write("proj/inc/c.h", "#define IDH_C 3\n");
    ASSERT_TRUE(
        Parse("[OPTIONS]\nCONTENTS=main_index\n"
              "[MAP]\n"
              "IDH_ONE 1\n"
              "IDH_TWO=2 ; two\n"
              "#define IDH_THREE\t3\n"
              "NOVALUE\n"
              "#include \"inc\\a.h\"\n"
              "#include <inc\\a.h>\n"
              "[ALIAS]\n"));
    const auto& own = *modGlobals::ProjectContextIDs;
    ASSERT_EQ(own.Count(), 3);
    EXPECT_EQ(own.Item(1)->ContextString, "IDH_ONE");
    EXPECT_EQ(own.Item(1)->MapFileIndex, 0);
    EXPECT_EQ(own.Item(2)->Comment, " ; two");
    EXPECT_EQ(own.Item(3)->ContextIDVal, 3);

    // a.h once (the second include is a duplicate), b.hm from a.h; c.h is two levels down.
    ASSERT_EQ(modGlobals::MapFileCount, 2);
    EXPECT_EQ(modGlobals::MapFiles[0], dir / "proj/inc/a.h");
    EXPECT_EQ(modGlobals::MapFiles[1], dir / "proj/inc/b.hm");
    EXPECT_EQ(modGlobals::DuplicateIncludes, dir / "proj/inc/a.h");
    EXPECT_EQ(view.MessageIds(), std::vector<long>{10036});  // <missing.h> inside a.h
    EXPECT_EQ(modGlobals::ContentsTopic, "main_index");
    EXPECT_NE(modGlobals::MapSectionText.find("IDH_ONE 1"), std::string::npos);

    for (int i = 1; i <= modGlobals::MapFileCount; ++i)
        ASSERT_TRUE(ParseMapFile(modGlobals::MapFiles[i - 1], i));
    EXPECT_EQ(MapID("IDH_B")->MapFileIndex, 2);
    EXPECT_EQ(MapID("IDH_C"), nullptr);
}

TEST_F(WinHelpReader, MissingIncludesShowTheMessageOfTheirForm) {
    ASSERT_TRUE(
        Parse("[MAP]\n"
              "#include <map.h>\n"
              "#include \"map.h\"\n"
              "#include map.h\n"
              "#include < spaced.h >\n"
              "#include \"sub\"\n"           // a folder is no include file
              "#include C:\\nowhere\\x.h\n"  // a drive path is taken as it is
              "#include\n"));
    EXPECT_EQ(view.MessageIds(),
              (std::vector<long>{10036, 10037, 10037, 10036, 10037, 10037, 10037}));
    for (const auto& m : view.messages) EXPECT_EQ(m.title, "Parsing #include reference");
    EXPECT_EQ(modGlobals::MapFileCount, 0);
    EXPECT_TRUE(view.errors.empty());
}

TEST_F(WinHelpReader, IncludesResolveRelativeToTheProjectAndAcceptOddTargets) {
    dir.Write("proj/sub/placeholder.txt", "");
    dir.Write("outside.h", "#define IDH_OUT 5\n");
    dir.Write("proj/binary.h", std::string("\0\x01\xff#define\0IDH_BIN 3\n\x80\r\r", 20));
    dir.Write("proj/spaced.h", "#define IDH_S 1\n");
    ASSERT_TRUE(
        Parse("[MAP]\n"
              "#include ..\\outside.h\n"
              "#include \"sub\"\n"
              "#include binary.h\n"
              "#include < spaced.h >\n"));
    ASSERT_EQ(modGlobals::MapFileCount, 3);
    EXPECT_EQ(modGlobals::MapFiles[0], dir / "outside.h");
    for (int i = 1; i <= modGlobals::MapFileCount; ++i)
        EXPECT_TRUE(ParseMapFile(modGlobals::MapFiles[i - 1], i));
    EXPECT_EQ(MapID("IDH_OUT")->ContextIDVal, 5);
    EXPECT_EQ(MapID("IDH_S")->MapFileIndex, 3);
    EXPECT_TRUE(view.errors.empty());
}

TEST_F(WinHelpReader, AliasSectionAndAliasFiles) {
    dir.Write("proj/al.txt", "; fine\n\n/* C comment */\nA1 = T1\n#include \"al2.txt\"\n");
    dir.Write("proj/al2.txt", "A2 = T2\n");
    ASSERT_TRUE(
        Parse("[ALIAS]\n"
              "HID_ONE = topic_one ; first\n"
              "hid_one = other\n"
              "HID_TWO\t=\ttopic_two\n"
              "#include \"al.txt\"\n"
              "not an alias\n"));
    const auto& aliases = *modGlobals::ProjectAliases;
    ASSERT_EQ(aliases.Count(), 2);
    EXPECT_EQ(aliases.Item(1)->ContextID, "HID_ONE");
    EXPECT_EQ(aliases.Item(1)->TopicID, "topic_one");
    EXPECT_EQ(aliases.Item(1)->Comment, " ; first");
    EXPECT_EQ(aliases.Item(2)->TopicID, "topic_two");
    EXPECT_TRUE(ThisAliasExists(aliases, "Hid_Two"));
    EXPECT_FALSE(ThisAliasExists(aliases, "A1"));  // alias files are not read here

    ASSERT_EQ(modGlobals::AliasFileCount, 2);
    EXPECT_EQ(modGlobals::AliasFiles[1], dir / "proj/al2.txt");
    ASSERT_EQ(view.MessageIds(), std::vector<long>{10049});
    EXPECT_EQ(view.messages[0].title, "Scanning Header Files");
    EXPECT_EQ(view.messages[0].style, 48);
    EXPECT_NE(view.messages[0].text.find("C-type /*  */"), std::string::npos);
    EXPECT_NE(view.messages[0].text.find(dir / "proj/al.txt"), std::string::npos);
    EXPECT_EQ(modGlobals::ContentsTopic, "");
}

TEST_F(WinHelpReader, CommentCheckStopsAtTheFirstCStyleCommentOnly) {
    const std::string good = dir.Write("good.h", "; only\n// slashes\n/ x\n");
    CheckCommentFormat(good);
    EXPECT_TRUE(view.messages.empty());
    const std::string twice = dir.Write("twice.h", "/* one */\n/* two */\n");
    CheckCommentFormat(twice);
    EXPECT_EQ(view.MessageIds(), std::vector<long>{10049});
    CheckCommentFormat(dir / "absent.h");
    EXPECT_EQ(view.MessageIds(), (std::vector<long>{10049, 10050}));
    EXPECT_EQ(view.messages[1].title, "Checking Alias File Format");
}

TEST_F(WinHelpReader, OpenReportsMissingFilesAndLongSections) {
    bool hasAlias = true, hasMap = true;
    EXPECT_FALSE(OpenWinProjectFile(wizard, dir / "none/absent.hpj", hasAlias, hasMap));
    EXPECT_FALSE(hasAlias);
    ASSERT_EQ(view.MessageIds(), std::vector<long>{10069});
    EXPECT_NE(view.messages[0].text.find("\"absent.hpj\""), std::string::npos);
    EXPECT_EQ(view.messages[0].title, "Opening WinHelp Project File");

    std::string longMap = "[ALIAS]\na=b\n[MAP]\n";
    for (int i = 0; i < 3000; ++i) longMap += "IDH_NUMBER_" + std::to_string(i) + "=1\n";
    const std::string hpj = dir.Write("long.hpj", longMap);
    view.messages.clear();
    EXPECT_TRUE(OpenWinProjectFile(wizard, hpj, hasAlias, hasMap));
    EXPECT_TRUE(hasAlias);
    EXPECT_TRUE(hasMap);
    ASSERT_EQ(view.MessageIds(), std::vector<long>{10035});
    EXPECT_EQ(view.messages[0].title, "Warning");

    const std::string empty = dir.Write("empty.hpj", "[OPTIONS]\nTITLE=x\n[MAP]\n");
    view.messages.clear();
    EXPECT_TRUE(OpenWinProjectFile(wizard, empty, hasAlias, hasMap));
    EXPECT_FALSE(hasAlias);
    EXPECT_FALSE(hasMap);
    EXPECT_TRUE(view.messages.empty());
}

TEST_F(WinHelpReader, AddMapFileGrowsAndNotesDuplicates) {
    std::vector<std::string> list;
    Counter16 count;
    AddMapFile(list, count, "");
    EXPECT_EQ(count, 0);
    for (int i = 0; i < 12; ++i) AddMapFile(list, count, "f" + std::to_string(i));
    EXPECT_EQ(count, 12);
    EXPECT_EQ(list.size(), 21u);
    AddMapFile(list, count, "F3");
    AddMapFile(list, count, "f11");
    EXPECT_EQ(count, 12);
    EXPECT_EQ(modGlobals::DuplicateIncludes, "F3^f11");
}

TEST_F(WinHelpReader, UndefinedIDsCountsZeroValuesApart) {
    ReadMap("#define A 0\n#define B 1\n#define C 2\n#define D abc\n");
    modGlobals::ProjectContextIDs = std::make_shared<CContextIDs>();
    AddContextIDFromString("E 5", *modGlobals::ProjectContextIDs, "", 0);
    MapID("C")->FileDefined = true;
    int zeros = -1;
    EXPECT_EQ(modUtilities::UndefinedIDs(zeros), 2);  // B and E
    EXPECT_EQ(zeros, 2);                              // A and D
}

}  // namespace
}  // namespace tamrix::modParser
