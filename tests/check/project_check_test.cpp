// The project check on a small clean project, then on copies broken in one way
// each: every kind of problem is found at its file and line, and nothing else is.
#include "check/project_check.h"

#include <gtest/gtest.h>

#include <map>

#include "support/cli_run.h"
#include "support/temp_dir.h"

namespace tamrix {
namespace {

const std::map<std::string, std::string> kCleanProject = {
    // [FILES] ends on line 8, [TEXT POPUPS] names cshelp.h on line 18.
    {"P.hhp",
     "[OPTIONS]\nCompiled file=P.chm\nContents file=P.hhc\nIndex file=P.hhk\n\n"
     "[FILES]\nhtml\\a.htm\nhtml\\b.htm\n\n"
     "[MAP]\n#include map.h\n\n"
     "[ALIAS]\n#include alias.h\nIDH_B = html\\b.htm ; B\n\n"
     "[TEXT POPUPS]\ncshelp.h\npopups.js\n"},
    {"html/a.htm",
     "<html><head><title>A</title></head><body><a name=\"top\"></a>\n"
     "<a href=\"b.htm#Part\">B</a> <a href=\"#top\">up</a> <a href=\"http://x.org/\">x</a>\n"
     "<img src=\"../images/p.gif\"><!-- <a href=\"gone.htm\"> -->\n"
     "<script>var s = '<a href=\"gone.htm\">';</script></body></html>\n"},
    {"html/b.htm",
     "<p id=part>B</p>\r\n<a HREF='A.HTM'>A</a> <a href=\"javascript:go()\">go</a>\r\n"},
    {"images/p.gif", "GIF89a"},
    {"P.hhc",
     "<UL><LI><OBJECT type=\"text/sitemap\">\n<param name=\"Local\" value=\"html\\a.htm\">\n"},
    {"P.hhk",
     "<UL><LI><OBJECT type=\"text/sitemap\">\n<param name=\"Local\" value=\"html/B.HTM#part\">\n"},
    {"map.h", "// map\n/* block\n   comment */\n#define IDH_A 1\n#define IDH_B 0x2 // two\n"},
    {"alias.h", "; aliases\nIDH_A=html\\a.htm\n"},
    {"cshelp.h", "#define IDH_POP 5\n"},
    {"popups.js",
     "// popups\npopfont = \"Arial,10,,plain\"\nvar gl_x = \"a \\\"b\\\"\\nc \\x41\\u00e9\";\n"
     "gl_y = 'it\\'s'\n"},
};

struct BrokenCase {
    const char* name;
    const char* file;  // the file changed
    const char* from;  // text replaced; empty: `to` is appended
    const char* to;
    check::ProblemKind kind;
    const char* where;  // the file the problem names
    long line;
};

using K = check::ProblemKind;

const BrokenCase kBrokenCases[] = {
    {"FilesEntryMissing", "P.hhp", "html\\b.htm\n", "html\\b.htm\nhtml\\c.htm\n", K::kMissingFile,
     "P.hhp", 9},
    {"IncludeMissing", "map.h", "", "#include <other.h>\n", K::kMissingFile, "map.h", 6},
    {"TopicLinkBroken", "html/a.htm", "b.htm#Part", "c.htm", K::kBrokenLink, "html\\a.htm", 2},
    {"LinkLeavesProject", "html/a.htm", "../images/p.gif", "../../p.gif", K::kBrokenLink,
     "html\\a.htm", 3},
    {"ContentsLinkBroken", "P.hhc", "html\\a.htm", "html\\z.htm", K::kBrokenLink, "P.hhc", 2},
    {"AnchorMissing", "P.hhk", "#part", "#gone", K::kMissingAnchor, "P.hhk", 2},
    {"IdWithoutAlias", "map.h", "", "#define IDH_C 3\n", K::kUnaliasedId, "map.h", 6},
    {"AliasFileMissing", "alias.h", "html\\a.htm", "html\\gone.htm", K::kAliasMissingFile,
     "alias.h", 2},
    {"AliasUnknownId", "alias.h", "", "IDH_Z=html\\a.htm\n", K::kAliasUnknownId, "alias.h", 3},
    {"IdRedefined", "map.h", "", "#define IDH_A 9\n", K::kConflictingId, "map.h", 6},
    {"BasicHexValue", "map.h", "", "#define IDH_C &H3\n", K::kBadHeaderLine, "map.h", 6},
    {"HeaderValueMissing", "cshelp.h", "5", "", K::kBadHeaderLine, "cshelp.h", 1},
    {"HeaderNotDefine", "map.h", "", "int x;\n", K::kBadHeaderLine, "map.h", 6},
    {"ScriptNameInvalid", "popups.js", "var gl_x", "var gl-x", K::kBadPopupScript, "popups.js", 3},
    {"ScriptStringOpen", "popups.js", "plain\"", "plain", K::kBadPopupScript, "popups.js", 2},
    {"ScriptReservedName", "popups.js", "gl_y", "class", K::kBadPopupScript, "popups.js", 4},
    {"ScriptOctalEscape", "popups.js", "\\x41", "\\1", K::kBadPopupScript, "popups.js", 3},
    {"TextPopupsMissing", "P.hhp", "cshelp.h\n", "cshelp2.h\n", K::kMissingTextPopups, "P.hhp", 18},
    {"NamesCollide", "P.hhp", "html\\b.htm\n", "html\\b.htm\nHTML/A.htm\n", K::kNameCollision,
     "P.hhp", 9},
    {"DeviceName", "P.hhp", "html\\b.htm\n", "html\\b.htm\nhtml\\Con.htm\n", K::kInvalidName,
     "P.hhp", 9},
};

void WriteProject(const testing::TempDir& dir, const std::map<std::string, std::string>& files) {
    for (const auto& [name, text] : files) dir.Write(name, text);
}

TEST(ProjectCheck, CleanProjectHasNoProblems) {
    testing::TempDir dir;
    WriteProject(dir, kCleanProject);
    const check::CheckReport report = check::CheckProject(dir / "P.hhp");
    EXPECT_EQ(report.error, "");
    EXPECT_TRUE(report.problems.empty()) << check::ReportText(report);
    EXPECT_EQ(report.topicCount, 2u);
    EXPECT_EQ(report.contextIdCount, 2u);
}

class BrokenProject : public ::testing::TestWithParam<BrokenCase> {};

TEST_P(BrokenProject, ReportsTheProblemWhereItLies) {
    const BrokenCase& c = GetParam();
    auto files = kCleanProject;
    std::string& text = files[c.file];
    if (*c.from == '\0') {
        text += c.to;
    } else {
        const std::size_t at = text.find(c.from);
        ASSERT_NE(at, std::string::npos) << c.from;
        text.replace(at, std::string(c.from).size(), c.to);
    }
    testing::TempDir dir;
    WriteProject(dir, files);
#ifdef _WIN32
    if (c.kind == K::kInvalidName) GTEST_SKIP() << "Windows cannot store a file named Con.htm";
#endif
    if (c.kind == K::kInvalidName) dir.Write("html/Con.htm", "<p>");
    const check::CheckReport report = check::CheckProject(dir / "P.hhp");
    ASSERT_EQ(report.problems.size(), 1u) << check::ReportText(report);
    const check::Problem& problem = report.problems[0];
    EXPECT_EQ(problem.kind, c.kind) << check::ReportText(report);
    EXPECT_EQ(problem.file, c.where);
    EXPECT_EQ(problem.line, c.line) << problem.message;
    EXPECT_EQ(report.Errors(), check::IsWarning(c.kind) ? 0u : 1u);
}

INSTANTIATE_TEST_SUITE_P(Check, BrokenProject, ::testing::ValuesIn(kBrokenCases),
                         [](const auto& param) { return std::string(param.param.name); });

// The command: exit status 0 clean, 1 problems, 2 usage or an unreadable project;
// JSON names each problem with its kind, severity, file and line.
TEST(CheckCommand, ExitStatusAndJson) {
    testing::TempDir dir;
    auto files = kCleanProject;
    files["html/b.htm"] += "<a href=\"nowhere.htm\">x</a>\n";
    WriteProject(dir, files);
    const struct {
        std::vector<std::string> args;
        int status;
        const char* output;  // text the output must hold
    } runs[] = {
        {{"check", dir / "P.hhp", "--json"},
         1,
         "{\"kind\": \"broken-link\", \"severity\": \"error\", \"file\": \"html\\\\b.htm\", "
         "\"line\": 3,"},
        {{"check", dir / "P.hhp"}, 1, "html\\b.htm:3: broken-link: link to \"nowhere.htm\""},
        {{"check", dir / "none.hhp"}, 2, "cannot read"},
        {{"check"}, 2, ""},
        {{"check", dir / "P.hhp", "--fast"}, 2, ""},
    };
    for (const auto& run : runs) {
        const testing::CliRun result = testing::RunCliWith(run.args);
        EXPECT_EQ(result.status, run.status) << result.err;
        EXPECT_NE(result.out.find(run.output), std::string::npos) << result.out;
    }
}

}  // namespace
}  // namespace tamrix
