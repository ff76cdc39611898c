// Compiling with chmcmd and reading the context map back: the rounds, the
// bundled sample converted by the command line, and both real projects.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <regex>
#include <set>

#include "check/context_map.h"
#include "check/project_check.h"
#include "compile/chm_reader.h"
#include "compile/compile_project.h"
#include "compile/compile_rounds.h"
#include "platform/file_system.h"
#include "platform/profile.h"
#include "support/cli_run.h"
#include "support/environment.h"
#include "support/temp_dir.h"

namespace tamrix {
namespace {

namespace fs = std::filesystem;

// Two aliases name one file (anchors apart), one ID has none: two rounds.
TEST(CompileRounds, OneAliasPerFileAndRound) {
    check::ContextMap map;
    for (const char* name : {"A", "B", "C", "D"}) map.definitions.push_back({name, 1, {}});
    map.aliases = {{"b", "html\\x.htm#one", {}}, {"A", "html/X.htm", {}}, {"C", "y.htm", {}}};
    const compile::RoundPlan plan = compile::PlanRounds(map);
    ASSERT_EQ(plan.rounds.size(), 2u);
    std::vector<std::string> first, second;
    for (const auto& id : plan.rounds[0]) first.push_back(id.name);
    for (const auto& id : plan.rounds[1]) second.push_back(id.name);
    EXPECT_EQ(first, (std::vector<std::string>{"A", "C"}));
    EXPECT_EQ(second, (std::vector<std::string>{"B"}));
    EXPECT_EQ(plan.unaliased, std::vector<std::string>{"D"});
}

// The exit status of the command line; `out` gets what it printed.
int Cli(const std::vector<std::string>& args, std::string& out) {
    const testing::CliRun run = testing::RunCliWith(args);
    out = run.out + run.err;
    return run.status;
}

// Compiles `project` and checks that every aliased context ID opens its topic.
compile::CompileReport CompileAndVerify(const std::string& project, const std::string& chm) {
    if (!compile::ChmReaderAvailable()) ADD_FAILURE() << "built without chmlib: install libchm-dev";
    if (compile::FindChmcmd().empty()) ADD_FAILURE() << "no chmcmd: install fp-utils";
    compile::CompileReport report = compile::CompileProject(project, chm);
    EXPECT_EQ(report.chmFile, chm) << report.error;
    EXPECT_GT(report.size, 0u);
    EXPECT_GT(report.topicCount, 0u);
    EXPECT_EQ(report.Failed(), 0u) << compile::CompileReportText(report);
    return report;
}

// The sample converted by the command line hangs together: every topic file is
// named after its topic ID, and every alias, include, link and popup file
// resolves (so nothing names a renamed file); a non-zero context ID left without
// an alias is named in the rewrite log. Compiled, every aliased ID opens its topic.
TEST(Compile, ConvertedSampleHangsTogetherAndOpensEveryAliasedId) {
    testing::TempDir dir;
    const std::string sample = std::string(TAMRIX_SOURCE_DIR) + "/samples/tideclock/";
    const std::string project = dir / "new/TideClock.hhp";
    std::string out;
    ASSERT_EQ(Cli({"convert", sample + "TideClock.hhp", project, "--hpj", sample + "TideClock.hpj",
                   "--css", "--popups", "--yes"},
                  out),
              0)
        << out;
    EXPECT_NE(out.find("Topic files renamed:    41 of 42"), std::string::npos) << out;
    const std::regex anchor("<BODY[^>]*>\\s*<P><A NAME=\"([^\"]+)\"", std::regex::icase);
    int named = 0;
    for (const auto& entry : fs::directory_iterator(dir / "new/html")) {
        const std::string text =
            entry.is_regular_file() ? testing::ReadFileBytes(entry.path()) : "";
        std::smatch m;
        if (!std::regex_search(text, m, anchor)) continue;  // the topic without an ID
        EXPECT_EQ(entry.path().filename().string(), m[1].str() + ".htm");
        ++named;
    }
    EXPECT_EQ(named, 41);
    const check::CheckReport check = check::CheckProject(project);
    EXPECT_EQ(check.Errors(), 0u) << check::ReportText(check);
    const std::string rewriteLog = dir.Read("new/rewrite.log");
    std::vector<check::Problem> ignored;
    FileSystem files;
    for (const auto& id : check::ReadContextMap({files, project}, ignored).definitions) {
        const bool unaliased = std::any_of(
            check.problems.begin(), check.problems.end(),
            [&](const auto& p) { return p.message == "context ID " + id.name + " has no alias"; });
        if (!unaliased || id.value == 0) continue;
        EXPECT_NE(rewriteLog.find("\r\n" + id.name + " "), std::string::npos) << id.name;
    }
    std::string popups;
    profile::text::GetSection(dir.Read("new/TideClock.hhp"), "TEXT POPUPS", popups);
    EXPECT_EQ(popups, std::string("cshelp.h\0cshelp.txt\0popups.js\0", 30));
    // Popup links call the script popups; the originals are kept in NoPopups.
    const std::string intro = dir.Read("new/html/intro.htm");
    EXPECT_NE(
        intro.find("<A HREF=\"Javascript:POPUPS.TextPopup(gl_high_water,popfont,9,9,-1,-1)\">"),
        std::string::npos);
    EXPECT_NE(intro.find("classid=\"clsid:adb880a6-d8ff-11cf-9377-00aa003b7a11\""),
              std::string::npos);
    EXPECT_EQ(dir.Read("new/html/NoPopups/intro.htm").find("TextPopup"), std::string::npos);
    EXPECT_NE(dir.Read("new/popups.js").find("gl_high_water = \"high water"), std::string::npos);

    const auto before = testing::ReadFileBytes(project);
    const compile::CompileReport report = CompileAndVerify(project, dir / "T.chm");
    EXPECT_EQ(testing::ReadFileBytes(project), before);
    EXPECT_EQ(report.topicCount, 42u);
    EXPECT_EQ(report.results.size(), 19u);
    EXPECT_EQ(report.unaliased, (std::vector<std::string>{"IDH_OLD_DIALOG", "IDH_RESERVED"}));
    // main_index shares its topic with HID_HELP_INDEX and HID_CONTEXT_HELP.
    EXPECT_EQ(report.rounds, 3u);
    std::set<std::string> lacking;
    for (const auto* result : report.LackingInFirst()) lacking.insert(result->name);
    EXPECT_EQ(lacking, (std::set<std::string>{"HID_CONTEXT_HELP", "main_index"}));
    const std::string text = compile::CompileReportText(report);
    EXPECT_NE(text.find("Cannot be verified, no alias (2):\n  IDH_OLD_DIALOG\n"), std::string::npos)
        << text;
}

struct CorpusProject {
    const char* folder;
    const char* project;
    const char* hpj;
};

class CorpusCompile : public ::testing::TestWithParam<CorpusProject> {};

TEST_P(CorpusCompile, ConvertedProjectCompilesAndVerifies) {
    const char* env = std::getenv("TAMRIX_CORPUS_DIR");
    const std::string in =
        std::string(env != nullptr ? env : TAMRIX_CORPUS_DIR) + "/" + GetParam().folder + "/";
    ASSERT_TRUE(fs::exists(in + GetParam().project)) << "the corpus is missing at " << in;
    testing::TempDir dir;
    std::string out;
    ASSERT_EQ(Cli({"convert", in + GetParam().project, dir / "new/New.hhp", "--hpj",
                   in + GetParam().hpj, "--popups", "--yes", "--quiet"},
                  out),
              0)
        << out;
    CompileAndVerify(dir / "new/New.hhp", dir / "New.chm");
    EXPECT_EQ(Cli({"compile", dir / "new/New.hhp", "-o", dir / "cli.chm"}, out), 0) << out;
    EXPECT_TRUE(dir.Exists("cli.chm"));
}

INSTANTIATE_TEST_SUITE_P(
    Corpus, CorpusCompile,
    ::testing::Values(CorpusProject{"draftcable", "Copia de DraftCable.hhp", "DraftCable.hpj"},
                      CorpusProject{"wavesoap", "WaveSoap.hhp", "WaveSoapFront.hpj"}),
    [](const auto& param) { return std::string(param.param.folder); });

// Without chmcmd on PATH the command says how to install it and exits 2.
TEST(CompileCommand, MissingChmcmdIsExplained) {
    const std::string path = std::getenv("PATH") != nullptr ? std::getenv("PATH") : "";
    testing::SetEnvironment("PATH", "/nonexistent");
    std::string out;
    const int status = Cli({"compile", "x.hhp"}, out);
    testing::SetEnvironment("PATH", path.c_str());
    EXPECT_EQ(status, 2);
    EXPECT_NE(out.find("apt-get install fp-utils"), std::string::npos) << out;
}

}  // namespace
}  // namespace tamrix
