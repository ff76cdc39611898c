#pragma once
// Reads back what a compiled help file holds: its stored files, its topics and
// its context map.
#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

namespace tamrix::compile {

/// One entry of a compiled file's context map: a number and the topic it opens.
struct ContextEntry {
    std::int32_t number = 0;  ///< the context number
    std::string path;         ///< as #STRINGS holds it
};

/// What ReadChm found in a compiled file.
struct ChmContents {
    std::vector<ContextEntry> contextMap;         ///< #IVB, in order
    std::vector<std::string> topicUrls;           ///< #TOPICS via #URLTBL and #URLSTR
    std::unordered_set<std::string> storedFiles;  ///< the candidates stored, folded
    std::size_t htmlFiles = 0;                    ///< .htm and .html files among them
};

/// False when this build has no reader (chmlib was missing when it was built).
bool ChmReaderAvailable();

/// Reads `file` and looks up which `candidates` (paths with "/", relative to the
/// project) it stores; false with the reason in `error` when it is no readable
/// compiled file. Files are looked up one by one, since chmlib's listing of all
/// files stops early on some files chmcmd writes.
bool ReadChm(const std::string& file, const std::vector<std::string>& candidates,
             ChmContents& contents, std::string& error);

}  // namespace tamrix::compile
