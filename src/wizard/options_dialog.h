#pragma once
// The "HTML Options" dialog as plain data and logic; the Qt dialog shows it.
#include <string>

#include "platform/view.h"

namespace tamrix {

class OptionsDialog {
public:
    static constexpr const char* kDefaultCssName = "HHStyles.css";

    OptionsDialog() = default;

    bool chkCssFile = false;     // "Insert link to Style Sheet"
    bool chkTopicClass = false;  // "Define Topic_Title class": offered, never passed on
    std::string txtCssFileName = kDefaultCssName;
    bool Status = false;  // closed with OK
    bool Visible = false;

    /// The name and its label show only while the style sheet is ticked.
    bool CssNameVisible() const { return chkCssFile; }
    /// Painting with an empty name puts the default back.
    void Paint();
    /// OK refuses an empty name with a message and keeps the dialog open.
    void OK(IView& view);
    void Cancel();
};

}  // namespace tamrix
