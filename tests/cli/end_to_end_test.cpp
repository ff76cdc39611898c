// tamrix-cli converts the bundled sample; the written project must hang together.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <regex>
#include <set>

#include "platform/byte_text.h"
#include "platform/profile.h"
#include "support/temp_dir.h"

namespace tamrix {
namespace {

namespace fs = std::filesystem;

int Shell(const std::string& command) {
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string Quote(const std::string& s) { return "'" + s + "'"; }

class EndToEnd : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        dir_ = new testing::TempDir;
        const std::string sample = std::string(TAMRIX_SOURCE_DIR) + "/samples/tideclock/";
        status_ = Shell(
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

TEST_F(EndToEnd, MapAliasAndPopupSectionsAgreeWithTheFiles) {
    ASSERT_EQ(status_, 0);
    std::set<std::string> aliased;
    auto checkAliasLine = [&](const std::string& line, const std::string& where) {
        const std::size_t eq = line.find('=');
        if (line.empty() || line[0] == ';' || line[0] == '#' || eq == std::string::npos) return;
        std::string target = Trim(line.substr(eq + 1));
        target = std::string(Before(target, ' '));
        aliased.insert(Fold(Trim(line.substr(0, eq))));
        const std::string disk = std::regex_replace(target, std::regex("\\\\"), "/");
        EXPECT_TRUE(dir_->Exists("out/" + disk)) << where << ": " << line;
    };
    for (const auto& line : Section("ALIAS")) {
        if (StartsWithNoCase(line, "#include")) {
            const std::string name = Trim(line.substr(8));
            ASSERT_TRUE(dir_->Exists("out/" + name)) << line;
            for (const auto& l : Split(ReplaceAll(Out(name), "\r\n", "\n"), '\n'))
                checkAliasLine(l, name);
        } else {
            checkAliasLine(line, "[ALIAS]");
        }
    }
    for (const auto& line : Section("MAP")) {
        ASSERT_TRUE(StartsWithNoCase(line, "#include ")) << line;
        EXPECT_TRUE(dir_->Exists("out/" + Trim(line.substr(9)))) << line;
    }
    // Every non-zero context ID of the map headers has an alias or is named as unaliased.
    const std::string rewriteLog = Out("rewrite.log");
    const std::regex define("#define\\s+(\\S+)\\s+(\\S+)");
    for (const char* header : {"TideClock.hh", "NewMap.h"}) {
        if (!dir_->Exists(std::string("out/") + header)) continue;
        const std::string text = Out(header);
        for (std::sregex_iterator it(text.begin(), text.end(), define), end; it != end; ++it) {
            const std::string name = (*it)[1].str();
            if ((*it)[2].str() == "0") continue;
            const bool listed = rewriteLog.find("\r\n" + name + " ") != std::string::npos;
            EXPECT_TRUE(aliased.count(Fold(name)) || listed) << name;
        }
    }
    const auto popups = Section("TEXT POPUPS");
    EXPECT_EQ(popups, (std::vector<std::string>{"cshelp.h", "cshelp.txt", "popups.js"}));
    for (const auto& file : popups) EXPECT_TRUE(dir_->Exists("out/" + file)) << file;
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

// chmcmd checks that the files, the contents and the index compile. It is
// stricter than HTML Help Workshop about [MAP] and [ALIAS] (no "\\" in alias
// targets, one alias per file, an alias for every map ID), which the test above
// checks instead, so it compiles a copy without those two sections.
TEST_F(EndToEnd, TheWrittenFilesContentsAndIndexCompileWithChmcmd) {
    ASSERT_EQ(status_, 0);
    if (Shell("command -v chmcmd > /dev/null 2>&1") != 0) GTEST_SKIP() << "chmcmd is not installed";
    const std::string copy = dir_->Path() + "/chm";
    ASSERT_EQ(Shell("cp -r " + Quote(dir_->Path() + "/out") + " " + Quote(copy)), 0);
    std::string project = dir_->Read("chm/TideClock.hhp");
    project = profile::text::DeleteSection(profile::text::DeleteSection(project, "ALIAS"), "MAP");
    dir_->Write("chm/TideClock.hhp", project);
    EXPECT_EQ(Shell("cd " + Quote(copy) + " && chmcmd TideClock.hhp > ../chmcmd.txt 2>&1"), 0)
        << dir_->Read("chmcmd.txt");
    EXPECT_TRUE(dir_->Exists("chm/TideClock.chm")) << dir_->Read("chmcmd.txt");
}

}  // namespace
}  // namespace tamrix
