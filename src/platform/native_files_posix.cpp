#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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

}  // namespace

bool NamesIgnoreCase() { return false; }

std::optional<Status> StatusOf(const std::string& path, bool followLinks) {
    struct stat st {};
    if ((followLinks ? ::stat(path.c_str(), &st) : ::lstat(path.c_str(), &st)) != 0)
        return std::nullopt;
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

int ReadWholeFile(const std::string& path, std::size_t sizeHint, std::string& content) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return ErrnoToError(errno);
    content.reserve(sizeHint);
    char buf[1 << 16];
    while (true) {
        const ssize_t n = ::read(fd, buf, sizeof buf);
        if (n < 0) {
            if (errno == EINTR) continue;
            const int e = errno;
            ::close(fd);
            return e == EISDIR ? err::kPathFileAccess : err::kDeviceIO;
        }
        if (n == 0) break;
        content.append(buf, static_cast<std::size_t>(n));
    }
    ::close(fd);
    return 0;
}

int WriteReplacing(const std::string& path, std::string_view tempPrefix, std::string_view content) {
    std::string temp = FolderOf(path) + "/" + std::string(tempPrefix) + "XXXXXX";
    const int fd = ::mkstemp(temp.data());
    if (fd < 0) {
        const int error = ErrnoToError(errno);
        return error == err::kFileNotFound ? err::kPathNotFound : error;
    }
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
            return err::kDeviceIO;
        }
        done += static_cast<std::size_t>(n);
    }
    if (::close(fd) != 0 || ::rename(temp.c_str(), path.c_str()) != 0) {
        const int e = errno;
        ::unlink(temp.c_str());
        return ErrnoToError(e);
    }
    return 0;
}

int MakeFolder(const std::string& path, bool& created) {
    created = ::mkdir(path.c_str(), 0777) == 0;
    return created || errno == EEXIST ? 0 : ErrnoToError(errno);
}

int RemoveFile(const std::string& path) {
    return ::unlink(path.c_str()) != 0 && errno != ENOENT ? ErrnoToError(errno) : 0;
}

}  // namespace tamrix::native
