// tamrix-cli: the command-line front end of the conversion wizard.
#include <unistd.h>

#include <iostream>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/interruption.h"
#include "model/conversion.h"

int main(int argc, char** argv) {
    const std::vector<std::string> args(argv + 1, argv + argc);
    tamrix::cli::InstallInterruptHandlers();
    const bool interactive = ::isatty(STDIN_FILENO) != 0 && ::isatty(STDERR_FILENO) != 0;
    const bool progress = ::isatty(STDERR_FILENO) != 0;
    return tamrix::cli::RunCli(args, std::cin, std::cout, std::cerr, interactive, progress);
}
