#pragma once
// The operating system's file calls behind the file-system service: one
// implementation file per system. Paths here are disk paths, already mapped
// from their Windows-style spelling; failures come back as Basic error numbers.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamrix::native {

/// What an entry is.
enum class Kind { kFile, kFolder, kOther };

/// What the system tells of an existing entry.
struct Status {
    /// File, folder or something else.
    Kind kind = Kind::kOther;
    std::int64_t stamp = 0;  ///< last change, in nanoseconds
    /// The length in bytes.
    std::size_t size = 0;
    /// Identity: device and inode, or volume serial and file index.
    std::uint64_t device = 0;
    /// The second half of the identity.
    std::uint64_t inode = 0;
};

/// Whether names that differ only in case are the same file, so that a name
/// need not be looked up in its folder's listing.
bool NamesIgnoreCase();

/// The entry at `path`, links followed (or, with followLinks false, the link
/// itself); nothing when it does not exist or cannot be reached.
std::optional<Status> StatusOf(const std::string& path, bool followLinks = true);

/// What FinalPath found.
enum class Resolution { kResolved, kMissing, kFailed };
/// The path of an existing entry with every link resolved, put in `out`; kMissing
/// when there is no such entry, kFailed when the system will not tell.
Resolution FinalPath(const std::string& path, std::string& out);

/// How long the root that `path` starts with is ("/", or on Windows "C:/" or
/// "//server/share/"); 0 for a relative path.
std::size_t RootLength(std::string_view path);

/// The drive a path starting with a single "/" lies on: "C:" on Windows, empty
/// elsewhere.
std::string CurrentDrive();

/// Whether a file name names a device instead (on Windows "CON", "NUL",
/// "COM1".."COM9", "LPT1".."LPT9", "AUX", "PRN", with or without extension).
bool IsDeviceName(std::string_view name);

/// The process's current folder ("/" when it cannot be told).
std::string CurrentFolder();

/// The names in a folder, without "." and ".."; false when it cannot be opened.
bool ListFolder(const std::string& folder, std::vector<std::string>& names);

/// Whole-file operations; each returns 0 or a Basic error number.
/// Reading a regular file only (anything else gives 75), and telling what it read
/// in `status`; a pipe or device named as a file must not make it wait. With
/// `known`, `status` holds what an earlier look found, and the system is asked
/// again only when the file turns out larger.
int ReadWholeFile(const std::string& path, std::string& content, Status& status,
                  bool known = false);
/// Writes `content` where no one sees it until it is whole (an unnamed file, or a
/// temporary one named `tempPrefix` followed by six letters or digits in the
/// folder of `path`, removed on failure), then gives it the name `path`. The file
/// gets the mode any new file gets, in as few system calls as the system allows:
/// this runs once per file written.
/// With `moveOldTo`, the file at `path` moves there once the new content is
/// written, and the new file takes the freed name.
int WriteReplacing(const std::string& path, std::string_view tempPrefix, std::string_view content,
                   const std::string* moveOldTo = nullptr);
/// Gives an existing file a second name, which must not exist yet.
int LinkFile(const std::string& from, const std::string& to);
/// Creates a folder; an existing entry sets `created` false and is no error.
int MakeFolder(const std::string& path, bool& created);
/// Removes a file; a missing file is no error.
int RemoveFile(const std::string& path);

}  // namespace tamrix::native
