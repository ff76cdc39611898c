#include "messages/messages.h"
#include "model/project_state.h"
#include "platform/file_system.h"
#include "platform/format.h"
#include "platform/path_helpers.h"
#include "platform/program_error.h"
#include "platform/program_identity.h"
#include "reports/rewrite_log.h"
#include "reports/table_line.h"
#include "rewrite/containment.h"

#include "model/conversion.h"
namespace tamrix::modUtilities {
namespace {

std::string Count(long n) { return FormatNumber(static_cast<double>(n), "0"); }

// A heading and its names after an empty line; nothing when there are none.
void AddNamedList(IReport& report, const std::string& heading,
                  const std::vector<std::string>& names) {
    if (names.empty()) return;
    report.AddLine("");
    report.AddLine(heading);
    for (const std::string& name : names) report.AddLine(name);
}

long DefinedCount(const std::shared_ptr<CContextIDs>& ids) {
    long n = 0;
    for (const auto& id : *ids) n += id->FileDefined ? 1 : 0;
    return n;
}

// The map file a context ID came from. The entry one below its number is read
// here, where the scan log reads the entry at its number.
std::string MapFileName(Conversion& wizard, int mapFileIndex) {
    const long index = static_cast<long>(mapFileIndex) - 1;
    const auto& files = wizard.Globals.MapFiles;
    if (index < 0 || index >= static_cast<long>(files.size())) return {};
    return FileNameNoPath(files[static_cast<std::size_t>(index)]);
}

void WriteAliasCounts(Conversion& wizard, CSummary& report) {
    const ProjectState& g = wizard.Globals;
    if (g.ProjectContextIDs && g.ProjectContextIDs->Count() > 0) {
        const long n = DefinedCount(g.ProjectContextIDs);
        if (n > 0)
            report.AddLine("Wrote " + Count(n) +
                           " aliases for map file entries in the WinHelp project file.");
    }
    if (g.MapContextIDs && g.MapContextIDs->Count() > 0) {
        const long n = DefinedCount(g.MapContextIDs);
        if (n > 0) {
            report.AddLine("");
            report.AddLine("Wrote " + Count(n) +
                           " aliases for map files referenced in the WinHelp project.");
        }
    }
    if (g.ProjectAliases && g.ProjectAliases->Count() > 0) {
        long n = 0;
        for (const auto& alias : *g.ProjectAliases) n += alias->AliasFound ? 1 : 0;
        if (n > 0) {
            report.AddLine("");
            report.AddLine("Rewrote " + Count(n) +
                           " aliases for alias entries in the WinHelp project file.");
        }
    }
}

void WriteUnaliased(Conversion& wizard, CSummary& report, int undefinedCount, int zeroCount) {
    const ProjectState& g = wizard.Globals;
    if (undefinedCount + zeroCount == 0) return;
    if (zeroCount != 0) {
        report.AddLine("");
        report.AddLine("There were " + Count(zeroCount) + " zero value context ID's" +
                       (g.IgnoreZeroIDs ? "that were ignored." : "."));
    }
    report.AddLine("");
    report.AddLine("There were " +
                   Count(g.IgnoreZeroIDs ? undefinedCount : undefinedCount + zeroCount) +
                   " context ID's for which no alias was found.");
    report.AddLine("");
    report.AddLine("Aliases were not found for these Context ID's:");
    report.AddLine("");
    report.AddLine(TableLine().Put(1, "Context ID:").Put(36, "Value:").Put(46, "Map File:").Full());
    report.AddLine(TableLine()
                       .Put(1, std::string(12, '-'))
                       .Put(36, std::string(6, '-'))
                       .Put(46, std::string(10, '-'))
                       .Full());
    if (g.ProjectContextIDs) {
        for (const auto& id : *g.ProjectContextIDs)
            if (!id->FileDefined && id->ContextIDVal != 0)
                report.AddLine(TableLine().Put(1, id->ContextString).Put(36, id->ContextID).Full());
    }
    if (g.MapContextIDs) {
        for (const auto& id : *g.MapContextIDs) {
            if (id->FileDefined || (g.IgnoreZeroIDs && id->ContextIDVal == 0)) continue;
            report.AddLine(TableLine()
                               .Put(1, id->ContextString)
                               .Put(36, id->ContextID)
                               .Put(46, MapFileName(wizard, id->MapFileIndex))
                               .Full());
        }
    }
}

}  // namespace

bool WriteRewriteLog(Conversion& wizard, CSummary& report, int undefinedCount, int zeroCount) {
    return Guarded(wizard.Errors, "modUtilities:MakeRewriteLogSummary", false, [&] {
        const std::string projectName = FileNameNoPath(wizard.Projectname);
        report.SetName("Write Summary Results for HTML Project: " + projectName);
        report.OpenSummary(0);
        report.AddLine("Project Write Results for Converted HTML Help Project: " + projectName);
        report.AddLine("");
        report.AddLine("Tamrix Version " + VersionString());
        report.AddLine(LogDateText());
        report.AddLine("");
        report.AddLine("HTML Project File:");
        report.AddLine(wizard.Projectname);
        report.AddLine("");
        if (!wizard.WinHelpProjectName.empty()) {
            report.AddLine("Original WinHelp 4 Project File:");
            report.AddLine(wizard.WinHelpProjectName);
        }
        report.AddLine("");
        report.AddLine("New project written in: ");
        report.AddLine(wizard.NewRootPath);
        report.AddLine("New project name: " + wizard.NewProjectName);
        if (!wizard.IndexFile.empty())
            report.AddLine("Rewrote Index File: " + FileNameNoPath(wizard.IndexFile));
        if (!wizard.ContentsFile.empty())
            report.AddLine("Rewrote Contents File: " + FileNameNoPath(wizard.ContentsFile));

        const auto& topics = wizard.Globals.TopicFiles;
        report.AddLine("Rewrote " + Count(topics ? topics->Count() : 0) +
                       " .htm files in folder html/.");
        std::string hotspotFiles;
        long hotspotCount = 0;
        if (topics) {
            for (const auto& topic : *topics) {
                if (topic->HotSpotCount == 0) continue;
                hotspotFiles += topic->NewFileName + "\r\n";
                ++hotspotCount;
            }
        }
        if (hotspotCount > 0) {
            report.AddLine(modMessages::GetMessageString(10048, Count(hotspotCount)));
            report.AddLine(hotspotFiles);
            report.AddLine("");
        }

        WriteAliasCounts(wizard, report);
        WriteUnaliased(wizard, report, undefinedCount, zeroCount);

        AddNamedList(report, "Files refused because they would lie outside the new project folder:",
                     wizard.Globals.RefusedFiles);
        AddNamedList(report,
                     "Topic files that keep their old names because their topic IDs cannot be "
                     "file names:",
                     wizard.Globals.RefusedTopicIDs);
        AddNamedList(report,
                     "Topic files that keep their old names because another topic file has the "
                     "new name:",
                     wizard.Globals.ClashingTopicIDs);
        const auto& refusedWrites = wizard.Files.RefusedWrites();
        if (!refusedWrites.empty()) {
            report.AddLine("");
            report.AddLine("Files not written:");
            for (const auto& write : refusedWrites)
                report.AddLine(write.path + ": " + write.reason + ".");
        }
        return true;
    });
}

}  // namespace tamrix::modUtilities
