#pragma once
// Path helpers that work on text the way project files write it: "\" is
// looked for first, then "/".
#include <string>
#include <string_view>

namespace tamrix::modUtilities {

/// The part after the last "\" (or, when there is none, the last "/").
std::string FileNameNoPath(std::string_view path);
/// The folder part up to and including the last "\" (or "/"); empty when there is none.
std::string FilePathOnly(std::string_view path);
/// Joins folder and name and makes the result absolute.
std::string MakeFullPathforFile(std::string_view folder, std::string_view fileName);
/// True when a file (not a folder) exists at `path` on the disk.
bool FileExists(std::string_view path);
/// True when a folder exists at `path` on the disk.
bool FolderExists(std::string_view path);
/// Creates parent + name (one level); true when the folder exists afterwards.
bool CreateFolder(std::string_view parent, std::string_view name);
/// Equal without regard to case after dropping one trailing separator from each.
bool IsTheSamePath(std::string_view a, std::string_view b);
/// The path with "\" appended unless its last "\" is already its last character.
std::string AddBackslash(std::string_view path);

}  // namespace tamrix::modUtilities
