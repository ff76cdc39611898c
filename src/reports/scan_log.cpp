#include "reports/scan_log.h"

#include <string>
#include "model/conversion.h"

#include "messages/messages.h"
#include "model/project_state.h"
#include "platform/byte_text.h"
#include "platform/format.h"
#include "platform/path_helpers.h"
#include "platform/program_error.h"
#include "platform/program_identity.h"
#include "reports/table_line.h"

namespace tamrix::modUtilities {
namespace {

std::string Ruler(std::size_t n) { return std::string(n, '-'); }

std::string FileOrNone(Conversion& wizard, const std::string& path) {
    return path.empty() || !FileExists(wizard.Files, path) ? std::string("None.") : path;
}

void AddWinHelpBlock(const Conversion& wizard, IReport& report) {
    const ProjectState& g = wizard.Globals;
    report.AddLine("");
    report.AddLine("Original WinHelp 4 Project File: " + wizard.WinHelpProjectName);
    report.AddLine("");
    report.AddLine("Data Extracted from WinHelp 4 Project File:");
    report.AddLine(Ruler(45));
    if (g.MapFileCount > 0) {
        report.AddLine(" Map Files: " + FormatNumber(g.MapFileCount, "0"));
        for (int i = 0; i < g.MapFileCount && i < static_cast<int>(g.MapFiles.size()); ++i)
            report.AddLine("    " + g.MapFiles[static_cast<std::size_t>(i)]);
    }
    if (g.ProjectContextIDs && g.ProjectContextIDs->Count() > 0)
        report.AddLine(" Map Definitions in WinHelp File: " +
                       FormatNumber(static_cast<double>(g.ProjectContextIDs->Count()), "0"));
    if (g.AliasFileCount > 0) {
        report.AddLine(" Alias Files: " + FormatNumber(g.AliasFileCount, "0"));
        for (int i = 0; i < g.AliasFileCount && i < static_cast<int>(g.AliasFiles.size()); ++i)
            report.AddLine("    " + g.AliasFiles[static_cast<std::size_t>(i)]);
    }
    if (g.ProjectAliases && g.ProjectAliases->Count() > 0)
        report.AddLine(" Alias Definitions in WinHelp File: " +
                       FormatNumber(static_cast<double>(g.ProjectAliases->Count()), "0"));

    long defined = 0;
    if (g.MapContextIDs) defined += g.MapContextIDs->Count();
    if (g.ProjectContextIDs) defined += g.ProjectContextIDs->Count();
    report.AddLine("");
    report.AddLine(" Number of ContextID's defined = " + SignedText(defined));

    if (!g.DuplicateIncludes.empty()) {
        report.AddLine("");
        report.AddLine(" Duplicate #Included Map Files:");
        for (const std::string& entry : Split(g.DuplicateIncludes, '^')) report.AddLine(entry);
    }
    if (g.DuplicateContextIDs) {
        report.AddLine("");
        report.AddLine(" There were redefinitions of ContextID that were ignored:");
        report.AddLine(
            TableLine().Put(1, "Map File:").Put(20, "Context ID:").Put(56, "New value:").Full());
        report.AddLine(TableLine().Put(1, Ruler(10)).Put(20, Ruler(17)).Put(56, Ruler(12)).Full());
        report.AddLine("");
        for (const auto& redefinition : *g.DuplicateContextIDs) {
            std::string where = "in [MAP]";
            if (g.MapFileCount >= 1) {
                // Indexed by MapFileIndex itself; a slot past the listed files is blank.
                const auto index = static_cast<std::size_t>(redefinition->MapFileIndex);
                where =
                    index < g.MapFiles.size() ? FileNameNoPath(g.MapFiles[index]) : std::string();
            }
            report.AddLine(TableLine()
                               .Put(1, where)
                               .Put(20, redefinition->ContextString)
                               .Put(56, redefinition->ContextID)
                               .Full());
        }
    }
    if (!g.InvalidContextIDs.empty()) {
        report.AddLine("");
        report.AddLine(" Context ID's with out-of-range Values:");
        // The entries listed under this heading are those of the duplicate includes.
        for (const std::string& entry : Split(g.DuplicateIncludes, '^')) report.AddLine(entry);
    }
}

void AddTopicBlock(Conversion& wizard, IReport& report, const CTopicFiles& topicFiles) {
    report.AddLine("");
    report.AddLine("Data extracted from HTML Help Project File created by HTML Workshop:");
    report.AddLine(Ruler(75));
    report.AddLine("");
    report.AddLine(" Topic Files (total): " +
                   GeneralNumber(static_cast<double>(topicFiles.Count())));
    if (!wizard.ScanComplete)
        report.AddLine(
            " WARNING: The scan of the project file was interrupted. Not all files may "
            "have been scanned.");
    if (wizard.MissingCount != 0)
        report.AddLine(" WARNING: " + FormatNumber(wizard.MissingCount, "0") +
                       (wizard.MissingCount == 1 ? " topic file was not found."
                                                 : " topic files were not found."));
    report.AddLine(" Untitled Topics: " + Trim(wizard.UntitledCountText) +
                   " (may be converted popups)");
    report.AddLine("");
    report.AddLine(
        " Note - in the listing below, the new .htm file name will be\r\n"
        "derived from the first Winhelp Topic_ID.");
    report.AddLine("");
    report.AddLine(TableLine()
                       .Put(1, ".htm File:")
                       .Put(20, "WinHelp Topic_ID's:")
                       .Put(56, "WinHelp Topic Title:")
                       .Full());
    report.AddLine(TableLine().Put(1, Ruler(10)).Put(20, Ruler(17)).Put(56, Ruler(20)).Full());
    report.AddLine("");

    long position = 0;
    for (const auto& topic : topicFiles) {
        if (!topic->HasTitle) continue;
        if (!DisplayTopicFile(*topic, report, true, wizard)) break;
        UpdateProgressBar(wizard, ++position);
    }

    report.AddLine("");
    report.AddLine("     Topic Files Without Titles:");
    report.AddLine(Ruler(64));
    report.AddLine("");
    report.AddLine(TableLine()
                       .Put(1, ".htm File:")
                       .Put(20, "WinHelp Topic_ID's:")
                       .Put(50, "Number of Internal (from other .htm Files)")
                       .Full());
    report.AddLine(TableLine().Put(50, "And External(via Map Files) References:").Full());
    report.AddLine(TableLine().Put(52, "Internal:").Put(66, "External:").Full());
    report.AddLine(TableLine().Put(1, Ruler(10)).Put(20, Ruler(17)).Put(50, Ruler(37)).Full());
    report.AddLine("");
    for (const auto& topic : topicFiles) {
        if (topic->HasTitle) continue;
        DisplayTopicFile(*topic, report, false, wizard);
        UpdateProgressBar(wizard, ++position);
    }
}

}  // namespace

bool MakeScanLogSummary(Conversion& wizard, CSummary& report) {
    return Guarded(wizard.Errors, "modUtilities:MakeScanLogSummary", false, [&] {
        // Printing lays the 144-column lines out in landscape; nothing to set up here.
        const auto& topicFiles = wizard.Globals.TopicFiles;
        InitializeProgressBar(wizard, topicFiles ? topicFiles->Count() : 0,
                              "Generating Scan Log ...");
        report.SetName("Scan Summary");
        report.OpenSummary(0);

        report.AddLine("Scan Results for HTML Project: " + FileNameNoPath(wizard.Projectname));
        report.AddLine("Tamrix Version " + VersionString());
        report.AddLine(LogDateText());
        report.AddLine("");
        report.AddLine("HTML Project File: " + wizard.Projectname);
        report.AddLine("HTML Contents File: " + FileOrNone(wizard, wizard.ContentsFile));
        report.AddLine("HTML Index File: " + FileOrNone(wizard, wizard.IndexFile));

        if (!wizard.WinHelpProjectName.empty()) AddWinHelpBlock(wizard, report);

        if (!topicFiles) {
            report.AddLine(
                "No Topic Files were found in the project file. Terminating the log file");
            return true;
        }
        AddTopicBlock(wizard, report, *topicFiles);
        return true;
    });
}

bool DisplayTopicFile(const CTopicFile& topic, IReport& report, bool titleFlag,
                      Conversion& wizard) {
    return Guarded(wizard.Errors, "modUtilities:DisplayTopicFile", false, [&] {
        TableLine first;
        first.Put(1, FileNameNoPath(topic.AutoNamePath)).Put(20, topic.Context);
        std::string third = topic.TopicTitle;
        if (!titleFlag) {
            third = SignedText(topic.InternalReferences) +
                    std::string(topic.InternalReferences < 10 ? 10 : 9, ' ') +
                    SignedText(topic.ExternalReferences);
        }
        const std::size_t used = first.Trimmed().size();
        first.Put(used >= 55 ? used + 2 : 56, third);
        report.AddLine(first.Trimmed());

        if (!topic.ExtraIds.empty()) {
            for (const std::string& extra : Split(topic.ExtraIds, '^'))
                report.AddLine(TableLine().Put(20, extra).Full());
        }
        if (!topic.Comment.empty()) report.AddLine("( " + topic.Comment + " )");

        const long count = topic.targets().Count();
        if (count == 0) return true;
        report.AddLine(
            TableLine()
                .Put(20 / 4, "\" Contains ")
                .Put(60 / 4, count == 1 ? std::string(" 1 Link: ") : SignedText(count) + " Links: ")
                .TrimmedRight());

        const auto& topicFiles = wizard.Globals.TopicFiles;
        for (const auto& target : topic.targets()) {
            const std::string& text = target.TargetString;
            const std::string line = TrimRight(std::string(20 / 2, ' ') + text);
            std::string anchor;
            std::string file = text;
            const std::size_t hash = text.find('#');
            if (hash != std::string::npos) {
                anchor = text.substr(hash);
                file = hash == 0 ? topic.AutoFileName : text.substr(0, hash);
            }
            if (file.empty()) {
                report.AddLine(line);
                continue;
            }
            const CTopicFile* found = !topicFiles ? nullptr
                                      : hash == 0 ? topicFiles->Find(file).get()
                                                  : topicFiles->TargetTopic(target);
            if (found != nullptr) {
                report.AddLine(line + " = " + found->NewFileName + anchor);
                continue;
            }
            const int answer = modMessages::AskMessage(
                wizard.View(), modMessages::FromCatalogue(10052, file),
                mb::kOKCancel | mb::kInformation, "Reporting Scan Results", wizard.Box());
            if (answer == mb::kCancel) return false;
            report.AddLine(line);
        }
        return true;
    });
}

}  // namespace tamrix::modUtilities
