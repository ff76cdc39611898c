#pragma once
// The sections of an HTML Help project file, every line kept with its number
// so that a problem can name where it lies.
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace tamrix::check {

/// A line of a project file or an included file, with where it came from.
struct SourceLine {
    std::string file;  ///< the file as read
    long line = 0;     ///< 1-based
    std::string text;  ///< trimmed
};

/// A project file read once into its sections, for the checks to look up.
class ProjectSections {
public:
    /// Raises BasicError when the file cannot be read.
    ProjectSections(FileSystem& fs, const std::string& projectFile);

    /// The file-system service the project is read through.
    FileSystem& Files() const { return fs_; }

    /// The project file's path as given.
    const std::string& ProjectFile() const { return projectFile_; }
    /// The project's folder, ending in a separator.
    const std::string& Folder() const { return folder_; }
    /// The non-blank, non-";" lines of a section (name without regard to case).
    const std::vector<SourceLine>& Section(std::string_view name) const;
    /// A key of [OPTIONS], or empty.
    std::string Option(std::string_view key) const;

private:
    FileSystem& fs_;
    std::string projectFile_;
    std::string folder_;
    std::map<std::string, std::vector<SourceLine>> sections_;  // by folded name
};

/// The lines of a text file, numbered and trimmed; blank lines are left out.
std::vector<SourceLine> ReadNumberedLines(FileSystem& fs, const std::string& file);

}  // namespace tamrix::check
