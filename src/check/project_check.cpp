#include "check/project_check.h"

#include <unordered_set>

#include "check/context_map.h"
#include "check/file_names.h"
#include "check/link_check.h"
#include "check/project_sections.h"
#include "check/script_check.h"
#include "platform/byte_text.h"
#include "platform/file_system.h"
#include "platform/program_error.h"

namespace tamrix::check {
namespace {

bool IsHtml(const std::string& name) {
    return EndsWithNoCase(name, ".htm") || EndsWithNoCase(name, ".html");
}

std::string FilePart(const std::string& target) { return std::string(Before(target, '#')); }

class ProjectChecker {
public:
    ProjectChecker(const ProjectSections& project, CheckReport& report)
        : project_(project), report_(report), links_(project.Files(), project.Folder()) {}

    void Run() {
        CheckFiles();
        CheckOptionFile("Contents file");
        CheckOptionFile("Index file");
        links_.Check(report_.problems);
        CheckContextMap();
        CheckTextPopups();
        for (Problem& problem : report_.problems)
            if (problem.file.starts_with(project_.Folder()))
                problem.file.erase(0, project_.Folder().size());
    }

private:
    bool Exists(const std::string& name) {
        return !name.empty() && project_.Files().FileExists(project_.Folder() + name);
    }

    void Add(ProblemKind kind, const SourceLine& line, std::string message) {
        report_.problems.push_back({kind, line.file, line.line, std::move(message)});
    }

    void CheckFiles() {
        const auto& files = project_.Section("FILES");
        for (const SourceLine& entry : files) {
            if (!Exists(entry.text)) {
                Add(ProblemKind::kMissingFile, entry, "\"" + entry.text + "\" is not on disk");
            } else if (IsHtml(entry.text)) {
                ++report_.topicCount;
                links_.AddFile(entry.text);
            }
        }
        CheckFileNames(files, report_.problems);
    }

    void CheckOptionFile(const char* key) {
        for (const SourceLine& line : project_.Section("OPTIONS")) {
            const std::size_t eq = line.text.find('=');
            if (eq == std::string::npos || !EqualsNoCase(Trim(line.text.substr(0, eq)), key))
                continue;
            const std::string name = Trim(line.text.substr(eq + 1));
            if (name.empty()) return;
            if (!links_.AddFile(name))
                Add(ProblemKind::kMissingFile, line, "\"" + name + "\" is not on disk");
            return;
        }
    }

    void CheckContextMap() {
        const ContextMap map = ReadContextMap(project_, report_.problems);
        report_.contextIdCount = map.definitions.size();
        std::unordered_set<std::string> defined, aliased;
        for (const Definition& definition : map.definitions) defined.insert(Fold(definition.name));
        for (const AliasEntry& alias : map.aliases) {
            aliased.insert(Fold(alias.name));
            if (defined.count(Fold(alias.name)) == 0)
                Add(ProblemKind::kAliasUnknownId, alias.where,
                    "alias " + alias.name + " names no context ID of [MAP]");
            if (!Exists(FilePart(alias.target)))
                Add(ProblemKind::kAliasMissingFile, alias.where,
                    "alias " + alias.name + " names \"" + alias.target +
                        "\", which is not on disk");
        }
        for (const Definition& definition : map.definitions)
            if (aliased.count(Fold(definition.name)) == 0)
                Add(ProblemKind::kUnaliasedId, definition.where,
                    "context ID " + definition.name + " has no alias");
    }

    void CheckTextPopups() {
        std::unordered_set<std::string> scripts;
        for (const SourceLine& entry : project_.Section("TEXT POPUPS")) {
            if (!Exists(entry.text)) {
                Add(ProblemKind::kMissingTextPopups, entry,
                    "\"" + entry.text + "\" is not on disk");
                continue;
            }
            const std::string path = project_.Files().DiskPath(project_.Folder() + entry.text);
            if (EndsWithNoCase(entry.text, ".js")) {
                if (scripts.insert(Fold(path)).second)
                    CheckPopupScript(project_.Files().ReadAll(path), path, report_.problems);
            } else if (EndsWithNoCase(entry.text, ".h")) {
                CheckHeaderFile(project_, path, report_.problems);
            }
        }
        // The program's script file is checked even when the project does not list it.
        if (Exists("popups.js")) {
            const std::string path = project_.Files().DiskPath(project_.Folder() + "popups.js");
            if (scripts.insert(Fold(path)).second)
                CheckPopupScript(project_.Files().ReadAll(path), path, report_.problems);
        }
    }

