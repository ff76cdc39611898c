#include "reports/popup_log.h"

#include <algorithm>
#include <unordered_map>
#include <vector>
#include "model/conversion.h"

#include "model/context_id_index.h"
#include "model/project_state.h"
#include "platform/byte_text.h"
#include "platform/counter16.h"
#include "platform/format.h"
#include "platform/path_helpers.h"
#include "platform/program_error.h"
#include "platform/program_identity.h"
#include "popups/popup_writers.h"
#include "reports/table_line.h"

namespace tamrix::modUtilities {
namespace {

using Topic = std::shared_ptr<CTopicFile>;

struct PopupCounts {
    Counter16 script;  // referenced from other topic files
    Counter16 app;     // referenced through map-file context IDs
    Counter16 both;
};

bool IsScriptPopup(const CTopicFile& t) { return !t.HasTitle && t.InternalReferences > 0; }
bool IsAppPopup(const CTopicFile& t) { return !t.HasTitle && t.ExternalReferences > 0; }
bool IsBothPopup(const CTopicFile& t) {
    return !t.HasTitle && t.InternalReferences >= 1 && t.ExternalReferences >= 1;
}

PopupCounts CountPopups(const CTopicFiles* topics) {
    PopupCounts counts;
    if (topics == nullptr) return counts;
    for (const Topic& t : *topics) {
        if (IsScriptPopup(*t)) ++counts.script;
        if (IsAppPopup(*t)) ++counts.app;
        if (IsBothPopup(*t)) ++counts.both;
    }
    return counts;
}

std::string Dashes(std::size_t n) { return std::string(n, '-'); }

class PopupLog {
public:
    PopupLog(Conversion& wizard, CSummary& report, const CTopicFiles* topics)
        : wizard_(wizard), report_(report), topics_(topics) {}

    void Write(const PopupCounts& counts);

private:
    void Line(const std::string& text) { report_.AddLine(text); }
    void Row(const TableLine& line) { report_.AddLine(line.Full()); }
    void Advance() { UpdateProgressBar(wizard_, ++progress_); }

    void ScriptTable(const PopupCounts& counts);
    void AppTable(const PopupCounts& counts);
    void BothList(const PopupCounts& counts);
    // NewFileName of every topic file per link target it holds, by folded target.
    std::unordered_map<std::string, std::vector<std::string>> ReferencingFiles() const;

