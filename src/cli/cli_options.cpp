#include "cli/cli_options.h"

#include <cerrno>
#include <cstdlib>

#include "platform/byte_text.h"
#include "platform/view.h"

namespace tamrix::cli {

const char* UsageText() {
    return "Usage:\n"
           "  tamrix-cli convert OLD.hhp (NEW.hhp | DIR/) [--hpj OLD.hpj] [--css[=NAME]] [--popups]\n"
           "                     [--keep-zero-ids] [--hm-maps] [--yes | --no]\n"
           "                     [--answer ID=ANSWER]... [--quiet]\n"
           "  tamrix-cli convert (OLD.hhp NEW)... | --batch FILE  (--yes | --no) [options]\n"
           "  tamrix-cli scan OLD.hhp [--hpj OLD.hpj] [--hm-maps] [--log FILE] [--yes | --no]\n"
           "                  [--answer ID=ANSWER]...\n"
           "  tamrix-cli check PROJECT.hhp [--json]\n"
           "  tamrix-cli compile PROJECT.hhp [-o FILE.chm]\n"
           "  tamrix-cli convert --help | scan --help\n"
           "  tamrix-cli --help | --version\n"
           "\n"
           "ANSWER is yes, no, ok, cancel, abort, retry or ignore; ID is the number of the\n"
           "message asked. Unanswered questions are asked on a terminal, else answered No.\n"
           "Exit status: 0 done, 3 done with problems (the summary names them), 1 the\n"
           "wizard stopped at a step, 2 usage error, 130 interrupted.\n"
           "tamrix-cli convert --help and tamrix-cli scan --help explain every option.\n";
}

const char* CommandUsageText(Command command) {
    if (command == Command::kScan)
        return "Usage: tamrix-cli scan OLD.hhp [options]\n"
               "\n"
               "Reads the HTML Help project OLD.hhp and prints its scan log.\n"
               "\n"
               "  --hpj OLD.hpj        the WinHelp project OLD.hhp was generated from\n"
               "  --hm-maps            read Visual C++ map files' \"NAME  VALUE\" lines (.hm)\n"
               "  --log FILE           write the scan log to FILE instead of standard output\n"
               "  --yes | --no         answer every question Yes (or OK) | No (or Cancel)\n"
               "  --answer ID=ANSWER   answer the question with message number ID; ANSWER is\n"
               "                       yes, no, ok, cancel, abort, retry or ignore\n"
               "  --help               show this text\n"
               "\n"
               "Exit status: 0 done, 1 the scan stopped, 2 usage error, 130 interrupted.\n";
    return "Usage: tamrix-cli convert OLD.hhp NEW [OLD.hhp NEW]... [options]\n"
           "       tamrix-cli convert --batch FILE [options]\n"
           "\n"
           "Writes a new HTML Help project from OLD.hhp. NEW is the new project file\n"
           "(NEW.hhp), or a folder (existing, or ending in a separator) that gets a\n"
           "project file of OLD.hhp's name. The input project is never changed.\n"
           "\n"
           "Several OLD.hhp NEW pairs, or --batch FILE with one \"OLD.hhp NEW [OLD.hpj]\"\n"
           "per line (names with spaces in double quotes; blank lines and lines starting\n"
           "with # are skipped), convert several projects, side by side where there are\n"
           "processors to spare. A batch needs --yes or --no, and takes no --hpj. It\n"
           "prints a line per project, in the order given, and a total; its exit status\n"
           "is the worst of the projects': 2, then 1, then 3, then 0.\n"
           "\n"
           "  --hpj OLD.hpj        the WinHelp project OLD.hhp was generated from; its map\n"
           "                       and alias definitions are carried over\n"
           "  --css[=NAME]         link every topic to the style sheet NAME (HHStyles.css),\n"
           "                       created when the new folder has none\n"
           "  --popups             edit the topics that call popups to use script popups\n"
           "  --keep-zero-ids      keep context IDs whose value is zero\n"
           "  --hm-maps            read Visual C++ map files' \"NAME  VALUE\" lines (.hm)\n"
           "  --yes | --no         answer every question Yes (or OK) | No (or Cancel)\n"
           "  --answer ID=ANSWER   answer the question with message number ID; ANSWER is\n"
           "                       yes, no, ok, cancel, abort, retry or ignore\n"
           "  --quiet              print only errors\n"
           "  --batch FILE         convert the projects listed in FILE\n"
           "  --help               show this text\n"
           "\n"
           "Questions not answered by an option are asked on a terminal, else answered No.\n"
           "Exit status: 0 done, 3 done with problems (the summary names them), 1 the\n"
           "wizard stopped at a step, 2 usage error, 130 interrupted.\n";
}

int AnswerCode(const std::string& name) {
    static const std::pair<const char*, int> kNames[] = {
        {"yes", mb::kYes},       {"no", mb::kNo},       {"ok", mb::kOK},
        {"cancel", mb::kCancel}, {"abort", mb::kAbort}, {"retry", mb::kRetry},
        {"ignore", mb::kIgnore}};
    for (const auto& [text, code] : kNames)
        if (EqualsNoCase(name, text)) return code;
    return 0;
}

std::optional<CliOptions> ParseArguments(const std::vector<std::string>& args, std::string& error) {
    CliOptions options;
    if (args.empty()) {
        error = "no command given";
        return std::nullopt;
    }
    const std::string& command = args[0];
    if (command == "--help" || command == "-h") {
        options.command = Command::kHelp;
        return options;
    }
    if (command == "--version") {
        options.command = Command::kVersion;
        return options;
    }
    if (command == "convert")
        options.command = Command::kConvert;
    else if (command == "scan")
        options.command = Command::kScan;
    else {
        error = "unknown command \"" + command + "\"";
        return std::nullopt;
    }
    std::vector<std::string> positional;
    for (std::size_t i = 1; i < args.size(); ++i) {
        const std::string& arg = args[i];
        auto value = [&](const char* name) -> std::optional<std::string> {
            if (i + 1 >= args.size()) {
                error = std::string(name) + " needs a value";
                return std::nullopt;
            }
            return args[++i];
        };
        const bool convert = options.command == Command::kConvert;
        if (arg == "--help" || arg == "-h") {
            options.helpFor = options.command;
            options.command = Command::kHelp;
            return options;
        } else if (arg == "--hpj") {
            auto v = value("--hpj");
            if (!v) return std::nullopt;
            options.hpj = *v;
        } else if (arg == "--yes" || arg == "--no") {
            options.defaultAnswer = arg == "--yes" ? DefaultAnswer::kYes : DefaultAnswer::kNo;
        } else if (arg == "--answer" || arg.rfind("--answer=", 0) == 0) {
            std::string answer;
            if (arg == "--answer") {
                auto v = value("--answer");
                if (!v) return std::nullopt;
                answer = *v;
            } else {
                answer = arg.substr(9);
            }
            const std::size_t eq = answer.find('=');
            char* end = nullptr;
            errno = 0;
            const long id = eq == std::string::npos ? 0 : std::strtol(answer.c_str(), &end, 10);
            const int code = eq == std::string::npos ? 0 : AnswerCode(answer.substr(eq + 1));
            if (eq == std::string::npos || errno != 0 || end != answer.c_str() + eq || code == 0) {
                error =
                    "--answer takes ID=yes|no|ok|cancel|abort|retry|ignore, not \"" + answer + "\"";
                return std::nullopt;
            }
            options.answers[id] = code;
        } else if (convert && (arg == "--css" || arg.rfind("--css=", 0) == 0)) {
            options.css = true;
            if (arg.rfind("--css=", 0) == 0) options.cssName = arg.substr(6);
            if (options.cssName.empty()) {
                error = "--css= needs a style sheet name";
                return std::nullopt;
            }
        } else if (convert && arg == "--popups") {
            options.popups = true;
        } else if (convert && arg == "--keep-zero-ids") {
            options.keepZeroIds = true;
        } else if (arg == "--hm-maps") {
            options.hmMaps = true;
        } else if (convert && arg == "--quiet") {
            options.quiet = true;
        } else if (convert && arg == "--batch") {
            auto v = value("--batch");
            if (!v) return std::nullopt;
            options.batchFile = *v;
        } else if (!convert && arg == "--log") {
            auto v = value("--log");
            if (!v) return std::nullopt;
            options.logFile = *v;
        } else if (arg.rfind("--", 0) == 0) {
            error = "unknown option \"" + arg + "\"";
            return std::nullopt;
        } else {
            positional.push_back(arg);
        }
    }
    const bool convert = options.command == Command::kConvert;
    const bool batch = convert && (!options.batchFile.empty() || positional.size() > 2);
    if (batch) {
        if (positional.size() % 2 != 0) {
            error = "convert needs OLD.hhp and NEW for every project";
            return std::nullopt;
        }
        if (!options.hpj.empty()) {
            error = "a batch takes no --hpj; name each .hpj after its pair in a --batch file";
            return std::nullopt;
        }
        if (options.defaultAnswer == DefaultAnswer::kAsk) {
            error = "a batch asks no questions: give --yes or --no";
            return std::nullopt;
        }
        for (std::size_t i = 0; i < positional.size(); i += 2)
            options.batch.push_back({positional[i], positional[i + 1], {}});
        return options;
    }
    const std::size_t wanted = convert ? 2 : 1;
    if (positional.size() != wanted) {
        error = convert ? "convert needs OLD.hhp and NEW.hhp" : "scan needs OLD.hhp";
        return std::nullopt;
    }
    options.oldProject = positional[0];
    if (wanted == 2) options.newProject = positional[1];
    return options;
}

}  // namespace tamrix::cli
