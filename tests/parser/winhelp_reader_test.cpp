#include "parser/winhelp_reader.h"

#include "parser/project_fixture.h"
#include "parser/undefined_ids.h"
#include "parser/winhelp_definitions.h"
#include "parser/winhelp_includes.h"

namespace tamrix::modParser {
namespace {

// Each definition as "name=value(number) #map file comment".
std::vector<std::string> Described(const std::shared_ptr<CContextIDs>& ids) {
    std::vector<std::string> lines;
    if (ids)
        for (const auto& id : *ids)
            lines.push_back(id->ContextString + "=" + id->ContextID + "(" +
                            std::to_string(id->ContextIDVal) + ") #" +
                            std::to_string(id->MapFileIndex) + id->Comment);
    return lines;
}

class WinHelpReader : public testing::ProjectFixture {
protected:
    // Reads the map file text as map file 1.
    void ReadMap(const std::string& text) {
        ASSERT_TRUE(ParseMapFile(wizard, dir.Write("map.h", text), 1));
    }
    std::shared_ptr<CContextID> MapID(const std::string& name) const {
        return wizard.Globals.MapContextIDs ? wizard.Globals.MapContextIDs->Find(name) : nullptr;
    }
    bool ParseHpj(const std::string& text) {
        return ParseWinProjectFile(wizard, dir.Write("proj/help.hpj", text));
    }
    void ReadIncludedMapFiles() {
        for (int i = 1; i <= wizard.Globals.MapFileCount; ++i)
            EXPECT_TRUE(ParseMapFile(wizard, wizard.Globals.MapFiles[i - 1], i));
    }
};

TEST_F(WinHelpReader, MapFileLinesGiveTheirDefinitions) {
    // "NAME VALUE" is read only in the project file itself.
    ReadMap(
        "// a comment\r\n#define IDH_A 10\r\n\t#define\tIDH_B 0x1F // note\r\nIDH_C=5\r\n"
        "IDH_D 7\r\n#define IDH_F abc\r\n#define IDH_ALONE\r\n; IDH_G = 1\r\n* IDH_H = 2\r\n"
        "#include \"other.h\"\r\n\r\n=9\r\n"
        // Overflowing values are collected.
        "#define IDH_E 99999999999\n#define IDH_X 0x1FFFFFFFF\n#define IDH_OK &HFFFF\n");
    EXPECT_EQ(
        Described(wizard.Globals.MapContextIDs),
        (std::vector<std::string>{"IDH_A=10(10) #1", "IDH_B=&H1F(31) #1 // note", "IDH_C=5(5) #1",
                                  "IDH_F=abc(0) #1", "IDH_E=99999999999(-1) #1",
                                  "IDH_X=&H1FFFFFFFF(-1) #1", "IDH_OK=&HFFFF(-1) #1"}));
    EXPECT_EQ(wizard.Globals.InvalidContextIDs,
              "IDH_E = overflow value: 99999999999^IDH_X = overflow value: 0x1FFFFFFFF");
    EXPECT_TRUE(view.messages.empty());
    EXPECT_TRUE(view.errors.empty());
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
    EXPECT_EQ(Described(wizard.Globals.DuplicateContextIDs),
              (std::vector<std::string>{"IDH_A=11(0) #0", "IDH_H=0x10(0) #0"}));
}

// Map files as Visual C++ writes them (MakeHM): "NAME   VALUE" lines under "//"
// comments, included in angle brackets. Read only when the option is on;
// otherwise the lines are counted for the scan's message.
TEST_F(WinHelpReader, VisualCppMapFilesNeedTheNameValueOption) {
    dir.Write("proj/mfc/afxtide.hm",
              "// Help IDs of the framework\r\n\r\nHID_FILE_NEW                0x1E100\r\n");
    dir.Write("proj/TideClock.hm",
              "// MAKEHELP.BAT generated Help Map file.\r\n\r\n// Commands (ID_* and IDM_*) \r\n"
              "HID_TIDE_REFRESH            0x18003\r\n\r\n// Dialogs (IDD_*) \r\n"
              "HIDD_ABOUTBOX               0x20064\r\nHIDD_PORT_SETTINGS\t0x20082\r\n");
    const std::string hpj = "[MAP]\n#include <mfc\\afxtide.hm>\n#include <TideClock.hm>\n";
    ASSERT_TRUE(ParseHpj(hpj));
    ReadIncludedMapFiles();
    EXPECT_EQ(wizard.Globals.MapContextIDs->Count(), 0);
    EXPECT_EQ(wizard.Globals.UnreadNameValueLines, 4);

    wizard.Globals.ClearWinHelpData();
    wizard.Globals.ReadNameValueLines = true;
    ASSERT_TRUE(ParseHpj(hpj));
    ReadIncludedMapFiles();
    EXPECT_EQ(wizard.Globals.UnreadNameValueLines, 0);
    EXPECT_EQ(Described(wizard.Globals.MapContextIDs),
              (std::vector<std::string>{
                  "HID_FILE_NEW=&H1E100(123136) #1", "HID_TIDE_REFRESH=&H18003(98307) #2",
                  "HIDD_ABOUTBOX=&H20064(131172) #2", "HIDD_PORT_SETTINGS=&H20082(131202) #2"}));
    EXPECT_TRUE(view.messages.empty());
}

TEST_F(WinHelpReader, ProjectMapSectionTakesAllThreeFormsAndIncludes) {
    dir.Write("proj/inc/a.h", "#define IDH_A 1\n#include \"b.hm\"\n#include <missing.h>\n");
    dir.Write("proj/inc/b.hm", "#define IDH_B 2\n#include \"c.h\"\n");
    dir.Write("proj/inc/c.h", "#define IDH_C 3\n");
    ASSERT_TRUE(ParseHpj(
        "[OPTIONS]\nCONTENTS=main_index\n[MAP]\nIDH_ONE 1\nIDH_TWO=2 ; two\n"
        "#define IDH_THREE\t3\nNOVALUE\n#include \"inc\\a.h\"\n#include <inc\\a.h>\n[ALIAS]\n"));
    EXPECT_EQ(Described(wizard.Globals.ProjectContextIDs),
              (std::vector<std::string>{"IDH_ONE=1(1) #0", "IDH_TWO=2(2) #0 ; two",
                                        "IDH_THREE=3(3) #0"}));
    // a.h once (the second include is a duplicate), b.hm from a.h; c.h is two levels down.
    ASSERT_EQ(wizard.Globals.MapFileCount, 2);
    EXPECT_EQ(std::vector<std::string>(wizard.Globals.MapFiles.begin(),
                                       wizard.Globals.MapFiles.begin() + 2),
              (std::vector<std::string>{dir / "proj/inc/a.h", dir / "proj/inc/b.hm"}));
    EXPECT_EQ(wizard.Globals.DuplicateIncludes, dir / "proj/inc/a.h");
    EXPECT_EQ(view.MessageIds(), std::vector<long>{10036});  // <missing.h> inside a.h
    EXPECT_EQ(wizard.Globals.ContentsTopic, "main_index");
    EXPECT_NE(wizard.Globals.MapSectionText.find("IDH_ONE 1"), std::string::npos);
    ReadIncludedMapFiles();
    EXPECT_EQ(MapID("IDH_B")->MapFileIndex, 2);
    EXPECT_EQ(MapID("IDH_C"), nullptr);
}

TEST_F(WinHelpReader, IncludesResolveRelativeToTheProjectOrShowTheMessageOfTheirForm) {
    dir.Write("proj/sub/placeholder.txt", "");
    ASSERT_TRUE(ParseHpj(
        "[MAP]\n#include <map.h>\n#include \"map.h\"\n#include map.h\n#include < spaced.h >\n"
        "#include \"sub\"\n"           // a folder is no include file
        "#include C:\\nowhere\\x.h\n"  // a drive path is taken as it is
        "#include\n"));
    EXPECT_EQ(view.MessageIds(),
              (std::vector<long>{10036, 10037, 10037, 10036, 10037, 10037, 10037}));
    for (const auto& m : view.messages) EXPECT_EQ(m.title, "Parsing #include reference");
    EXPECT_EQ(wizard.Globals.MapFileCount, 0);

    // Odd targets that exist are accepted: above the project, binary, spaced.
    dir.Write("outside.h", "#define IDH_OUT 5\n");
    dir.Write("proj/binary.h", std::string("\0\x01\xff#define\0IDH_BIN 3\n\x80\r\r", 20));
    dir.Write("proj/spaced.h", "#define IDH_S 1\n");
    ASSERT_TRUE(
        ParseHpj("[MAP]\n#include ..\\outside.h\n#include \"sub\"\n#include binary.h\n"
                 "#include < spaced.h >\n"));
    ASSERT_EQ(wizard.Globals.MapFileCount, 3);
    EXPECT_EQ(wizard.Globals.MapFiles[0], dir / "outside.h");
    ReadIncludedMapFiles();
    EXPECT_EQ(MapID("IDH_OUT")->ContextIDVal, 5);
    EXPECT_EQ(MapID("IDH_S")->MapFileIndex, 3);
    EXPECT_TRUE(view.errors.empty());
}

TEST_F(WinHelpReader, AliasSectionAndAliasFiles) {
    dir.Write("proj/al.txt", "; fine\n\n/* C comment */\nA1 = T1\n#include \"al2.txt\"\n");
    dir.Write("proj/al2.txt", "A2 = T2\n");
    ASSERT_TRUE(
        ParseHpj("[ALIAS]\nHID_ONE = topic_one ; first\nhid_one = other\nHID_TWO\t=\ttopic_two\n"
                 "#include \"al.txt\"\nnot an alias\n"));
    const auto& aliases = *wizard.Globals.ProjectAliases;
    ASSERT_EQ(aliases.Count(), 2);
    EXPECT_EQ(
        aliases.Item(1)->ContextID + "=" + aliases.Item(1)->TopicID + aliases.Item(1)->Comment,
        "HID_ONE=topic_one ; first");
    EXPECT_EQ(aliases.Item(2)->TopicID, "topic_two");
    EXPECT_TRUE(ThisAliasExists(aliases, "Hid_Two"));
    EXPECT_FALSE(ThisAliasExists(aliases, "A1"));  // alias files are not read here
    ASSERT_EQ(wizard.Globals.AliasFileCount, 2);
    EXPECT_EQ(wizard.Globals.AliasFiles[1], dir / "proj/al2.txt");
    ASSERT_EQ(view.messages.size(), 1u);
    view.ExpectMessage(0, 10049, "Scanning Header Files", 48);
    EXPECT_NE(view.messages[0].text.find("C-type /*  */"), std::string::npos);
    EXPECT_NE(view.messages[0].text.find(dir / "proj/al.txt"), std::string::npos);
}

TEST_F(WinHelpReader, CommentCheckStopsAtTheFirstCStyleCommentOnly) {
    CheckCommentFormat(wizard, dir.Write("good.h", "; only\n// slashes\n/ x\n"));
    EXPECT_TRUE(view.messages.empty());
    CheckCommentFormat(wizard, dir.Write("twice.h", "/* one */\n/* two */\n"));
    EXPECT_EQ(view.MessageIds(), std::vector<long>{10049});
    CheckCommentFormat(wizard, dir / "absent.h");
    view.ExpectMessage(1, 10050, "Checking Alias File Format");
    EXPECT_EQ(view.messages.size(), 2u);
}

TEST_F(WinHelpReader, OpenReportsMissingFilesAndLongSections) {
    bool hasAlias = true, hasMap = true;
    EXPECT_FALSE(OpenWinProjectFile(wizard, dir / "none/absent.hpj", hasAlias, hasMap));
    EXPECT_FALSE(hasAlias);
    view.ExpectMessage(0, 10069, "Opening WinHelp Project File");
    EXPECT_NE(view.messages[0].text.find("\"absent.hpj\""), std::string::npos);

    std::string longMap = "[ALIAS]\na=b\n[MAP]\n";
    for (int i = 0; i < 3000; ++i) longMap += "IDH_NUMBER_" + std::to_string(i) + "=1\n";
    EXPECT_TRUE(OpenWinProjectFile(wizard, dir.Write("long.hpj", longMap), hasAlias, hasMap));
    EXPECT_TRUE(hasAlias && hasMap);
    view.ExpectMessage(1, 10035, "Warning");

    EXPECT_TRUE(OpenWinProjectFile(wizard, dir.Write("empty.hpj", "[OPTIONS]\nTITLE=x\n[MAP]\n"),
                                   hasAlias, hasMap));
    EXPECT_FALSE(hasAlias || hasMap);
    EXPECT_EQ(view.messages.size(), 2u);
}

TEST_F(WinHelpReader, AddMapFileNotesDuplicatesWithoutRegardToCase) {
    std::vector<std::string> list;
    Counter16 count;
    for (const char* name : {"", "f1", "f2", "F1", "f2"}) AddMapFile(wizard, list, count, name);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(wizard.Globals.DuplicateIncludes, "F1^f2");
}

TEST_F(WinHelpReader, UndefinedIDsCountsZeroValuesApart) {
    ReadMap("#define A 0\n#define B 1\n#define C 2\n#define D abc\n");
    wizard.Globals.ProjectContextIDs = std::make_shared<CContextIDs>();
    AddContextIDFromString(wizard, "E 5", *wizard.Globals.ProjectContextIDs, "", 0);
    MapID("C")->FileDefined = true;
    int zeros = -1;
    EXPECT_EQ(modUtilities::UndefinedIDs(wizard, zeros), 2);  // B and E
    EXPECT_EQ(zeros, 2);                                      // A and D
}

}  // namespace
}  // namespace tamrix::modParser
