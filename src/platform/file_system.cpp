#include "platform/file_system.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "platform/byte_text.h"
#include "platform/program_error.h"

namespace tamrix {
namespace {

std::string Slashes(std::string_view path) {
    std::string out(path);
    std::replace(out.begin(), out.end(), '\\', '/');
    return out;
}

bool StatPath(const std::string& path, struct stat& st) { return ::stat(path.c_str(), &st) == 0; }

std::int64_t StampOf(const struct stat& st) {
    return static_cast<std::int64_t>(st.st_mtim.tv_sec) * 1000000000LL + st.st_mtim.tv_nsec;
}

int ErrnoToError(int e) {
    switch (e) {
        case ENOENT: return err::kFileNotFound;
        case ENOTDIR: return err::kPathNotFound;
        case EACCES:
        case EPERM:
        case EROFS: return err::kPermission;
        case ENOMEM: return err::kOutOfMemory;
        default: return err::kPathFileAccess;
    }
}

std::string ParentOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    if (slash == 0) return "/";
    return path.substr(0, slash);
}

// Keys under which a directory entry can be found: its folded name, and the
// folded Windows-1252 spelling of a UTF-8 name.
void AddKeys(std::unordered_map<std::string, std::string>& map, const std::string& name) {
    map.emplace(Fold(name), name);
    std::string cp;
    if (Utf8ToCp1252(name, cp) && cp != name) map.emplace(Fold(cp), name);
}

std::string JoinDisk(const std::string& folder, const std::string& name) {
    return folder == "/" ? "/" + name : folder + "/" + name;
}

// The path with every existing ancestor resolved through links; empty when that
// cannot be done (a dangling link, a file where a folder should be, no access).
std::string Resolved(const std::string& absolute) {
    char buf[PATH_MAX];
    if (::realpath(absolute.c_str(), buf) != nullptr) return buf;
    struct stat st {};
    if (errno != ENOENT || ::lstat(absolute.c_str(), &st) == 0 || absolute == "/") return {};
    const std::string parent = Resolved(ParentOf(absolute));
    if (parent.empty()) return {};
    return JoinDisk(parent, absolute.substr(absolute.rfind('/') + 1));
}

bool InsideOrSame(const std::string& path, const std::string& folder) {
    if (folder == "/") return true;
    return path.compare(0, folder.size(), folder) == 0 &&
           (path.size() == folder.size() || path[folder.size()] == '/');
}

}  // namespace

FileSystem::Listing& FileSystem::ListingOf(const std::string& folder) {
    struct stat st {};
    const std::int64_t stamp = StatPath(folder, st) ? StampOf(st) : -2;
    Listing& listing = listings_[folder];
    if (listing.stamp == stamp) return listing;
    listing.byFolded.clear();
    listing.stamp = stamp;
    if (DIR* dir = ::opendir(folder.c_str())) {
        while (dirent* entry = ::readdir(dir)) {
            const std::string name = entry->d_name;
            if (name != "." && name != "..") AddKeys(listing.byFolded, name);
        }
        ::closedir(dir);
    }
    return listing;
}

const std::string* FileSystem::FindEntry(const std::string& folder, std::string_view component) {
    Listing& listing = ListingOf(folder);
    if (auto it = listing.byFolded.find(Fold(component)); it != listing.byFolded.end())
        return &it->second;
    std::string cp;
    if (Utf8ToCp1252(component, cp) && cp != component) {
        if (auto it = listing.byFolded.find(Fold(cp)); it != listing.byFolded.end())
            return &it->second;
    }
    return nullptr;
}

std::string FileSystem::DiskPath(std::string_view path) {
    const std::string plain = Slashes(path);
    struct stat st {};
    if (plain.empty() || StatPath(plain, st)) return plain;
    const bool absolute = plain[0] == '/';
    std::string folder = absolute ? "/" : ".";  // where the next component is looked for
    std::string out = absolute ? "/" : "";
    bool searching = true;
    for (const std::string& part : Split(plain, '/')) {
        if (part.empty()) continue;
        std::string name = part;
        if (searching && part != "." && part != "..") {
            if (!StatPath(JoinDisk(folder, part), st)) {
                if (const std::string* found = FindEntry(folder, part))
                    name = *found;
                else
                    searching = false;  // the rest does not exist: keep it as written
            }
        }
        folder = JoinDisk(folder, name);
        out = out.empty() || out.back() == '/' ? out + name : out + "/" + name;
    }
    if (plain.back() == '/' && out.back() != '/') out += '/';
    return out;
}

