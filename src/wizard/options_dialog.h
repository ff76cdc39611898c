#pragma once
// The "HTML Options" dialog as plain data and logic; the Qt dialog shows it.
#include <string>

#include "platform/view.h"

namespace tamrix {

/// The style-sheet options the writers ask for through GetHTMLOptions.
class OptionsDialog {
public:
    /// The style sheet's name until the user gives another.
    static constexpr const char* kDefaultCssName = "HHStyles.css";

    /// Unticked, with the default name, not shown.
    OptionsDialog() = default;

    bool chkCssFile = false;     ///< "Insert link to Style Sheet"
    bool chkTopicClass = false;  ///< "Define Topic_Title class": offered, never passed on
    /// The style sheet's file name as typed.
    std::string txtCssFileName = kDefaultCssName;
    bool Status = false;  ///< closed with OK
    /// Whether the dialog is open.
    bool Visible = false;

    /// The name and its label show only while the style sheet is ticked.
    bool CssNameVisible() const { return chkCssFile; }
    /// Painting with an empty name puts the default back.
    void Paint();
    /// OK refuses an empty name with a message and keeps the dialog open.
    void OK(IView& view);
    /// Closes the dialog without taking its values.
    void Cancel();
};

}  // namespace tamrix
