#pragma once
// The links of a project's topics, contents and index: each must name a file of
// the project (without regard to case, "\" and "/" alike) and, with "#anchor",
// an anchor that file has. Every HTML file is read once and its anchors are
// kept by folded name, so a check stays linear in the project's size.
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "check/problem.h"
#include "platform/file_system.h"

namespace tamrix::check {

/// Collects the links of a project's HTML files and checks them against the files and anchors that
/// exist.
class LinkChecker {
public:
    /// Checks the links of the project in `folder` (ending in a separator), reading through `fs`.
    LinkChecker(FileSystem& fs, std::string folder);
    /// Out of line, where HtmlFile is complete.
    ~LinkChecker();

    /// Reads an HTML file (a topic, the contents or the index) named relative to the
    /// project's folder and notes its links; false when it cannot be read.
    bool AddFile(const std::string& name);
    /// Checks every link noted so far.
    void Check(std::vector<Problem>& problems);

private:
    struct Link {
        std::string target;  ///< as written
        long line = 0;
    };
    struct HtmlFile {
        std::string name;                         ///< relative, as the project names it
        std::unordered_set<std::string> anchors;  ///< folded
        std::vector<Link> links;
    };

    HtmlFile* Read(const std::string& key, const std::string& name);
    /// The file a link resolves to: its key and whether it exists.
    bool Exists(const std::string& key);
    void CheckLink(const HtmlFile& from, const Link& link, std::vector<Problem>& problems);

    FileSystem& fs_;
    std::string folder_;
    std::unordered_map<std::string, std::unique_ptr<HtmlFile>> files_;  // by key
    std::unordered_map<std::string, bool> exists_;                      // by key
    std::vector<HtmlFile*> order_;                                      // files added, in order
};

/// The project-relative key of a path: "/" separators, "." and ".." resolved,
/// "%XX" decoded, folded. Empty when the path leaves the project.
std::string PathKey(const std::string& fromFolder, const std::string& path);

}  // namespace tamrix::check
