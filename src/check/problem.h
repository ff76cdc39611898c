#pragma once
// One problem that the project check finds, with the file and line it lies on.
#include <string>

namespace tamrix::check {

/// What is wrong; each kind has its name in the reports (KindName).
enum class ProblemKind {
    kMissingFile,        ///< a [FILES] entry or an included file that is not on disk
    kBrokenLink,         ///< a link that names no file of the project
    kMissingAnchor,      ///< a link to an anchor that its file lacks
    kUnaliasedId,        ///< a [MAP] context ID without an alias
    kAliasMissingFile,   ///< an alias naming a file that is not on disk
    kAliasUnknownId,     ///< an alias naming no [MAP] context ID
    kConflictingId,      ///< a context ID defined twice with different values
    kBadHeaderLine,      ///< a header line that is neither a definition nor a comment
    kBadPopupScript,     ///< popups.js outside the JavaScript the program writes
    kMissingTextPopups,  ///< a [TEXT POPUPS] file that is not on disk
    kNameCollision,      ///< topic file names equal without regard to case
    kInvalidName,        ///< a topic file name Windows cannot store
};

/// A context ID without an alias is no fault of the project (the application may
/// never ask for it, and a generated header often defines more IDs than the help
/// has topics); it is reported as a warning that leaves the exit status at 0.
bool IsWarning(ProblemKind kind);

/// The kind's short name, as the JSON report writes it ("broken-link").
const char* KindName(ProblemKind kind);

/// One problem found, where it lies and what it says.
struct Problem {
    ProblemKind kind;     ///< what is wrong
    std::string file;     ///< as the project names it, or the path read
    long line = 0;        ///< 1-based; 0 when the problem has no line
    std::string message;  ///< one line, for the user
};

}  // namespace tamrix::check
