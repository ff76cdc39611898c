// Scan, write, popup extraction and activation on a small project, with the
// popup files, the [TEXT POPUPS] section and the edited caller checked byte for byte.
#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/profile.h"
#include "support/cli_run.h"
#include "support/environment.h"
#include "support/temp_dir.h"

namespace tamrix {
namespace {

const char* const kCaller =
    "<HTML>\r\n<HEAD>\r\n<TITLE>Main</TITLE>\r\n</HEAD>\r\n<BODY>\r\n"
    "<P><A NAME=\"main\"></A><B>Main</B></P>\r\n"
    "<P>See <A HREF=\"afxp0003.htm\">the term</A> and <A HREF=\"afxp0003.htm#x\">again</A>.</P>\r\n"
    "</BODY>\r\n</HTML>\r\n";

class PopupFlow : public ::testing::Test {
protected:
    void SetUp() override {
        testing::SetEnvironment("SOURCE_DATE_EPOCH", "1299333420");
        dir.Write("in/P.hhp",
                  "[OPTIONS]\r\nTitle=Popups\r\n\r\n[FILES]\r\nhtml\\afxc0001.htm\r\n"
                  "html\\afxc0002.htm\r\nhtml\\afxp0003.htm\r\n");
        dir.Write("in/html/afxc0001.htm", kCaller);
        // Called by the application only.
        dir.Write(
            "in/html/afxc0002.htm",
            "<HTML>\r\n<HEAD>\r\n<TITLE>(Untitled)</TITLE>\r\n</HEAD>\r\n<BODY>\r\n"
            "<P><A NAME=\"idh_app\"></A>Type a <I>name</I>:<BR>\r\n<UL>\r\n<LI>up to 8 letters\r\n"
            "<LI>no \"quotes\"\r\n</UL>\r\n</P>\r\n</BODY>\r\n</HTML>\r\n");
        // Called by a link and by the application, under two names.
        dir.Write("in/html/afxp0003.htm",
                  "<HTML>\r\n<HEAD>\r\n<TITLE>(Untitled)</TITLE>\r\n</HEAD>\r\n<BODY>\r\n"
                  "<P><A NAME=\"pop_one\"></A><A NAME=\"pop_alias\"></A><B>Term</B></P>\r\n"
                  "<P>Definition &amp; more, isn't it?</P>\r\n</BODY>\r\n</HTML>\r\n");
        dir.Write("in/P.hpj", "[OPTIONS]\r\nCONTENTS=main\r\n\r\n[MAP]\r\n#include map.h\r\n");
        dir.Write("in/map.h",
                  "#define IDH_APP 100\r\n#define POP_ONE 0x20\r\n#define POP_ALIAS 201\r\n");
    }
    void TearDown() override { testing::ClearEnvironment("SOURCE_DATE_EPOCH"); }
    testing::TempDir dir;
};

TEST_F(PopupFlow, WritesThePopupFilesAndActivatesTheCallers) {
    const testing::CliRun run =
        testing::RunCliWith({"convert", dir / "in/P.hhp", dir / "out/P.hhp", "--hpj",
                             dir / "in/P.hpj", "--popups", "--yes"});
    ASSERT_EQ(run.status, 0) << run.err;

    EXPECT_EQ(dir.Read("out/popups.js"),
              "// Javascript Popups File written automatically by Tamrix Version 1.0.0\r\n"
              "// March 05, 2011, 01:57 PM\r\n"
              "\r\n"
              "popfont = \"Arial,10,,plain\"\r\n"
              "\r\n"
              "pop_one = \"Term\\nDefinition & more, isn\\'t it\\?\"\r\n"
              "pop_alias = \"Term\\nDefinition & more, isn\\'t it\\?\"\r\n");
    EXPECT_EQ(dir.Read("out/cshelp.txt"),
              ".topic idh_app\r\nType a name:\r\n\r\n* up to 8 letters\r\n* no \"quotes\"\r\n\r\n"
              ".topic pop_one\r\nTerm\r\nDefinition & more, isn't it?\r\n\r\n"
              ".topic POP_ALIAS\r\nTerm\r\nDefinition & more, isn't it?\r\n\r\n");
    EXPECT_EQ(dir.Read("out/cshelp.h"),
              "#define idh_app 100\r\n#define pop_one 0x20\r\n#define POP_ALIAS 201\r\n");
    std::string section;
    profile::text::GetSection(dir.Read("out/P.hhp"), "TEXT POPUPS", section);
    EXPECT_EQ(section, std::string("cshelp.h\0cshelp.txt\0popups.js\0", 30));

    EXPECT_EQ(
        dir.Read("out/html/main.htm"),
        "<HTML>\r\n<HEAD>\r\n<TITLE>Main</TITLE>\r\n"
        "<OBJECT id=POPUPS  type=\"application/x-oleobject\" \r\n"
        "classid=\"clsid:adb880a6-d8ff-11cf-9377-00aa003b7a11\" > \r\n</OBJECT>\r\n"
        "<script \r\ntype=\"text/javascript\" language=javascript src=\"../popups.js\"> \r\n"
        "</script>\r\n"
        "</HEAD>\r\n<BODY>\r\n<P><A NAME=\"main\"></A><B>Main</B></P>\r\n"
        "<P>See <A HREF=\"Javascript:POPUPS.TextPopup(pop_one,popfont,9,9,-1,-1)\">the term</A> and "
        "<A HREF=\"Javascript:POPUPS.TextPopup(pop_one,popfont,9,9,-1,-1)\">again</A>.</P>\r\n"
        "</BODY>\r\n</HTML>\r\n");
    // The backup is the file as written before activation: links renamed, no script.
    std::string renamed = kCaller;
    for (std::size_t at; (at = renamed.find("afxp0003.htm")) != std::string::npos;)
        renamed.replace(at, 12, "pop_one.htm");
    EXPECT_EQ(dir.Read("out/html/NoPopups/main.htm"), renamed);
    EXPECT_FALSE(dir.Exists("out/html/NoPopups/pop_one.htm"));  // only callers are kept
}

}  // namespace
}  // namespace tamrix
