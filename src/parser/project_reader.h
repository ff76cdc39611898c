#pragma once
// Reading the HTML Help project file (.hhp): the topic files of its [FILES]
// section and the contents and index file names of its [OPTIONS] section.
#include <string>

#include "model/conversion.h"

namespace tamrix::modParser {

/// Quick check when a project is chosen: counts the .htm lines of [FILES] and
/// shows the count in wizard.DisplayTopicCount.
bool OpenProjectFile(Conversion& wizard, const std::string& projectFile, int& htmCount);
/// The full read: fills wizard.Globals.TopicFiles and RenamedTopicIDs. Missing topic
/// files are counted in missingCount; `stopped` is set when the user stopped the scan.
bool ParseProjectFile(Conversion& wizard, const std::string& projectFile, int& missingCount,
                      bool& stopped);
/// Full paths from [OPTIONS], or empty when the project names none.
std::string GetIndexFileName(Conversion& wizard, const std::string& projectFile);
/// The same for the contents file.
std::string GetContentsFileName(Conversion& wizard, const std::string& projectFile);

}  // namespace tamrix::modParser
