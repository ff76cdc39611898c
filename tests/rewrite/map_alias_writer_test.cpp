#include "rewrite/map_alias_writer.h"

#include <algorithm>
#include <set>

#include "parser/winhelp_definitions.h"
#include "platform/profile.h"
#include "platform/program_identity.h"
#include "rewrite_fixture.h"

namespace tamrix::testing {
namespace {

using namespace modRewrite;

constexpr const char* kDateLine = "; March 05, 2011, 02:06 PM\r\n";
constexpr const char* kProject =
    "[OPTIONS]\r\nTitle=Help\r\n\r\n[FILES]\r\nhtml\\a.htm\r\n\r\n[MAP]\r\n#include old.h\r\n\r\n"
    "[ALIAS]\r\nX=html\\a.htm\r\n\r\n[TEXT POPUPS]\r\ncshelp.txt\r\n";

// `kind` is "Map" or "Alias".
std::string Head(const std::string& kind) {
    return BannerLine("; " + kind + " File written automatically by ") + "\r\n" + kDateLine;
}

class MapAliasWriter : public RewriteTest {
protected:
    void SetUp() override {
        RewriteTest::SetUp();
        project = tmp.Write("work/new/help.hhp", kProject);
    }
    std::shared_ptr<CTopicFile> Topic(const std::string& context, bool hasTitle,
                                      const std::string& extraIds = {}, int externalRefs = 0) {
        auto topic = AddTopic(
            "html\\auto" + std::to_string(wizard.Globals.TopicFiles->Count()) + ".htm", context);
        topic->HasTitle = hasTitle;
        topic->ExtraIds = extraIds;
        topic->ExternalReferences = externalRefs;
        return topic;
    }
    // `lines` of the project's [MAP] (index 0) or of map file `index`.
    void Define(std::initializer_list<const char*> lines, int index) {
        auto& ids = index == 0 ? wizard.Globals.ProjectContextIDs : wizard.Globals.MapContextIDs;
        if (!ids) ids = std::make_shared<CContextIDs>();
        for (const char* line : lines)
            modParser::AddContextIDFromString(wizard, line, *ids, "", index);
    }
    // Section lines as the profile reader returns them, each ended by "|".
    std::string Section(const std::string& name) {
        std::string text;
        profile::GetSection(wizard.Files, project, name, text);
        std::replace(text.begin(), text.end(), '\0', '|');
        return text;
    }
    std::string New(const std::string& name) const { return tmp.Read("work/new/" + name); }
    bool WriteAliases(NewFileList& copies) {
        aliasName = "x";
        csName = "y";
        return WriteAliasFiles(wizard, newDir, copies, aliasName, csName);
    }

