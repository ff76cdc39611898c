#pragma once
// Several conversions in one command: side by side on the processors there are,
// reported in the order given.
#include <functional>
#include <iosfwd>

#include "cli/cli_options.h"

namespace tamrix::cli {

/// Converts one project of a batch (options naming just that project) and
/// returns its exit status; what it prints goes to the two streams given.
using ConvertProject = std::function<int(const CliOptions&, std::ostream&, std::ostream&)>;

/// Adds the projects of a batch file to `options.batch`: one project per line,
/// "OLD.hhp NEW [OLD.hpj]", names with spaces in double quotes, blank lines and
/// lines starting with "#" ignored. False, with "FILE:LINE: why" in `error`, on a bad line.
bool ReadBatchFile(const std::string& text, CliOptions& options, std::string& error);

/// Runs every project of `options.batch` (after reading `options.batchFile`),
/// prints a line per project and a total, and returns the worst exit status.
int RunBatch(CliOptions options, const ConvertProject& convert, std::ostream& out,
             std::ostream& err);

}  // namespace tamrix::cli
