#pragma once
// Runs the command line in the test process and keeps what it printed, or
// tamrix-cli as a program of its own through the shell.
#ifndef _WIN32
#include <sys/wait.h>
#endif

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"

namespace tamrix::testing {

struct CliRun {
    int status = -1;
    std::string out;
    std::string err;
};

inline CliRun RunCliWith(const std::vector<std::string>& args, const std::string& input = {},
                         bool interactive = false) {
    std::istringstream in(input);
    std::ostringstream out, err;
    CliRun run;
    run.status = cli::RunCli(args, in, out, err, interactive, false);
    run.out = out.str();
    run.err = err.str();
    return run;
}

// Single quotes for the shell.
inline std::string Quote(const std::string& s) { return "'" + s + "'"; }

// Exit status of a shell command, -1 when it did not exit.
inline int Shell(const std::string& command) {
    const int status = std::system(command.c_str());
#ifdef _WIN32
    return status;  // the exit code itself there
#else
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
}

}  // namespace tamrix::testing
