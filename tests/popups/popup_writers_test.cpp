#include "popups/popup_writers.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "model/project_state.h"
#include "platform/program_identity.h"
#include "platform/view.h"
#include "support/environment.h"
#include "support/scanned_topic.h"
#include "support/script_check.h"
#include "support/scripted_view.h"
#include "support/temp_dir.h"

namespace tamrix::modPopups {
namespace {

using testing::ReadFileBytes;

std::string ScriptHeader() {
    return "// Javascript Popups File written automatically by Tamrix Version " + VersionString() +
           "\r\n// March 05, 2011, 02:07 PM\r\n\r\npopfont = \"Arial,10,,plain\"\r\n\r\n";
}

std::string TopicHtml(const std::string& bodyLines) {
    return "<HTML>\n<HEAD>\n<TITLE>(Untitled)</TITLE>\n</HEAD>\n\n<BODY BGCOLOR=\"#FFFFFF\">\n" +
           bodyLines + "</BODY>\n</HTML>\n";
}

class PopupWriters : public ::testing::Test {
protected:
    void SetUp() override {
        testing::SetEnvironment("SOURCE_DATE_EPOCH", "1299334020");
        wizard_.Globals.TopicFiles = std::make_shared<CTopicFiles>();
    }
    void TearDown() override { testing::ClearEnvironment("SOURCE_DATE_EPOCH"); }

    // A topic of the new project whose renamed file holds `bodyLines`.
    std::shared_ptr<CTopicFile> Topic(const std::string& context, bool hasTitle, int internal,
                                      int external, const std::string& bodyLines) {
        auto topic =
            testing::AddScannedTopic(*wizard_.Globals.TopicFiles,
                                     "afx" + std::to_string(++made_) + ".htm", context, hasTitle);
        topic->InternalReferences = internal;
        topic->ExternalReferences = external;
        dir_.Write("html/" + topic->NewFileName, TopicHtml(bodyLines));
        return topic;
    }

    bool WriteScript(int& count) {
        return WriteJavaPopupStrings(wizard_, *wizard_.Globals.TopicFiles, dir_.Path(), "popups.js",
                                     count);
    }
    bool WriteApp(int& count) {
        return WriteAppPopupStrings(wizard_, *wizard_.Globals.TopicFiles, dir_.Path(), "cshelp.txt",
                                    count);
    }

