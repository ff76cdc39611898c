#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>

#include "platform/native_files.h"
#include "platform/program_error.h"

namespace tamrix::native {
namespace {

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

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    if (slash == 0) return "/";
    return path.substr(0, slash);
}

Status StatusFrom(const struct stat& st) {
    Status status;
    status.kind = S_ISREG(st.st_mode)   ? Kind::kFile
                  : S_ISDIR(st.st_mode) ? Kind::kFolder
                                        : Kind::kOther;
    status.stamp = static_cast<std::int64_t>(st.st_mtim.tv_sec) * 1000000000LL + st.st_mtim.tv_nsec;
    status.size = static_cast<std::size_t>(st.st_size);
    status.device = static_cast<std::uint64_t>(st.st_dev);
    status.inode = static_cast<std::uint64_t>(st.st_ino);
    return status;
}

// Six letters or digits, new for every call in this process and scrambled with
// its id, so that two runs writing into one folder rarely try the same name.
std::string TempSuffix() {
    static const std::uint64_t pid = static_cast<std::uint64_t>(::getpid());
    static std::atomic<std::uint64_t> counter{0};
    std::uint64_t x = (pid << 32) + counter.fetch_add(1) + 0x9E3779B97F4A7C15ULL;
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9ULL;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EBULL;
    x ^= x >> 31;
    static constexpr char kDigits[] =
        "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    std::string suffix;
    for (int i = 0; i < 6; ++i, x /= 62) suffix += kDigits[x % 62];
    return suffix;
}

}  // namespace

bool NamesIgnoreCase() { return false; }

std::optional<Status> StatusOf(const std::string& path, bool followLinks) {
    struct stat st {};
    if ((followLinks ? ::stat(path.c_str(), &st) : ::lstat(path.c_str(), &st)) != 0)
        return std::nullopt;
    return StatusFrom(st);
}

Resolution FinalPath(const std::string& path, std::string& out) {
    char buf[PATH_MAX];
    if (::realpath(path.c_str(), buf) != nullptr) {
        out = buf;
        return Resolution::kResolved;
    }
    return errno == ENOENT ? Resolution::kMissing : Resolution::kFailed;
}

std::size_t RootLength(std::string_view path) { return path.starts_with('/') ? 1 : 0; }

std::string CurrentDrive() { return {}; }

bool IsDeviceName(std::string_view) { return false; }

std::string CurrentFolder() {
    char buf[PATH_MAX];
    return ::getcwd(buf, sizeof buf) != nullptr ? buf : "/";
}

bool ListFolder(const std::string& folder, std::vector<std::string>& names) {
    DIR* dir = ::opendir(folder.c_str());
    if (dir == nullptr) return false;
    while (dirent* entry = ::readdir(dir)) {
        const std::string name = entry->d_name;
        if (name != "." && name != "..") names.push_back(name);
    }
    ::closedir(dir);
    return true;
}

int ReadWholeFile(const std::string& path, std::string& content, Status& status, bool known) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0) return ErrnoToError(errno);
    auto check = [&] {
        struct stat st {};
        if (::fstat(fd, &st) == 0 && (status = StatusFrom(st)).kind == Kind::kFile) return true;
        ::close(fd);
        return false;
    };
    if (!known && !check()) return err::kPathFileAccess;
    // A file as large as it was said to be comes in one read; a short read that
    // reaches that size is its end.
    content.assign(status.size + 1, '\0');
    std::size_t done = 0;
    while (true) {
        if (done == content.size()) {
            if (known && !check()) return err::kPathFileAccess;  // grown, or a device
            known = false;
            content.resize(content.size() + (1 << 16));
        }
        const ssize_t n = ::read(fd, content.data() + done, content.size() - done);
        if (n < 0) {
            if (errno == EINTR) continue;
            const int e = errno;
            ::close(fd);
            content.clear();
            return e == EISDIR ? err::kPathFileAccess : err::kDeviceIO;
        }
        done += static_cast<std::size_t>(n);
        if (n == 0 || (done < content.size() && done >= status.size)) break;
    }
    ::close(fd);
    content.resize(done);
    return 0;
}

