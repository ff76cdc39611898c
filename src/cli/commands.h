#pragma once
#include <iosfwd>
#include <string>
#include <vector>

namespace tamrix::cli {

/// Runs tamrix-cli with `args` (without the program name). `interactive` says
/// whether questions may be asked on `in`; `showProgress` draws a progress bar.
/// Returns the exit status: 0 done, 1 the wizard stayed at a step, 2 usage error.
int RunCli(const std::vector<std::string>& args, std::istream& in, std::ostream& out,
           std::ostream& err, bool interactive, bool showProgress);

}  // namespace tamrix::cli
