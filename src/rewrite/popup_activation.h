#pragma once
// Editing the topic files of the new project that link to popup topics so
// that those links open script popups through the HTML Help ActiveX control.
#include <string>
#include <string_view>

#include "model/c_topic_file.h"
#include "model/conversion.h"
#include "platform/text_buffer.h"

namespace tamrix {
/// Where unexpected errors of AddJavaLinks go.
class ErrorReporter;
}  // namespace tamrix

namespace tamrix::modRewrite {

/// The script reference of a topic file in `folder` (Windows-style, relative to
/// the project folder): the path from there to popups.js in the project folder.
std::string PopupScriptPath(std::string_view folder);

/// Whether activation will edit the caller's new topic file: it links to a popup
/// that becomes a script popup.
bool CallsPopupToActivate(const ProjectState& project, const CTopicFile& caller);

/// Converts the links to script popups in every topic file of the new project
/// under root; an unmodified copy of each edited file goes to root\html\NoPopups.
bool ModifyPopupFiles(Conversion& wizard, const std::string& root);
/// Converts every link after "<BODY" that starts with <A HREF="NewFileName of the
/// popup into a call of POPUPS.TextPopup with the popup's topic ID.
bool AddJavaLinks(ErrorReporter& errors, TextBuffer& buffer, const CTopicFile& popupTopic);

}  // namespace tamrix::modRewrite
