// Both real projects convert from the command line: every generated topic file
// with a topic ID comes out under that ID and nothing still names the old file.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <regex>
#include <set>
#include <sstream>

#include "cli/commands.h"
#include "platform/byte_text.h"
#include "support/temp_dir.h"

namespace tamrix {
namespace {

namespace fs = std::filesystem;

struct CorpusProject {
    const char* folder;
    const char* project;
    const char* hpj;
};

// Whether a topic file has a topic ID: a NAME on the first anchor after the body starts.
bool HasTopicId(const std::string& html) {
    const std::size_t body = FindNoCase(html, "<BODY");
    if (body == kNotFound) return false;
    static const std::regex anchor("<a\\s[^>]*>", std::regex::icase);
    static const std::regex name("name\\s*=", std::regex::icase);
    std::smatch first;
    return std::regex_search(html.cbegin() + static_cast<std::ptrdiff_t>(body), html.cend(), first,
                             anchor) &&
           std::regex_search(first[0].first, first[0].second, name);
}

class CorpusConversion : public ::testing::TestWithParam<CorpusProject> {};

TEST_P(CorpusConversion, ConvertsCompletely) {
    const char* env = std::getenv("TAMRIX_CORPUS_DIR");
    const std::string corpus = env != nullptr ? env : TAMRIX_CORPUS_DIR;
    const std::string in = corpus + "/" + GetParam().folder + "/";
    ASSERT_TRUE(fs::exists(in)) << "no corpus at " << in << " (set TAMRIX_CORPUS_DIR)";
    testing::TempDir dir;
    std::istringstream input;
    std::ostringstream out, err;
    const int status = cli::RunCli({"convert", in + GetParam().project, dir / "new/New.hhp", "--hpj",
                                    in + GetParam().hpj, "--popups", "--yes"},
                                   input, out, err, false, false);
    ASSERT_EQ(status, 0) << err.str();
    for (const char* log : {"scan.log", "rewrite.log", "popups.log"})
        EXPECT_TRUE(dir.Exists(std::string("new/") + log)) << log;

    // Generated names: html\ + four letters of the source file + four base-36 characters.
    const std::regex generated("afx[cp][0-9a-z]{4}\\.htm");
    std::set<std::string> written;
    for (const auto& entry : fs::directory_iterator(dir / "new/html"))
        written.insert(entry.path().filename().string());
    // Every generated name with a topic ID is renamed, and only those.
    std::vector<std::string> renamed;
    std::size_t withTopicId = 0;
    for (const auto& entry : fs::directory_iterator(in + "html")) {
        const std::string name = entry.path().filename().string();
        if (!std::regex_match(name, generated)) continue;
        if (HasTopicId(testing::ReadFileBytes(entry.path().string()))) ++withTopicId;
        if (!written.count(name)) renamed.push_back(name);
    }
    EXPECT_EQ(renamed.size(), withTopicId);
    for (const auto& entry : fs::recursive_directory_iterator(dir / "new")) {
        const std::string path = entry.path().string();
        if (!entry.is_regular_file() || path.find("NoPopups") != std::string::npos) continue;
        if (!EndsWithNoCase(path, ".htm") && !EndsWithNoCase(path, ".hhc") &&
            !EndsWithNoCase(path, ".hhk") && !EndsWithNoCase(path, ".hhp"))
            continue;
        const std::string text = testing::ReadFileBytes(path);
        for (const auto& name : renamed)
            EXPECT_FALSE(ContainsNoCase(text, name)) << path << " still names " << name;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Corpus, CorpusConversion,
    ::testing::Values(CorpusProject{"draftcable", "Copia de DraftCable.hhp", "DraftCable.hpj"},
                      CorpusProject{"wavesoap", "WaveSoap.hhp", "WaveSoapFront.hpj"}),
    [](const auto& param) { return std::string(param.param.folder); });

}  // namespace
}  // namespace tamrix
