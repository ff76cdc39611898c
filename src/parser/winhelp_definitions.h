#pragma once
// The definition lines of the WinHelp project and its map header files:
// context IDs ("#define NAME VALUE", "NAME=VALUE", "NAME VALUE") and aliases.
#include <memory>
#include <string>
#include <string_view>

#include "model/c_alias.h"
#include "model/c_context_id.h"

namespace tamrix {
/// The conversion whose project state is filled.
class Conversion;
}  // namespace tamrix

namespace tamrix::modParser {

/// Adds the context ID of one definition line to `collection`. The "NAME VALUE"
/// form is taken from the project file itself (mapFileIndex 0), and from map
/// files only when ReadNameValueLines is set (otherwise it is counted). Overflowing
/// values go to InvalidContextIDs, conflicting redefinitions to DuplicateContextIDs.
/// fileName is not used.
void AddContextIDFromString(Conversion& wizard, std::string_view line, CContextIDs& collection,
                            std::string_view fileName, int mapFileIndex);
/// Adds one "ALIAS = TOPIC [comment]" line to ProjectAliases unless the alias is known.
void AddAliasFromString(Conversion& wizard, std::string_view line);
/// Whether an alias of that name (without regard to case) is already known.
bool ThisAliasExists(const CAliases& aliases, std::string_view name);
/// The definition of `name` (without regard to case), or nullptr.
std::shared_ptr<CContextID> ExistingContextID(const CContextIDs& collection, std::string_view name);
/// Lines starting with "*", ";" or "/".
bool IsCommentLine(std::string_view line);

}  // namespace tamrix::modParser
