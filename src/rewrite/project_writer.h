#pragma once
// Writing the new HTML Help project: the driver of the whole write, the new
// project file with the renamed [FILES] entries, the default topic, the style
// sheet and the copied images folder.
#include <string>

#include "model/c_topic_file.h"
#include "model/conversion.h"

namespace tamrix::modRewrite {

/// Writes everything into newRootPath in a fixed order: project file, topic
/// files, index, contents, map and alias files. The result is that of the last
/// step, UpdateContextIDs; earlier failures show in their own messages.
bool RewriteHelpProject(Conversion& wizard, const std::string& oldProjectFile,
                        const std::string& newProjectName, const std::string& newRootPath);

/// newProjectFile is the full path of the new .hhp.
bool RewriteProjectFile(Conversion& wizard, const std::string& oldProjectFile,
                        const std::string& newProjectFile);
/// Sets the project's default topic to the contents topic's new file; false when that topic is
/// unknown.
bool SetDefaultTopic(Conversion& wizard, const std::string& newProjectFile);
/// The new file name of the topic whose AutoFileName is autoFileName, or empty;
/// a topic that keeps its old name gives that name.
std::string NewTopicFileName(Conversion& wizard, const std::string& autoFileName);
/// Gives every topic its new file name before anything is written: its topic ID
/// + ".htm", or its old name when it has no ID or the ID cannot be a file name
/// in the new folder (that topic is refused and logged).
void SettleNewFileNames(Conversion& wizard);
/// Sends a renamed topic back to its old name when another topic file already
/// writes its new one in that folder, so no file overwrites another.
void KeepClashingNames(Conversion& wizard);
/// The style sheet link line for topic files (creating the style sheet when
/// absent), or empty when no link is wanted.
std::string MakeCSSLinkString(Conversion& wizard, const std::string& newRootPath);
/// Writes an empty style sheet at `path`, with a Topic_Title class when asked.
bool CreateCSSFile(Conversion& wizard, const std::string& path, bool defineTitleClass);
/// Copies the old "images" folder into the new project, asking before it overwrites when told to.
bool CopyImageFolder(Conversion& wizard, const std::string& oldProjectFile,
                     const std::string& newRootPath, bool askBeforeOverwrite);

/// Whether the topic's new file (its [FILES] folder + NewFileName) stays inside
/// the new project folder; a topic ID holding a separator does not.
bool TopicTargetIsSafe(const CTopicFile& topic);

}  // namespace tamrix::modRewrite