bool FileSystem::FileExists(std::string_view path) {
    if (path.empty()) return false;
    struct stat st {};
    return StatPath(DiskPath(path), st) && S_ISREG(st.st_mode);
}

bool FileSystem::FolderExists(std::string_view path) {
    if (path.empty()) return false;
    struct stat st {};
    return StatPath(DiskPath(path), st) && S_ISDIR(st.st_mode);
}

bool FileSystem::SameEntry(std::string_view a, std::string_view b) {
    const std::string diskA = DiskPath(GetAbsolutePathName(a));
    const std::string diskB = DiskPath(GetAbsolutePathName(b));
    const auto idA = IdentityOf(diskA), idB = IdentityOf(diskB);
    if (idA || idB) return idA == idB;
    const std::string resolvedA = Resolved(diskA);
    return !resolvedA.empty() && resolvedA == Resolved(diskB);
}

std::string FileSystem::GetAbsolutePathName(std::string_view path) {
    std::string text = Slashes(path);
    if (text.empty() || text[0] != '/') {
        char buf[PATH_MAX];
        const std::string cwd = ::getcwd(buf, sizeof buf) != nullptr ? buf : "/";
        text = cwd + "/" + text;
    }
    std::vector<std::string> kept;
    for (const std::string& part : Split(text, '/')) {
        if (part.empty() || part == ".") continue;
        if (part == "..") {
            if (!kept.empty()) kept.pop_back();
            continue;
        }
        kept.push_back(part);
    }
    std::string out;
    for (const std::string& part : kept) out += "/" + part;
    return out.empty() ? "/" : out;
}

std::string FileSystem::BuildPath(std::string_view folder, std::string_view name) {
    if (folder.empty()) return std::string(name);
    if (name.empty()) return std::string(folder);
    const char last = folder.back();
    const char first = name.front();
    if (last == '/' || last == '\\') {
        if (first == '/' || first == '\\') return std::string(folder) + std::string(name.substr(1));
        return std::string(folder) + std::string(name);
    }
    if (first == '/' || first == '\\') return std::string(folder) + std::string(name);
    return std::string(folder) + "/" + std::string(name);
}

std::string FileSystem::ReadAll(std::string_view path) {
    CheckInterrupt();
    const std::string disk = DiskPath(path);
    struct stat st {};
    if (!StatPath(disk, st)) RaiseError(err::kFileNotFound, "File not found: " + disk);
    if (!S_ISREG(st.st_mode)) RaiseError(err::kPathFileAccess, "Not a file: " + disk);
    const int fd = ::open(disk.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) RaiseError(ErrnoToError(errno), disk);
    std::string content;
    content.reserve(static_cast<std::size_t>(st.st_size));
    char buf[1 << 16];
    while (true) {
        const ssize_t n = ::read(fd, buf, sizeof buf);
        if (n < 0) {
            if (errno == EINTR) continue;
            const int e = errno;
            ::close(fd);
            RaiseError(e == EISDIR ? err::kPathFileAccess : err::kDeviceIO, disk);
        }
        if (n == 0) break;
        content.append(buf, static_cast<std::size_t>(n));
    }
    ::close(fd);
    NoteRead(disk);
    return content;
}

void FileSystem::SetWriteRoot(std::string_view folder) {
    writeRoot_ = folder.empty() ? std::string() : GetAbsolutePathName(folder);
    written_.clear();
    refused_.clear();
    resolvedRoot_.clear();
    if (!writeRoot_.empty()) return;
    inputFolders_.clear();
    inputTree_.clear();
    inputFiles_.clear();
}

void FileSystem::SetInputFolders(const std::vector<std::string>& folders) {
    inputFolders_.clear();
    inputTree_.clear();
    for (const std::string& folder : folders)
        if (const auto id =
                folder.empty() ? std::nullopt : IdentityOf(DiskPath(GetAbsolutePathName(folder))))
            inputFolders_.push_back(*id);
}

bool FileSystem::InsideWriteRoot(std::string_view path) {
    if (writeRoot_.empty()) return true;
    const std::string root = Resolved(DiskPath(writeRoot_));
    const std::string target = Resolved(DiskPath(GetAbsolutePathName(path)));
    return !root.empty() && !target.empty() && target != root && InsideOrSame(target, root);
}

