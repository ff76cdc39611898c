// tamrix-cli converts the bundled sample; the written project must hang together.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>
#include <set>

#include "check/context_map.h"
#include "check/project_check.h"
#include "platform/byte_text.h"
#include "platform/file_system.h"
#include "platform/profile.h"
#include "support/cli_run.h"
#include "support/temp_dir.h"

namespace tamrix {
namespace {

namespace fs = std::filesystem;

using testing::Quote;

class EndToEnd : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        dir_ = new testing::TempDir;
        const std::string sample = std::string(TAMRIX_SOURCE_DIR) + "/samples/tideclock/";
        status_ = testing::Shell(
            "SOURCE_DATE_EPOCH=1299333420 " + Quote(TAMRIX_CLI_PATH) + " convert " +
            Quote(sample + "TideClock.hhp") + " " + Quote(dir_->Path() + "/out/TideClock.hhp") +
            " --hpj " + Quote(sample + "TideClock.hpj") + " --popups --yes > " +
            Quote(dir_->Path() + "/stdout.txt") + " 2> " + Quote(dir_->Path() + "/stderr.txt"));
    }
    static void TearDownTestSuite() { delete dir_; }

    static std::string Out(const std::string& name) { return dir_->Read("out/" + name); }
    static std::vector<std::string> Section(const std::string& name) {
        std::string text;
        profile::text::GetSection(Out("TideClock.hhp"), name, text);
        std::vector<std::string> lines = Split(text, '\0');
        if (!lines.empty() && lines.back().empty()) lines.pop_back();
        return lines;
    }
    // The generated names of the sample that the conversion renames.
    static std::set<std::string> RenamedGeneratedNames() {
        std::set<std::string> names;
        for (const auto& entry :
             fs::directory_iterator(std::string(TAMRIX_SOURCE_DIR) + "/samples/tideclock/html"))
            names.insert(entry.path().filename().string());
        std::set<std::string> kept;
        for (const auto& entry : fs::directory_iterator(dir_->Path() + "/out/html"))
            if (entry.is_regular_file()) kept.insert(entry.path().filename().string());
        std::set<std::string> renamed;
        for (const auto& n : names)
            if (!kept.count(n)) renamed.insert(n);
        return renamed;
    }

    static testing::TempDir* dir_;
    static int status_;
};

testing::TempDir* EndToEnd::dir_ = nullptr;
int EndToEnd::status_ = -1;

TEST_F(EndToEnd, ConversionSucceedsAndWritesTheThreeLogs) {
    ASSERT_EQ(status_, 0) << dir_->Read("stderr.txt");
    for (const char* log : {"scan.log", "rewrite.log", "popups.log"})
        EXPECT_TRUE(dir_->Exists(std::string("out/") + log)) << log;
    const std::string summary = dir_->Read("stdout.txt");
    EXPECT_NE(summary.find("Topic files renamed:    41 of 42"), std::string::npos) << summary;
}

TEST_F(EndToEnd, EveryTopicFileIsNamedAfterItsTopicId) {
    ASSERT_EQ(status_, 0);
    const std::regex anchor("<BODY[^>]*>\\s*<P><A NAME=\"([^\"]+)\"", std::regex::icase);
    int named = 0;
    for (const auto& entry : fs::directory_iterator(dir_->Path() + "/out/html")) {
        if (!entry.is_regular_file()) continue;
        const std::string text = testing::ReadFileBytes(entry.path());
        std::smatch m;
        if (!std::regex_search(text, m, anchor)) continue;  // the topic without an ID
        EXPECT_EQ(entry.path().filename().string(), m[1].str() + ".htm");
        ++named;
    }
    EXPECT_EQ(named, 41);
}

TEST_F(EndToEnd, NoLinkContentsOrIndexEntryNamesARenamedFile) {
    ASSERT_EQ(status_, 0);
    const std::set<std::string> renamed = RenamedGeneratedNames();
    ASSERT_EQ(renamed.size(), 41u);
    std::vector<std::string> files = {"TideClock.hhp", "Table of Contents.hhc", "TideClock.hhk"};
    for (const auto& entry : fs::directory_iterator(dir_->Path() + "/out/html"))
        if (entry.is_regular_file()) files.push_back("html/" + entry.path().filename().string());
    for (const auto& file : files) {
        const std::string text = Out(file);
        for (const auto& name : renamed)
            EXPECT_FALSE(ContainsNoCase(text, name)) << file << " still names " << name;
    }
}

// Every alias, include, link and popup file of the written project resolves; a
// non-zero context ID left without an alias is named in the rewrite log.
TEST_F(EndToEnd, TheWrittenProjectPassesTheCheckAndNamesItsUnaliasedIds) {
    ASSERT_EQ(status_, 0);
    const std::string project = dir_->Path() + "/out/TideClock.hhp";
    const check::CheckReport report = check::CheckProject(project);
    EXPECT_EQ(report.Errors(), 0u) << check::ReportText(report);
    const std::string rewriteLog = Out("rewrite.log");
    std::vector<check::Problem> ignored;
    FileSystem fs;
    const check::ProjectSections sections(fs, project);
    for (const auto& id : check::ReadContextMap(sections, ignored).definitions) {
        const bool unaliased = std::any_of(
            report.problems.begin(), report.problems.end(), [&](const check::Problem& p) {
                return p.message == "context ID " + id.name + " has no alias";
            });
        if (unaliased && id.value != 0) {
            EXPECT_NE(rewriteLog.find("\r\n" + id.name + " "), std::string::npos) << id.name;
        }
    }
    EXPECT_EQ(Section("TEXT POPUPS"),
              (std::vector<std::string>{"cshelp.h", "cshelp.txt", "popups.js"}));
}

TEST_F(EndToEnd, PopupLinksCallScriptPopupsAndTheOriginalsAreKept) {
    ASSERT_EQ(status_, 0);
    const std::string intro = Out("html/intro.htm");
    EXPECT_NE(
        intro.find("<A HREF=\"Javascript:POPUPS.TextPopup(gl_high_water,popfont,9,9,-1,-1)\">"),
        std::string::npos);
    EXPECT_NE(intro.find("classid=\"clsid:adb880a6-d8ff-11cf-9377-00aa003b7a11\""),
              std::string::npos);
    EXPECT_TRUE(dir_->Exists("out/html/NoPopups/intro.htm"));
    EXPECT_EQ(dir_->Read("out/html/NoPopups/intro.htm").find("TextPopup"), std::string::npos);
    const std::string js = Out("popups.js");
    EXPECT_NE(js.find("gl_high_water = \"high water"), std::string::npos) << js;
}

}  // namespace
}  // namespace tamrix
