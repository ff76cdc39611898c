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
    /// The wizard derives from it.
    virtual ~Conversion() = default;
    /// Not copied: a conversion owns its state and is tied to its view.
    Conversion(const Conversion&) = delete;
    /// Not assigned either.
    Conversion& operator=(const Conversion&) = delete;

    /// The project in memory.
    ProjectState Globals;
    /// The file-system service of this conversion: its write root, listings and refusals.
    FileSystem Files;
    /// Where this conversion's unexpected errors are reported.
    ErrorReporter Errors;

    std::string Projectname;         ///< full path of the scanned .hhp
    std::string ProjectFolder;       ///< folder part of Projectname
    std::string WinHelpProjectName;  ///< full path of the .hpj, may be empty
    std::string NewProjectName;      ///< file name of the new .hhp
    std::string NewRootPath;         ///< folder of the new project
    /// The project's index file (.hhk) as the scan found it, or empty.
    std::string IndexFile;
    /// The project's contents file (.hhc) as the scan found it, or empty.
    std::string ContentsFile;
    /// Set when the last scan succeeded; the write step needs it.
    bool ScanComplete = false;
    /// Topic files listed in the project but missing on disk, from the last scan.
    int MissingCount = 0;
    /// Set when the last scan could not read everything it needed.
    bool IncompleteData = false;
    /// The file the popup texts were written to ("popups.js"), or empty.
    std::string PopupStringFile;
    /// How many popup texts were written to PopupStringFile.
    int NumPopupStrings = 0;
    int NumTextPopups = 0;  ///< entries written to the text-popup file
    /// The summary a step leaves for the message box that closes it.
    std::string StepMessage;
    /// Horizontal centre of the wizard window, where message boxes are placed.
    double BoxLeft = 0;
    /// Vertical centre of the wizard window.
    double BoxTop = 0;
    /// Filled by GetHTMLOptions for the writers.
    bool AddCssLink = false;
    /// Whether the style sheet gets a topic class; the dialog never passes it on.
    bool SetTopicClass = false;
    /// The style sheet the written topics link to and the writers create.
    std::string CssFileName;
    /// Texts the readers and the scan step show in the wizard's labels.
    std::string DisplayTopicCount;
    /// UntitledCount as the wizard's label shows it.
    std::string UntitledCountText;
    int UntitledCount = 0;     ///< untitled (popup) topics found by the scan
    bool RewriteDone = false;  ///< the write step succeeded
    /// Set when the popup links were activated in the written topic files.
    bool PopupsActivated = false;
    /// Set when the popup step's answer is known to be "Yes" before the write step
    /// (the command line's choice): the topic files that call popups are then held
    /// back, and activation writes each once, beside its backup.
    bool PopupsChosenEarly = false;

    /// Fetches the style-sheet options of the options dialog into AddCssLink,
    /// SetTopicClass and CssFileName; the wizard overrides it.
    virtual bool GetHTMLOptions() { return true; }
    /// Lets the window repaint before a long operation.
    virtual void Refresh() { View().ProcessEvents(); }

    /// Where message boxes are centred: the wizard window's centre.
    BoxPosition Box() const { return BoxPosition{BoxLeft, BoxTop}; }

    /// The progress display. A value above the maximum is ignored; at every
    /// tenth value pending events are processed so the window repaints.
    void SetProgressCaption(const std::string& caption);
    /// Sets the largest value the progress bar shows.
    void SetProgressMax(int maximum);
    /// Moves the progress bar to `value`.
    void SetProgress(int value);
    /// Shows or hides the progress bar.
    void SetProgressVisible(bool visible);
    /// The caption shown above the progress bar.
    const std::string& ProgressCaption() const { return progressCaption_; }
    /// The largest value the progress bar shows.
    int ProgressMax() const { return progressMax_; }
    /// The value the progress bar shows.
    int Progress() const { return progress_; }
    /// Whether the progress bar is shown.
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
/// Captions the progress bar and, for a positive `maximum`, shows it at 0 out of `maximum`.
void InitializeProgressBar(Conversion& wizard, long maximum, const std::string& caption);
/// Moves the progress bar; a value past 32767 is reported as an overflow.
void UpdateProgressBar(Conversion& wizard, long value);
/// Shows or hides the progress bar.
void ShowProgressBar(Conversion& wizard, bool visible);
}  // namespace modUtilities

}  // namespace tamrix
