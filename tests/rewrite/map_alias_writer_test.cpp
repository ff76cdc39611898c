#include "rewrite/map_alias_writer.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <set>

#include "model/project_state.h"
#include "parser/winhelp_definitions.h"
#include "platform/file_system.h"
#include "platform/profile.h"
#include "platform/program_identity.h"
#include "support/scripted_view.h"
#include "support/temp_dir.h"

namespace tamrix::modRewrite {
namespace {

using testing::ReadFileBytes;
using testing::ScriptedView;
using testing::TempDir;

constexpr const char* kDateLine = "; March 05, 2011, 01:57 PM\r\n";

std::string MapBanner() {
    return BannerLine("; Map File written automatically by ") + "\r\n";
}
std::string AliasBanner() {
    return BannerLine("; Alias File written automatically by ") + "\r\n";
}

// Section lines as the profile reader returns them.
std::string Lines(std::initializer_list<std::string> lines) {
    std::string text;
    for (const auto& line : lines) text += line + '\0';
    return text;
}

// Every file below a folder, as paths relative to it.
std::set<std::string> FilesBelow(const std::string& folder) {
    std::set<std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files.insert(std::filesystem::relative(entry.path(), folder).string());
    return files;
}

class MapAliasWriter : public ::testing::Test {
  protected:
    void SetUp() override {
        modGlobals::ResetAll();
        setenv("SOURCE_DATE_EPOCH", "1299333420", 1);
        modGlobals::TopicFiles = std::make_shared<CTopicFiles>();
        root = dir / "new";
        std::filesystem::create_directories(root);
        project = dir.Write("new/help.hhp",
                            "[OPTIONS]\r\nTitle=Help\r\n\r\n[FILES]\r\nhtml\\a.htm\r\n\r\n"
                            "[MAP]\r\n#include old.h\r\n\r\n[ALIAS]\r\nX=html\\a.htm\r\n\r\n"
                            "[TEXT POPUPS]\r\ncshelp.txt\r\n");
    }
    void TearDown() override {
        unsetenv("SOURCE_DATE_EPOCH");
        modGlobals::ResetAll();
    }

    std::shared_ptr<CTopicFile> AddTopic(const std::string& context, bool hasTitle,
                                         const std::string& extraIds = {}, int externalRefs = 0) {
        auto topic = std::make_shared<CTopicFile>();
        topic->AutoFileName = "auto" + std::to_string(modGlobals::TopicFiles->Count()) + ".htm";
        topic->AutoNamePath = "html\\" + topic->AutoFileName;
        topic->Context = context;
        topic->NewFileName = context + ".htm";
        topic->HasTitle = hasTitle;
        topic->ExtraIds = extraIds;
        topic->ExternalReferences = externalRefs;
        modGlobals::TopicFiles->Add(topic, topic->AutoFileName);
        return topic;
    }
    static void Define(std::shared_ptr<CContextIDs>& collection, const std::string& line,
                       int index) {
        if (!collection) collection = std::make_shared<CContextIDs>();
        modParser::AddContextIDFromString(line, *collection, "", index);
    }
    std::string Section(const std::string& name) const {
        std::string text;
        profile::GetSection(project, name, text);
        return text;
    }

