#include "check/project_sections.h"

#include "platform/byte_text.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"

namespace tamrix::check {

std::vector<SourceLine> ReadNumberedLines(FileSystem& fs, const std::string& file) {
    TextReader reader(fs, file);
    std::vector<SourceLine> lines;
    std::string line;
    for (long number = 1; reader.ReadLine(line); ++number) {
        std::string text = Trim(TabsToSpaces(line));
        if (!text.empty()) lines.push_back({file, number, std::move(text)});
    }
    return lines;
}

ProjectSections::ProjectSections(FileSystem& fs, const std::string& projectFile)
    : fs_(fs),
      projectFile_(FileSystem::GetAbsolutePathName(projectFile)),
      folder_(modUtilities::FilePathOnly(projectFile_)) {
    std::vector<SourceLine>* current = nullptr;
    for (SourceLine& line : ReadNumberedLines(fs_, projectFile_)) {
        if (line.text.front() == '[') {
            const std::size_t close = line.text.find(']');
            current = &sections_[Fold(Trim(
                line.text.substr(1, close == std::string::npos ? std::string::npos : close - 1)))];
            continue;
        }
        if (current != nullptr && line.text.front() != ';') current->push_back(std::move(line));
    }
}

const std::vector<SourceLine>& ProjectSections::Section(std::string_view name) const {
    static const std::vector<SourceLine> kNone;
    const auto it = sections_.find(Fold(name));
    return it == sections_.end() ? kNone : it->second;
}

std::string ProjectSections::Option(std::string_view key) const {
    for (const SourceLine& line : Section("OPTIONS")) {
        const std::size_t eq = line.text.find('=');
        if (eq != std::string::npos && EqualsNoCase(Trim(line.text.substr(0, eq)), key))
            return Trim(line.text.substr(eq + 1));
    }
    return {};
}

}  // namespace tamrix::check
