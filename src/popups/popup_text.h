#pragma once
// The reading and cleaning of a popup topic that both popup writers share.
#include <string>

#include "model/c_topic_file.h"
#include "model/project_state.h"

namespace tamrix {
/// The conversion whose files the popup is read from.
class Conversion;
}  // namespace tamrix

namespace tamrix::modPopups {

/// Script strings for popups.js, or text-popup entries for cshelp.txt.
enum class PopupKind { Script, TextPopup };

/// A popup topic's body, cleaned, and the name it is called by.
struct PopupText {
    std::string text;        ///< the cleaned text
    std::string anchorName;  ///< name of the first anchor of the body, may be empty
};

/// Cleans the body text of a popup topic for the given kind of popup.
PopupText CleanPopupBody(ErrorReporter& errors, const ProjectState& project, std::string body,
                         PopupKind kind);
/// Reads the topic's renamed file where the write step put it (else under root +
/// "html/") and cleans its body.
/// Raises BasicError when the file cannot be read.
PopupText ReadPopupTopic(Conversion& wizard, const std::string& root, const CTopicFile& topic,
                         PopupKind kind);
/// The name a popup is called by: the body's anchor name when it is set and
/// differs from the topic ID, otherwise the topic ID.
std::string PopupName(const CTopicFile& topic, const std::string& anchorName);

}  // namespace tamrix::modPopups
