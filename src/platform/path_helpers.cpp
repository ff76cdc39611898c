#include "platform/path_helpers.h"

#include "platform/byte_text.h"
#include "platform/file_system.h"
#include "platform/program_error.h"

namespace tamrix::modUtilities {
namespace {

std::size_t LastSeparator(std::string_view path) {
    const std::size_t back = path.rfind('\\');
    return back != std::string_view::npos ? back : path.rfind('/');
}

}  // namespace

std::string FileNameNoPath(std::string_view path) {
    const std::size_t sep = LastSeparator(path);
    return std::string(sep == std::string_view::npos ? path : path.substr(sep + 1));
}

std::string FilePathOnly(std::string_view path) {
    const std::size_t sep = LastSeparator(path);
    return sep == std::string_view::npos ? std::string() : std::string(path.substr(0, sep + 1));
}

std::string MakeFullPathforFile(std::string_view folder, std::string_view fileName) {
    return FileSystem::GetAbsolutePathName(FileSystem::BuildPath(folder, fileName));
}

bool FileExists(FileSystem& fs, std::string_view path) {
    return !path.empty() && fs.FileExists(path);
}

bool FolderExists(FileSystem& fs, std::string_view path) { return fs.FolderExists(path); }

bool CreateFolder(FileSystem& fs, ErrorReporter& errors, std::string_view parent,
                  std::string_view name) {
    return Guarded(errors, "modUtilities:CreateFolder", false, [&] {
        std::string path(parent);
        if (path.empty() || (path.back() != '\\' && path.back() != '/')) path += '\\';
        path += name;
        if (fs.FolderExists(path)) return true;
        fs.CreateFolder(path);
        return fs.FolderExists(path);
    });
}

bool IsTheSamePath(std::string_view a, std::string_view b) {
    auto strip = [](std::string_view p) {
        if (!p.empty() && (p.back() == '\\' || p.back() == '/')) p.remove_suffix(1);
        return p;
    };
    return EqualsNoCase(strip(a), strip(b));
}

std::string AddBackslash(std::string_view path) {
    if (path.empty()) return {};
    if (path.rfind('\\') == path.size() - 1) return std::string(path);
    return std::string(path) + "\\";
}

}  // namespace tamrix::modUtilities