std::optional<FileSystem::Identity> FileSystem::IdentityOf(const std::string& diskPath) {
    struct stat st {};
    if (!StatPath(diskPath, st)) return std::nullopt;
    return Identity{static_cast<std::uint64_t>(st.st_dev), static_cast<std::uint64_t>(st.st_ino)};
}

std::string FileSystem::ResolvedRoot() {
    if (resolvedRoot_.empty() && !writeRoot_.empty()) {
        const std::string root = Resolved(DiskPath(writeRoot_));
        if (IdentityOf(root)) resolvedRoot_ = root;  // a root not made yet may still change
        return root;
    }
    return resolvedRoot_;
}

// The nearest input folder that is `path` or holds it. Answers are kept per
// resolved path: they hold for the run, as nothing moves folders meanwhile.
std::optional<FileSystem::Identity> FileSystem::InputFolderOf(const std::string& path) {
    if (inputFolders_.empty()) return std::nullopt;
    if (auto it = inputTree_.find(path); it != inputTree_.end()) return it->second;
    std::optional<Identity> found;
    const auto id = IdentityOf(path);
    if (id && std::find(inputFolders_.begin(), inputFolders_.end(), *id) != inputFolders_.end())
        found = id;
    else if (path != "/")
        found = InputFolderOf(ParentOf(path));
    inputTree_[path] = found;
    return found;
}

std::string FileSystem::RefusalReason(const std::string& target) {
    if (target.empty()) return "its folder cannot be resolved";
    const std::string root = ResolvedRoot();
    if (!writeRoot_.empty() && (root.empty() || !InsideOrSame(target, root)))
        return "it lies outside the new project folder";
    const auto own = IdentityOf(target);
    const bool isInput =
        own && std::find(inputFolders_.begin(), inputFolders_.end(), *own) != inputFolders_.end();
    if (const auto input = isInput ? own : InputFolderOf(ParentOf(target))) {
        // A new folder the user chose strictly inside the input folder may be written.
        const bool nested =
            !root.empty() && InputFolderOf(root) == input && IdentityOf(root) != input;
        if (!nested) return "it lies in the input project's folder";
    }
    if (own && !inputFolders_.empty() && inputFiles_.count(*own) != 0)
        return "it is a file of the input project";
    return {};
}

std::string FileSystem::CheckWritable(const std::string& diskPath) {
    const std::string target = Resolved(diskPath);
    const std::string reason = RefusalReason(target);
    if (reason.empty()) return target;
    refused_.push_back({diskPath, reason});
    RaiseError(err::kOutsideNewFolder, "Refused to write \"" + diskPath + "\": " + reason + ".");
}

void FileSystem::NoteRead(const std::string& diskPath) {
    if (!writeRoot_.empty()) return;
    if (const auto id = IdentityOf(diskPath)) inputFiles_.insert(*id);
}

void FileSystem::NoteWritten(const std::string& diskPath, const std::string& resolved) {
    written_.insert(resolved);
    const std::string folder = ParentOf(diskPath);
    auto it = listings_.find(folder);
    if (it == listings_.end()) return;
    struct stat st {};
    if (StatPath(folder, st)) it->second.stamp = StampOf(st);
    const std::size_t slash = diskPath.rfind('/');
    AddKeys(it->second.byFolded,
            slash == std::string::npos ? diskPath : diskPath.substr(slash + 1));
}

namespace {
// A name mkstemp makes of "/.tamrix-XXXXXX".
bool IsTempFileName(const std::string& name) {
    constexpr std::string_view prefix = ".tamrix-";
    if (name.size() != prefix.size() + 6 || name.compare(0, prefix.size(), prefix) != 0)
        return false;
    return std::all_of(name.begin() + static_cast<std::ptrdiff_t>(prefix.size()), name.end(),
                       [](unsigned char c) { return std::isalnum(c) != 0; });
}
}  // namespace

void FileSystem::SweepTempFiles(const std::string& folder) {
    if (!swept_.insert(folder).second) return;
    DIR* dir = ::opendir(folder.c_str());
    if (dir == nullptr) return;
    std::vector<std::string> stale;
    while (dirent* entry = ::readdir(dir))
        if (IsTempFileName(entry->d_name)) stale.push_back(JoinDisk(folder, entry->d_name));
    ::closedir(dir);
    for (const std::string& path : stale) {
        struct stat st {};
        if (::lstat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode)) ::unlink(path.c_str());
    }
}

