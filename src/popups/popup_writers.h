#pragma once
// The popup text files of the new project: popups.js for popups called from
// within the help, cshelp.txt with cshelp.h for popups called by the
// application, and the [TEXT POPUPS] section that lists them.
#include <string>
#include <vector>

#include "model/c_topic_file.h"
#include "model/c_topic_files.h"
#include "model/conversion.h"

namespace tamrix::modPopups {

/// Untitled and linked to from other topic files.
bool IsJavaPopupTopic(const CTopicFile& topic);
/// Untitled and named by a context ID of the map files.
bool IsAppPopupTopic(const CTopicFile& topic);

/// Writes root\fileName ("popups.js"): five header lines, then one script string
/// per script popup and per extra ID of it that is a script name. `count` =
/// strings written.
bool WriteJavaPopupStrings(Conversion& wizard, const CTopicFiles& topicFiles,
                           const std::string& root, const std::string& fileName, int& count);
/// Writes root\fileName ("cshelp.txt") and root\cshelp.h: one ".topic" entry and
/// one #define (value in C form) per application popup with a value and per
/// context ID of its extra IDs. `count` = entries written.
bool WriteAppPopupStrings(Conversion& wizard, const CTopicFiles& topicFiles,
                          const std::string& root, const std::string& fileName, int& count);
/// Script popups left out of popups.js because their topic ID is not a script
/// name, each as "file (Topic ID "id")", in collection order.
std::vector<std::string> LeftOutScriptPopups(const CTopicFiles& topicFiles);
/// Application popups left out of cshelp.txt and cshelp.h because no map file and
/// no [MAP] line gives their topic ID a value, named the same way.
std::vector<std::string> LeftOutTextPopups(Conversion& wizard, const CTopicFiles& topicFiles);
/// The popup step's note on the popups left out, or empty when there are none.
std::string LeftOutPopupsMessage(Conversion& wizard, const CTopicFiles& topicFiles);

/// Replaces the [TEXT POPUPS] section of the project file with the files written.
bool AddPopupFiles(Conversion& wizard, const std::string& projectFile, bool addScript,
                   bool addText);

}  // namespace tamrix::modPopups