    const ProjectSections& project_;
    CheckReport& report_;
    LinkChecker links_;
};

std::string JsonString(const std::string& text) {
    std::string out = "\"";
    for (const char c : Cp1252ToUtf8(text)) {
        switch (c) {
            case '"': out += "\\\""; break;
            case '\\': out += "\\\\"; break;
            case '\n': out += "\\n"; break;
            case '\r': out += "\\r"; break;
            case '\t': out += "\\t"; break;
            default:
                if (static_cast<unsigned char>(c) < 32) {
                    static const char kHex[] = "0123456789abcdef";
                    out += "\\u00";
                    out += kHex[(c >> 4) & 0xF];
                    out += kHex[c & 0xF];
                } else {
                    out += c;
                }
        }
    }
    return out + "\"";
}

}  // namespace

std::size_t CheckReport::Warnings() const {
    std::size_t n = 0;
    for (const Problem& problem : problems) n += IsWarning(problem.kind) ? 1 : 0;
    return n;
}

CheckReport CheckProject(const std::string& projectFile) {
    CheckReport report;
    report.projectFile = projectFile;
    try {
        FileSystem fs;
        const ProjectSections project(fs, projectFile);
        report.projectFile = project.ProjectFile();
        ProjectChecker(project, report).Run();
    } catch (const std::exception& error) {
        report.error = "cannot read " + projectFile + ": " + error.what();
    }
    return report;
}

std::string ReportText(const CheckReport& report) {
    if (!report.error.empty()) return report.error + "\n";
    std::string out;
    for (const Problem& problem : report.problems) {
        out += problem.file;
        if (problem.line > 0) out += ":" + std::to_string(problem.line);
        out += std::string(IsWarning(problem.kind) ? ": warning: " : ": ") +
               KindName(problem.kind) + ": " + problem.message + "\n";
    }
    const std::string counts = std::to_string(report.topicCount) + " topic files, " +
                               std::to_string(report.contextIdCount) + " context IDs";
    const std::size_t errors = report.Errors(), warnings = report.Warnings();
    out += report.projectFile + ": ";
    out += errors == 0 ? std::string("no problems")
                       : std::to_string(errors) + (errors == 1 ? " problem" : " problems");
    if (warnings > 0)
        out += ", " + std::to_string(warnings) + (warnings == 1 ? " warning" : " warnings");
    return out + " (" + counts + ")\n";
}

std::string ReportJson(const CheckReport& report) {
    std::string out = "{\"project\": " + JsonString(report.projectFile);
    if (!report.error.empty()) return out + ", \"error\": " + JsonString(report.error) + "}\n";
    out += ", \"topics\": " + std::to_string(report.topicCount) +
           ", \"contextIds\": " + std::to_string(report.contextIdCount) +
           ", \"errors\": " + std::to_string(report.Errors()) +
           ", \"warnings\": " + std::to_string(report.Warnings()) + ", \"problems\": [";
    for (std::size_t i = 0; i < report.problems.size(); ++i) {
        const Problem& problem = report.problems[i];
        out += std::string(i == 0 ? "\n" : ",\n") + "  {\"kind\": \"" + KindName(problem.kind) +
               "\", \"severity\": \"" + (IsWarning(problem.kind) ? "warning" : "error") +
               "\", \"file\": " + JsonString(problem.file) +
               ", \"line\": " + std::to_string(problem.line) +
               ", \"message\": " + JsonString(problem.message) + "}";
    }
    return out + (report.problems.empty() ? "]}\n" : "\n]}\n");
}

}  // namespace tamrix::check
