#pragma once
// One conversion: the run state that the wizard hands to the readers, writers
// and log builders as their first argument (the wizard's public properties and
// its progress display), with its own file-system service and its view. Nothing
// is shared between two conversions, so two can run at once in one process. The
// step machine in src/wizard/ derives from it and adds the controls.
#include <string>

#include "model/project_state.h"
#include "platform/file_system.h"
#include "platform/program_error.h"
#include "platform/view.h"

namespace tamrix {

/// One conversion's state, file-system service and view.
class Conversion {
public:
    /// A conversion that shows its messages and progress on `view`.
    explicit Conversion(IView& view) : Errors(view), view_(view) {}
    virtual ~Conversion() = default;
    Conversion(const Conversion&) = delete;
    Conversion& operator=(const Conversion&) = delete;

    /// The project in memory.
    ProjectState Globals;
    /// The file-system service of this conversion: its write root, listings and refusals.
    FileSystem Files;
    /// Where this conversion's unexpected errors are reported.
    ErrorReporter Errors;

    std::string Projectname;         // full path of the scanned .hhp
    std::string ProjectFolder;       // folder part of Projectname
    std::string WinHelpProjectName;  // full path of the .hpj, may be empty
    std::string NewProjectName;      // file name of the new .hhp
    std::string NewRootPath;         // folder of the new project
    std::string IndexFile;
    std::string ContentsFile;
    bool ScanComplete = false;
    int MissingCount = 0;
    bool IncompleteData = false;
    std::string PopupStringFile;
    int NumPopupStrings = 0;
    int NumTextPopups = 0;  // entries written to the text-popup file
    std::string StepMessage;
    double BoxLeft = 0;
    double BoxTop = 0;
    /// Filled by GetHTMLOptions for the writers.
    bool AddCssLink = false;
    bool SetTopicClass = false;
    std::string CssFileName;
    /// Texts the readers and the scan step show in the wizard's labels.
    std::string DisplayTopicCount;
    std::string UntitledCountText;
    int UntitledCount = 0;     // untitled (popup) topics found by the scan
    bool RewriteDone = false;  // the write step succeeded
    bool PopupsActivated = false;

    /// Fetches the style-sheet options of the options dialog into AddCssLink,
    /// SetTopicClass and CssFileName; the wizard overrides it.
    virtual bool GetHTMLOptions() { return true; }
    /// Lets the window repaint before a long operation.
    virtual void Refresh() { View().ProcessEvents(); }

    BoxPosition Box() const { return BoxPosition{BoxLeft, BoxTop}; }

    /// The progress display. A value above the maximum is ignored; at every
    /// tenth value pending events are processed so the window repaints.
    void SetProgressCaption(const std::string& caption);
    void SetProgressMax(int maximum);
    void SetProgress(int value);
    void SetProgressVisible(bool visible);
    const std::string& ProgressCaption() const { return progressCaption_; }
    int ProgressMax() const { return progressMax_; }
    int Progress() const { return progress_; }
    bool ProgressVisible() const { return progressVisible_; }

    /// The view that shows this conversion to the user.
    IView& View() const { return view_; }

private:
    IView& view_;
    std::string progressCaption_;
    int progressMax_ = 0;
    int progress_ = 0;
    bool progressVisible_ = false;
};

namespace modUtilities {
void InitializeProgressBar(Conversion& wizard, long maximum, const std::string& caption);
void UpdateProgressBar(Conversion& wizard, long value);
void ShowProgressBar(Conversion& wizard, bool visible);
}  // namespace modUtilities

}  // namespace tamrix
