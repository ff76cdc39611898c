#pragma once
// The shared file-system service. Project files name paths Windows-style
// ("html\hs12.htm"); only this service maps such text to the disk: "\" becomes
// "/", and a component that does not exist as written is found without regard
// to case, or under its UTF-8 spelling when the text is Windows-1252, as a
// checkout of a Windows project on Linux stores it.
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/byte_text.h"
#include "platform/native_files.h"
#include "platform/write_queue.h"

namespace tamrix {

/// The one way to the disk: maps Windows-style names, keeps writes inside the write root and the
/// input untouched.
class FileSystem {
public:
    /// The disk path for a Windows-style name.
    std::string DiskPath(std::string_view path);

    /// Whether the path names a regular file (looked up as written first).
    bool FileExists(std::string_view path);
    /// Whether the path names a folder; a folder this run has written into counts.
    bool FolderExists(std::string_view path);

    /// Whether two paths name the same file or folder: by device and inode when it
    /// exists, else by their spelling with every link resolved.
    bool SameEntry(std::string_view a, std::string_view b);

    /// Absolute path with "." and ".." resolved textually; "\" and "/" both separate.
    static std::string GetAbsolutePathName(std::string_view path);
    /// Joins a folder and a name with one separator.
    static std::string BuildPath(std::string_view folder, std::string_view name);

    /// Reads a whole regular file; failures raise BasicError (53, 70, 75, 76).
    std::string ReadAll(std::string_view path);

    /// What WriteAll keeps of a file in memory.
    enum class Keep {
        kNothing,
        /// ReadAll takes the content from memory until the file is replaced.
        kForReading,
        /// The same, and the file goes to disk only when it must (new files in a
        /// folder written into before; others are written at once): replaced with
        /// its old content kept (ReplaceKeepingOld then writes that as the backup, so
        /// nothing is moved), copied, looked for on disk, or by WriteHeld.
        kHeld,
    };
    /// Writes the content where no one sees it until it is whole (an unnamed file, or
    /// a temporary one in the destination folder) and then names it, so an
    /// interruption never leaves a half-written file. Temporary files
    /// that a killed run left in the folder are removed on its first write.
    /// While a QueuedWrites lives, see there.
    void WriteAll(std::string_view path, std::string_view content, Keep keep = Keep::kNothing);
    /// Writes every file held back by WriteAll, in the order of their paths.
    void WriteHeld();

    /// While one lives, a new file in a folder written into before is written by
    /// a second thread, so that creating it overlaps the work on the next one.
    /// Every call that could see such a file waits for it first; a failure is
    /// raised by a later write, by Finish, or else by the next call that waits.
    class QueuedWrites {
    public:
        explicit QueuedWrites(FileSystem& fs) : fs_(fs) { ++fs_.queueing_; }
        QueuedWrites(const QueuedWrites&) = delete;
        QueuedWrites& operator=(const QueuedWrites&) = delete;
        ~QueuedWrites();
        /// Waits for every queued write; raises the first that failed.
        void Finish() { fs_.Settle(); }

    private:
        FileSystem& fs_;
    };
    /// Writes a copy of one file under another name, checked like any write. A file
    /// this run wrote gets the new name as a second link where the system allows:
    /// it is only ever replaced whole, so the copy keeps its content.
    void CopyFile(std::string_view from, std::string_view to);
    /// Writes `content` over `path`, its old content kept as `backup`: a file this
    /// run wrote moves there when `backup` is a new name, else it is copied.
    void ReplaceKeepingOld(std::string_view path, std::string_view backup,
                           std::string_view content);
    /// Creates one folder (its parent must exist); an existing one is no error.
    void CreateFolder(std::string_view path);
    /// Removes a file; a missing file is no error. Checked like a write.
    void RemoveFile(std::string_view path);
    /// Whether this run wrote the file (since the write root was last set).
    bool Written(std::string_view path);
    /// Names of the regular files directly in a folder, sorted.
    std::vector<std::string> ListFiles(std::string_view folder);

