// tamrix-cli: the command-line front end of the conversion wizard.
#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <unistd.h>
#endif

#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/interruption.h"
#include "model/conversion.h"

int main(int argc, char** argv) {
    const std::vector<std::string> args(argv + 1, argv + argc);
    tamrix::cli::InstallInterruptHandlers();
#ifdef _WIN32
    // The same bytes as on other systems: no CR added before each LF.
    ::_setmode(::_fileno(stdout), _O_BINARY);
    ::_setmode(::_fileno(stderr), _O_BINARY);
    const bool interactive = ::_isatty(::_fileno(stdin)) != 0 && ::_isatty(::_fileno(stderr)) != 0;
    const bool progress = ::_isatty(::_fileno(stderr)) != 0;
#else
    const bool interactive = ::isatty(STDIN_FILENO) != 0 && ::isatty(STDERR_FILENO) != 0;
    const bool progress = ::isatty(STDERR_FILENO) != 0;
#endif
    return tamrix::cli::RunCli(args, std::cin, std::cout, std::cerr, interactive, progress);
}
