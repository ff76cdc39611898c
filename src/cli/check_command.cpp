#include "cli/check_command.h"

#include <ostream>

#include "check/project_check.h"

namespace tamrix::cli {

int RunCheckCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    bool json = false;
    std::vector<std::string> positional;
    for (const std::string& arg : args) {
        if (arg == "--json") {
            json = true;
        } else if (arg.starts_with("--")) {
            err << "tamrix-cli: unknown option \"" << arg << "\"\n";
            return 2;
        } else {
            positional.push_back(arg);
        }
    }
    if (positional.size() != 1) {
        err << "tamrix-cli: check needs PROJECT.hhp\nUsage: tamrix-cli check PROJECT.hhp "
               "[--json]\n";
        return 2;
    }
    const check::CheckReport report = check::CheckProject(positional[0]);
    out << (json ? check::ReportJson(report) : check::ReportText(report));
    if (!report.error.empty()) return 2;
    return report.Errors() == 0 ? 0 : 1;
}

}  // namespace tamrix::cli
