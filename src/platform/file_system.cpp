#include "platform/file_system.h"

#include <algorithm>
#include <cctype>
#include <optional>

#include "platform/byte_text.h"
#include "platform/native_files.h"
#include "platform/program_error.h"

namespace tamrix {
namespace {

std::string Slashes(std::string_view path) {
    std::string out(path);
    std::replace(out.begin(), out.end(), '\\', '/');
    return out;
}

bool Exists(const std::string& path) { return native::StatusOf(path).has_value(); }

bool IsKind(const std::string& path, native::Kind kind) {
    const auto status = native::StatusOf(path);
    return status && status->kind == kind;
}

bool IsRoot(const std::string& path) {
    return !path.empty() && native::RootLength(path) == path.size();
}

std::string ParentOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    if (const std::size_t root = native::RootLength(path); slash < root)
        return path.substr(0, root);
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
    return folder.ends_with('/') ? folder + name : folder + "/" + name;
}

// The path with every existing ancestor resolved through links; empty when that
// cannot be done (a dangling link, a file where a folder should be, no access).
std::string Resolved(const std::string& absolute) {
    std::string out;
    const native::Resolution resolution = native::FinalPath(absolute, out);
    if (resolution == native::Resolution::kResolved) return out;
    if (resolution == native::Resolution::kFailed || native::StatusOf(absolute, false) ||
        IsRoot(absolute))
        return {};
    const std::string parent = Resolved(ParentOf(absolute));
    if (parent.empty()) return {};
    return JoinDisk(parent, absolute.substr(absolute.rfind('/') + 1));
}

bool InsideOrSame(const std::string& path, const std::string& folder) {
    return path.compare(0, folder.size(), folder) == 0 &&
           (path.size() == folder.size() || folder.ends_with('/') || path[folder.size()] == '/');
}

}  // namespace

FileSystem& SharedFileSystem() {
    static FileSystem fs;
    return fs;
}

