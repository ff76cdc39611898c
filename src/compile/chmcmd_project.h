#pragma once
// The project file of one compile round, in the form chmcmd reads: [MAP] holds
// the round's "#define NAME NUMBER" lines and [ALIAS] its "NAME=path" lines,
// includes resolved, paths with "/" and in the case the disk has them.
#include <string>
#include <vector>

#include "check/project_sections.h"
#include "compile/compile_rounds.h"

namespace tamrix::compile {

/// The text of the round's project file; every other section is kept as it is,
/// [FILES] with "/", and "Compiled file" set to `compiledName`.
std::string ChmcmdProjectText(const check::ProjectSections& project,
                              const std::vector<AliasedId>& round, const std::string& compiledName);

/// A path named relative to the project's folder, with "/" and the disk's case.
std::string DiskRelativePath(const check::ProjectSections& project, const std::string& name);

}  // namespace tamrix::compile
