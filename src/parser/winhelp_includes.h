#pragma once
// The #include lines of the WinHelp project and of its map and alias files.
#include <string>
#include <string_view>

#include "platform/view.h"

namespace tamrix {
/// The conversion whose project state is filled.
class Conversion;
}  // namespace tamrix

namespace tamrix::modParser {

/// The file name an "#include" line names, in the "<name>" (sets `angleForm`) or
/// "name" form, as written.
std::string IncludedName(std::string_view line, bool& angleForm);
/// The absolute path of the file an "#include" line names: "<name>" and "name"
/// forms, relative to baseFolder unless the name carries a drive. A missing file
/// shows message 10036 (angle form) or 10037 and gives empty text.
std::string FullPathofIncludeFile(Conversion& wizard, std::string_view line,
                                  std::string_view baseFolder, bool& found,
                                  BoxPosition position = {});
/// Adds the files that a map (alias) file includes to MapFiles (AliasFiles); one level only.
void AddIncludedMapFiles(Conversion& wizard, const std::string& mapFile);
/// The same for an alias file, into AliasFiles.
void AddIncludedAliasFiles(Conversion& wizard, const std::string& aliasFile);
/// Warns (message 10049) when an alias file uses C-style "/*" comments, which the
/// HTML Help compiler does not accept; a missing file shows message 10050.
void CheckCommentFormat(Conversion& wizard, const std::string& aliasFile);

}  // namespace tamrix::modParser
