#include "cli/summary.h"

#include <ostream>
#include "model/conversion.h"

#include "model/project_state.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"
#include "rewrite/containment.h"
#include "wizard/wizard.h"

namespace tamrix::cli {
namespace {

std::string ProjectFile(Wizard& wizard) {
    return modUtilities::MakeFullPathforFile(wizard.NewRootPath, wizard.NewProjectName);
}

std::string TopicPath(Wizard& wizard, const CTopicFile& topic) {
    return modUtilities::MakeFullPathforFile(wizard.NewRootPath, topic.NewNamePath());
}

struct TopicCounts {
    long total = 0;
    long written = 0;
    long renamed = 0;
};

TopicCounts CountTopics(Wizard& wizard) {
    TopicCounts counts;
    if (!wizard.Globals.TopicFiles) return counts;
    for (const auto& topic : *wizard.Globals.TopicFiles) {
        ++counts.total;
        if (!wizard.Files.Written(TopicPath(wizard, *topic))) continue;
        ++counts.written;
        counts.renamed += topic->NewFileName != topic->AutoFileName ? 1 : 0;
    }
    return counts;
}

long CarriedOverIds(const ProjectState& project) {
    long n = 0;
    for (const auto& ids : {project.MapContextIDs, project.ProjectContextIDs})
        if (ids)
            for (const auto& id : *ids) n += id->FileDefined ? 1 : 0;
    return n;
}

}  // namespace

std::vector<std::string> ConversionProblems(Wizard& wizard, int errorReports) {
    std::vector<std::string> problems;
    FileSystem& fs = wizard.Files;
    if (!fs.Written(ProjectFile(wizard)))
        problems.push_back("The new project file was not written: " + ProjectFile(wizard));
    const TopicCounts topics = CountTopics(wizard);
    if (topics.written < topics.total)
        problems.push_back(std::to_string(topics.total - topics.written) + " of " +
                           std::to_string(topics.total) + " topic files were not written.");
    for (const auto& refused : fs.RefusedWrites())
        problems.push_back("Refused to write " + refused.path + ": " + refused.reason + ".");
    for (const std::string& name : wizard.Globals.RefusedFiles)
        problems.push_back("Not written, it would lie outside the new project folder: " + name);
    if (errorReports > 0)
        problems.push_back(std::to_string(errorReports) + " error report(s) during the run.");
    return problems;
}

void PrintSummary(Wizard& wizard, const std::vector<std::string>& problems, bool quiet,
                  std::ostream& out, std::ostream& err) {
    if (!problems.empty()) {
        err << "tamrix-cli: the conversion finished with problems:\n";
        for (const std::string& problem : problems) err << "  " << problem << "\n";
    }
    if (quiet) return;
    const std::string project = ProjectFile(wizard);
    if (wizard.Files.Written(project)) out << "New project:            " << project << "\n";
    const TopicCounts topics = CountTopics(wizard);
    out << "Topic files renamed:    " << topics.renamed << " of " << topics.total << "\n"
        << "Context IDs carried:    " << CarriedOverIds(wizard.Globals) << "\n"
        << "Popups extracted:       " << wizard.NumPopupStrings << " to popups.js, "
        << wizard.NumTextPopups << " to cshelp.txt\n"
        << "Popup links activated:  " << (wizard.PopupsActivated ? "yes" : "no") << "\n"
        << "Logs:                   ";
    bool first = true;
    for (const char* log : {"scan.log", "rewrite.log", "popups.log"}) {
        const std::string path = modUtilities::MakeFullPathforFile(wizard.NewRootPath, log);
        if (!wizard.Files.Written(path)) continue;
        out << (first ? "" : "\n                        ") << path;
        first = false;
    }
    out << "\n";
}

}  // namespace tamrix::cli