    /// Every write must land inside this folder (empty: no restriction). A write
    /// elsewhere raises error 600 and nothing is written. Clearing it also forgets
    /// the input folders and the files read so far. Queued writes are waited for; a
    /// failure among them that nothing raised yet is dropped.
    void SetWriteRoot(std::string_view folder);
    /// The write root; empty when writes are not restricted.
    const std::string& WriteRoot() const { return writeRoot_; }
    /// Whether an absolute path lies inside the write root, links followed.
    bool InsideWriteRoot(std::string_view path);
    /// The folders of the input project. Nothing is written into their trees, except
    /// inside a write root that lies strictly inside one; a file read while no write
    /// root was set is never replaced.
    void SetInputFolders(const std::vector<std::string>& folders);

    /// While on, each file read while no write root is set is kept in memory, and
    /// the next read of it takes it from there: the command line reads the input
    /// once, as nothing changes it between its steps. The window leaves it off, as
    /// its user may edit the input between two steps. Off forgets what was kept.
    void KeepInputReads(bool on);
    /// Whether reads are kept, as KeepInputReads set it.
    bool KeepsInputReads() const { return keepInputReads_; }
    /// Whether a read now gives what the disk holds: no write root is set and no
    /// write of this run is queued, held or kept. Another instance reading the same
    /// files then reads what this one would.
    bool ReadsFromDisk();
    /// Takes over what `other` read while neither had a write root: those files
    /// are protected as if read here, and their kept contents are taken when this
    /// one keeps its reads.
    void TakeReadsOf(FileSystem& other);

    /// Called before every read and write, so that a run can stop between two
    /// files and never in the middle of one.
    void SetInterruptCheck(void (*check)()) { interruptCheck_ = check; }
    /// Stops the run here when the interrupt check says so.
    void CheckInterrupt() const {
        if (interruptCheck_ != nullptr) interruptCheck_();
    }
    /// A file put into the write root as soon as the root is created, and taken
    /// away by the run that created it when it ends normally.
    void SetRunMarker(std::string_view name) { runMarker_ = name; }
    /// The run marker's name; empty when there is none.
    const std::string& RunMarker() const { return runMarker_; }
    /// Writes the run marker into the write root, when both are set.
    void WriteRunMarker();

    /// A write that was refused, and why.
    struct RefusedWrite {
        /// The path the write was meant for.
        std::string path;
        /// Why it was refused.
        std::string reason;
    };
    /// The writes refused so far, oldest first.
    const std::vector<RefusedWrite>& RefusedWrites() const { return refused_; }
    /// Forgets the refused writes.
    void ClearRefusedWrites() { refused_.clear(); }

private:
    // Entry names by their folded spelling (and by the folded Windows-1252
    // spelling of a UTF-8 name).
    using NameMap = FoldedMap<std::string>;
    struct Listing {
        std::int64_t stamp = -1;
        NameMap byFolded;
    };
    const std::string* FindEntry(const std::string& folder, std::string_view component);
    Listing& ListingOf(const std::string& folder);
    // A folder written into: found on disk, resolved, listed and checked once per
    // run, so that writing a new file into it takes no look-up on disk.
    struct WriteFolder {
        std::string disk;
        std::string resolved;
        NameMap existing;  // what it held when first written into
        NameMap own;       // what this run wrote into it since
    };
    WriteFolder* WriteFolderOf(const std::string& absoluteFolder);
    // `fresh`, when given, tells whether this run has not written the name yet.
    WriteFolder* KnownTarget(const std::string& absolute, std::string& disk, std::string& resolved,
                             bool* fresh = nullptr);
    std::optional<std::string> KeptContent(std::string_view path);
    // Whether writes go to the writing thread: inside QueuedWrites, with two cores.
    bool Queues() const;
    // Writes the held file with this resolved path, if it is one.
    void WriteHeldFile(const std::string& resolved);
    // Writes what `path` may name among the held files, so that the disk answers for it.
    void WriteHeldAt(std::string_view path);
    // Writes the held files when they may lie in `folder`.
    void WriteHeldIn(std::string_view folder);
    bool LinkWritten(std::string_view from, std::string_view to);
    struct Identity {
        std::uint64_t device = 0;
        std::uint64_t inode = 0;
        bool operator==(const Identity&) const = default;
    };
    struct IdentityHash {
        std::size_t operator()(const Identity& id) const { return id.device * 31 + id.inode; }
    };
    static std::optional<Identity> IdentityOf(const std::string& diskPath);
    std::optional<Identity> InputFolderOf(const std::string& path);
    std::string ResolvedRoot();
    void NoteWritten(const std::string& diskPath, const std::string& resolved, bool restamp = true);
    // Hands a write of `diskPath` to the second thread (or does it here when there
    // is no second core); raises a failure of an earlier one.
    void Post(const std::string& diskPath, std::size_t bytes, WriteQueue::Operation operation);
    // Posts the write of a whole file with this content.
    void PostWrite(const std::string& diskPath, std::string content);
    // Waits for the queued writes; raises the first that failed.
    void Settle();
    // Whether this run writes into the folder, spelled as it is or otherwise.
    bool IsWriteFolder(const std::string& absoluteFolder);
    // Waits for the queued writes when they may be writing the file at `path`.
    void SettleBeforeReading(std::string_view path);
    void NoteRead(const Identity& id);
    // Raises error 600 (and keeps the refusal) unless `diskPath` may be written;
    // returns it with every link resolved.
    std::string CheckWritable(const std::string& diskPath);
    [[noreturn]] void Refuse(const std::string& diskPath, const std::string& reason);
    // Why the resolved path, whose own identity is `own` (none: it does not exist),
    // may not be written; empty when it may.
    std::string RefusalReason(const std::string& target, const std::optional<Identity>& own);
    void SweepTempFiles(const std::string& folder);

