#include "cli/compile_command.h"

#include <ostream>

#include "compile/compile_project.h"

namespace tamrix::cli {

int RunCompileCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    std::string output;
    std::vector<std::string> positional;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "-o" || args[i] == "--output") {
            if (++i >= args.size()) {
                err << "tamrix-cli: -o needs FILE.chm\n";
                return 2;
            }
            output = args[i];
        } else if (args[i].starts_with("-")) {
            err << "tamrix-cli: unknown option \"" << args[i] << "\"\n";
            return 2;
        } else {
            positional.push_back(args[i]);
        }
    }
    if (positional.size() != 1) {
        err << "tamrix-cli: compile needs PROJECT.hhp\n"
               "Usage: tamrix-cli compile PROJECT.hhp [-o FILE.chm]\n";
        return 2;
    }
    const compile::CompileReport report = compile::CompileProject(positional[0], output);
    if (report.toolMissing) {
        err << "tamrix-cli: " << report.error << "\n";
        return 2;
    }
    out << compile::CompileReportText(report);
    return !report.chmFile.empty() && report.Failed() == 0 ? 0 : 1;
}

}  // namespace tamrix::cli