    std::string project, aliasName, csName;
};

TEST_F(MapAliasWriter, MapFilesAreCopiedAsHeadersAndIncludedOnce) {
    const std::string ids = tmp.Write("old/ids.hh", "#define IDH_A 1\r\n");
    const std::string x1 = tmp.Write("old/a/x.h", "first\n");
    const std::string x2 = tmp.Write("old/b/X.H", "second\n");
    const std::string bx = tmp.Write("old/bx.h", "bx\n");
    NewFileList copies;
    ASSERT_TRUE(CopyMapFiles(wizard, {ids, bx, x1, x2, "unused"}, 4, newDir, copies));
    EXPECT_EQ(copies.count, 4);
    EXPECT_EQ(New("ids.h"), "#define IDH_A 1\r\n");
    // A second file whose name folds to the first one's gets a name of its own.
    EXPECT_EQ(New("x.h"), "first\n");
    EXPECT_EQ(New("X_1.h"), "second\n");
    EXPECT_FALSE(tmp.Exists("work/new/unused"));

    // No [MAP] IDs of the project itself: no NewMap.h. The listed names are
    // compared as substrings, so x.h is taken for included once bx.h is.
    ASSERT_TRUE(AddMapFiles(wizard, copies, project));
    EXPECT_EQ(tmp.Read("work/new/help.hhp"),
              ReplaceAll(kProject, "#include old.h\r\n",
                         "#include ids.h\r\n#include bx.h\r\n#include X_1.h\r\n"));
    EXPECT_FALSE(tmp.Exists("work/new/NewMap.h"));
    NewFileList sameName;
    ASSERT_TRUE(CopyMapFiles(wizard, {x1, x2}, 2, newDir, sameName));
    ASSERT_TRUE(AddMapFiles(wizard, sameName, project));
    EXPECT_EQ(Section("MAP"), "#include x.h|#include X_1.h|");
    EXPECT_TRUE(view.messages.empty());
}

// A [MAP] section left as the old project had it keeps finding its headers: those
// beside the old project come along; absolute names and climbs out stay behind.
TEST_F(MapAliasWriter, KeptMapSectionBringsItsHeadersAlong) {
    tmp.Write("old/old.h", "#define IDH_A 1\r\n");
    tmp.Write("old/inc/ids.h", "#define IDH_B 2\r\n");
    tmp.Write("outside.h", "#define IDH_C 3\r\n");
    std::string section;
    for (const char* line : {"#include old.h", "#include <inc\\ids.h>", "#include ..\\outside.h",
                             "#include C:\\VC98\\afxhelp.hm", "#include missing.h"})
        section += std::string(line) + '\0';
    profile::WriteSection(wizard.Files, project, "MAP", section);
    ASSERT_TRUE(CopyKeptMapIncludes(wizard, oldDir + "/old.hhp", project));
    EXPECT_EQ(New("old.h"), "#define IDH_A 1\r\n");
    EXPECT_EQ(New("inc/ids.h"), "#define IDH_B 2\r\n");
    EXPECT_EQ(Tree(newDir).size(), 3u) << ::testing::PrintToString(Tree(newDir));
    EXPECT_TRUE(view.messages.empty());
}

TEST_F(MapAliasWriter, NewMapFileHoldsTheProjectsOwnDefinitionsWhenAllowed) {
    std::string name = "NewMap.h";
    ASSERT_TRUE(WriteNewMapFile(wizard, name, newDir));  // no definitions: nothing written
    EXPECT_FALSE(tmp.Exists("work/new/NewMap.h"));
    ASSERT_EQ(view.messages.size(), 1u);
    EXPECT_EQ(view.messages[0].text, "No Map definitions read from the WinHelp project file.");
    EXPECT_EQ(view.messages[0].title, "Writing Alias File");

    Define({"IDH_ONE 1", "#define IDH_TWO 0x20 // two", "IDH_THREE=3"}, 0);
    ASSERT_TRUE(AddMapFiles(wizard, NewFileList{}, project));
    // Hexadecimal values in C form, for the help compiler.
    EXPECT_EQ(New("NewMap.h"), Head("Map") +
                                   ";\r\n#define IDH_ONE 1\r\n#define IDH_TWO 0x20 // two\r\n"
                                   "#define IDH_THREE 3\r\n");
    EXPECT_EQ(Section("MAP"), "#include NewMap.h|");

    // An existing file: No, then the input box is cancelled: nothing written or included.
    tmp.Write("work/new/NewMap.h", "keep me");
    view.answersById[10018] = mb::kNo;
    ASSERT_TRUE(AddMapFiles(wizard, NewFileList{}, project));
    EXPECT_EQ(New("NewMap.h"), "keep me");
    EXPECT_EQ(Section("MAP"), "");
    view.ExpectMessage(1, 10018, "Writing Map File", 36);
    EXPECT_NE(view.messages[1].text.find(newDir + "/NewMap.h"), std::string::npos);
    // No, then another name.
    view.inputAnswers.push_back(std::string("Other.h"));
    ASSERT_TRUE(AddMapFiles(wizard, NewFileList{}, project));
    EXPECT_EQ(Section("MAP"), "#include Other.h|");
    EXPECT_TRUE(tmp.Exists("work/new/Other.h"));
    EXPECT_EQ(New("NewMap.h"), "keep me");
    // Yes overwrites.
    view.answersById[10018] = mb::kYes;
    ASSERT_TRUE(WriteNewMapFile(wizard, name, newDir));
    EXPECT_EQ(name, "NewMap.h");
    EXPECT_NE(New("NewMap.h"), "keep me");
}

TEST_F(MapAliasWriter, NamesFromProjectFilesNeverLeaveTheNewFolder) {
    wizard.Files.SetWriteRoot("");  // the checks alone must keep them in
    const auto before = Tree();
    const std::string source = tmp.Write("work/escaped.h", "x\n");
    NewFileList copies;
    ASSERT_TRUE(
        CopyMapFiles(wizard, {newDir + "/..\\escaped.h", source + "\\.."}, 2, newDir, copies));
    EXPECT_EQ(copies.count, 1);
    Define({"IDH_ONE 1"}, 0);
    tmp.Write("work/new/NewMap.h", "keep me");
    view.answersById[10018] = mb::kNo;
    // Each answer to the name box, and the name kept of it.
    for (const auto& [answer, kept] : std::vector<std::pair<std::string, std::string>>{
             {"..\\..\\evil.h", "evil.h"}, {"..", ""}, {"C:..\\d.h", "d.h"}}) {
        view.inputAnswers.push_back(answer);
        std::string name = "NewMap.h";
        ASSERT_TRUE(WriteNewMapFile(wizard, name, newDir));
        EXPECT_EQ(name, kept);
    }
    std::string alias;
    EXPECT_FALSE(RewriteOneAliasFile(wizard, source + "/..", newDir, alias));
    std::string normal = "../outside.h", untitled = "/tmp/../cs.h";
    EXPECT_TRUE(WriteNewAliasFile(wizard, normal, untitled, newDir));
    EXPECT_EQ(normal + "|" + untitled, "outside.h|cs.h");
    EXPECT_EQ(tmp.Read("work/escaped.h"), "x\n");
    std::set<std::string> added;
    for (const auto& [file, bytes] : Tree())
        if (before.count(file) == 0 && file != "work/escaped.h") added.insert(file);
    EXPECT_EQ(added,
              (std::set<std::string>{"work/new/NewMap.h", "work/new/escaped.h", "work/new/d.h",
                                     "work/new/evil.h", "work/new/outside.h", "work/new/cs.h"}));
    EXPECT_TRUE(view.errors.empty());
}

TEST_F(MapAliasWriter, NewAliasFilesSortTopicsByTitleAndReferences) {
    Topic("titled", true);
    Topic("popup_called", false, "", 1);
    Topic("popup_silent", false);
    Topic("main", true, "second^IDH_EXTRA");
    Define({"#define titled 1", "#define POPUP_CALLED 2", "#define popup_silent 3",
            "#define IDH_EXTRA 4",
            "#define main 0",       // zero: ignored
            "#define IDH_NONE 5"},  // no topic
           1);
    Define({"main 0", "IDH_LOST 6"}, 0);  // zero, but the project's own [MAP]
    NewFileList aliasCopies;
    ASSERT_TRUE(WriteAliases(aliasCopies));
    EXPECT_EQ(aliasName + "|" + csName, "NewAliases.h|csAlias.h");
    EXPECT_EQ(New("NewAliases.h"),
              Head("Alias") +
                  "; Automatic aliases for normal topics ;;;;;;;;;;;;;;;;;;;;;;;;;;\r\n"
                  "titled = html\\titled.htm\r\nIDH_EXTRA = html\\main.htm\r\n"
                  "main = html\\main.htm\r\n;\r\n"
                  ";    Could not find aliases for 3 context ID's: ;;;;;;;\r\n"
                  ";    For more information view the rewrite log.\r\n");
    EXPECT_EQ(New("csAlias.h"),
              Head("Alias") +
                  "; Automatic aliases for untitled topic files whose text may be extracted to "
                  "cshelp.txt ;;;;;;;;;;\r\nPOPUP_CALLED = html\\popup_called.htm\r\n");
    EXPECT_TRUE(wizard.Globals.MapContextIDs->Find("popup_silent")->FileDefined);
    EXPECT_FALSE(wizard.Globals.MapContextIDs->Find("main")->FileDefined);
    EXPECT_EQ(UnAliasedContexts(wizard), 3);  // map main (zero), IDH_NONE, IDH_LOST
    EXPECT_EQ(view.Captions().back(), "Writing New Alias Files ...");
}

TEST_F(MapAliasWriter, InternalAliasesListIncludesAndFoundTopicsOnly) {
    Topic("topic_one", true);
    Topic("topic_two", false);
    wizard.Globals.ProjectAliases = std::make_shared<CAliases>();
    for (const char* line :
         {"HID_ONE = TOPIC_ONE ; first", "HID_TWO = topic_two", "HID_GONE = no_such_topic"})
        modParser::AddAliasFromString(wizard, line);
    Define({"#define hid_one 1", "#define HID_GONE 2"}, 1);
    Define({"hid_two 5", "HID_GONE 6"}, 0);
    NewFileList aliasCopies;
    aliasCopies.names = {"sub\\al.h", "b.h"};
    aliasCopies.count = 2;
    ASSERT_TRUE(RewriteInternalAliases(wizard, project, aliasCopies, "NewAliases.h", "csAlias.h"));
    EXPECT_TRUE(wizard.Globals.ProjectAliases->Item(1)->AliasFound);
    EXPECT_FALSE(wizard.Globals.ProjectAliases->Item(3)->AliasFound);
    EXPECT_TRUE(wizard.Globals.MapContextIDs->Find("HID_ONE")->FileDefined);
    EXPECT_FALSE(wizard.Globals.MapContextIDs->Find("HID_GONE")->FileDefined);
    // The IDs of found aliases count as aliased in the project's [MAP] too.
    EXPECT_TRUE(wizard.Globals.ProjectContextIDs->Find("HID_TWO")->FileDefined);
    EXPECT_FALSE(wizard.Globals.ProjectContextIDs->Find("HID_GONE")->FileDefined);
    EXPECT_EQ(UnAliasedContexts(wizard), 2);
    // The section moves to the end of the file; the rest stays as it was.
    EXPECT_EQ(New("help.hhp"),
              ReplaceAll(kProject, "[ALIAS]\r\nX=html\\a.htm\r\n\r\n", "") +
                  "[ALIAS]\r\n#include al.h\r\n#include b.h\r\n#include NewAliases.h\r\n"
                  "#Include csAlias.h\r\nHID_ONE = html\\topic_one.htm ; first\r\n"
                  "HID_TWO = html\\topic_two.htm\r\n");

    // Without context IDs the section keeps an empty include.
    wizard.Globals = ProjectState{};
    wizard.Globals.TopicFiles = std::make_shared<CTopicFiles>();
    NewFileList none;
    ASSERT_TRUE(WriteAliases(none));
    EXPECT_EQ(aliasName + "|" + csName, "|");
    EXPECT_FALSE(tmp.Exists("work/new/NewAliases.h"));
    ASSERT_TRUE(RewriteInternalAliases(wizard, project, none, aliasName, csName));
    EXPECT_NE(New("help.hhp").find("[ALIAS]\r\n#Include \r\n"), std::string::npos);
    EXPECT_TRUE(view.errors.empty());
}

TEST_F(MapAliasWriter, IncludedAliasFilesAreRewrittenWithNewTopicNames) {
    Topic("topic_one", true);
    Topic("main", true, "extra_id");
    Define({"#define HID_ONE 1", "#define HID_X 2"}, 1);
    wizard.Globals.MapFiles = {tmp / "old/maps/app.hm"};
    wizard.Globals.MapFileCount = 1;
    wizard.Globals.AliasFiles = {tmp.Write("old/aliases.txt",
                                           "; my aliases\r\nHID_ONE\t=\ttopic_one ; note\r\n"
                                           "   ; indented comment\r\nHID_X = EXTRA_ID\n"
                                           "HID_GONE = nowhere\r\n = main\r\n"
                                           "#include \"..\\more.als\"\r\n\r\n")};
    wizard.Globals.AliasFileCount = 1;
    NewFileList aliasCopies;
    ASSERT_TRUE(WriteAliases(aliasCopies));
    ASSERT_EQ(aliasCopies.count, 1);
    EXPECT_EQ(aliasCopies.names[0], "aliases.h");
    EXPECT_EQ(New("aliases.h"),
              Head("Alias") +
                  "; This Alias file is derived from the original Alias file: aliases.txt\r\n"
                  "; and the original Map files:\r\n; and Map File app.hm\r\n"
                  "; Reading Old Alias File ;;;;;;;;;;;;;;;;;;;;;;;;;;;;;;;;;;\r\n"
                  "; my aliases\r\nHID_ONE = html\\topic_one.htm\r\n   ; indented comment\r\n"
                  "HID_X = html\\main.htm\r\n; Could not find alias for: \"HID_GONE\"\r\n"
                  " = main\r\n#include more.h\r\n\r\n");
    // IDs aliased there are not aliased again in NewAliases.h.
    EXPECT_TRUE(wizard.Globals.MapContextIDs->Find("HID_X")->FileDefined);
    EXPECT_EQ(
        New("NewAliases.h"),
        Head("Alias") + "; Automatic aliases for normal topics ;;;;;;;;;;;;;;;;;;;;;;;;;;\r\n");

    // An existing copy is kept when the user says No, and still listed.
    tmp.Write("work/new/aliases.h", "mine");
    view.answersById[10018] = mb::kNo;
    NewFileList again;
    ASSERT_TRUE(WriteAliases(again));
    EXPECT_EQ(again.count, 1);
    EXPECT_EQ(New("aliases.h"), "mine");
    EXPECT_EQ(view.messages.back().title, "Writing Alias Files");

    // A failed alias file stops the new alias files.
    std::filesystem::remove(newDir + "/NewAliases.h");
    wizard.Globals.AliasFiles = {tmp / "old/missing.als"};
    NewFileList failed;
    EXPECT_FALSE(WriteAliases(failed));
    EXPECT_FALSE(tmp.Exists("work/new/NewAliases.h"));
    ASSERT_EQ(view.errors.size(), 1u);
    EXPECT_TRUE(view.ErrorNamed("modRewrite:RewriteOneAliasFile"));
}

}  // namespace
}  // namespace tamrix::testing