    Conversion& wizard_;
    CSummary& report_;
    const CTopicFiles* topics_;
    long progress_ = 0;
};

void PopupLog::Write(const PopupCounts& counts) {
    Line("Popup Extraction Results for HTML Project: " + FileNameNoPath(wizard_.Projectname));
    Line("Tamrix Version " + VersionString());
    Line(LogDateText());
    Line("");
    Line("HTML Project File: " + wizard_.Projectname);
    if (!wizard_.WinHelpProjectName.empty()) {
        Line("");
        Line("Original WinHelp 4 Project File: " + wizard_.WinHelpProjectName);
    }
    Line("");
    // A topic referenced both ways counts twice here.
    Line("Text was extracted from a total of" + SignedText(counts.script + counts.app) +
         " untitled files.");
    if (counts.both > 0)
        Line("There were" + SignedText(counts.both) +
             " files that were extracted to both \"popups.js\" and \"cshelp.txt\".");
    Line("");
    if (counts.script > 0) ScriptTable(counts);
    if (counts.app > 0) AppTable(counts);
    if (counts.both > 0) BothList(counts);
    if (topics_ == nullptr) return;
    const std::vector<std::string> leftOut = modPopups::LeftOutScriptPopups(*topics_);
    if (leftOut.empty()) return;
    Line("");
    Line("Left out of \"popups.js\" because their topic IDs are not script names:");
    for (const std::string& name : leftOut) Line(name);
}

std::unordered_map<std::string, std::vector<std::string>> PopupLog::ReferencingFiles() const {
    std::unordered_map<std::string, std::vector<std::string>> byTarget;
    for (const Topic& t : *topics_)
        for (const auto& target : t->targets())
            byTarget[Fold(target.TargetString)].push_back(t->NewFileName);
    return byTarget;
}

void PopupLog::ScriptTable(const PopupCounts& counts) {
    Line("");
    Line("Strings in \"popups.js\" were extracted from the following" + SignedText(counts.script) +
         " untitled files");
    Line("that are referenced from other .htm files within the project:");
    Row(TableLine());
    Row(TableLine().Put(1, ".htm File:").Put(30, "Topic_ID's:").Put(58, "Referenced From File:"));
    Row(TableLine().Put(1, Dashes(10)).Put(30, Dashes(17)).Put(58, Dashes(20)));
    Line("");
    const auto referencing = ReferencingFiles();
    static const std::vector<std::string> kNone;
    for (const Topic& t : *topics_) {
        if (!IsScriptPopup(*t)) continue;
        const std::vector<std::string> extras = Split(t->ExtraIds, '^');
        const auto found = referencing.find(Fold(t->AutoFileName));
        const std::vector<std::string>& files = found == referencing.end() ? kNone : found->second;
        const std::size_t rows = std::max(files.size(), extras.size() + 1);
        TableLine first;
        first.Put(1, t->NewFileName).Put(30, t->Context);
        if (!files.empty()) first.Put(58, files[0]);
        Row(first);
        for (std::size_t i = 2; i <= rows; ++i) {
            // Extra ID and referencing file share the column; the file overwrites.
            TableLine row;
            if (extras.size() >= i - 1) row.Put(58, extras[i - 2]);
            if (files.size() >= i) row.Put(58, files[i - 1]);
            Row(row);
        }
        Advance();
    }
}

void PopupLog::AppTable(const PopupCounts& counts) {
    Line("");
    Line("Strings in \"cshelp.txt\" were extracted from the following" + SignedText(counts.app) +
         " untitled files");
    Line("that are referenced from an external application using context ID's in a map file:");
    Row(TableLine());
    Row(TableLine()
            .Put(1, ".htm File:")
            .Put(30, "Context_ID:")
            .Put(58, "Value:")
            .Put(68, "Map File:"));
    Row(TableLine().Put(1, Dashes(10)).Put(30, Dashes(17)).Put(58, Dashes(6)).Put(68, Dashes(10)));
    Line("");
    const ContextIDIndex definitions(wizard_.Globals.MapContextIDs.get(),
                                     wizard_.Globals.ProjectContextIDs.get());
    for (const Topic& t : *topics_) {
        if (!IsAppPopup(*t)) continue;
        TableLine row;
        row.Put(1, t->NewFileName);
        bool first = true;
        for (const auto& [id, withMapFile] : definitions.Named(t->Context)) {
            if (!id->FileDefined) continue;
            if (!first) row = TableLine();
            first = false;
            row.Put(30, id->ContextString).Put(58, id->ContextID);
            if (withMapFile) {
                // One below the 1-based index, as this log has always read the list.
                const long index = static_cast<long>(id->MapFileIndex) - 1;
                if (index >= 0 && index < static_cast<long>(wizard_.Globals.MapFiles.size()))
                    row.Put(68, FileNameNoPath(
                                    wizard_.Globals.MapFiles[static_cast<std::size_t>(index)]));
            }
            Row(row);
        }
        Advance();
    }
}

void PopupLog::BothList(const PopupCounts& counts) {
    Line("");
    Line("The following" + SignedText(counts.both) +
         " untitled files were referenced from both sources.");
    Line("Text from these files appears in both \"popups.js\" and \"cshelp.txt.\"");
    Row(TableLine());
    Row(TableLine().Put(1, ".htm File:"));
    Row(TableLine().Put(1, Dashes(10)));
    Line("");
    for (const Topic& t : *topics_) {
        if (!IsBothPopup(*t)) continue;
        Line(t->NewFileName);
        Advance();
    }
}

}  // namespace

bool MakePopupLogSummary(Conversion& wizard, CSummary& report) {
    return Guarded(wizard.Errors, "modUtilities:MakePopupLogSummary", false, [&] {
        const CTopicFiles* topics = wizard.Globals.TopicFiles.get();
        const PopupCounts counts = CountPopups(topics);
        const long total = static_cast<long>(counts.script) + counts.app + counts.both;
        if (total > 0)
            InitializeProgressBar(wizard, total + 1, "Generating Popups Extraction Log ...");
        report.SetName("Popup Extraction Summary");
        report.OpenSummary(0);
        PopupLog(wizard, report, topics).Write(counts);
        return true;
    });
}

}  // namespace tamrix::modUtilities
