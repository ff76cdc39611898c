#include "wizard/scan_step.h"

#include "messages/messages.h"
#include "model/conversion.h"
#include "model/project_state.h"
#include "parser/project_reader.h"
#include "parser/reference_resolution.h"
#include "parser/sitemap_reader.h"
#include "parser/winhelp_reader.h"
#include "platform/byte_text.h"
#include "platform/format.h"
#include "platform/path_helpers.h"
#include "platform/program_error.h"

namespace tamrix {
namespace {

using modMessages::GetMessageString;

bool ReadHtmlSide(Conversion& wizard) {
    if (!modParser::ParseProjectFile(wizard, wizard.Projectname, wizard.MissingCount,
                                     wizard.IncompleteData))
        return false;
    bool result = modUtilities::UpdateInternalReferences(wizard);
    if (!result) return false;
    wizard.IndexFile = modParser::GetIndexFileName(wizard, wizard.Projectname);
    if (!wizard.IndexFile.empty()) {
        wizard.Globals.IndexTargets = std::make_shared<CTargets>();
        result = modParser::ParseIndexFile(wizard, wizard.IndexFile);
    }
    wizard.ContentsFile = modParser::GetContentsFileName(wizard, wizard.Projectname);
    // A contents file named in the project but never written (as in many real
    // projects) is treated like a missing index: nothing to read, no failure.
    if (!wizard.ContentsFile.empty() &&
        modUtilities::FileExists(wizard.Files, wizard.ContentsFile)) {
        wizard.Globals.ContentsTargets = std::make_shared<CTargets>();
        result = modParser::ParseContentsFile(wizard, wizard.ContentsFile);
    }
    return result;
}

bool ReadWinHelpSide(Conversion& wizard, bool result) {
    if (wizard.WinHelpProjectName.empty()) return result;
    if (!modParser::ParseWinProjectFile(wizard, wizard.WinHelpProjectName)) return false;
    const int mapFiles = wizard.Globals.MapFileCount;
    if (mapFiles >= 1) {
        modUtilities::InitializeProgressBar(wizard, mapFiles, "Parsing Map Files");
        for (int i = 1; i <= mapFiles; ++i) {
            result = modParser::ParseMapFile(
                wizard, wizard.Globals.MapFiles[static_cast<std::size_t>(i - 1)], i);
            modUtilities::UpdateProgressBar(wizard, i);
        }
    }
    if (result) modUtilities::CountExternalReferences(wizard);
    return result;
}

std::string ScanSummary(Conversion& wizard) {
    std::string summary;
    if (!wizard.Globals.DuplicateIncludes.empty()) {
        const auto pieces = Split(wizard.Globals.DuplicateIncludes, '^');
        summary += "\r\n" + GetMessageString(10053, std::to_string(pieces.size()));
        for (const auto& piece : pieces) summary += "\r\n" + piece;
    }
    if (wizard.Globals.DuplicateContextIDs) {
        summary += "\r\n" + GetMessageString(
                                10057, std::to_string(wizard.Globals.DuplicateContextIDs->Count()));
        for (const auto& id : *wizard.Globals.DuplicateContextIDs) {
            summary += "\r\n" + id->ContextString + "=" + id->ContextID;
            const auto index = static_cast<std::size_t>(id->MapFileIndex);
            if (index >= 1 && index <= wizard.Globals.MapFiles.size())
                summary +=
                    " in: " + modUtilities::FileNameNoPath(wizard.Globals.MapFiles[index - 1]);
        }
    }
    if (!wizard.Globals.RenamedTopicIDs.empty()) {
        const auto pieces = Split(wizard.Globals.RenamedTopicIDs, '^');
        summary += GetMessageString(10065, std::to_string(pieces.size() - 1));
        for (const auto& piece : pieces) summary += "\r\n" + piece;
    }
    if (const int unread = wizard.Globals.UnreadNameValueLines; unread > 0) {
        summary += "\r\n" + std::to_string(unread) + (unread == 1 ? " line" : " lines") +
                   " of the map files defining an ID as \"NAME VALUE\" (as Visual C++ writes "
                   "them) not read. To read them, tick Options/\"Read Name-Value Lines in Map "
                   "Files\" and scan again.\r\n";
    }
    if (!wizard.Globals.InvalidContextIDs.empty()) {
        const auto pieces = Split(wizard.Globals.InvalidContextIDs, '^');
        summary += "There were" + SignedText(static_cast<long long>(pieces.size())) +
                   " Context IDs with an invalid value:\r\n";
        for (const auto& piece : pieces) summary += piece + "\r\n";
    }
    return summary;
}

}  // namespace

bool ScanProjectFiles(Conversion& wizard) {
    return Guarded(wizard.Errors, "frmWizard:ScanProjectFiles", false, [&]() -> bool {
        if (wizard.Projectname.empty()) {
            modMessages::ShowMessage(wizard.View(), modMessages::FromCatalogue(10008), mb::kOKOnly,
                                     "Parsing Project File", wizard.Box());
            return false;
        }
        wizard.Globals.CloseProject();
        wizard.Globals.InvalidContextIDs.clear();
        wizard.Globals.ContentsTopic.clear();
        wizard.MissingCount = 0;
        wizard.ScanComplete = false;
        wizard.IncompleteData = false;
        modUtilities::ShowProgressBar(wizard, true);

        bool result = ReadHtmlSide(wizard);
        if (result &&
            !modUtilities::CheckProjectValidity(wizard.Errors, wizard.Globals.TopicFiles.get())) {
            wizard.SetProgressCaption(GetMessageString(10027));
            return false;
        }
        if (!result) return false;

        wizard.Globals.ClearWinHelpData();
        result = ReadWinHelpSide(wizard, result);
        if (result) wizard.ScanComplete = true;

        const int missing = wizard.MissingCount;
        const std::string n = FormatNumber(missing, "0");
        if (wizard.IncompleteData) {
            wizard.SetProgressCaption(missing != 0
                                          ? GetMessageString(10045, n, missing != 1 ? "s." : ".")
                                          : GetMessageString(10047));
            return result;
        }
        wizard.SetProgressCaption(missing != 0
                                      ? GetMessageString(10046, n, missing == 1 ? "." : "s.")
                                      : GetMessageString(10026));
        wizard.StepMessage.clear();
        const std::string summary = ScanSummary(wizard);
        if (!summary.empty()) wizard.StepMessage = summary;
        return result;
    });
}

}  // namespace tamrix
