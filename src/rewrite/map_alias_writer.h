#pragma once
// Carrying the WinHelp context IDs and aliases into the new project: copied
// map headers, NewMap.h, NewAliases.h, csAlias.h and the [MAP]/[ALIAS] sections.
#include <string>
#include <vector>

#include "model/conversion.h"
#include "platform/counter16.h"

namespace tamrix::modRewrite {

/// The names of the copied map files and rewritten alias files in the new project.
struct NewFileList {
    /// The file names, without folders.
    std::vector<std::string> names;
    /// How many names are held.
    Counter16 count;
};

/// Copies the project's map files into the new folder, each name once; false on an unexpected
/// error.
bool CopyMapFiles(Conversion& wizard, const std::vector<std::string>& includedMapFiles,
                  int includedCount, const std::string& newRootPath, NewFileList& newMapFiles);
/// Rewrites the [MAP] section of the new project file to include the copied map files.
bool AddMapFiles(Conversion& wizard, const NewFileList& newMapFiles,
                 const std::string& newProjectFile);
/// When the [MAP] section of the new project file stayed as the old project had
/// it, copies the files it includes by a name inside the project folder from the
/// old folder, so that the new project still finds its map headers.
bool CopyKeptMapIncludes(Conversion& wizard, const std::string& oldProjectFile,
                         const std::string& newProjectFile);
/// mapFileName is in/out: the user may choose another name.
bool WriteNewMapFile(Conversion& wizard, std::string& mapFileName, const std::string& folder);
/// Fills newAliasFiles and returns the names of the two new alias files.
bool WriteAliasFiles(Conversion& wizard, const std::string& newRootPath, NewFileList& newAliasFiles,
                     std::string& aliasFileName, std::string& csAliasFileName);
/// Writes the old alias file, its lines rewritten, into the new folder as a ".h" named in
/// `newName`.
bool RewriteOneAliasFile(Conversion& wizard, const std::string& oldAliasFile,
                         const std::string& newRootPath, std::string& newName);
/// Writes the two new alias files; false when no context IDs were read or a name is refused.
bool WriteNewAliasFile(Conversion& wizard, std::string& aliasFileName, std::string& csAliasFileName,
                       const std::string& newRootPath);
/// Replaces the [ALIAS] section of the new project file; true when it was written.
bool RewriteInternalAliases(Conversion& wizard, const std::string& newProjectFile,
                            const NewFileList& newAliasFiles, const std::string& aliasFileName,
                            const std::string& csAliasFileName);
/// How many context IDs no map file defines.
int UnAliasedContexts(Conversion& wizard);
/// Marks as defined each context ID that a found alias names.
bool UpdateContextIDs(Conversion& wizard);

}  // namespace tamrix::modRewrite
