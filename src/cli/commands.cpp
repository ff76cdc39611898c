#include "cli/commands.h"

#include <ostream>
#include <sstream>

#include "cli/batch.h"
#include "cli/check_command.h"
#include "cli/cli_view.h"
#include "cli/compile_command.h"
#include "cli/interruption.h"
#include "cli/summary.h"
#include "model/project_state.h"
#include "platform/byte_text.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"
#include "platform/program_identity.h"
#include "wizard/wizard.h"

namespace tamrix::cli {
namespace {

const char* const kStepNames[] = {"Introduction",     "HTML Project File", "WinHelp Project File",
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
    return path.empty() ? path : FileSystem::GetAbsolutePathName(path);
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

// NEW as the user gave it, made the new project file: an existing folder, or a
// path ending in a separator, gets the old project's file name. Empty (with the
// reason in `error`) when NEW names neither a folder nor a .hhp file.
std::string NewProjectFile(FileSystem& fs, const CliOptions& options, std::string& error) {
    const std::string& given = options.newProject;
    if (given.empty()) {
        error = "NEW is empty";
        return {};
    }
    const bool folder =
        given.back() == '/' || given.back() == '\\' || modUtilities::FolderExists(fs, given);
    if (folder)
        return modUtilities::MakeFullPathforFile(given,
                                                 modUtilities::FileNameNoPath(options.oldProject));
    if (!EndsWithNoCase(given, ".hhp")) {
        error = "NEW must be a .hhp file or a folder, and \"" + given +
                "\" is neither (a folder must exist or end in \"/\")";
        return {};
    }
    return Absolute(given);
}

// Nothing is written into the input project's folders, logs included.
void ProtectInput(Wizard& wizard) {
    wizard.Files.SetInputFolders({modUtilities::FilePathOnly(wizard.Projectname),
                                  modUtilities::FilePathOnly(wizard.WinHelpProjectName)});
}

// The marker is a courtesy: where it cannot be written, the run goes on without it.
template <class F>
void Quietly(FileSystem& fs, F&& body) {
    try {
        body();
    } catch (...) {
    }
    fs.ClearRefusedWrites();
}

// Said when SIGINT or SIGTERM stops the run between two files.
void ReportInterruption(Wizard& wizard, std::ostream& err) {
    const int step = wizard.CurrentStep();
    err << "\ntamrix-cli: interrupted at step " << step << " (" << kStepNames[step] << ")";
    if (!wizard.ProgressCaption().empty()) err << ", " << wizard.ProgressCaption();
    err << ".\n";
    if (!wizard.NewRootPath.empty() && wizard.Files.FolderExists(wizard.NewRootPath))
        err << "tamrix-cli: the new project folder " << wizard.NewRootPath
            << " is incomplete; run the conversion again.\n";
    err << std::flush;
}

// The marker of a run in progress; one left by an earlier run means it was
// interrupted, and is said (and returned).
bool MarkRunInProgress(FileSystem& fs, const std::string& folder, std::ostream& err) {
    fs.SetRunMarker(kRunMarker);
    if (!fs.FolderExists(folder)) return false;  // written when the write step creates it
    if (!fs.FileExists(fs.BuildPath(folder, kRunMarker))) return false;
    err << "tamrix-cli: an earlier run into " << folder
        << " was interrupted; its files there may be incomplete.\n";
    return true;
}

// `alone`: the only conversion of the process, which says where an interruption stopped it.
int RunConvert(const CliOptions& options, CliView& view, std::ostream& out, std::ostream& err,
               bool alone = true) {
    Wizard wizard(view);
    FileSystem& fs = wizard.Files;
    fs.SetInterruptCheck(StopIfInterrupted);
    fs.KeepInputReads(true);  // the steps run straight through: each input file is read once
    std::string error;
    const std::string newProject = NewProjectFile(fs, options, error);
    if (newProject.empty()) {
        err << "tamrix-cli: " << error << "\n\n" << CommandUsageText(Command::kConvert);
        return 2;
    }
    if (alone) SetInterruptReport([&] { ReportInterruption(wizard, err); });
    if (options.css) wizard.mnuOptionsHTML_Click();
    if (!Scan(wizard, options, err)) return 1;
    const std::string folder = modUtilities::FilePathOnly(newProject);
    const bool earlierInterrupted = MarkRunInProgress(fs, folder, err);
    wizard.controls.txtRootPath = newProject;
    ProtectInput(wizard);
    if (fs.FolderExists(folder)) {
        fs.SetWriteRoot(folder);
        Quietly(fs, [&] { fs.WriteRunMarker(); });  // the write step refuses a wrong folder
    }
    wizard.PopupsChosenEarly = options.popups;
    const bool written = Next(wizard, err);
    fs.KeepInputReads(false);
    const bool finished = written && [&] {
        wizard.controls.optYesPopups = options.popups;
        wizard.controls.optNoPopups = !options.popups;
        return Next(wizard, err) && wizard.CurrentStep() == 5;
    }();
    const std::vector<std::string> problems =
        finished ? ConversionProblems(wizard, view.ErrorCount()) : std::vector<std::string>{};
    if (finished) PrintSummary(wizard, problems, options.quiet, out, err);
    // A normal end, also one at a step, unless the folder still holds what an
    // interrupted run left there.
    if (!fs.WriteRoot().empty() && (finished || !earlierInterrupted))
        Quietly(fs, [&] { fs.RemoveFile(fs.BuildPath(fs.WriteRoot(), kRunMarker)); });
    if (!finished) return 1;
    return problems.empty() ? 0 : 3;
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
    ProtectInput(wizard);
    if (!log->SaveAsTextFile(wizard.Files, Absolute(*options.logFile))) {
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
        return args[0] == "check" ? RunCheckCommand(rest, out, err)
                                  : RunCompileCommand(rest, out, err);
    }
    std::string error;
    const auto options = ParseArguments(args, error);
    if (!options) {
        err << "tamrix-cli: " << error << "\n\n" << UsageText();
        return 2;
    }
    switch (options->command) {
        case Command::kHelp:
            out << (options->helpFor == Command::kNone ? UsageText()
                                                       : CommandUsageText(options->helpFor));
            return 0;
        case Command::kVersion: out << "Tamrix " << VersionString() << "\n"; return 0;
        default: break;
    }
    SetInterruptReport([&err] { err << "\ntamrix-cli: interrupted.\n" << std::flush; });
    if (options->command == Command::kConvert &&
        (!options->batch.empty() || !options->batchFile.empty())) {
        const int status = RunBatch(
            *options,
            [](const CliOptions& one, std::ostream& projectOut, std::ostream& projectErr) {
                std::istringstream noAnswers;
                CliView view(one, noAnswers, projectErr, false, false);
                return RunConvert(one, view, projectOut, projectErr, false);
            },
            out, err);
        SetInterruptReport(nullptr);
        return status;
    }
    CliView view(*options, in, err, interactive, showProgress);
    const int status = options->command == Command::kConvert ? RunConvert(*options, view, out, err)
                                                             : RunScan(*options, view, out, err);
    SetInterruptReport(nullptr);
    return status;
}

}  // namespace tamrix::cli
