#pragma once
// Compiles a project with chmcmd on a temporary copy, never changing the
// project, and proves its context-sensitive help: the compiled file's context
// map is read back and every aliased [MAP] ID must open the topic its alias names.
#include <cstdint>
#include <string>
#include <vector>

namespace tamrix::compile {

/// Whether one aliased context ID opens its topic in the compiled file.
struct IdResult {
    std::string name;        ///< the ID as [MAP] names it
    std::int32_t value = 0;  ///< its number
    std::string target;      ///< the topic file its alias names
    std::size_t round = 0;   ///< 0 is the compiled file given to the user
    bool verified = false;   ///< the compiled file maps the number to that topic
    std::string failure;     ///< why it failed
};

/// The outcome of compiling and verifying a project.
struct CompileReport {
    std::string chmFile;                 ///< the compiled file written, or empty
    std::uintmax_t size = 0;             ///< bytes of the compiled file
    std::size_t topicCount = 0;          ///< HTML files of [FILES] stored in it
    std::size_t listedTopics = 0;        ///< entries of its #TOPICS
    std::size_t rounds = 0;              ///< chmcmd runs made
    std::vector<IdResult> results;       ///< every aliased ID, in [MAP] order
    std::vector<std::string> unaliased;  ///< IDs that cannot be verified
    std::string error;                   ///< why nothing could be compiled
    bool toolMissing = false;            ///< chmcmd or chmlib is not installed

    /// IDs whose number opens the topic their alias names.
    std::size_t Verified() const;
    /// IDs that did not verify.
    std::size_t Failed() const { return results.size() - Verified(); }
    /// IDs verified in later rounds only, so missing from the compiled file given.
    std::vector<const IdResult*> LackingInFirst() const;
};

/// `outputFile` empty: next to the project, under its "Compiled file" name.
CompileReport CompileProject(const std::string& projectFile, const std::string& outputFile);

/// The report as the compile command prints it: the file, the counts and every failed or
/// unverifiable ID.
std::string CompileReportText(const CompileReport& report);

/// The chmcmd found on PATH, or empty.
std::string FindChmcmd();

}  // namespace tamrix::compile
