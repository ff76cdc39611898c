#pragma once
// The command line of tamrix-cli.
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tamrix::cli {

enum class Command { kNone, kConvert, kScan, kHelp, kVersion };
enum class DefaultAnswer { kAsk, kYes, kNo };

struct CliOptions {
    Command command = Command::kNone;
    Command helpFor = Command::kNone;  // "convert --help": the usage of that command
    std::string oldProject;
    std::string newProject;
    std::string hpj;
    bool css = false;
    std::string cssName = "HHStyles.css";
    bool popups = false;
    bool keepZeroIds = false;
    bool hmMaps = false;  // read "NAME VALUE" lines in map files
    DefaultAnswer defaultAnswer = DefaultAnswer::kAsk;
    std::map<long, int> answers;  // catalogue ID -> result code
    bool quiet = false;
    std::optional<std::string> logFile;
};

// Parses the arguments (without the program name); on a usage error returns
// nothing and puts the reason in `error`.
std::optional<CliOptions> ParseArguments(const std::vector<std::string>& args, std::string& error);

// "yes", "no", "ok", "cancel", "abort", "retry", "ignore" -> result code; 0 when unknown.
int AnswerCode(const std::string& name);

const char* UsageText();
// The usage of one command with every option explained.
const char* CommandUsageText(Command command);

}  // namespace tamrix::cli
