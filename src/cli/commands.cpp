#include "cli/commands.h"

#include <ostream>

#include "cli/check_command.h"
#include "cli/cli_view.h"
#include "cli/compile_command.h"
#include "model/project_state.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"
#include "platform/program_identity.h"
#include "wizard/wizard.h"

namespace tamrix::cli {
namespace {

const char* const kStepNames[] = {"Introduction", "HTML Project File", "WinHelp Project File",
                                  "New HTML Project", "Activating Popups", "Finished"};

// Presses Next; false (with a note) when the wizard stays where it is.
bool Next(Wizard& wizard, std::ostream& err) {
    const int before = wizard.CurrentStep();
    wizard.cmdNav_Click(kNavNext);
    if (wizard.CurrentStep() > before) return true;
    err << "tamrix-cli: stopped at step " << before << " (" << kStepNames[before] << ")\n";
    return false;
}

std::string Absolute(const std::string& path) {
    return path.empty() ? path : SharedFileSystem().GetAbsolutePathName(path);
}

// Steps 0 to 2: the project, the WinHelp project, the scan.
bool Scan(Wizard& wizard, const CliOptions& options, std::ostream& err) {
    wizard.Start();
    if (options.keepZeroIds) wizard.mnuOptionsIgnoreZeroIDs_Click();
    if (options.hmMaps) wizard.mnuOptionsReadNameValue_Click();
    if (!Next(wizard, err)) return false;
    wizard.controls.txtProjectName = Absolute(options.oldProject);
    if (!Next(wizard, err)) return false;
    wizard.controls.txtWinhelpProjectName = Absolute(options.hpj);
    return Next(wizard, err);
}

long CarriedOverIds() {
    long n = 0;
    for (const auto& ids : {modGlobals::MapContextIDs, modGlobals::ProjectContextIDs})
        if (ids)
            for (const auto& id : *ids) n += id->FileDefined ? 1 : 0;
    return n;
}

void PrintSummary(const Wizard& wizard, std::ostream& out) {
    long renamed = 0;
    if (modGlobals::TopicFiles)
        for (const auto& topic : *modGlobals::TopicFiles)
            renamed += topic->NewFileName != topic->AutoFileName ? 1 : 0;
    const std::string root = wizard.NewRootPath;
    out << "New project:            " << modUtilities::MakeFullPathforFile(root, wizard.NewProjectName)
        << "\n"
        << "Topic files renamed:    " << renamed << " of "
        << (modGlobals::TopicFiles ? modGlobals::TopicFiles->Count() : 0) << "\n"
        << "Context IDs carried:    " << CarriedOverIds() << "\n"
        << "Popups extracted:       " << wizard.NumPopupStrings << " to popups.js, "
        << wizard.NumTextPopups << " to cshelp.txt\n"
        << "Popup links activated:  " << (wizard.PopupsActivated ? "yes" : "no") << "\n"
        << "Logs:                   ";
    const char* logs[] = {"scan.log", "rewrite.log", "popups.log"};
    bool first = true;
    for (const char* log : logs) {
        const std::string path = modUtilities::MakeFullPathforFile(root, log);
        if (!modUtilities::FileExists(path)) continue;
        out << (first ? "" : "\n                        ") << path;
        first = false;
    }
    out << "\n";
}

int RunConvert(const CliOptions& options, CliView& view, std::ostream& out, std::ostream& err) {
    Wizard wizard(view);
    if (options.css) wizard.mnuOptionsHTML_Click();
    if (!Scan(wizard, options, err)) return 1;
    wizard.controls.txtRootPath = Absolute(options.newProject);
    if (!Next(wizard, err)) return 1;
    wizard.controls.optYesPopups = options.popups;
    wizard.controls.optNoPopups = !options.popups;
    if (!Next(wizard, err)) return 1;
    if (wizard.CurrentStep() != 5) return 1;
    if (!options.quiet) PrintSummary(wizard, out);
    return 0;
}

int RunScan(const CliOptions& options, CliView& view, std::ostream& out, std::ostream& err) {
    Wizard wizard(view);
    if (!Scan(wizard, options, err)) return 1;
    const CSummary* log = wizard.ScanLog();
    if (log == nullptr) {
        err << "tamrix-cli: the scan log could not be built\n";
        return 1;
    }
    if (!options.logFile) {
        out << log->Text();
        return 0;
    }
    if (!log->SaveAsTextFile(Absolute(*options.logFile))) {
        err << "tamrix-cli: cannot write " << *options.logFile << "\n";
        return 1;
    }
    return 0;
}

}  // namespace

int RunCli(const std::vector<std::string>& args, std::istream& in, std::ostream& out,
           std::ostream& err, bool interactive, bool showProgress) {
    if (!args.empty() && (args[0] == "check" || args[0] == "compile")) {
        const std::vector<std::string> rest(args.begin() + 1, args.end());
        return args[0] == "check" ? RunCheckCommand(rest, out, err) : RunCompileCommand(rest, out, err);
    }
    std::string error;
    const auto options = ParseArguments(args, error);
    if (!options) {
        err << "tamrix-cli: " << error << "\n\n" << UsageText();
        return 2;
    }
    switch (options->command) {
        case Command::kHelp: out << UsageText(); return 0;
        case Command::kVersion: out << "Tamrix " << VersionString() << "\n"; return 0;
        default: break;
    }
    modGlobals::ResetAll();
    CliView view(*options, in, err, interactive, showProgress);
    ScopedActiveView active(view);
    const int status = options->command == Command::kConvert ? RunConvert(*options, view, out, err)
                                                             : RunScan(*options, view, out, err);
    SharedFileSystem().SetWriteRoot({});
    return status;
}

}  // namespace tamrix::cli