namespace {

// Writes all of `content`; false on a write error.
bool WriteFully(int fd, std::string_view content) {
    std::size_t done = 0;
    while (done < content.size()) {
        const ssize_t n = ::write(fd, content.data() + done, content.size() - done);
        if (n < 0 && errno != EINTR) return false;
        if (n > 0) done += static_cast<std::size_t>(n);
    }
    return true;
}

// Gives the unnamed file `fd` the name `path`; errno tells why not.
bool NameUnnamed(int fd, const std::string& path) {
    // Linking by descriptor (AT_EMPTY_PATH) needs a privilege; through /proc it does not.
    const std::string self = "/proc/self/fd/" + std::to_string(fd);
    return ::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

// Renames a temporary file over `path`, removing it when that fails.
int RenameOver(const std::string& temp, const std::string& path) {
    if (::rename(temp.c_str(), path.c_str()) == 0) return 0;
    const int e = errno;
    ::unlink(temp.c_str());
    return ErrnoToError(e);
}

constexpr int kUnsupported = -1;

// Moves the file at `path` to `*moveOldTo` when that is given.
int MoveOld(const std::string& path, const std::string* moveOldTo) {
    if (moveOldTo == nullptr || ::rename(path.c_str(), moveOldTo->c_str()) == 0) return 0;
    return ErrnoToError(errno);
}

// Gives the whole unnamed file `fd` the name `path`, by a temporary name and a rename
// when a file has it already, so that one stays whole until then.
int NameOrReplace(int fd, const std::string& path, const std::string& prefix) {
    if (NameUnnamed(fd, path)) return 0;
    if (errno != EEXIST) {
        // No /proc, or linking refused: the named way may work.
        return errno == ENOENT || errno == EPERM || errno == EXDEV ? kUnsupported
                                                                   : ErrnoToError(errno);
    }
    for (int attempt = 0; attempt < 100; ++attempt) {
        const std::string temp = prefix + TempSuffix();
        if (NameUnnamed(fd, temp)) return RenameOver(temp, path);
        if (errno != EEXIST) return ErrnoToError(errno);
    }
    return err::kPathFileAccess;
}

// Writes `content` to a new temporary file and renames it over `path`.
int WriteNamed(const std::string& path, const std::string& prefix, std::string_view content,
               const std::string* moveOldTo) {
    std::string temp;
    int fd = -1;
    for (int attempt = 0; fd < 0 && attempt < 100; ++attempt) {
        temp = prefix + TempSuffix();
        fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd < 0 && errno != EEXIST) break;
    }
    if (fd < 0) {
        const int error = ErrnoToError(errno);
        return error == err::kFileNotFound ? err::kPathNotFound : error;
    }
    const bool written = WriteFully(fd, content);
    int error = ::close(fd) == 0 && written ? 0 : err::kDeviceIO;
    if (error == 0) error = MoveOld(path, moveOldTo);
    if (error != 0) {
        ::unlink(temp.c_str());
        return error;
    }
    return RenameOver(temp, path);
}

// Writes `content` as a file no one sees until it is whole, then names it: a new
// name costs one directory change instead of a temporary name's two.
int WriteUnnamed(const std::string& path, const std::string& prefix, std::string_view content,
                 const std::string* moveOldTo) {
#ifdef O_TMPFILE
    const int fd = ::open(FolderOf(path).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
    if (fd < 0) {
        if (errno == ENOENT || errno == ENOTDIR) return err::kPathNotFound;
        if (errno == EACCES || errno == EROFS) return ErrnoToError(errno);
        return WriteNamed(path, prefix, content, moveOldTo);  // no unnamed files here
    }
    int result = WriteFully(fd, content) ? MoveOld(path, moveOldTo) : err::kDeviceIO;
    if (result == 0) result = NameOrReplace(fd, path, prefix);
    ::close(fd);
    // The old file has moved already, if it was to.
    return result == kUnsupported ? WriteNamed(path, prefix, content, nullptr) : result;
#else
    return WriteNamed(path, prefix, content, moveOldTo);
#endif
}

}  // namespace

int WriteReplacing(const std::string& path, std::string_view tempPrefix, std::string_view content,
                   const std::string* moveOldTo) {
    // Files are made with mode 0666 less the umask, as any new file, so no fchmod follows.
    return WriteUnnamed(path, FolderOf(path) + "/" + std::string(tempPrefix), content, moveOldTo);
}

int LinkFile(const std::string& from, const std::string& to) {
    return ::link(from.c_str(), to.c_str()) == 0 ? 0 : ErrnoToError(errno);
}

int MakeFolder(const std::string& path, bool& created) {
    created = ::mkdir(path.c_str(), 0777) == 0;
    return created || errno == EEXIST ? 0 : ErrnoToError(errno);
}

int RemoveFile(const std::string& path) {
    return ::unlink(path.c_str()) != 0 && errno != ENOENT ? ErrnoToError(errno) : 0;
}

}  // namespace tamrix::native
