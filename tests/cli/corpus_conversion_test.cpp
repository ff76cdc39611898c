// Both real projects convert from the command line: every generated topic file
// with a topic ID comes out under that ID and nothing still names the old file,
// and the new project compiles: no link to ".htm", a popups.js that parses and
// that every activated topic reaches, C numbers in the headers, and no two
// topic files that Windows would take for one.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "check/context_map.h"
#include "platform/byte_text.h"
#include "support/cli_run.h"
#include "support/script_check.h"
#include "support/temp_dir.h"

namespace tamrix {
namespace {

namespace fs = std::filesystem;

struct CorpusProject {
    const char* folder;
    const char* project;
    const char* hpj;
    std::size_t activated;  // topic files that call script popups
};

// The script popups' references reach popups.js; returns how many files hold one.
std::size_t ExpectScriptReferencesReach(const fs::path& root) {
    std::size_t files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const std::string path = entry.path().string();
        if (!EndsWithNoCase(path, ".htm") || path.find("NoPopups") != std::string::npos) continue;
        const std::string text = testing::ReadFileBytes(path);
        const std::size_t end = FindNoCase(text, "popups.js\"");
        if (end == kNotFound) continue;
        ++files;
        const std::size_t start = text.rfind("src=\"", end);
        const std::string reference =
            start == std::string::npos ? text.substr(end) : text.substr(start + 5, end + 4 - start);
        EXPECT_TRUE(fs::exists(entry.path().parent_path() / reference))
            << path << ": " << reference;
    }
    return files;
}

// Every #define of a written header carries a C number.
void ExpectCNumbersInHeaders(const fs::path& root) {
    for (const auto& entry : fs::directory_iterator(root)) {
        if (!EndsWithNoCase(entry.path().string(), ".h")) continue;
        std::istringstream lines(testing::ReadFileBytes(entry.path().string()));
        for (std::string line; std::getline(lines, line);) {
            std::istringstream words(line);
            std::string define, name, value;
            if (!(words >> define) || define != "#define") continue;
            std::int32_t number = 0;
            words >> name >> value;
            EXPECT_TRUE(check::ParseCNumber(value, number))
                << entry.path().filename() << ": " << line;
        }
    }
}

// No two files of one folder whose names differ only in case.
void ExpectNoCaseFoldedTwins(const fs::path& root) {
    std::map<std::string, std::string> seen;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const std::string path = entry.path().string();
        const auto [it, added] = seen.emplace(Fold(path), path);
        EXPECT_TRUE(added) << path << " and " << it->second;
    }
}

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
    const testing::CliRun run =
        testing::RunCliWith({"convert", in + GetParam().project, dir / "new/New.hhp", "--hpj",
                             in + GetParam().hpj, "--popups", "--yes"});
    ASSERT_EQ(run.status, 0) << run.err;
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
        EXPECT_FALSE(ContainsNoCase(text, "href=\".htm")) << path;
    }
    EXPECT_EQ(testing::ScriptSyntaxErrors(dir / "new/popups.js"), "");
    EXPECT_EQ(ExpectScriptReferencesReach(dir / "new"), GetParam().activated);
    ExpectCNumbersInHeaders(dir / "new");
    ExpectNoCaseFoldedTwins(dir / "new");
}

INSTANTIATE_TEST_SUITE_P(
    Corpus, CorpusConversion,
    ::testing::Values(CorpusProject{"draftcable", "Copia de DraftCable.hhp", "DraftCable.hpj", 13},
                      CorpusProject{"wavesoap", "WaveSoap.hhp", "WaveSoapFront.hpj", 11}),
    [](const auto& param) { return std::string(param.param.folder); });

}  // namespace
}  // namespace tamrix
