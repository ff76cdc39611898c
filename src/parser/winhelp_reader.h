#pragma once
// Reading the WinHelp project (.hpj): its [MAP] and [ALIAS] sections, the
// CONTENTS option, and the definitions of every #included map header file.
#include <string>
#include <vector>

#include "model/c_alias.h"
#include "model/c_context_id.h"
#include "model/conversion.h"
#include "platform/counter16.h"

namespace tamrix::modParser {

/// Checks that the WinHelp project file exists and tells whether it has [ALIAS] and [MAP] sections;
/// warns when one is too long.
bool OpenWinProjectFile(Conversion& wizard, const std::string& projectFile, bool& hasAlias,
                        bool& hasMap);
/// Reads the [MAP] and [ALIAS] sections and the contents topic of the WinHelp project file.
bool ParseWinProjectFile(Conversion& wizard, const std::string& projectFile);
/// Reads one map header file; mapFileIndex is its 1-based number in MapFiles.
bool ParseMapFile(Conversion& wizard, const std::string& mapFile, int mapFileIndex);

/// Adds a path to a file list unless it is empty or already listed (then it is
/// noted in DuplicateIncludes).
void AddMapFile(Conversion& wizard, std::vector<std::string>& list, Counter16& count,
                const std::string& path);

}  // namespace tamrix::modParser
