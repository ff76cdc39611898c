#include "wizard/scan_step.h"

#include "messages/messages.h"
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

bool ReadHtmlSide(WizardState& wizard) {
    if (!modParser::ParseProjectFile(wizard, wizard.Projectname, wizard.MissingCount,
                                     wizard.IncompleteData))
        return false;
    bool result = modUtilities::UpdateInternalReferences(wizard);
    if (!result) return false;
    wizard.IndexFile = modParser::GetIndexFileName(wizard.Projectname);
    if (!wizard.IndexFile.empty()) {
        modGlobals::IndexTargets = std::make_shared<CTargets>();
        result = modParser::ParseIndexFile(wizard.IndexFile);
    }
    wizard.ContentsFile = modParser::GetContentsFileName(wizard.Projectname);
    // A contents file named in the project but never written (as in many real
    // projects) is treated like a missing index: nothing to read, no failure.
    if (!wizard.ContentsFile.empty() && modUtilities::FileExists(wizard.ContentsFile)) {
        modGlobals::ContentsTargets = std::make_shared<CTargets>();
        result = modParser::ParseContentsFile(wizard.ContentsFile);
    }
    return result;
}

bool ReadWinHelpSide(WizardState& wizard, bool result) {
    if (wizard.WinHelpProjectName.empty()) return result;
    if (!modParser::ParseWinProjectFile(wizard, wizard.WinHelpProjectName)) return false;
    const int mapFiles = modGlobals::MapFileCount;
    if (mapFiles >= 1) {
        modUtilities::InitializeProgressBar(wizard, mapFiles, "Parsing Map Files");
        for (int i = 1; i <= mapFiles; ++i) {
            result =
                modParser::ParseMapFile(modGlobals::MapFiles[static_cast<std::size_t>(i - 1)], i);
            modUtilities::UpdateProgressBar(wizard, i);
        }
    }
    if (result) modUtilities::CountExternalReferences(wizard);
    return result;
}

std::string ScanSummary() {
    std::string summary;
    if (!modGlobals::DuplicateIncludes.empty()) {
        const auto pieces = Split(modGlobals::DuplicateIncludes, '^');
        summary += "\r\n" + GetMessageString(10053, std::to_string(pieces.size()));
        for (const auto& piece : pieces) summary += "\r\n" + piece;
    }
    if (modGlobals::DuplicateContextIDs) {
        summary += "\r\n" + GetMessageString(
                                10057, std::to_string(modGlobals::DuplicateContextIDs->Count()));
        for (const auto& id : *modGlobals::DuplicateContextIDs) {
            summary += "\r\n" + id->ContextString + "=" + id->ContextID;
            const auto index = static_cast<std::size_t>(id->MapFileIndex);
            if (index >= 1 && index <= modGlobals::MapFiles.size())
                summary += " in: " + modUtilities::FileNameNoPath(modGlobals::MapFiles[index - 1]);
        }
    }
    if (!modGlobals::RenamedTopicIDs.empty()) {
        const auto pieces = Split(modGlobals::RenamedTopicIDs, '^');
        summary += GetMessageString(10065, std::to_string(pieces.size() - 1));
        for (const auto& piece : pieces) summary += "\r\n" + piece;
    }
    if (const int unread = modGlobals::UnreadNameValueLines; unread > 0) {
        summary += "\r\n" + std::to_string(unread) + (unread == 1 ? " line" : " lines") +
                   " of the map files defining an ID as \"NAME VALUE\" (as Visual C++ writes "
                   "them) not read. To read them, tick Options/\"Read Name-Value Lines in Map "
                   "Files\" and scan again.\r\n";
    }
    if (!modGlobals::InvalidContextIDs.empty()) {
        const auto pieces = Split(modGlobals::InvalidContextIDs, '^');
        summary += "There were" + SignedText(static_cast<long long>(pieces.size())) +
                   " Context IDs with an invalid value:\r\n";
        for (const auto& piece : pieces) summary += piece + "\r\n";
    }
    return summary;
}

}  // namespace

bool ScanProjectFiles(WizardState& wizard) {
    return Guarded("frmWizard:ScanProjectFiles", false, [&]() -> bool {
        if (wizard.Projectname.empty()) {
            modMessages::ShowMessage(modMessages::FromCatalogue(10008), mb::kOKOnly,
                                     "Parsing Project File", wizard.Box());
            return false;
        }
        modGlobals::CloseProject();
        modGlobals::InvalidContextIDs.clear();
        modGlobals::ContentsTopic.clear();
        wizard.MissingCount = 0;
        wizard.ScanComplete = false;
        wizard.IncompleteData = false;
        modUtilities::ShowProgressBar(wizard, true);

        bool result = ReadHtmlSide(wizard);
        if (result && !modUtilities::CheckProjectValidity(modGlobals::TopicFiles.get())) {
            wizard.SetProgressCaption(GetMessageString(10027));
            return false;
        }
        if (!result) return false;

        modGlobals::ClearWinHelpData();
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
        const std::string summary = ScanSummary();
        if (!summary.empty()) wizard.StepMessage = summary;
        return result;
    });
}

}  // namespace tamrix
