#pragma once
// Reading and writing INI-style sections of .hpj and .hhp files, the way the
// profile-section API does: section and key names compare without regard to
// case, and a write keeps the rest of the file byte for byte.
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace tamrix::profile {

/// The buffer size the readers have always passed; a section longer than this is cut.
inline constexpr long kBufferSize = 32765;

/// A section as its lines (trimmed; blank and ";" lines left out), each followed by
/// a NUL. The count excludes the final terminator; when the lines do not fit the
/// buffer the text is cut and the count is bufferSize - 2 (32763 for the usual buffer).
long GetSection(FileSystem& fs, std::string_view file, std::string_view section, std::string& out,
                long bufferSize = kBufferSize);

/// A key's value (trimmed, surrounding quotes removed), or `defaultValue` when
/// the key or section is missing; cut to bufferSize - 1 characters.
long GetString(FileSystem& fs, std::string_view file, std::string_view section,
               std::string_view key, std::string_view defaultValue, std::string& out,
               long bufferSize = kBufferSize);

/// These return 1 on success and 0 on failure, as the API does. A missing
/// section is appended at the end of the file.
int WriteString(FileSystem& fs, std::string_view file, std::string_view section,
                std::string_view key, std::string_view value);
/// Replaces the lines of a section by `lines` (NUL-separated).
int WriteSection(FileSystem& fs, std::string_view file, std::string_view section,
                 std::string_view lines);
/// Removes a section with its header; 1 on success, 0 when the file cannot be written.
int DeleteSection(FileSystem& fs, std::string_view file, std::string_view section);

// The same operations on text held in memory.
namespace text {
/// As profile::GetSection, on the text itself.
long GetSection(std::string_view content, std::string_view section, std::string& out,
                long bufferSize = kBufferSize);
/// A key's value (trimmed, quotes removed); false when the key or section is missing.
bool GetString(std::string_view content, std::string_view section, std::string_view key,
               std::string& value);
/// The text with the key set; a missing key or section is added.
std::string WriteString(std::string_view content, std::string_view section, std::string_view key,
                        std::string_view value);
/// The text with the section's lines replaced by `lines` (NUL-separated).
std::string WriteSection(std::string_view content, std::string_view section,
                         std::string_view lines);
/// The text without the section and its lines.
std::string DeleteSection(std::string_view content, std::string_view section);
}  // namespace text

}  // namespace tamrix::profile
