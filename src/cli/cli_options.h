#pragma once
// The command line of tamrix-cli.
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tamrix::cli {

/// The command named first on the command line.
enum class Command { kNone, kConvert, kScan, kHelp, kVersion };
/// How a question without an --answer is answered: asked on a terminal, Yes, or No.
enum class DefaultAnswer { kAsk, kYes, kNo };

/// One project of a batch: the generated .hhp, the new one, and optionally the .hpj.
struct ProjectPair {
    std::string oldProject;  ///< the generated .hhp to read
    std::string newProject;  ///< the .hhp (or folder) to write
    std::string hpj;         ///< the WinHelp project, or empty
};

/// The parsed command line.
struct CliOptions {
    Command command = Command::kNone;      ///< the command to run
    Command helpFor = Command::kNone;      ///< "convert --help": the usage of that command
    std::string oldProject;                ///< the generated .hhp to read
    std::string newProject;                ///< the .hhp to write, in the new folder
    std::string hpj;                       ///< --hpj: the WinHelp project, or empty
    bool css = false;                      ///< --css: link a style sheet from every topic
    std::string cssName = "HHStyles.css";  ///< --css=NAME
    bool popups = false;       ///< --popups: extract the popups and activate the callers
    bool keepZeroIds = false;  ///< --keep-zero-ids: carry over IDs defined as 0
    bool hmMaps = false;       ///< read "NAME VALUE" lines in map files
    DefaultAnswer defaultAnswer = DefaultAnswer::kAsk;  ///< --yes or --no; ask when neither
    std::map<long, int> answers;                        ///< catalogue ID -> result code
    bool quiet = false;                                 ///< --quiet: print only errors
    std::optional<std::string> logFile;                 ///< scan --log FILE; stdout when absent
    /// convert with several pairs or --batch: every project, in the order given.
    std::vector<ProjectPair> batch;
    std::string batchFile;  ///< --batch FILE, read by ReadBatchFile
};

/// Parses the arguments (without the program name); on a usage error returns
/// nothing and puts the reason in `error`.
std::optional<CliOptions> ParseArguments(const std::vector<std::string>& args, std::string& error);

/// "yes", "no", "ok", "cancel", "abort", "retry", "ignore" -> result code; 0 when unknown.
int AnswerCode(const std::string& name);

/// The general usage, listing the commands.
const char* UsageText();
/// The usage of one command with every option explained.
const char* CommandUsageText(Command command);

}  // namespace tamrix::cli
