#include "support/script_check.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>

namespace tamrix::testing {

std::string ScriptSyntaxErrors(const std::string& path) {
#ifdef _WIN32
    // node parses the script in the Linux build; compare-windows.sh shows that the
    // Windows build writes the same bytes.
    [&] { GTEST_SKIP() << "no node to parse " << path << " here"; }();
    return {};
#else
    if (std::system("node --version >/dev/null 2>&1") != 0)
        return "node is not installed (scripts/install-deps.sh installs it)";
    std::string quoted = "'";
    for (const char c : path) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    const std::string command = "node --check " + quoted + "' 2>&1";
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return "cannot run node";
    std::string output;
    std::array<char, 512> buffer{};
    while (std::fgets(buffer.data(), static_cast<int>(buffer.size()), pipe) != nullptr)
        output += buffer.data();
    if (pclose(pipe) == 0) return {};
    return output.empty() ? "node --check failed" : output;
#endif
}

}  // namespace tamrix::testing
