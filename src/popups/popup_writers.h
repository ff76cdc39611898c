#pragma once
// The popup text files of the new project: popups.js for popups called from
// within the help, cshelp.txt with cshelp.h for popups called by the
// application, and the [TEXT POPUPS] section that lists them.
#include <string>

#include "model/c_topic_file.h"
#include "model/c_topic_files.h"
#include "model/wizard_state.h"

namespace tamrix::modPopups {

// Untitled and linked to from other topic files.
bool IsJavaPopupTopic(const CTopicFile& topic);
// Untitled and named by a context ID of the map files.
bool IsAppPopupTopic(const CTopicFile& topic);

// Writes root\fileName ("popups.js"): five header lines, then one script string
// per script popup and per extra ID of it. `count` = strings written.
bool WriteJavaPopupStrings(WizardState& wizard, const CTopicFiles& topicFiles,
                           const std::string& root, const std::string& fileName, int& count);
// Writes root\fileName ("cshelp.txt") and root\cshelp.h: one ".topic" entry and
// one #define per application popup and per context ID of its extra IDs.
// `count` = entries written.
bool WriteAppPopupStrings(WizardState& wizard, const CTopicFiles& topicFiles,
                          const std::string& root, const std::string& fileName, int& count);
// Replaces the [TEXT POPUPS] section of the project file with the files written.
bool AddPopupFiles(const std::string& projectFile, bool addScript, bool addText);

}  // namespace tamrix::modPopups