void FileSystem::WriteAll(std::string_view path, std::string_view content) {
    CheckInterrupt();
    const std::string disk = DiskPath(GetAbsolutePathName(path));
    const std::string resolved = CheckWritable(disk);
    struct stat st {};
    if (StatPath(disk, st) && S_ISDIR(st.st_mode))
        RaiseError(err::kPathFileAccess, "A folder stands where the file should go: " + disk);
    SweepTempFiles(ParentOf(disk));
    std::string temp = ParentOf(disk) + "/.tamrix-XXXXXX";
    const int fd = ::mkstemp(temp.data());
    if (fd < 0)
        RaiseError(
            ErrnoToError(errno) == err::kFileNotFound ? err::kPathNotFound : ErrnoToError(errno),
            disk);
    const mode_t mask = ::umask(0);
    ::umask(mask);
    ::fchmod(fd, 0666 & ~mask);
    std::size_t done = 0;
    while (done < content.size()) {
        const ssize_t n = ::write(fd, content.data() + done, content.size() - done);
        if (n < 0) {
            if (errno == EINTR) continue;
            ::close(fd);
            ::unlink(temp.c_str());
            RaiseError(err::kDeviceIO, disk);
        }
        done += static_cast<std::size_t>(n);
    }
    if (::close(fd) != 0 || ::rename(temp.c_str(), disk.c_str()) != 0) {
        const int e = errno;
        ::unlink(temp.c_str());
        RaiseError(ErrnoToError(e), disk);
    }
    NoteWritten(disk, resolved);
}

void FileSystem::CopyFile(std::string_view from, std::string_view to) {
    WriteAll(to, ReadAll(from));
}

void FileSystem::CreateFolder(std::string_view path) {
    const std::string disk = DiskPath(GetAbsolutePathName(path));
    CheckInterrupt();
    const std::string resolved = CheckWritable(disk);
    const bool created = ::mkdir(disk.c_str(), 0777) == 0;
    if (!created && errno != EEXIST) RaiseError(ErrnoToError(errno), disk);
    NoteWritten(disk, resolved);
    if (created && !writeRoot_.empty() && SameEntry(disk, writeRoot_)) WriteRunMarker();
}

void FileSystem::WriteRunMarker() {
    if (!runMarker_.empty() && !writeRoot_.empty())
        WriteAll(BuildPath(writeRoot_, runMarker_),
                 "A conversion into this folder is running.\r\n");
}

void FileSystem::RemoveFile(std::string_view path) {
    const std::string disk = DiskPath(GetAbsolutePathName(path));
    const std::string resolved = CheckWritable(disk);
    if (::unlink(disk.c_str()) != 0 && errno != ENOENT) RaiseError(ErrnoToError(errno), disk);
    written_.erase(resolved);
}

bool FileSystem::Written(std::string_view path) {
    return written_.count(Resolved(DiskPath(GetAbsolutePathName(path)))) != 0;
}

std::vector<std::string> FileSystem::ListFiles(std::string_view folder) {
    const std::string disk = DiskPath(folder);
    DIR* dir = ::opendir(disk.c_str());
    if (dir == nullptr) RaiseError(err::kPathNotFound, disk);
    std::vector<std::string> names;
    while (dirent* entry = ::readdir(dir)) {
        const std::string name = entry->d_name;
        struct stat st {};
        if (StatPath(disk + "/" + name, st) && S_ISREG(st.st_mode)) names.push_back(name);
    }
    ::closedir(dir);
    std::sort(names.begin(), names.end());
    return names;
}

TextReader::TextReader(FileSystem& fs, std::string_view path) { Open(fs, path); }

void TextReader::Open(FileSystem& fs, std::string_view path) { OpenText(fs.ReadAll(path)); }

void TextReader::OpenText(std::string text) {
    text_ = std::move(text);
    pos_ = 0;
}

bool TextReader::ReadLine(std::string& line) {
    if (pos_ >= text_.size()) {
        line.clear();
        return false;
    }
    const std::size_t end = text_.find_first_of("\r\n", pos_);
    if (end == std::string::npos) {
        line.assign(text_, pos_, std::string::npos);
        pos_ = text_.size();
        return true;
    }
    line.assign(text_, pos_, end - pos_);
    pos_ = end + 1;
    if (text_[end] == '\r' && pos_ < text_.size() && text_[pos_] == '\n') ++pos_;
    return true;
}

}  // namespace tamrix