FileSystem::Listing& FileSystem::ListingOf(const std::string& folder) {
    const auto status = native::StatusOf(folder);
    const std::int64_t stamp = status ? status->stamp : -2;
    Listing& listing = listings_[folder];
    if (listing.stamp == stamp) return listing;
    listing.byFolded.clear();
    listing.stamp = stamp;
    std::vector<std::string> names;
    native::ListFolder(folder, names);
    for (const std::string& name : names) AddKeys(listing.byFolded, name);
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
    if (plain.empty() || native::NamesIgnoreCase() || Exists(plain)) return plain;
    const bool absolute = plain[0] == '/';
    std::string folder = absolute ? "/" : ".";  // where the next component is looked for
    std::string out = absolute ? "/" : "";
    bool searching = true;
    for (const std::string& part : Split(plain, '/')) {
        if (part.empty()) continue;
        std::string name = part;
        if (searching && part != "." && part != "..") {
            if (!Exists(JoinDisk(folder, part))) {
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
    return IsKind(DiskPath(path), native::Kind::kFile);
}

bool FileSystem::FolderExists(std::string_view path) {
    if (path.empty()) return false;
    return IsKind(DiskPath(path), native::Kind::kFolder);
}

bool FileSystem::SameEntry(std::string_view a, std::string_view b) {
    const std::string diskA = DiskPath(GetAbsolutePathName(a));
    const std::string diskB = DiskPath(GetAbsolutePathName(b));
    const auto idA = IdentityOf(diskA), idB = IdentityOf(diskB);
    if (idA || idB) return idA == idB;
    const std::string resolvedA = Resolved(diskA);
    return !resolvedA.empty() && resolvedA == Resolved(diskB);
}

std::string FileSystem::GetAbsolutePathName(std::string_view path) const {
    std::string text = Slashes(path);
    if (native::RootLength(text) == 0) {
        text = native::CurrentFolder() + "/" + text;
    } else if (text[0] == '/' && (text.size() == 1 || text[1] != '/')) {
        text = native::CurrentDrive() + text;
    }
    const std::size_t rootLength = native::RootLength(text);
    std::string out = text.substr(0, rootLength);
    if (!out.ends_with('/')) out += '/';
    text.erase(0, rootLength);
    std::vector<std::string> kept;
    for (const std::string& part : Split(text, '/')) {
        if (part.empty() || part == ".") continue;
        if (part == "..") {
            if (!kept.empty()) kept.pop_back();
            continue;
        }
        kept.push_back(part);
    }
    for (const std::string& part : kept) out += part + "/";
    if (!kept.empty()) out.pop_back();
    return out;
}

std::string FileSystem::BuildPath(std::string_view folder, std::string_view name) const {
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
    const auto status = native::StatusOf(disk);
    if (!status) RaiseError(err::kFileNotFound, "File not found: " + disk);
    if (status->kind != native::Kind::kFile)
        RaiseError(err::kPathFileAccess, "Not a file: " + disk);
    std::string content;
    if (const int error = native::ReadWholeFile(disk, status->size, content))
        RaiseError(error, disk);
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
    const auto status = native::StatusOf(diskPath);
    if (!status) return std::nullopt;
    return Identity{status->device, status->inode};
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
    else if (!IsRoot(path))
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
    const bool device = native::IsDeviceName(diskPath.substr(diskPath.rfind('/') + 1));
    const std::string target = device ? std::string() : Resolved(diskPath);
    const std::string reason = device ? "its name is reserved for a device" : RefusalReason(target);
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
    if (const auto status = native::StatusOf(folder)) it->second.stamp = status->stamp;
    const std::size_t slash = diskPath.rfind('/');
    AddKeys(it->second.byFolded,
            slash == std::string::npos ? diskPath : diskPath.substr(slash + 1));
}

namespace {
constexpr std::string_view kTempPrefix = ".tamrix-";

// A temporary file's name: the prefix and six letters or digits.
bool IsTempFileName(const std::string& name) {
    if (name.size() != kTempPrefix.size() + 6 ||
        name.compare(0, kTempPrefix.size(), kTempPrefix) != 0)
        return false;
    return std::all_of(name.begin() + static_cast<std::ptrdiff_t>(kTempPrefix.size()), name.end(),
                       [](unsigned char c) { return std::isalnum(c) != 0; });
}
}  // namespace

void FileSystem::SweepTempFiles(const std::string& folder) {
    if (!swept_.insert(folder).second) return;
    std::vector<std::string> names;
    if (!native::ListFolder(folder, names)) return;
    for (const std::string& name : names) {
        if (!IsTempFileName(name)) continue;
        const std::string path = JoinDisk(folder, name);
        const auto status = native::StatusOf(path, false);
        if (status && status->kind == native::Kind::kFile) native::RemoveFile(path);
    }
}

void FileSystem::WriteAll(std::string_view path, std::string_view content) {
    CheckInterrupt();
    const std::string disk = DiskPath(GetAbsolutePathName(path));
    const std::string resolved = CheckWritable(disk);
    if (IsKind(disk, native::Kind::kFolder))
        RaiseError(err::kPathFileAccess, "A folder stands where the file should go: " + disk);
    SweepTempFiles(ParentOf(disk));
    if (const int error = native::WriteReplacing(disk, kTempPrefix, content))
        RaiseError(error, disk);
    NoteWritten(disk, resolved);
}

void FileSystem::CopyFile(std::string_view from, std::string_view to) {
    WriteAll(to, ReadAll(from));
}

void FileSystem::CreateFolder(std::string_view path) {
    const std::string disk = DiskPath(GetAbsolutePathName(path));
    CheckInterrupt();
    const std::string resolved = CheckWritable(disk);
    bool created = false;
    if (const int error = native::MakeFolder(disk, created)) RaiseError(error, disk);
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
    if (const int error = native::RemoveFile(disk)) RaiseError(error, disk);
    written_.erase(resolved);
}

bool FileSystem::Written(std::string_view path) {
    return written_.count(Resolved(DiskPath(GetAbsolutePathName(path)))) != 0;
}

std::vector<std::string> FileSystem::ListFiles(std::string_view folder) {
    const std::string disk = DiskPath(folder);
    std::vector<std::string> entries;
    if (!native::ListFolder(disk, entries)) RaiseError(err::kPathNotFound, disk);
    std::vector<std::string> names;
    for (const std::string& name : entries)
        if (IsKind(disk + "/" + name, native::Kind::kFile)) names.push_back(name);
    std::sort(names.begin(), names.end());
    return names;
}

TextReader::TextReader(std::string_view path) { Open(path); }

void TextReader::Open(std::string_view path) { OpenText(SharedFileSystem().ReadAll(path)); }

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
