#pragma once
// Runs the command line in the test process and keeps what it printed.
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

}  // namespace tamrix::testing
