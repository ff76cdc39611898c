#pragma once
// The context map of a project: the definitions of its [MAP] section and the
// aliases of its [ALIAS] section, with every #include followed, each kept with
// the file and line it came from.
#include <cstdint>
#include <string>
#include <vector>

#include "check/problem.h"
#include "check/project_sections.h"

namespace tamrix::check {

/// One "#define NAME VALUE" of the context map.
struct Definition {
    std::string name;        ///< as written
    std::int32_t value = 0;  ///< the C number, read as 32 bits
    SourceLine where;        ///< the line it was read from
};

/// One "NAME=file" line of [ALIAS].
struct AliasEntry {
    std::string name;    ///< as written
    std::string target;  ///< as written, "#anchor" included
    SourceLine where;    ///< the line it was read from
};

/// What [MAP] defines and [ALIAS] points at, includes followed.
struct ContextMap {
    std::vector<Definition> definitions;  ///< first definition of each name, in order
    std::vector<AliasEntry> aliases;      ///< first alias of each name, in order
};

/// Reads both sections. Lines that are neither a definition, an include nor a
/// comment, missing included files and names defined with two values are added
/// to `problems`.
ContextMap ReadContextMap(const ProjectSections& project, std::vector<Problem>& problems);

/// Checks the lines of a header file outside the context map (cshelp.h) the same way.
void CheckHeaderFile(const ProjectSections& project, const std::string& file,
                     std::vector<Problem>& problems);

/// The value of a C number ("42", "-7", "0x1E141"); false when the text is not one
/// or does not fit 32 bits.
bool ParseCNumber(const std::string& text, std::int32_t& value);

}  // namespace tamrix::check
