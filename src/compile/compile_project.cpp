#include "compile/compile_project.h"

#include <cstdlib>
#include <filesystem>
#include <random>
#include <unordered_map>

#include "check/link_check.h"
#include "compile/chm_reader.h"
#include "compile/chmcmd_project.h"
#include "platform/byte_text.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"

namespace tamrix::compile {
namespace {

namespace fs = std::filesystem;

// A private folder under the system's temporary folder, removed with everything in it.
class TempFolder {
public:
    TempFolder() {
        std::random_device random;
        for (int attempt = 0; attempt < 100 && path_.empty(); ++attempt) {
            const fs::path candidate =
                fs::temp_directory_path() / ("tamrix-compile-" + std::to_string(random()));
            if (fs::create_directory(candidate)) path_ = candidate;
        }
        if (path_.empty()) throw std::runtime_error("cannot create a temporary folder");
    }
    ~TempFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    const fs::path& Path() const { return path_; }

private:
    fs::path path_;
};

std::string ShellQuoted(const std::string& text) {
    std::string out = "'";
    for (const char c : text) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

// The line of chmcmd's log that says why it stopped, or its last line.
std::string WhyStopped(const std::string& log) {
    std::string last;
    for (const std::string& line : Split(log, '\n')) {
        const std::string text = Trim(std::string(Before(line, '\r')));
        if (text.empty()) continue;
        if (ContainsNoCase(text, "error") || ContainsNoCase(text, "not found")) return text;
        last = text;
    }
    return last.empty() ? "no output" : last;
}

std::string OutputPath(const check::ProjectSections& project, const std::string& outputFile) {
    if (!outputFile.empty()) return FileSystem::GetAbsolutePathName(outputFile);
    std::string name = modUtilities::FileNameNoPath(project.Option("Compiled file"));
    if (name.empty())
        name = FileBaseName(modUtilities::FileNameNoPath(project.ProjectFile())) + ".chm";
    return project.Folder() + name;
}

class Compiler {
public:
    Compiler(const check::ProjectSections& project, std::string chmcmd, CompileReport& report)
        : project_(project), chmcmd_(std::move(chmcmd)), report_(report) {}

    void Run(const std::string& outputFile) {
        const RoundPlan plan = PlanRounds(check::ReadContextMap(project_, ignored_));
        report_.unaliased = plan.unaliased;
        report_.rounds = std::max<std::size_t>(plan.rounds.size(), 1);
        fs::copy(project_.Folder(), copy_,
                 fs::copy_options::recursive | fs::copy_options::copy_symlinks);
        const std::string copyFolder = copy_.string() + "/";
        for (std::size_t round = 0; round < report_.rounds; ++round) {
            static const std::vector<AliasedId> kNone;
            const auto& ids = plan.rounds.empty() ? kNone : plan.rounds[round];
            const std::string chm = copyFolder + "tamrix-round-" + std::to_string(round) + ".chm";
            std::string error;
            ChmContents contents;
            if (Compile(round, ids, chm, error) && ReadChm(chm, Candidates(ids), contents, error)) {
                Verify(round, ids, contents, copyFolder);
                if (round == 0) Deliver(chm, contents, outputFile);
            } else {
                if (round == 0) report_.error = error;
                for (const AliasedId& id : ids)
                    report_.results.push_back({id.name, id.value, id.target, round, false, error});
            }
        }
    }

private:
    bool Compile(std::size_t round, const std::vector<AliasedId>& ids, const std::string& chm,
                 std::string& error) {
        const std::string stem = "tamrix-round-" + std::to_string(round);
        const fs::path projectFile = copy_ / (stem + ".hhp");
        const fs::path log = temp_.Path() / (stem + ".log");
        project_.Files().WriteAll(projectFile.string(),
                                  ChmcmdProjectText(project_, ids, stem + ".chm"));
        const std::string command = "cd " + ShellQuoted(copy_.string()) + " && " +
                                    ShellQuoted(chmcmd_) + " " + ShellQuoted(projectFile.string()) +
                                    " >" + ShellQuoted(log.string()) + " 2>&1";
        const int status = std::system(command.c_str());
        if (status == 0 && fs::exists(chm)) return true;
        error = "chmcmd stopped: " + WhyStopped(project_.Files().ReadAll(log.string()));
        return false;
    }

    // The project's files and the round's alias targets, as chmcmd stores them.
    std::vector<std::string> Candidates(const std::vector<AliasedId>& ids) const {
        std::vector<std::string> paths;
        for (const check::SourceLine& entry : project_.Section("FILES"))
            paths.push_back(check::PathKey({}, DiskRelativePath(project_, entry.text)));
        for (const AliasedId& id : ids)
            paths.push_back(check::PathKey({}, std::string(Before(id.target, '#'))));
        return paths;
    }

    void Verify(std::size_t round, const std::vector<AliasedId>& ids, const ChmContents& contents,
                const std::string& copyFolder) {
        std::unordered_multimap<std::int32_t, std::string> map;  // number -> project key
        for (const ContextEntry& entry : contents.contextMap) {
            std::string path = entry.path;
            // chmcmd stores the full path of the folder it compiled in.
            if (path.starts_with(copyFolder)) path.erase(0, copyFolder.size());
            map.emplace(entry.number, check::PathKey({}, std::string(Before(path, '#'))));
        }
        for (const AliasedId& id : ids) {
            IdResult result{id.name, id.value, id.target, round, false, {}};
            const std::string want = check::PathKey({}, std::string(Before(id.target, '#')));
            const auto [first, last] = map.equal_range(id.value);
            if (first == last) {
                result.failure = "context number " + std::to_string(id.value) + " is not in #IVB";
            } else if (first->second != want) {
                result.failure = "opens \"" + first->second + "\", not \"" + want + "\"";
            } else if (contents.storedFiles.count(want) == 0) {
                result.failure = "\"" + want + "\" is not stored in the compiled file";
            } else {
                result.verified = true;
            }
            report_.results.push_back(std::move(result));
        }
    }

    void Deliver(const std::string& chm, const ChmContents& contents,
                 const std::string& outputFile) {
        const std::string output = OutputPath(project_, outputFile);
        fs::copy_file(chm, output, fs::copy_options::overwrite_existing);
        report_.chmFile = output;
        report_.size = fs::file_size(output);
        report_.topicCount = contents.htmlFiles;
        report_.listedTopics = contents.topicUrls.size();
    }

    const check::ProjectSections& project_;
    std::string chmcmd_;
    CompileReport& report_;
    std::vector<check::Problem> ignored_;  // the check command reports them
    TempFolder temp_;
    fs::path copy_ = temp_.Path() / "project";
};

}  // namespace

std::size_t CompileReport::Verified() const {
    std::size_t n = 0;
    for (const IdResult& result : results) n += result.verified ? 1 : 0;
    return n;
}

std::vector<const IdResult*> CompileReport::LackingInFirst() const {
    std::vector<const IdResult*> lacking;
    for (const IdResult& result : results)
        if (result.round > 0) lacking.push_back(&result);
    return lacking;
}

std::string FindChmcmd() {
    const char* path = std::getenv("PATH");
    for (const std::string& folder : Split(path != nullptr ? path : "", ':')) {
        if (folder.empty()) continue;
        const fs::path candidate = fs::path(folder) / "chmcmd";
        std::error_code error;
        const auto status = fs::status(candidate, error);
        if (!error && fs::is_regular_file(status) &&
            (status.permissions() & fs::perms::others_exec) != fs::perms::none)
            return candidate.string();
    }
    return {};
}

CompileReport CompileProject(const std::string& projectFile, const std::string& outputFile) {
    CompileReport report;
    const std::string chmcmd = FindChmcmd();
    if (chmcmd.empty()) {
        report.toolMissing = true;
        report.error = "chmcmd was not found on PATH. Install it with: apt-get install fp-utils";
        return report;
    }
    if (!ChmReaderAvailable()) {
        report.toolMissing = true;
        report.error =
            "this tamrix-cli was built without chmlib, which reads the compiled file back. "
            "Install it with: apt-get install libchm-dev, then build Tamrix again";
        return report;
    }
    try {
        FileSystem fs;
        const check::ProjectSections project(fs, projectFile);
        Compiler(project, chmcmd, report).Run(outputFile);
    } catch (const std::exception& error) {
        report.error = error.what();
    }
    return report;
}

std::string CompileReportText(const CompileReport& report) {
    std::string out;
    if (!report.chmFile.empty())
        out += "Compiled file:  " + report.chmFile + " (" + std::to_string(report.size) +
               " bytes)\n" + "Topics:         " + std::to_string(report.topicCount) + " stored, " +
               std::to_string(report.listedTopics) + " listed in #TOPICS\n";
    else
        out += "No compiled file written: " + report.error + "\n";
    out += "Rounds:         " + std::to_string(report.rounds) + "\n";
    out += "Context IDs:    " + std::to_string(report.Verified()) + " verified, " +
           std::to_string(report.Failed()) + " failed, of " +
           std::to_string(report.results.size()) + " with an alias\n";
    for (const IdResult& result : report.results)
        if (!result.verified)
            out += "  FAILED " + result.name + " (" + std::to_string(result.value) + ") -> " +
                   result.target + ": " + result.failure + "\n";
    const auto lacking = report.LackingInFirst();
    if (!lacking.empty() && !report.chmFile.empty()) {
        out += "Not in " + modUtilities::FileNameNoPath(report.chmFile) + " (" +
               std::to_string(lacking.size()) +
               "): chmcmd takes one alias per topic file; compile with HTML Help Workshop for "
               "full context help:\n";
        for (const IdResult* result : lacking)
            out += "  " + result->name + " -> " + result->target + "\n";
    }
    if (!report.unaliased.empty()) {
        out += "Cannot be verified, no alias (" + std::to_string(report.unaliased.size()) + "):\n";
        for (const std::string& name : report.unaliased) out += "  " + name + "\n";
    }
    return out;
}

}  // namespace tamrix::compile