    TempDir dir;
    std::string root;
    std::string project;
    ScriptedView view;
    ScopedActiveView active{view};
    WizardState wizard{&view};
};

TEST_F(MapAliasWriter, MapFilesAreCopiedAsHeadersAndIncludedOnce) {
    const std::string ids = dir.Write("old/ids.hh", "#define IDH_A 1\r\n");
    const std::string x1 = dir.Write("old/a/x.h", "first\n");
    const std::string x2 = dir.Write("old/b/X.H", "second\n");
    const std::string bx = dir.Write("old/bx.h", "bx\n");
    NewFileList copies;
    ASSERT_TRUE(CopyMapFiles({ids, bx, x1, x2, "unused"}, 4, root, copies));
    EXPECT_EQ(copies.count, 3);
    EXPECT_EQ(copies.names[0], "ids.h");
    EXPECT_EQ(ReadFileBytes(root + "/ids.h"), "#define IDH_A 1\r\n");
    // A second file of that name replaces the first, and is listed once.
    EXPECT_EQ(ReadFileBytes(root + "/x.h"), "second\n");
    EXPECT_EQ(modGlobals::DuplicateIncludes, "X.H");
    EXPECT_FALSE(std::filesystem::exists(root + "/unused"));

    // No [MAP] IDs of the project itself: no NewMap.h. The listed names are
    // compared as substrings, so x.h is taken for included once bx.h is.
    ASSERT_TRUE(AddMapFiles(copies, project));
    EXPECT_EQ(Section("MAP"), Lines({"#include ids.h", "#include bx.h"}));
    EXPECT_EQ(ReadFileBytes(project),
              "[OPTIONS]\r\nTitle=Help\r\n\r\n[FILES]\r\nhtml\\a.htm\r\n\r\n"
              "[MAP]\r\n#include ids.h\r\n#include bx.h\r\n\r\n[ALIAS]\r\nX=html\\a.htm\r\n\r\n"
              "[TEXT POPUPS]\r\ncshelp.txt\r\n");
    EXPECT_FALSE(std::filesystem::exists(root + "/NewMap.h"));

    NewFileList sameName;
    ASSERT_TRUE(CopyMapFiles({x1, x2}, 2, root, sameName));
    ASSERT_TRUE(AddMapFiles(sameName, project));
    EXPECT_EQ(Section("MAP"), Lines({"#include x.h"}));
    EXPECT_TRUE(view.messages.empty());
}

TEST_F(MapAliasWriter, NewMapFileHoldsTheProjectsOwnDefinitions) {
    Define(modGlobals::ProjectContextIDs, "IDH_ONE 1", 0);
    Define(modGlobals::ProjectContextIDs, "#define IDH_TWO 0x20 // two", 0);
    Define(modGlobals::ProjectContextIDs, "IDH_THREE=3", 0);
    ASSERT_TRUE(AddMapFiles(NewFileList{}, project));
    EXPECT_EQ(ReadFileBytes(root + "/NewMap.h"), MapBanner() + kDateLine +
                                                     ";\r\n"
                                                     "#define IDH_ONE 1\r\n"
                                                     "#define IDH_TWO &H20 // two\r\n"
                                                     "#define IDH_THREE 3\r\n");
    EXPECT_EQ(Section("MAP"), Lines({"#include NewMap.h"}));
    EXPECT_EQ(MapBanner().rfind("; Map File written automatically by Tamrix Version ", 0), 0u);
}

TEST_F(MapAliasWriter, AnExistingNewMapFileIsOnlyReplacedWhenTheUserAgrees) {
    Define(modGlobals::ProjectContextIDs, "IDH_ONE 1", 0);
    dir.Write("new/NewMap.h", "keep me");

    // No, then the input box is cancelled: nothing written, nothing included.
    view.answersById[10018] = mb::kNo;
    ASSERT_TRUE(AddMapFiles(NewFileList{}, project));
    EXPECT_EQ(ReadFileBytes(root + "/NewMap.h"), "keep me");
    EXPECT_EQ(Section("MAP"), "");
    ASSERT_EQ(view.MessageIds(), std::vector<long>{10018});
    EXPECT_EQ(view.messages[0].title, "Writing Map File");
    EXPECT_EQ(view.messages[0].style, 36);
    EXPECT_NE(view.messages[0].text.find(root + "/NewMap.h"), std::string::npos);

    // No, then another name.
    view.inputAnswers.push_back(std::string("Other.h"));
    ASSERT_TRUE(AddMapFiles(NewFileList{}, project));
    EXPECT_EQ(Section("MAP"), Lines({"#include Other.h"}));
    EXPECT_TRUE(std::filesystem::exists(root + "/Other.h"));
    EXPECT_EQ(ReadFileBytes(root + "/NewMap.h"), "keep me");

    // Yes overwrites.
    view.answersById[10018] = mb::kYes;
    std::string name = "NewMap.h";
    ASSERT_TRUE(WriteNewMapFile(name, root));
    EXPECT_EQ(name, "NewMap.h");
    EXPECT_EQ(ReadFileBytes(root + "/NewMap.h"),
              MapBanner() + kDateLine + ";\r\n#define IDH_ONE 1\r\n");
}

TEST_F(MapAliasWriter, WithoutProjectDefinitionsNoNewMapFileIsWritten) {
    std::string name = "NewMap.h";
    ASSERT_TRUE(WriteNewMapFile(name, root));
    EXPECT_FALSE(std::filesystem::exists(root + "/NewMap.h"));
    ASSERT_EQ(view.messages.size(), 1u);
    EXPECT_EQ(view.messages[0].text, "No Map definitions read from the WinHelp project file.");
    EXPECT_EQ(view.messages[0].title, "Writing Alias File");
}

TEST_F(MapAliasWriter, NamesFromProjectFilesNeverLeaveTheNewFolder) {
    const std::set<std::string> before = FilesBelow(dir.Path());
    const std::string source = dir.Write("escaped.h", "x\n");
    NewFileList copies;
    ASSERT_TRUE(CopyMapFiles({root + "/..\\escaped.h", source + "\\.."}, 2, root, copies));
    EXPECT_EQ(copies.count, 1);
    Define(modGlobals::ProjectContextIDs, "IDH_ONE 1", 0);
    dir.Write("new/NewMap.h", "keep me");
    view.answersById[10018] = mb::kNo;
    view.inputAnswers.push_back(std::string("..\\..\\evil.h"));
    std::string name = "NewMap.h";
    ASSERT_TRUE(WriteNewMapFile(name, root));
    EXPECT_EQ(name, "evil.h");
    view.inputAnswers.push_back(std::string(".."));
    name = "NewMap.h";
    ASSERT_TRUE(WriteNewMapFile(name, root));
    EXPECT_EQ(name, "");
    view.inputAnswers.push_back(std::string("C:..\\d.h"));
    name = "NewMap.h";
    ASSERT_TRUE(WriteNewMapFile(name, root));
    EXPECT_EQ(name, "d.h");
    std::string aliasName;
    EXPECT_FALSE(RewriteOneAliasFile(source + "/..", root, aliasName));
    std::string normal = "../outside.h", untitled = "/tmp/../cs.h";
    EXPECT_TRUE(WriteNewAliasFile(wizard, normal, untitled, root));
    EXPECT_EQ(normal, "outside.h");
    EXPECT_EQ(untitled, "cs.h");

    EXPECT_EQ(ReadFileBytes(source), "x\n");
    std::set<std::string> after = FilesBelow(dir.Path());
    std::set<std::string> added;
    for (const auto& file : after)
        if (before.count(file) == 0 && file != "escaped.h") added.insert(file);
    EXPECT_EQ(added, (std::set<std::string>{"new/NewMap.h", "new/escaped.h", "new/d.h",
                                            "new/evil.h", "new/outside.h", "new/cs.h"}));
    EXPECT_TRUE(view.errors.empty());
}

TEST_F(MapAliasWriter, NewAliasFilesSortTopicsByTitleAndReferences) {
    AddTopic("titled", true);
    AddTopic("popup_called", false, "", 1);
    AddTopic("popup_silent", false);
    AddTopic("main", true, "second^IDH_EXTRA");
    Define(modGlobals::MapContextIDs, "#define titled 1", 1);
    Define(modGlobals::MapContextIDs, "#define POPUP_CALLED 2", 1);
    Define(modGlobals::MapContextIDs, "#define popup_silent 3", 1);
    Define(modGlobals::MapContextIDs, "#define IDH_EXTRA 4", 1);
    Define(modGlobals::MapContextIDs, "#define main 0", 1);      // zero: ignored
    Define(modGlobals::MapContextIDs, "#define IDH_NONE 5", 1);  // no topic
    Define(modGlobals::ProjectContextIDs, "main 0", 0);          // zero, but own [MAP]
    Define(modGlobals::ProjectContextIDs, "IDH_LOST 6", 0);

    NewFileList aliasCopies;
    std::string aliasName = "x", csName = "y";
    ASSERT_TRUE(WriteAliasFiles(wizard, root, aliasCopies, aliasName, csName));
    EXPECT_EQ(aliasName, "NewAliases.h");
    EXPECT_EQ(csName, "csAlias.h");
    EXPECT_EQ(ReadFileBytes(root + "/NewAliases.h"),
              AliasBanner() + kDateLine +
                  "; Automatic aliases for normal topics ;;;;;;;;;;;;;;;;;;;;;;;;;;\r\n"
                  "titled = html\\titled.htm\r\n"
                  "IDH_EXTRA = html\\main.htm\r\n"
                  "main = html\\main.htm\r\n"
                  ";\r\n"
                  ";    Could not find aliases for 3 context ID's: ;;;;;;;\r\n"
                  ";    For more information view the rewrite log.\r\n");
    EXPECT_EQ(ReadFileBytes(root + "/csAlias.h"),
              AliasBanner() + kDateLine +
                  "; Automatic aliases for untitled topic files whose text may be extracted to "
                  "cshelp.txt ;;;;;;;;;;\r\n"
                  "POPUP_CALLED = html\\popup_called.htm\r\n");
    EXPECT_TRUE(modGlobals::MapContextIDs->Find("popup_silent")->FileDefined);
    EXPECT_FALSE(modGlobals::MapContextIDs->Find("main")->FileDefined);
    EXPECT_EQ(UnAliasedContexts(), 3);  // map main (zero), IDH_NONE, IDH_LOST
    EXPECT_EQ(view.Captions().back(), "Writing New Alias Files ...");
}

TEST_F(MapAliasWriter, InternalAliasesListIncludesAndFoundTopicsOnly) {
    AddTopic("topic_one", true);
    AddTopic("topic_two", false);
    modGlobals::ProjectAliases = std::make_shared<CAliases>();
    modParser::AddAliasFromString("HID_ONE = TOPIC_ONE ; first");
    modParser::AddAliasFromString("HID_TWO = topic_two");
    modParser::AddAliasFromString("HID_GONE = no_such_topic");
    Define(modGlobals::MapContextIDs, "#define hid_one 1", 1);
    Define(modGlobals::MapContextIDs, "#define HID_GONE 2", 1);

    NewFileList aliasCopies;
    aliasCopies.names = {"sub\\al.h", "b.h"};
    aliasCopies.count = 2;
    ASSERT_TRUE(RewriteInternalAliases(wizard, project, aliasCopies, "NewAliases.h", "csAlias.h"));
    EXPECT_TRUE(modGlobals::ProjectAliases->Item(1)->AliasFound);
    EXPECT_FALSE(modGlobals::ProjectAliases->Item(3)->AliasFound);
    EXPECT_TRUE(modGlobals::MapContextIDs->Find("HID_ONE")->FileDefined);
    EXPECT_FALSE(modGlobals::MapContextIDs->Find("HID_GONE")->FileDefined);
    // The section moves to the end of the file; the rest stays as it was.
    EXPECT_EQ(ReadFileBytes(project),
              "[OPTIONS]\r\nTitle=Help\r\n\r\n[FILES]\r\nhtml\\a.htm\r\n\r\n"
              "[MAP]\r\n#include old.h\r\n\r\n"
              "[TEXT POPUPS]\r\ncshelp.txt\r\n"
              "[ALIAS]\r\n#include al.h\r\n#include b.h\r\n#include NewAliases.h\r\n"
              "#Include csAlias.h\r\n"
              "HID_ONE = html\\topic_one.htm ; first\r\n"
              "HID_TWO = html\\topic_two.htm\r\n");
}

TEST_F(MapAliasWriter, WithoutContextIDsTheAliasSectionKeepsAnEmptyInclude) {
    NewFileList aliasCopies;
    std::string aliasName = "x", csName = "y";
    ASSERT_TRUE(WriteAliasFiles(wizard, root, aliasCopies, aliasName, csName));
    EXPECT_EQ(aliasName, "");
    EXPECT_EQ(csName, "");
    EXPECT_FALSE(std::filesystem::exists(root + "/NewAliases.h"));
    ASSERT_TRUE(RewriteInternalAliases(wizard, project, aliasCopies, aliasName, csName));
    EXPECT_NE(ReadFileBytes(project).find("[ALIAS]\r\n#Include \r\n"), std::string::npos);
    EXPECT_TRUE(view.errors.empty());
}

TEST_F(MapAliasWriter, IncludedAliasFilesAreRewrittenWithNewTopicNames) {
    AddTopic("topic_one", true);
    AddTopic("main", true, "extra_id");
    Define(modGlobals::MapContextIDs, "#define HID_ONE 1", 1);
    Define(modGlobals::MapContextIDs, "#define HID_X 2", 1);
    modGlobals::MapFiles = {dir / "old/maps/app.hm"};
    modGlobals::MapFileCount = 1;
    const std::string old = dir.Write("old/aliases.txt",
                                      "; my aliases\r\n"
                                      "HID_ONE\t=\ttopic_one ; note\r\n"
                                      "   ; indented comment\r\n"
                                      "HID_X = EXTRA_ID\n"
                                      "HID_GONE = nowhere\r\n"
                                      " = main\r\n"
                                      "#include \"..\\more.als\"\r\n"
                                      "\r\n");
    modGlobals::AliasFiles = {old};
    modGlobals::AliasFileCount = 1;

    NewFileList aliasCopies;
    std::string aliasName, csName;
    ASSERT_TRUE(WriteAliasFiles(wizard, root, aliasCopies, aliasName, csName));
    ASSERT_EQ(aliasCopies.count, 1);
    EXPECT_EQ(aliasCopies.names[0], "aliases.h");
    EXPECT_EQ(ReadFileBytes(root + "/aliases.h"),
              AliasBanner() + kDateLine +
                  "; This Alias file is derived from the original Alias file: aliases.txt\r\n"
                  "; and the original Map files:\r\n"
                  "; and Map File app.hm\r\n"
                  "; Reading Old Alias File ;;;;;;;;;;;;;;;;;;;;;;;;;;;;;;;;;;\r\n"
                  "; my aliases\r\n"
                  "HID_ONE = html\\topic_one.htm\r\n"
                  "   ; indented comment\r\n"
                  "HID_X = html\\main.htm\r\n"
                  "; Could not find alias for: \"HID_GONE\"\r\n"
                  " = main\r\n"
                  "#include more.h\r\n"
                  "\r\n");
    // IDs aliased there are not aliased again in NewAliases.h.
    EXPECT_TRUE(modGlobals::MapContextIDs->Find("HID_X")->FileDefined);
    EXPECT_EQ(ReadFileBytes(root + "/NewAliases.h"),
              AliasBanner() + kDateLine +
                  "; Automatic aliases for normal topics ;;;;;;;;;;;;;;;;;;;;;;;;;;\r\n");

    // An existing copy is kept when the user says No, and still listed.
    dir.Write("new/aliases.h", "mine");
    view.answersById[10018] = mb::kNo;
    NewFileList again;
    ASSERT_TRUE(WriteAliasFiles(wizard, root, again, aliasName, csName));
    EXPECT_EQ(again.count, 1);
    EXPECT_EQ(ReadFileBytes(root + "/aliases.h"), "mine");
    EXPECT_EQ(view.messages.back().title, "Writing Alias Files");
}

TEST_F(MapAliasWriter, AFailedAliasFileStopsTheNewAliasFiles) {
    Define(modGlobals::MapContextIDs, "#define HID_ONE 1", 1);
    modGlobals::AliasFiles = {dir / "old/missing.als"};
    modGlobals::AliasFileCount = 1;
    NewFileList aliasCopies;
    std::string aliasName, csName;
    EXPECT_FALSE(WriteAliasFiles(wizard, root, aliasCopies, aliasName, csName));
    EXPECT_FALSE(std::filesystem::exists(root + "/NewAliases.h"));
    ASSERT_EQ(view.errors.size(), 1u);
    EXPECT_NE(view.errors[0].first.find("modRewrite:RewriteOneAliasFile"), std::string::npos);
}

TEST_F(MapAliasWriter, UpdateContextIDsMarksIDsOfFoundAliases) {
    Define(modGlobals::MapContextIDs, "#define A 1", 1);
    Define(modGlobals::ProjectContextIDs, "a 1", 0);
    Define(modGlobals::ProjectContextIDs, "B 2", 0);
    modGlobals::ProjectAliases = std::make_shared<CAliases>();
    modGlobals::ProjectAliases->Add("A")->AliasFound = true;
    modGlobals::ProjectAliases->Add("B")->AliasFound = false;
    EXPECT_EQ(UnAliasedContexts(), 3);
    ASSERT_TRUE(UpdateContextIDs());
    EXPECT_TRUE(modGlobals::MapContextIDs->Find("a")->FileDefined);
    EXPECT_TRUE(modGlobals::ProjectContextIDs->Find("A")->FileDefined);
    EXPECT_FALSE(modGlobals::ProjectContextIDs->Find("B")->FileDefined);
    EXPECT_EQ(UnAliasedContexts(), 1);
}

}  // namespace
}  // namespace tamrix::modRewrite
