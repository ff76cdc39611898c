#include "check/context_map.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <unordered_map>
#include <unordered_set>

#include "platform/byte_text.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"
#include "platform/program_error.h"

namespace tamrix::check {
namespace {

enum class LineKind { kMap, kAlias };

bool IsComment(const std::string& text) {
    return text[0] == ';' || StartsWithNoCase(text, "//") || StartsWithNoCase(text, "/*");
}

// Text up to a trailing ";", "//" or "/*" comment, trimmed.
std::string WithoutTrailingComment(const std::string& text) {
    const std::size_t cut = std::min({text.find(';'), text.find("//"), text.find("/*")});
    return Trim(text.substr(0, cut));
}

class MapReader {
public:
    MapReader(const ProjectSections& project, std::vector<Problem>& problems)
        : project_(project), problems_(problems) {}

    void ReadLines(const std::vector<SourceLine>& lines, LineKind kind) {
        bool inBlockComment = false;
        for (const SourceLine& line : lines) {
            if (inBlockComment || StartsWithNoCase(line.text, "/*")) {
                inBlockComment = line.text.find("*/") == std::string::npos;
                continue;
            }
            if (IsComment(line.text)) continue;
            if (StartsWithNoCase(line.text, "#include")) {
                Include(line, kind);
            } else if (kind == LineKind::kMap) {
                Define(line);
            } else {
                Alias(line);
            }
        }
    }

    ContextMap Take() { return std::move(map_); }

private:
    void Problem(ProblemKind kind, const SourceLine& line, std::string message) {
        problems_.push_back({kind, line.file, line.line, std::move(message)});
    }

    void Include(const SourceLine& line, LineKind kind) {
        std::string name = Trim(line.text.substr(8));
        if (name.size() >= 2 && (name.front() == '"' || name.front() == '<'))
            name = name.substr(1, name.size() - 2);
        std::string path =
            modUtilities::MakeFullPathforFile(modUtilities::FilePathOnly(line.file), name);
        if (!project_.Files().FileExists(path))
            path = modUtilities::MakeFullPathforFile(project_.Folder(), name);
        if (name.empty() || !project_.Files().FileExists(path)) {
            Problem(ProblemKind::kMissingFile, line, "included file \"" + name + "\" not found");
            return;
        }
        if (!included_.insert(Fold(project_.Files().DiskPath(path))).second) return;
        ReadLines(ReadNumberedLines(project_.Files(), project_.Files().DiskPath(path)), kind);
    }

    void Define(const SourceLine& line) {
        const std::string text = WithoutTrailingComment(line.text);
        std::vector<std::string> words;
        for (const std::string& word : Split(text, ' '))
            if (!word.empty()) words.push_back(word);
        std::int32_t value = 0;
        if (words.size() != 3 || words[0] != "#define" || !ParseCNumber(words[2], value)) {
            Problem(ProblemKind::kBadHeaderLine, line,
                    "not \"#define NAME NUMBER\" or a comment: " + line.text);
            return;
        }
        const auto [it, added] =
            definitionIndex_.try_emplace(Fold(words[1]), map_.definitions.size());
        if (added) {
            map_.definitions.push_back({words[1], value, line});
            return;
        }
        const Definition& first = map_.definitions[it->second];
        if (first.value != value)
            Problem(ProblemKind::kConflictingId, line,
                    words[1] + " is " + words[2] + " here but " + std::to_string(first.value) +
                        " at " + modUtilities::FileNameNoPath(first.where.file) + ":" +
                        std::to_string(first.where.line));
    }

    void Alias(const SourceLine& line) {
        const std::size_t eq = line.text.find('=');
        std::string name = eq == std::string::npos ? "" : Trim(line.text.substr(0, eq));
        std::string target = eq == std::string::npos ? "" : Trim(line.text.substr(eq + 1));
        target = Trim(Before(target, ';'));  // a comment may follow the file name
        if (name.empty() || target.empty()) {
            Problem(ProblemKind::kBadHeaderLine, line,
                    "not \"ALIAS=FILE\" or a comment: " + line.text);
            return;
        }
        if (aliasNames_.insert(Fold(name)).second)
            map_.aliases.push_back({std::move(name), std::move(target), line});
    }

    const ProjectSections& project_;
    std::vector<check::Problem>& problems_;
    ContextMap map_;
    std::unordered_map<std::string, std::size_t> definitionIndex_;
    std::unordered_set<std::string> aliasNames_;
    std::unordered_set<std::string> included_;
};

}  // namespace

bool ParseCNumber(const std::string& text, std::int32_t& value) {
    const bool hex = StartsWithNoCase(text, "0x");
    if (text.empty() || (hex && text.size() == 2)) return false;
    char* end = nullptr;
    errno = 0;
    const long long number = std::strtoll(text.c_str(), &end, hex ? 16 : 10);
    if (errno != 0 || end != text.c_str() + text.size()) return false;
    if (hex ? number > 0xFFFFFFFFLL : (number < INT32_MIN || number > INT32_MAX)) return false;
    value = static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
    return !hex || text[2] != '-';
}

ContextMap ReadContextMap(const ProjectSections& project, std::vector<Problem>& problems) {
    MapReader reader(project, problems);
    reader.ReadLines(project.Section("MAP"), LineKind::kMap);
    reader.ReadLines(project.Section("ALIAS"), LineKind::kAlias);
    return reader.Take();
}

void CheckHeaderFile(const ProjectSections& project, const std::string& file,
                     std::vector<Problem>& problems) {
    MapReader reader(project, problems);
    reader.ReadLines(ReadNumberedLines(project.Files(), file), LineKind::kMap);
}

}  // namespace tamrix::check
