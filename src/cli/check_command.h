#pragma once
// tamrix-cli check PROJECT.hhp [--json].
#include <iosfwd>
#include <string>
#include <vector>

namespace tamrix::cli {

/// Exit status: 0 no problems (warnings allowed), 1 problems found, 2 usage error or unreadable
/// project.
int RunCheckCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace tamrix::cli
