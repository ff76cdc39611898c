// tamrix-cli: the command-line front end of the conversion wizard.
#include <cstring>
#include <iostream>
#include <string>

#include "tamrix_version.h"

namespace {

void PrintUsage(std::ostream& out) {
    out << "Usage:\n"
           "  tamrix-cli convert OLD.hhp NEW.hhp [--hpj OLD.hpj] [--css[=NAME]] [--popups]\n"
           "                     [--keep-zero-ids] [--yes | --no] [--answer ID=ANSWER]... "
           "[--quiet]\n"
           "  tamrix-cli scan OLD.hhp [--hpj OLD.hpj] [--log FILE] [--yes | --no] "
           "[--answer ID=ANSWER]...\n"
           "  tamrix-cli --help | --version\n";
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && (std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0)) {
        PrintUsage(std::cout);
        return 0;
    }
    if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
        std::cout << tamrix::kProgramName << " " << tamrix::kVersionMajor << "."
                  << tamrix::kVersionMinor << "." << tamrix::kVersionRevision << "\n";
        return 0;
    }
    PrintUsage(std::cerr);
    return 2;
}
