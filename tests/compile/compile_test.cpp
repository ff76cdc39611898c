// Compiling with chmcmd and reading the context map back: the rounds, the
// bundled sample converted by the command line, and both real projects.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <set>

#include "compile/chm_reader.h"
#include "compile/compile_project.h"
#include "compile/compile_rounds.h"
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

TEST(Compile, ConvertedSampleOpensEveryAliasedId) {
    testing::TempDir dir;
    const std::string sample = std::string(TAMRIX_SOURCE_DIR) + "/samples/tideclock/";
    std::string out;
    ASSERT_EQ(Cli({"convert", sample + "TideClock.hhp", dir / "new/TideClock.hhp", "--hpj",
                   sample + "TideClock.hpj", "--css", "--popups", "--yes", "--quiet"},
                  out),
              0)
        << out;
    const auto before = testing::ReadFileBytes(dir / "new/TideClock.hhp");
    const compile::CompileReport report =
        CompileAndVerify(dir / "new/TideClock.hhp", dir / "T.chm");
    EXPECT_EQ(testing::ReadFileBytes(dir / "new/TideClock.hhp"), before);
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
