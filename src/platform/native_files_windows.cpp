// The file calls of Windows, through the wide API: names are Windows-1252 text,
// as in the project files, and become UTF-16 here.
#ifndef _WIN32_WINNT
#define _WIN32_WINNT 0x0A00  // FILE_ID_INFO
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <random>
#include <vector>

#include "platform/native_files.h"
#include "platform/program_error.h"

namespace tamrix::native {
namespace {

constexpr UINT kCodePage = 1252;

std::wstring Widen(std::string_view text) {
    if (text.empty()) return {};
    const int size = static_cast<int>(text.size());
    const int n = ::MultiByteToWideChar(kCodePage, 0, text.data(), size, nullptr, 0);
    std::wstring out(static_cast<std::size_t>(n), L'\0');
    ::MultiByteToWideChar(kCodePage, 0, text.data(), size, out.data(), n);
    return out;
}

std::string Narrow(std::wstring_view text) {
    if (text.empty()) return {};
    const int size = static_cast<int>(text.size());
    const int n =
        ::WideCharToMultiByte(kCodePage, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string out(static_cast<std::size_t>(n), '\0');
    ::WideCharToMultiByte(kCodePage, 0, text.data(), size, out.data(), n, nullptr, nullptr);
    return out;
}

}  // namespace

std::size_t RootLength(std::string_view path);

namespace {

// A path for the wide API: absolute, "\" separators, "." and ".." resolved, and
// the "\\?\" prefix so that its length is not limited to MAX_PATH.
std::wstring ApiPath(const std::string& path) {
    std::wstring wide = Widen(path);
    if (wide.starts_with(L"\\\\?\\")) return wide;
    if (RootLength(path) < 3) {  // relative, or on the current drive
        const DWORD n = ::GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr);
        std::wstring full(n, L'\0');
        const DWORD got = n == 0 ? 0 : ::GetFullPathNameW(wide.c_str(), n, full.data(), nullptr);
        if (got == 0 || got >= n) return wide;
        full.resize(got);
        wide = full;
    }
    for (wchar_t& c : wide)
        if (c == L'/') c = L'\\';
    if (wide.starts_with(L"\\\\.\\")) return wide;  // a device such as "\\.\CON"
    const bool share = wide.starts_with(L"\\\\");
    const std::size_t root = share ? RootLength(Narrow(wide)) : 3;
    std::vector<std::wstring> kept;
    for (std::size_t start = root; start <= wide.size();) {
        std::size_t end = wide.find(L'\\', start);
        if (end == std::wstring::npos) end = wide.size();
        const std::wstring part = wide.substr(start, end - start);
        if (part == L"..") {
            if (!kept.empty()) kept.pop_back();
        } else if (!part.empty() && part != L".") {
            kept.push_back(part);
        }
        start = end + 1;
    }
    std::wstring out =
        share ? L"\\\\?\\UNC\\" + wide.substr(2, root - 2) : L"\\\\?\\" + wide.substr(0, root);
    if (!out.ends_with(L'\\')) out += L'\\';
    for (const std::wstring& part : kept) out += part + L'\\';
    if (!kept.empty()) out.pop_back();
    return out;
}

// A path the system gave back, in the service's spelling: "/" separators, no prefix.
std::string ServicePath(std::wstring wide) {
    if (wide.starts_with(L"\\\\?\\UNC\\"))
        wide = L"\\\\" + wide.substr(8);
    else if (wide.starts_with(L"\\\\?\\"))
        wide = wide.substr(4);
    std::string out = Narrow(wide);
    for (char& c : out)
        if (c == '\\') c = '/';
    return out;
}

int ErrorNumber(DWORD code) {
    switch (code) {
        case ERROR_FILE_NOT_FOUND: return err::kFileNotFound;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_NAME:
        case ERROR_BAD_NETPATH: return err::kPathNotFound;
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_WRITE_PROTECT: return err::kPermission;
        case ERROR_NOT_ENOUGH_MEMORY:
        case ERROR_OUTOFMEMORY: return err::kOutOfMemory;
        default: return err::kPathFileAccess;
    }
}

class Handle {
public:
    explicit Handle(HANDLE h) : h_(h) {}
    ~Handle() {
        if (Valid()) ::CloseHandle(h_);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    bool Valid() const { return h_ != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return h_; }

private:
    HANDLE h_;
};

// Opens an entry to read its attributes; folders need backup semantics.
HANDLE OpenEntry(const std::string& path, bool followLinks) {
    const DWORD flags =
        FILE_FLAG_BACKUP_SEMANTICS | (followLinks ? 0 : FILE_FLAG_OPEN_REPARSE_POINT);
    return ::CreateFileW(ApiPath(path).c_str(), FILE_READ_ATTRIBUTES,
                         FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                         OPEN_EXISTING, flags, nullptr);
}

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.find_last_of("/\\");
    if (slash == std::string::npos) return ".";
    return path.substr(0, slash + 1);
}

}  // namespace

bool NamesIgnoreCase() { return true; }

namespace {

// What an open handle tells of its entry.
std::optional<Status> StatusOfHandle(HANDLE handle, bool followLinks) {
    BY_HANDLE_FILE_INFORMATION info{};
    if (!::GetFileInformationByHandle(handle, &info)) return std::nullopt;
    Status status;
    if ((info.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 && !followLinks)
        status.kind = Kind::kOther;
    else if ((info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        status.kind = Kind::kFolder;
    else if (::GetFileType(handle) != FILE_TYPE_DISK)
        status.kind = Kind::kOther;
    else
        status.kind = Kind::kFile;
    const std::uint64_t ticks = (std::uint64_t{info.ftLastWriteTime.dwHighDateTime} << 32) |
                                info.ftLastWriteTime.dwLowDateTime;
    status.stamp = static_cast<std::int64_t>(ticks) * 100;
    status.size =
        static_cast<std::size_t>((std::uint64_t{info.nFileSizeHigh} << 32) | info.nFileSizeLow);
    // The 128-bit file id names a file on any volume; the older 64-bit index is
    // the answer where the system does not give it.
    FILE_ID_INFO id{};
    if (::GetFileInformationByHandleEx(handle, FileIdInfo, &id, sizeof id)) {
        std::uint64_t low = 0, high = 0;
        std::memcpy(&low, id.FileId.Identifier, sizeof low);
        std::memcpy(&high, id.FileId.Identifier + sizeof low, sizeof high);
        status.device = id.VolumeSerialNumber ^ (high * 0x9E3779B97F4A7C15ULL);
        status.inode = low;
    } else {
        status.device = info.dwVolumeSerialNumber;
        status.inode = (std::uint64_t{info.nFileIndexHigh} << 32) | info.nFileIndexLow;
    }
    return status;
}

}  // namespace

std::optional<Status> StatusOf(const std::string& path, bool followLinks) {
    Handle handle(OpenEntry(path, followLinks));
    if (!handle.Valid()) return std::nullopt;
    return StatusOfHandle(handle.Get(), followLinks);
}

Resolution FinalPath(const std::string& path, std::string& out) {
    Handle handle(OpenEntry(path, true));
    if (!handle.Valid()) {
        const DWORD code = ::GetLastError();
        return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND ? Resolution::kMissing
                                                                            : Resolution::kFailed;
    }
    std::wstring buffer(MAX_PATH, L'\0');
    for (;;) {
        const DWORD n = ::GetFinalPathNameByHandleW(handle.Get(), buffer.data(),
                                                    static_cast<DWORD>(buffer.size()),
                                                    FILE_NAME_NORMALIZED | VOLUME_NAME_DOS);
        if (n == 0) return Resolution::kFailed;
        if (n < buffer.size()) {
            buffer.resize(n);
            break;
        }
        buffer.resize(n);
    }
    out = ServicePath(buffer);
    return Resolution::kResolved;
}

std::size_t RootLength(std::string_view path) {
    const auto separator = [](char c) { return c == '/' || c == '\\'; };
    if (path.size() >= 2 && path[1] == ':' && std::isalpha(static_cast<unsigned char>(path[0])))
        return path.size() >= 3 && separator(path[2]) ? 3 : 2;
    if (path.size() >= 2 && separator(path[0]) && separator(path[1])) {
        // "//server/share/": the server and the share belong to the root.
        std::size_t end = 2;
        for (int part = 0; part < 2 && end < path.size(); ++part) {
            while (end < path.size() && !separator(path[end])) ++end;
            if (end < path.size()) ++end;
        }
        return end;
    }
    return !path.empty() && separator(path[0]) ? 1 : 0;
}

std::string CurrentDrive() {
    const std::string folder = CurrentFolder();
    return folder.size() >= 2 && folder[1] == ':' ? folder.substr(0, 2) : std::string();
}

bool IsDeviceName(std::string_view name) {
    std::string stem(name.substr(0, name.find('.')));
    while (!stem.empty() && stem.back() == ' ') stem.pop_back();
    for (char& c : stem) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    if (stem == "CON" || stem == "PRN" || stem == "AUX" || stem == "NUL") return true;
    return stem.size() == 4 && (stem.starts_with("COM") || stem.starts_with("LPT")) &&
           stem[3] >= '1' && stem[3] <= '9';
}

std::string CurrentFolder() {
    const DWORD n = ::GetCurrentDirectoryW(0, nullptr);
    std::wstring buffer(n, L'\0');
    const DWORD got = n == 0 ? 0 : ::GetCurrentDirectoryW(n, buffer.data());
    if (got == 0 || got >= n) return "/";
    buffer.resize(got);
    return ServicePath(buffer);
}

bool ListFolder(const std::string& folder, std::vector<std::string>& names) {
    std::wstring pattern = ApiPath(folder);
    if (!pattern.empty() && pattern.back() != L'\\') pattern += L'\\';
    pattern += L'*';
    WIN32_FIND_DATAW data{};
    HANDLE find = ::FindFirstFileW(pattern.c_str(), &data);
    if (find == INVALID_HANDLE_VALUE) return ::GetLastError() == ERROR_FILE_NOT_FOUND;
    do {
        const std::wstring_view name = data.cFileName;
        if (name != L"." && name != L"..") names.push_back(Narrow(name));
    } while (::FindNextFileW(find, &data));
    ::FindClose(find);
    return true;
}

int ReadWholeFile(const std::string& path, std::string& content, Status& status,
                  bool /*known: the handle is asked anyway*/) {
    Handle file(::CreateFileW(ApiPath(path).c_str(), GENERIC_READ,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.Valid()) return ErrorNumber(::GetLastError());
    // Whatever an earlier look found, a device or pipe named as a file is refused.
    const auto found = StatusOfHandle(file.Get(), true);
    if (!found || found->kind != Kind::kFile) return err::kPathFileAccess;
    status = *found;
    content.clear();
    content.reserve(found->size);
    char buf[1 << 16];
    for (;;) {
        DWORD n = 0;
        if (!::ReadFile(file.Get(), buf, sizeof buf, &n, nullptr)) {
            content.clear();
            return err::kDeviceIO;
        }
        if (n == 0) break;
        content.append(buf, n);
    }
    return 0;
}

int WriteReplacing(const std::string& path, std::string_view tempPrefix, std::string_view content,
                   const std::string* moveOldTo) {
    static constexpr char kLetters[] =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    // One generator per thread: conversions may run side by side.
    thread_local std::mt19937 random{std::random_device{}()};
    std::uniform_int_distribution<std::size_t> pick(0, sizeof kLetters - 2);
    const std::string folder = FolderOf(path);
    std::wstring temp;
    HANDLE created = INVALID_HANDLE_VALUE;
    for (int attempt = 0; attempt < 100 && created == INVALID_HANDLE_VALUE; ++attempt) {
        std::string name(tempPrefix);
        for (int i = 0; i < 6; ++i) name += kLetters[pick(random)];
        temp = ApiPath(folder + name);
        created = ::CreateFileW(temp.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                FILE_ATTRIBUTE_NORMAL, nullptr);
        if (created == INVALID_HANDLE_VALUE && ::GetLastError() != ERROR_FILE_EXISTS) {
            const int error = ErrorNumber(::GetLastError());
            return error == err::kFileNotFound ? err::kPathNotFound : error;
        }
    }
    if (created == INVALID_HANDLE_VALUE) return err::kPathFileAccess;
    // The rename below would replace a read-only file where the user is allowed
    // to change its folder; refuse it as Windows Explorer does.
    const DWORD attributes = ::GetFileAttributesW(ApiPath(path).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        ::CloseHandle(created);
        ::DeleteFileW(temp.c_str());
        return err::kPermission;
    }
    bool written = true;
    {
        Handle file(created);
        for (std::size_t done = 0; written && done < content.size();) {
            const DWORD chunk =
                static_cast<DWORD>(std::min<std::size_t>(content.size() - done, 1u << 30));
            DWORD n = 0;
            written = ::WriteFile(file.Get(), content.data() + done, chunk, &n, nullptr) && n != 0;
            done += n;
        }
    }
    if (!written) {
        ::DeleteFileW(temp.c_str());
        return err::kDeviceIO;
    }
    if (moveOldTo != nullptr &&
        !::MoveFileExW(ApiPath(path).c_str(), ApiPath(*moveOldTo).c_str(), 0)) {
        const DWORD code = ::GetLastError();
        ::DeleteFileW(temp.c_str());
        return ErrorNumber(code);
    }
    if (!::MoveFileExW(temp.c_str(), ApiPath(path).c_str(), MOVEFILE_REPLACE_EXISTING)) {
        const DWORD code = ::GetLastError();
        ::DeleteFileW(temp.c_str());
        return ErrorNumber(code);
    }
    return 0;
}

int LinkFile(const std::string& from, const std::string& to) {
    if (::CreateHardLinkW(ApiPath(to).c_str(), ApiPath(from).c_str(), nullptr)) return 0;
    return ErrorNumber(::GetLastError());
}

int MakeFolder(const std::string& path, bool& created) {
    created = ::CreateDirectoryW(ApiPath(path).c_str(), nullptr) != 0;
    return created || ::GetLastError() == ERROR_ALREADY_EXISTS ? 0 : ErrorNumber(::GetLastError());
}

int RemoveFile(const std::string& path) {
    if (::DeleteFileW(ApiPath(path).c_str())) return 0;
    const DWORD code = ::GetLastError();
    return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND ? 0 : ErrorNumber(code);
}

}  // namespace tamrix::native