    testing::TempDir dir_;
    testing::ScriptedView view_;
    Conversion wizard_{view_};
    int made_ = 0;
};

TEST_F(PopupWriters, BodiesAreCleanedForEachFile) {
    struct Popup {
        const char* context;
        int internal, external;
        const char* body;
    };
    struct Case {
        std::vector<Popup> popups;
        int scriptCount;
        std::string script, text;
    } const cases[] = {
        // Called by nobody: no popup; the script file holds only its header.
        {{{"idh_orphan", 0, 0, "<P>Nobody calls me</P>\n"}}, 0, "", ""},
        // Called both ways: into both files.
        {{{"idh_both", 1, 1,
           "<P><A NAME=\"idh_both\"></A><B>Close</B> the \"window\"?</P>\n"
           "\n<P>Second &amp; last</P>\n"}},
         1,
         "idh_both = \"Close the \\\"window\\\"\\?\\nSecond & last\"\r\n",
         ".topic idh_both\r\nClose the \"window\"?\r\nSecond & last\r\n\r\n"},
        // A first anchor named otherwise names a stray popup; in another case the
        // topic ID is used. Script strings lose every leading anchor, links
        // included; text popups only the named ones, so the link keeps its text.
        {{{"idh_one", 1, 1,
           "<P><A NAME=\"other\"></A><A NAME=\"second\"></A><A HREF=\"x.htm\">jump</A> Text</P>\n"},
          {"idh_two", 1, 0, "<P><A NAME=\"IDH_TWO\"></A>Two</P>\n"}},
         2,
         "other = \"Text\"\r\nidh_two = \"Two\"\r\n",
         ".topic other\r\njump Text\r\n\r\n"},
        // Lists become bulleted lines.
        {{{"idh_list", 1, 1,
           "<P><A NAME=\"idh_list\"></A>Items:</P>\n<UL>\n<LI>one\n<LI>two\n</UL>\n"}},
         1,
         "idh_list = \"Items:\\n\x95 one\\n\x95 two\"\r\n",
         ".topic idh_list\r\nItems:\r\n\r\n* one\r\n* two\r\n\r\n"},
        // Script strings keep images when they had links.
        {{{"idh_img", 1, 1,
           "<P><A NAME=\"idh_img\"></A>See <A HREF=\"a.htm\">a</A> <IMG SRC=\"b.gif\"> c</P>\n"}},
         1,
         "idh_img = \"See a <IMG SRC=\\\"b.gif\\\"> c\"\r\n",
         ".topic idh_img\r\nSee a  (*)  c\r\n\r\n"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.script);
        wizard_.Globals.TopicFiles = std::make_shared<CTopicFiles>();
        for (const Popup& p : c.popups)
            Topic(p.context, false, p.internal, p.external, p.body)->ContextIDValueString = "&H1A";
        int count = 0;
        ASSERT_TRUE(WriteScript(count));
        EXPECT_EQ(count, c.scriptCount);
        EXPECT_EQ(ReadFileBytes(dir_ / "popups.js"), ScriptHeader() + c.script);
        ASSERT_TRUE(WriteApp(count));
        EXPECT_EQ(ReadFileBytes(dir_ / "cshelp.txt"), c.text);
    }
    EXPECT_EQ(ReadFileBytes(dir_ / "cshelp.h"), "#define idh_img 0x1A\r\n");
}

TEST_F(PopupWriters, EveryExtraIdCanBeCalled) {
    auto t = Topic("idh_main", false, 1, 1, "<P><A NAME=\"idh_main\"></A>Text</P>\n");
    t->ExtraIds = "idh_alt^idh_alt2^idh_undefined";
    t->ContextIDValueString = "100";
    Topic("idh_titled", true, 3, 1, "<P>Titled</P>\n");  // never a popup
    wizard_.Globals.MapContextIDs = std::make_shared<CContextIDs>();
    wizard_.Globals.MapContextIDs->Add(wizard_.Errors, "IDH_ALT", "12", "IDH_ALT");
    wizard_.Globals.MapContextIDs->Add(wizard_.Errors, "idh_other", "13", "idh_other");
    wizard_.Globals.ProjectContextIDs = std::make_shared<CContextIDs>();
    wizard_.Globals.ProjectContextIDs->Add(wizard_.Errors, "idh_alt2", "&H20", "idh_alt2");
    wizard_.Globals.ProjectContextIDs->Add(wizard_.Errors, "idh_alt", "14", "idh_alt");
    int count = 0;
    ASSERT_TRUE(WriteScript(count));
    EXPECT_EQ(count, 4);
    EXPECT_EQ(ReadFileBytes(dir_ / "popups.js"),
              ScriptHeader() +
                  "idh_main = \"Text\"\r\nidh_alt = \"Text\"\r\nidh_alt2 = \"Text\"\r\n"
                  "idh_undefined = \"Text\"\r\n");
    ASSERT_TRUE(WriteApp(count));
    EXPECT_EQ(count, 4);
    EXPECT_EQ(ReadFileBytes(dir_ / "cshelp.h"),
              "#define idh_main 100\r\n#define IDH_ALT 12\r\n#define idh_alt 14\r\n"
              "#define idh_alt2 0x20\r\n");
    EXPECT_EQ(ReadFileBytes(dir_ / "cshelp.txt"),
              ".topic idh_main\r\nText\r\n\r\n.topic IDH_ALT\r\nText\r\n\r\n"
              ".topic idh_alt\r\nText\r\n\r\n.topic idh_alt2\r\nText\r\n\r\n");
}

// popups.js must parse: a popup called by no script name is left out (and
// named), its topic and the other popups stay.
TEST_F(PopupWriters, PopupsWithoutAScriptNameAreLeftOutSoThatTheScriptParses) {
    Topic("", false, 1, 0, "<P>empty ID</P>\n");
    Topic("idh-dash", false, 1, 0, "<P>dash</P>\n");
    Topic("2nd", false, 1, 0, "<P>digit</P>\n");
    Topic("idh_ok", false, 1, 0, "<P>fine</P>\n")->ExtraIds = "also.bad^idh_also";
    int count = 0;
    ASSERT_TRUE(WriteScript(count));
    EXPECT_EQ(count, 2);
    EXPECT_EQ(ReadFileBytes(dir_ / "popups.js"),
              ScriptHeader() + "idh_ok = \"fine\"\r\nidh_also = \"fine\"\r\n");
    EXPECT_EQ(testing::ScriptSyntaxErrors(dir_ / "popups.js"), "");
    EXPECT_EQ(LeftOutPopupsMessage(wizard_, *wizard_.Globals.TopicFiles),
              "3 popups were left out of popups.js because their topic IDs are not script "
              "names:\r\nafx1.htm (Topic ID \"\")\r\nidh-dash.htm (Topic ID \"idh-dash\")\r\n"
              "2nd.htm (Topic ID \"2nd\")");
}

// A text popup takes its value from the map files, else from the [MAP] section;
// without one it is left out of both files and named.
TEST_F(PopupWriters, TextPopupsWithoutAValueAreLeftOut) {
    Topic("idh_map", false, 0, 1, "<P>map</P>\n")->ContextIDValueString = "&H10";
    Topic("pop_proj", false, 0, 1, "<P>project</P>\n");
    Topic("pop_none", false, 0, 1, "<P>none</P>\n");
    wizard_.Globals.ProjectContextIDs = std::make_shared<CContextIDs>();
    wizard_.Globals.ProjectContextIDs->Add(wizard_.Errors, "POP_PROJ", "&H2B", "POP_PROJ");
    int count = 0;
    ASSERT_TRUE(WriteApp(count));
    EXPECT_EQ(count, 2);
    EXPECT_EQ(ReadFileBytes(dir_ / "cshelp.h"),
              "#define idh_map 0x10\r\n#define pop_proj 0x2B\r\n");
    EXPECT_EQ(ReadFileBytes(dir_ / "cshelp.txt"),
              ".topic idh_map\r\nmap\r\n\r\n.topic pop_proj\r\nproject\r\n\r\n");
    EXPECT_EQ(LeftOutPopupsMessage(wizard_, *wizard_.Globals.TopicFiles),
              "1 popup was left out of cshelp.txt and cshelp.h because no map definition gives "
              "its topic ID a value:\r\npop_none.htm (Topic ID \"pop_none\")");
}

TEST_F(PopupWriters, AMissingRenamedFileFailsTheWriter) {
    auto t = Topic("idh_gone", false, 1, 1, "<P>x</P>\n");
    t->NewFileName = "missing.htm";
    int count = 7;
    EXPECT_FALSE(WriteScript(count));
    EXPECT_EQ(count, 0);
    EXPECT_FALSE(WriteApp(count));
    ASSERT_EQ(view_.errors.size(), 2u);
    EXPECT_TRUE(view_.ErrorNamed("modPopups:WriteJavaPopupStrings"));
}

// A popup listed outside html\ is read where the write step put it; a name that
// leads out of the new folder is not followed.
TEST_F(PopupWriters, PopupsAreReadWhereTheyWereWritten) {
    const std::string root = dir_ / "new";
    dir_.Write("new/html/idh_out.htm", TopicHtml("<P>Inside</P>\n"));
    wizard_.Files.SetWriteRoot(root);
    testing::AddScannedTopic(*wizard_.Globals.TopicFiles, "pages\\afx1.htm", "idh_page", false)
        ->InternalReferences = 1;
    wizard_.Files.CreateFolder(root + "/pages");
    wizard_.Files.WriteAll(root + "/pages/idh_page.htm", TopicHtml("<P>From pages</P>\n"));
    testing::AddScannedTopic(*wizard_.Globals.TopicFiles, "..\\old\\afx2.htm", "idh_out", false)
        ->InternalReferences = 1;
    dir_.Write("old/idh_out.htm", TopicHtml("<P>Outside</P>\n"));
    int count = 0;
    ASSERT_TRUE(
        WriteJavaPopupStrings(wizard_, *wizard_.Globals.TopicFiles, root, "popups.js", count));
    EXPECT_EQ(count, 2);
    EXPECT_EQ(ReadFileBytes(root + "/popups.js"),
              ScriptHeader() + "idh_page = \"From pages\"\r\nidh_out = \"Inside\"\r\n");
}

TEST_F(PopupWriters, TheSectionListsTheTextFilesBeforeTheScriptFile) {
    const std::string project = dir_.Write(
        "new.hhp",
        "[OPTIONS]\r\nTitle=x\r\n\r\n[TEXT POPUPS]\r\nold.h\r\nold.txt\r\n\r\n[FILES]\r\na.htm\r\n");
    // Both flags false empty the section.
    EXPECT_TRUE(AddPopupFiles(wizard_, project, false, false));
    EXPECT_EQ(ReadFileBytes(project),
              "[OPTIONS]\r\nTitle=x\r\n\r\n[TEXT POPUPS]\r\n\r\n[FILES]\r\na.htm\r\n");
    const std::string added = dir_.Write("add.hhp", "[OPTIONS]\r\nTitle=x\r\n");
    EXPECT_TRUE(AddPopupFiles(wizard_, added, true, true));
    EXPECT_EQ(ReadFileBytes(added),
              "[OPTIONS]\r\nTitle=x\r\n[TEXT POPUPS]\r\ncshelp.h\r\ncshelp.txt\r\npopups.js\r\n");
    EXPECT_TRUE(AddPopupFiles(wizard_, added, true, false));
    EXPECT_EQ(ReadFileBytes(added), "[OPTIONS]\r\nTitle=x\r\n[TEXT POPUPS]\r\npopups.js\r\n");
}

}  // namespace
}  // namespace tamrix::modPopups
