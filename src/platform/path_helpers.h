#pragma once
// Path helpers that work on text the way project files write it: "\" is
// looked for first, then "/".
#include <string>
#include <string_view>

#include "platform/file_system.h"
#include "platform/program_error.h"

namespace tamrix::modUtilities {

/// The part after the last "\" (or, when there is none, the last "/").
std::string FileNameNoPath(std::string_view path);
/// The folder part up to and including the last "\" (or "/"); empty when there is none.
std::string FilePathOnly(std::string_view path);
/// Joins folder and name and makes the result absolute.
std::string MakeFullPathforFile(std::string_view folder, std::string_view fileName);
/// Whether a file exists (false for an empty path).
bool FileExists(FileSystem& fs, std::string_view path);
/// Whether a folder exists.
bool FolderExists(FileSystem& fs, std::string_view path);
/// Creates parent + name (one level); true when the folder exists afterwards.
bool CreateFolder(FileSystem& fs, ErrorReporter& errors, std::string_view parent,
                  std::string_view name);
/// Equal without regard to case after dropping one trailing separator from each.
bool IsTheSamePath(std::string_view a, std::string_view b);
/// The path with "\" appended unless its last "\" is already its last character.
std::string AddBackslash(std::string_view path);

}  // namespace tamrix::modUtilities
