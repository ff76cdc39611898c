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
    std::vector<std::string> names;
    Counter16 count;
};

bool CopyMapFiles(Conversion& wizard, const std::vector<std::string>& includedMapFiles,
                  int includedCount, const std::string& newRootPath, NewFileList& newMapFiles);
bool AddMapFiles(Conversion& wizard, const NewFileList& newMapFiles,
                 const std::string& newProjectFile);
/// mapFileName is in/out: the user may choose another name.
bool WriteNewMapFile(Conversion& wizard, std::string& mapFileName, const std::string& folder);
/// Fills newAliasFiles and returns the names of the two new alias files.
bool WriteAliasFiles(Conversion& wizard, const std::string& newRootPath, NewFileList& newAliasFiles,
                     std::string& aliasFileName, std::string& csAliasFileName);
bool RewriteOneAliasFile(Conversion& wizard, const std::string& oldAliasFile,
                         const std::string& newRootPath, std::string& newName);
bool WriteNewAliasFile(Conversion& wizard, std::string& aliasFileName, std::string& csAliasFileName,
                       const std::string& newRootPath);
bool RewriteInternalAliases(Conversion& wizard, const std::string& newProjectFile,
                            const NewFileList& newAliasFiles, const std::string& aliasFileName,
                            const std::string& csAliasFileName);
int UnAliasedContexts(Conversion& wizard);
bool UpdateContextIDs(Conversion& wizard);

}  // namespace tamrix::modRewrite