    std::unordered_map<std::string, Listing> listings_;
    std::string writeRoot_;
    std::vector<Identity> inputFolders_;
    std::unordered_map<std::string, std::optional<Identity>> inputTree_;
    std::string resolvedRoot_;
    std::unordered_set<Identity, IdentityHash> inputFiles_;
    std::vector<RefusedWrite> refused_;
    std::unordered_set<std::string> written_;
    void (*interruptCheck_)() = nullptr;
    std::string runMarker_;
    std::unordered_set<std::string> swept_;  // folders cleared of stale temporary files
    std::unordered_map<std::string, WriteFolder> writeFolders_;  // by absolute path
    std::unordered_map<std::string, std::string> kept_;  // written with keep, by resolved path
    // The disk paths of the held files, by resolved path: each is in kept_ too.
    std::unordered_map<std::string, std::string> held_;
    // What the files seen before the write root was set looked like, by path as
    // written: their second read asks the system only to open, read and close.
    std::unordered_map<std::string, native::Status> looked_;
    // The input files read so far, by absolute path, while keepInputReads_.
    std::unordered_map<std::string, std::string> inputReads_;
    bool keepInputReads_ = false;
    // The write folders by their resolved paths, and the resolved folders of
    // files read while writes were queued.
    std::unordered_set<std::string> resolvedWriteFolders_;
    std::unordered_map<std::string, std::string> resolvedReadFolders_;
    std::unique_ptr<WriteQueue> queue_;  // made by the first queued write
    int queueing_ = 0;                   // QueuedWrites alive
};

/// Reads a text file line by line; lines may end in CR LF, LF or CR.
class TextReader {
public:
    /// A reader with nothing to read until Open or OpenText.
    TextReader() = default;
    // It may read a text it does not own, so a copy could outlive that text.
    TextReader(const TextReader&) = delete;
    TextReader& operator=(const TextReader&) = delete;
    /// Raises BasicError when the file cannot be read.
    TextReader(FileSystem& fs, std::string_view path);
    /// Reads the whole file to read from its start; raises BasicError when it cannot be read.
    void Open(FileSystem& fs, std::string_view path);
    /// Reads lines from `text` instead of a file.
    void OpenText(std::string text);
    /// Reads lines from a text that the caller keeps alive and unchanged meanwhile.
    void OpenView(std::string_view text);
    /// The next line, without its line break; false (and an empty line) at the end.
    bool ReadLine(std::string& line);
    /// Reads on to the first line that holds `keyword` (without regard to case; it
    /// holds no line break) and returns where the keyword stands in that line; at
    /// the end, kNotFound with every line read and `line` empty. The same as
    /// reading line by line, without copying the lines passed over.
    std::size_t ReadLineWith(std::string& line, std::string_view keyword);
    /// Whether every line has been read.
    bool AtEnd() const { return pos_ >= text_.size(); }

private:
    std::string owned_;      // the text when the reader owns it
    std::string_view text_;  // what is read
    std::size_t pos_ = 0;
};

}  // namespace tamrix
