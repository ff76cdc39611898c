#pragma once
// tamrix-cli compile PROJECT.hhp [-o FILE.chm].
#include <iosfwd>
#include <string>
#include <vector>

namespace tamrix::cli {

/// Exit status: 0 compiled with every aliased context ID verified, 1 a failure,
/// 2 usage error or chmcmd/chmlib missing.
int RunCompileCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace tamrix::cli
