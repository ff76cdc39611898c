#include "platform/file_system.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <thread>
#include <utility>

#include "platform/byte_text.h"
#include "platform/native_files.h"
#include "platform/program_error.h"

namespace tamrix {
namespace {

std::string Slashes(std::string_view path) {
    std::string out(path);
    // A select rather than std::replace's conditional store: the compiler makes
    // vector code of it, and every path of every call passes through here.
    for (char& c : out) c = c == '\\' ? '/' : c;
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

using NameMap = FoldedMap<std::string>;

// Whether the name has a Windows-1252 spelling of its own: only a name with
// bytes outside ASCII can.
bool MaySpellOtherwise(std::string_view name) {
    for (const char c : name)
        if (static_cast<unsigned char>(c) >= 0x80) return true;
    return false;
}

// Keys under which a directory entry can be found: its folded name, and the
// folded Windows-1252 spelling of a UTF-8 name.
void AddKeys(NameMap& map, const std::string& name) {
    map.emplace(Fold(name), name);
    std::string cp;
    if (MaySpellOtherwise(name) && Utf8ToCp1252(name, cp) && cp != name)
        map.emplace(Fold(cp), name);
}

// The entry a component names, by case or by its UTF-8 spelling; null when none.
const std::string* FindName(const NameMap& map, std::string_view component) {
    if (auto it = map.find(component); it != map.end()) return &it->second;
    std::string cp;
    if (MaySpellOtherwise(component) && Utf8ToCp1252(component, cp) && cp != component) {
        if (auto it = map.find(cp); it != map.end()) return &it->second;
    }
    return nullptr;
}

NameMap FolderNames(const std::string& folder) {
    NameMap map;
    std::vector<std::string> names;
    native::ListFolder(folder, names);
    for (const std::string& name : names) AddKeys(map, name);
    return map;
}

// The last component of a path.
std::string NamePart(const std::string& path) { return path.substr(path.rfind('/') + 1); }

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

// Whether the components after `from` are all names: none empty, "." or "..".
bool IsCanonical(std::string_view path, std::size_t from) {
    if (from >= path.size()) return false;
    for (std::size_t start = from;;) {
        const std::size_t slash = path.find('/', start);
        const std::size_t end = slash == std::string_view::npos ? path.size() : slash;
        const std::string_view part = path.substr(start, end - start);
        if (part.empty() || part == "." || part == "..") return false;
        if (end == path.size()) return true;
        start = end + 1;
    }
}

bool InsideOrSame(const std::string& path, const std::string& folder) {
    return path.compare(0, folder.size(), folder) == 0 &&
           (path.size() == folder.size() || folder.ends_with('/') || path[folder.size()] == '/');
}

}  // namespace

FileSystem::Listing& FileSystem::ListingOf(const std::string& folder) {
    const auto status = native::StatusOf(folder);
    const std::int64_t stamp = status ? status->stamp : -2;
    Listing& listing = listings_[folder];
    if (listing.stamp == stamp) return listing;
    listing.byFolded = FolderNames(folder);
    listing.stamp = stamp;
    return listing;
}

const std::string* FileSystem::FindEntry(const std::string& folder, std::string_view component) {
    return FindName(ListingOf(folder).byFolded, component);
}

std::string FileSystem::DiskPath(std::string_view path) {
    Settle();
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

// A path that exists as written is answered by one look at it.
bool FileSystem::FileExists(std::string_view path) {
    if (path.empty()) return false;
    WriteHeldAt(path);
    Settle();
    std::string plain = Slashes(path);
    const auto status = native::StatusOf(plain);
    if (!status) return IsKind(DiskPath(path), native::Kind::kFile);
    if (status->kind != native::Kind::kFile) return false;
    if (writeRoot_.empty()) looked_[std::move(plain)] = *status;
    return true;
}

bool FileSystem::FolderExists(std::string_view path) {
    if (path.empty()) return false;
    const std::string plain = Slashes(path);
    if (native::RootLength(plain) > 0 && writeFolders_.count(GetAbsolutePathName(plain)) != 0)
        return true;
    Settle();
    const auto status = native::StatusOf(plain);
    return status ? status->kind == native::Kind::kFolder
                  : IsKind(DiskPath(path), native::Kind::kFolder);
}

bool FileSystem::SameEntry(std::string_view a, std::string_view b) {
    WriteHeldAt(a);
    WriteHeldAt(b);
    Settle();
    const std::string diskA = DiskPath(GetAbsolutePathName(a));
    const std::string diskB = DiskPath(GetAbsolutePathName(b));
    const auto idA = IdentityOf(diskA), idB = IdentityOf(diskB);
    if (idA || idB) return idA == idB;
    const std::string resolvedA = Resolved(diskA);
    return !resolvedA.empty() && resolvedA == Resolved(diskB);
}

std::string FileSystem::GetAbsolutePathName(std::string_view path) {
    std::string text = Slashes(path);
    if (native::RootLength(text) == 0) {
        text = native::CurrentFolder() + "/" + text;
    } else if (text[0] == '/' && (text.size() == 1 || text[1] != '/')) {
        text.insert(0, native::CurrentDrive());  // nothing where there are no drives
    }
    const std::size_t rootLength = native::RootLength(text);
    if (rootLength > 0 && text[rootLength - 1] == '/' && IsCanonical(text, rootLength))
        return text;  // the common case, without taking it apart
    // Taken apart in place: a folder joined to a name with one separator too many
    // ("new/" + "\\html\\a.htm") comes here for every file written.
    std::string out = text.substr(0, rootLength);
    if (!out.ends_with('/')) out += '/';
    std::vector<std::size_t> kept;  // where each component kept starts in `out`
    for (std::size_t start = rootLength; start <= text.size();) {
        const std::size_t slash = text.find('/', start);
        const std::size_t end = slash == std::string::npos ? text.size() : slash;
        const std::string_view part(text.data() + start, end - start);
        if (part == "..") {
            if (!kept.empty()) {
                out.resize(kept.back());
                kept.pop_back();
            }
        } else if (!part.empty() && part != ".") {
            kept.push_back(out.size());
            out.append(part);
            out += '/';
        }
        start = end + 1;
    }
    if (!kept.empty()) out.pop_back();
    return out;
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
    if (!kept_.empty())
        if (auto kept = KeptContent(path)) return std::move(*kept);
    if (!inputReads_.empty()) {
        if (auto it = inputReads_.find(GetAbsolutePathName(path)); it != inputReads_.end()) {
            std::string content = std::move(it->second);
            inputReads_.erase(it);
            return content;
        }
    }
    SettleBeforeReading(path);
    std::string content;
    native::Status status;
    // Read as written; only a failure looks further (and names the reason).
    std::string disk = Slashes(path);
    const auto looked = looked_.find(disk);
    const bool known = looked != looked_.end();
    if (known) status = looked->second;
    if (disk.empty() || native::ReadWholeFile(disk, content, status, known) != 0) {
        disk = DiskPath(path);
        const auto found = native::StatusOf(disk);
        if (!found) RaiseError(err::kFileNotFound, "File not found: " + disk);
        if (found->kind != native::Kind::kFile)
            RaiseError(err::kPathFileAccess, "Not a file: " + disk);
        if (const int error = native::ReadWholeFile(disk, content, status)) RaiseError(error, disk);
    }
    NoteRead({status.device, status.inode});
    if (writeRoot_.empty()) {
        looked_[disk] = status;
        if (keepInputReads_) inputReads_[GetAbsolutePathName(path)] = content;
    }
    return content;
}

void FileSystem::SetWriteRoot(std::string_view folder) {
    // A run ends or begins here, often outside any error handler. A failure still
    // queued belongs to a loop that already ended in an error, told then. Held
    // files are written by the step that held them; any left are written now, each
    // failure passing over one file only.
    while (!held_.empty()) {
        try {
            WriteHeld();
        } catch (...) {
        }
    }
    if (queue_) queue_->Wait();
    writeRoot_ = folder.empty() ? std::string() : GetAbsolutePathName(folder);
    written_.clear();
    refused_.clear();
    resolvedRoot_.clear();
    writeFolders_.clear();
    resolvedWriteFolders_.clear();
    resolvedReadFolders_.clear();
    kept_.clear();
    if (!writeRoot_.empty()) return;
    looked_.clear();
    inputReads_.clear();
    inputFolders_.clear();
    inputTree_.clear();
    inputFiles_.clear();
}

void FileSystem::KeepInputReads(bool on) {
    keepInputReads_ = on;
    if (!on) inputReads_.clear();
}

bool FileSystem::ReadsFromDisk() {
    return writeRoot_.empty() && kept_.empty() && held_.empty() && (!queue_ || queue_->Idle());
}

void FileSystem::TakeReadsOf(FileSystem& other) {
    if (!writeRoot_.empty() || !other.writeRoot_.empty()) return;
    inputFiles_.insert(other.inputFiles_.begin(), other.inputFiles_.end());
    looked_.merge(other.looked_);
    if (keepInputReads_) inputReads_.merge(other.inputReads_);
}

void FileSystem::SetInputFolders(const std::vector<std::string>& folders) {
    WriteHeld();
    Settle();
    inputFolders_.clear();
    inputTree_.clear();
    writeFolders_.clear();
    resolvedWriteFolders_.clear();
    for (const std::string& folder : folders)
        if (const auto id =
                folder.empty() ? std::nullopt : IdentityOf(DiskPath(GetAbsolutePathName(folder))))
            inputFolders_.push_back(*id);
}

bool FileSystem::InsideWriteRoot(std::string_view path) {
    if (writeRoot_.empty()) return true;
    WriteHeldAt(path);
    Settle();
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

std::string FileSystem::RefusalReason(const std::string& target,
                                      const std::optional<Identity>& own) {
    if (target.empty()) return "its folder cannot be resolved";
    const std::string root = ResolvedRoot();
    if (!writeRoot_.empty() && (root.empty() || !InsideOrSame(target, root)))
        return "it lies outside the new project folder";
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
    if (native::IsDeviceName(NamePart(diskPath)))
        Refuse(diskPath, "its name is reserved for a device");
    const std::string target = Resolved(diskPath);
    const std::string reason =
        RefusalReason(target, target.empty() ? std::nullopt : IdentityOf(target));
    if (!reason.empty()) Refuse(diskPath, reason);
    return target;
}

void FileSystem::Refuse(const std::string& diskPath, const std::string& reason) {
    refused_.push_back({diskPath, reason});
    RaiseError(err::kOutsideNewFolder, "Refused to write \"" + diskPath + "\": " + reason + ".");
}

void FileSystem::NoteRead(const Identity& id) {
    if (writeRoot_.empty()) inputFiles_.insert(id);
}

FileSystem::WriteFolder* FileSystem::WriteFolderOf(const std::string& absoluteFolder) {
    if (auto it = writeFolders_.find(absoluteFolder); it != writeFolders_.end()) return &it->second;
    WriteFolder folder;
    folder.disk = DiskPath(absoluteFolder);
    folder.resolved = Resolved(folder.disk);
    if (folder.resolved.empty() || !IsKind(folder.resolved, native::Kind::kFolder))
        return nullptr;  // not kept: it may be made later
    folder.existing = FolderNames(folder.disk);
    resolvedWriteFolders_.insert(folder.resolved);
    return &writeFolders_.emplace(absoluteFolder, std::move(folder)).first->second;
}

// A target in a folder met before that is new or was written by this run: found
// and checked in memory. Null, with nothing set, when the full look-up is needed.
FileSystem::WriteFolder* FileSystem::KnownTarget(const std::string& absolute, std::string& disk,
                                                 std::string& resolved, bool* fresh) {
    const std::string leaf = NamePart(absolute);
    // A device name takes the full look-up, which refuses it.
    if (leaf.empty() || native::RootLength(absolute) == 0 || native::IsDeviceName(leaf))
        return nullptr;
    WriteFolder* folder = WriteFolderOf(ParentOf(absolute));
    if (folder == nullptr || FindName(folder->existing, leaf) != nullptr) return nullptr;
    const std::string* own = FindName(folder->own, leaf);
    if (fresh != nullptr) *fresh = own == nullptr;
    const std::string& name = own != nullptr ? *own : leaf;
    disk = JoinDisk(folder->disk, name);
    resolved = JoinDisk(folder->resolved, name);
    // What this run wrote was checked then; nothing else stands under a new name.
    if (own == nullptr) {
        const std::string reason = RefusalReason(resolved, std::nullopt);
        if (!reason.empty()) Refuse(disk, reason);
    }
    return folder;
}

void FileSystem::NoteWritten(const std::string& diskPath, const std::string& resolved,
                             bool restamp) {
    written_.insert(resolved);
    const std::string folder = ParentOf(diskPath);
    auto it = listings_.find(folder);
    if (it == listings_.end()) return;
    // Without a new stamp, the next look-up that misses lists the folder again.
    if (restamp)
        if (const auto status = native::StatusOf(folder)) it->second.stamp = status->stamp;
    const std::size_t slash = diskPath.rfind('/');
    AddKeys(it->second.byFolded,
            slash == std::string::npos ? diskPath : diskPath.substr(slash + 1));
}

namespace {
constexpr std::string_view kTempPrefix = ".tamrix-";
// Fewer queued writes than this leave the writing thread short of work.
constexpr std::size_t kShortQueue = 12;

// Writes a whole file on this thread, now; raises a failure.
void WriteNow(const std::string& diskPath, std::string_view content) {
    if (const int error = native::WriteReplacing(diskPath, kTempPrefix, content))
        RaiseError(error, diskPath);
}

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
    Settle();  // a queued write may be using a temporary name there
    std::vector<std::string> names;
    if (!native::ListFolder(folder, names)) return;
    for (const std::string& name : names) {
        if (!IsTempFileName(name)) continue;
        const std::string path = JoinDisk(folder, name);
        const auto status = native::StatusOf(path, false);
        if (status && status->kind == native::Kind::kFile) native::RemoveFile(path);
    }
}

void FileSystem::WriteAll(std::string_view path, std::string_view content, Keep keep) {
    CheckInterrupt();
    const std::string absolute = GetAbsolutePathName(path);
    std::string disk, resolved;
    bool firstWrite = false;
    WriteFolder* folder = KnownTarget(absolute, disk, resolved, &firstWrite);
    if (folder == nullptr) {
        disk = DiskPath(absolute);
        resolved = CheckWritable(disk);
        if (IsKind(disk, native::Kind::kFolder))
            RaiseError(err::kPathFileAccess, "A folder stands where the file should go: " + disk);
    }
    SweepTempFiles(ParentOf(disk));
    if (folder == nullptr) {
        // Replacing a file that was there before, or one in a folder not met yet.
        WriteNow(disk, content);
        NoteWritten(disk, resolved);
        if (!kept_.empty()) {
            kept_.erase(resolved);
            held_.erase(resolved);
        }
        return;
    }
    AddKeys(folder->own, NamePart(disk));
    NoteWritten(disk, resolved, false);
    if (keep != Keep::kNothing)
        kept_[resolved] = content;
    else if (!kept_.empty())
        kept_.erase(resolved);
    if (keep == Keep::kHeld) {
        held_[resolved] = disk;
        return;
    }
    if (!held_.empty()) held_.erase(resolved);
    // No queued write touches a name this run writes for the first time, so when
    // the writing thread is behind, this one creates the file rather than wait.
    // Unqueued, the file is written from the caller's text, not from a copy.
    if (!Queues() || (firstWrite && queue_ && !queue_->HasRoom(content.size())))
        WriteNow(disk, content);
    else
        PostWrite(disk, std::string(content));
}

void FileSystem::PostWrite(const std::string& diskPath, std::string content) {
    const std::size_t bytes = content.size();
    Post(diskPath, bytes, [diskPath, text = std::move(content)] {
        return native::WriteReplacing(diskPath, kTempPrefix, text);
    });
}

void FileSystem::Post(const std::string& diskPath, std::size_t bytes,
                      WriteQueue::Operation operation) {
    if (!Queues()) {
        if (const int error = operation()) RaiseError(error, diskPath);
        return;
    }
    if (!queue_) queue_ = std::make_unique<WriteQueue>();
    queue_->Post(diskPath, bytes, std::move(operation));
    if (const auto failure = queue_->TakeFailure()) RaiseError(failure->error, failure->path);
}

bool FileSystem::Queues() const {
    static const bool twoCores = std::thread::hardware_concurrency() >= 2;
    return queueing_ > 0 && twoCores;
}

FileSystem::QueuedWrites::~QueuedWrites() {
    // A failure stays with the queue for the next call that waits.
    if (--fs_.queueing_ == 0 && fs_.queue_) fs_.queue_->WaitKeepingFailure();
}

void FileSystem::Settle() {
    if (!queue_) return;
    if (const auto failure = queue_->Wait()) RaiseError(failure->error, failure->path);
}

bool FileSystem::IsWriteFolder(const std::string& absoluteFolder) {
    if (writeFolders_.count(absoluteFolder) != 0) return true;
    // Another spelling of a write folder, through a link, is found by its resolved path.
    auto [it, added] = resolvedReadFolders_.try_emplace(absoluteFolder);
    if (added) {
        Settle();
        it->second = Resolved(DiskPath(absoluteFolder));
    }
    return resolvedWriteFolders_.count(it->second) != 0;
}

void FileSystem::SettleBeforeReading(std::string_view path) {
    if (!queue_ || queue_->Idle()) return;
    if (IsWriteFolder(ParentOf(GetAbsolutePathName(path)))) Settle();
}

// The content of a file this run wrote with keep and has not replaced since.
std::optional<std::string> FileSystem::KeptContent(std::string_view path) {
    const std::string absolute = GetAbsolutePathName(path);
    const auto folder = writeFolders_.find(ParentOf(absolute));
    if (folder == writeFolders_.end()) return std::nullopt;
    const std::string* name = FindName(folder->second.own, NamePart(absolute));
    if (name == nullptr) return std::nullopt;
    const auto it = kept_.find(JoinDisk(folder->second.resolved, *name));
    if (it == kept_.end()) return std::nullopt;
    return it->second;
}

void FileSystem::WriteHeldFile(const std::string& resolved) {
    const auto it = held_.find(resolved);
    if (it == held_.end()) return;
    const std::string disk = std::move(it->second);
    held_.erase(it);
    PostWrite(disk, kept_.at(resolved));
}

void FileSystem::WriteHeldAt(std::string_view path) {
    if (held_.empty()) return;
    const std::string absolute = GetAbsolutePathName(path);
    const std::string folder = ParentOf(absolute);
    if (const auto it = writeFolders_.find(folder); it != writeFolders_.end()) {
        if (const std::string* name = FindName(it->second.own, NamePart(absolute)))
            WriteHeldFile(JoinDisk(it->second.resolved, *name));
        return;
    }
    WriteHeldIn(folder);
}

void FileSystem::WriteHeldIn(std::string_view folder) {
    if (!held_.empty() && IsWriteFolder(GetAbsolutePathName(folder))) WriteHeld();
}

void FileSystem::WriteHeld() {
    if (held_.empty()) return;
    std::vector<std::string> paths;
    paths.reserve(held_.size());
    for (const auto& entry : held_) paths.push_back(entry.first);
    std::sort(paths.begin(), paths.end());  // the same order on every run
    for (const std::string& resolved : paths) WriteHeldFile(resolved);
}

void FileSystem::CopyFile(std::string_view from, std::string_view to) {
    if (!LinkWritten(from, to)) WriteAll(to, ReadAll(from));
}

void FileSystem::ReplaceKeepingOld(std::string_view path, std::string_view backup,
                                   std::string_view content) {
    CheckInterrupt();
    std::string disk, resolved, backupDisk, backupResolved;
    bool newBackup = false;
    WriteFolder* folder = KnownTarget(GetAbsolutePathName(path), disk, resolved);
    WriteFolder* backupFolder =
        folder != nullptr && written_.count(resolved) != 0
            ? KnownTarget(GetAbsolutePathName(backup), backupDisk, backupResolved, &newBackup)
            : nullptr;
    if (backupFolder == nullptr || !newBackup) {
        CopyFile(path, backup);
        WriteAll(path, content);
        return;
    }
    AddKeys(backupFolder->own, NamePart(backupDisk));
    NoteWritten(backupDisk, backupResolved, false);
    if (const auto held = held_.find(resolved); held != held_.end()) {
        // Never written: its content becomes the backup, and nothing moves.
        held_.erase(held);
        PostWrite(disk, std::string(content));
        // The backup is a new name that no queued write touches, so this thread
        // writes it meanwhile, unless the writing thread is about to run out of
        // work: each thread then waits on the other least.
        auto kept = kept_.extract(resolved);
        if (queue_ && queue_->Queued() < kShortQueue)
            PostWrite(backupDisk, std::move(kept.mapped()));
        else
            WriteNow(backupDisk, kept.mapped());
        return;
    }
    if (!kept_.empty()) kept_.erase(resolved);
    Post(disk, content.size(), [disk, backupDisk, text = std::string(content)] {
        return native::WriteReplacing(disk, kTempPrefix, text, &backupDisk);
    });
}

// Links a file this run wrote under a new name in a folder met before; false
// when that cannot be done and the copy must be written.
bool FileSystem::LinkWritten(std::string_view from, std::string_view to) {
    CheckInterrupt();
    const std::string absoluteFrom = GetAbsolutePathName(from);
    const auto source = writeFolders_.find(ParentOf(absoluteFrom));
    if (source == writeFolders_.end()) return false;
    const WriteFolder& sourceFolder = source->second;  // stays valid as the map grows
    const std::string* name = FindName(sourceFolder.own, NamePart(absoluteFrom));
    const std::string fromResolved =
        name == nullptr ? std::string() : JoinDisk(sourceFolder.resolved, *name);
    if (name == nullptr || written_.count(fromResolved) == 0) return false;
    if (!held_.empty()) WriteHeldFile(fromResolved);  // a link needs the file on disk
    const std::string fromDisk = JoinDisk(sourceFolder.disk, *name);
    std::string disk, resolved;
    bool fresh = false;
    WriteFolder* folder = KnownTarget(GetAbsolutePathName(to), disk, resolved, &fresh);
    if (folder == nullptr || !fresh) return false;
    AddKeys(folder->own, NamePart(disk));
    NoteWritten(disk, resolved, false);
    // Where the system cannot link, the copy is written whole instead.
    Post(disk, 0, [fromDisk, disk] {
        if (native::LinkFile(fromDisk, disk) == 0) return 0;
        std::string content;
        native::Status status;
        if (const int error = native::ReadWholeFile(fromDisk, content, status)) return error;
        return native::WriteReplacing(disk, kTempPrefix, content);
    });
    return true;
}

void FileSystem::CreateFolder(std::string_view path) {
    const std::string absolute = GetAbsolutePathName(path);
    const std::string disk = DiskPath(absolute);
    CheckInterrupt();
    const std::string resolved = CheckWritable(disk);
    bool created = false;
    if (const int error = native::MakeFolder(disk, created)) RaiseError(error, disk);
    NoteWritten(disk, resolved);
    // A file written under its name takes the full look-up, which names the folder.
    if (auto it = writeFolders_.find(ParentOf(absolute)); it != writeFolders_.end())
        AddKeys(it->second.existing, NamePart(disk));
    if (created && !writeRoot_.empty() && SameEntry(disk, writeRoot_)) WriteRunMarker();
}

void FileSystem::WriteRunMarker() {
    if (!runMarker_.empty() && !writeRoot_.empty())
        WriteAll(BuildPath(writeRoot_, runMarker_),
                 "A conversion into this folder is running.\r\n");
}

void FileSystem::RemoveFile(std::string_view path) {
    WriteHeldAt(path);
    Settle();
    const std::string disk = DiskPath(GetAbsolutePathName(path));
    const std::string resolved = CheckWritable(disk);
    if (const int error = native::RemoveFile(disk)) RaiseError(error, disk);
    written_.erase(resolved);
    kept_.erase(resolved);
    held_.erase(resolved);
}

bool FileSystem::Written(std::string_view path) {
    const std::string absolute = GetAbsolutePathName(path);
    if (auto it = writeFolders_.find(ParentOf(absolute)); it != writeFolders_.end()) {
        if (const std::string* name = FindName(it->second.own, NamePart(absolute)))
            return written_.count(JoinDisk(it->second.resolved, *name)) != 0;
    }
    return written_.count(Resolved(DiskPath(absolute))) != 0;
}

std::vector<std::string> FileSystem::ListFiles(std::string_view folder) {
    WriteHeldIn(folder);
    Settle();
    const std::string disk = DiskPath(folder);
    std::vector<std::string> entries;
    if (!native::ListFolder(disk, entries)) RaiseError(err::kPathNotFound, disk);
    std::vector<std::string> names;
    for (const std::string& name : entries)
        if (IsKind(disk + "/" + name, native::Kind::kFile)) names.push_back(name);
    std::sort(names.begin(), names.end());
    return names;
}

TextReader::TextReader(FileSystem& fs, std::string_view path) { Open(fs, path); }

void TextReader::Open(FileSystem& fs, std::string_view path) { OpenText(fs.ReadAll(path)); }

void TextReader::OpenText(std::string text) {
    owned_ = std::move(text);
    OpenView(owned_);
}

void TextReader::OpenView(std::string_view text) {
    text_ = text;
    pos_ = 0;
}

std::size_t TextReader::ReadLineWith(std::string& line, std::string_view keyword) {
    const std::size_t hit = FindNoCase(text_, keyword, pos_);
    if (hit == kNotFound) {
        pos_ = text_.size();
        line.clear();
        return kNotFound;
    }
    std::size_t start = hit;  // the start of the line that holds it
    while (start > pos_ && text_[start - 1] != '\n' && text_[start - 1] != '\r') --start;
    pos_ = start;
    ReadLine(line);
    return hit - start;
}

bool TextReader::ReadLine(std::string& line) {
    if (pos_ >= text_.size()) {
        line.clear();
        return false;
    }
    const std::size_t end = FindLineBreak(text_, pos_);
    if (end == std::string::npos) {
        line.assign(text_.substr(pos_));
        pos_ = text_.size();
        return true;
    }
    line.assign(text_.substr(pos_, end - pos_));
    pos_ = end + 1;
    if (text_[end] == '\r' && pos_ < text_.size() && text_[pos_] == '\n') ++pos_;
    return true;
}

}  // namespace tamrix
