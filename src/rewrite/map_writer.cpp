#include <algorithm>
#include <optional>
#include <unordered_set>

#include "messages/messages.h"
#include "model/conversion.h"
#include "model/project_state.h"
#include "parser/context_id_value.h"
#include "parser/winhelp_includes.h"
#include "parser/winhelp_reader.h"
#include "platform/byte_text.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"
#include "platform/profile.h"
#include "platform/program_error.h"
#include "rewrite/containment.h"
#include "rewrite/header_file_names.h"
#include "rewrite/map_alias_writer.h"

namespace tamrix::modRewrite {
namespace {

// `name`, or, when a copy of that name (ignoring case) exists already, the first
// free "base_N.h", so that no map file overwrites another.
std::string UniqueCopyName(std::unordered_set<std::string>& taken, const std::string& name) {
    std::string candidate = name;
    for (int n = 1; taken.count(Fold(candidate)) != 0; ++n)
        candidate = FileBaseName(name) + "_" + std::to_string(n) + ".h";
    taken.insert(Fold(candidate));
    return candidate;
}

}  // namespace

bool CopyMapFiles(Conversion& wizard, const std::vector<std::string>& includedMapFiles,
                  int includedCount, const std::string& newRootPath, NewFileList& newMapFiles) {
    return Guarded(wizard.Errors, "modRewrite:CopyMapFiles", false, [&] {
        const int count = std::min<int>(includedCount, static_cast<int>(includedMapFiles.size()));
        std::unordered_set<std::string> taken;
        for (int i = 0; i < count; ++i) {
            const std::string& oldPath = includedMapFiles[static_cast<std::size_t>(i)];
            std::string name = NameInNewFolder(oldPath);
            if (name.empty()) {
                ShowRefusedName(wizard, oldPath, "Copying Map Files");
                continue;
            }
            name = UniqueCopyName(taken, WithHeaderExtension(name));
            modParser::AddMapFile(wizard, newMapFiles.names, newMapFiles.count, name);
            wizard.Files.CopyFile(oldPath, modUtilities::MakeFullPathforFile(newRootPath, name));
        }
        return true;
    });
}

bool CopyKeptMapIncludes(Conversion& wizard, const std::string& oldProjectFile,
                         const std::string& newProjectFile) {
    return Guarded(wizard.Errors, "modRewrite:CopyKeptMapIncludes", false, [&] {
        std::string section;
        if (profile::GetSection(wizard.Files, newProjectFile, "MAP", section) <= 0) return true;
        const std::string oldFolder = modUtilities::FilePathOnly(oldProjectFile);
        const std::string newFolder = modUtilities::FilePathOnly(newProjectFile);
        for (const std::string& line : Split(section, '\0')) {
            if (!StartsWithNoCase(Trim(TabsToSpaces(line)), "#include")) continue;
            bool angleForm = false;
            const std::string name = modParser::IncludedName(line, angleForm);
            // A drive or a climb out names a file the old project did not hold either.
            if (!IsSafeRelativeName(name)) continue;
            const std::string from = modUtilities::MakeFullPathforFile(oldFolder, name);
            const std::string to = modUtilities::MakeFullPathforFile(newFolder, name);
            if (!modUtilities::FileExists(wizard.Files, from) ||
                modUtilities::FileExists(wizard.Files, to))
                continue;
            const std::string folder = modUtilities::FilePathOnly(name);
            if (folder.empty() ||
                modUtilities::CreateFolder(wizard.Files, wizard.Errors, newFolder, folder))
                wizard.Files.CopyFile(from, to);
        }
        return true;
    });
}

bool AddMapFiles(Conversion& wizard, const NewFileList& newMapFiles,
                 const std::string& newProjectFile) {
    return Guarded(wizard.Errors, "modRewrite:AddMapFiles", false, [&] {
        std::string old;
        if (profile::GetSection(wizard.Files, newProjectFile, "MAP", old) > 0)
            profile::WriteSection(wizard.Files, newProjectFile, "MAP", "");
        std::string section;
        const int count =
            std::min<int>(newMapFiles.count, static_cast<int>(newMapFiles.names.size()));
        for (int i = 0; i < count; ++i) {
            const std::string name =
                modUtilities::FileNameNoPath(newMapFiles.names[static_cast<std::size_t>(i)]);
            // A substring test, so "a.h" is not listed again after "#include ba.h".
            if (!ContainsNoCase(section, name)) section += "#include " + name + '\0';
        }
        const auto& own = wizard.Globals.ProjectContextIDs;
        if (own && own->Count() >= 1) {
            std::string name = "NewMap.h";
            if (WriteNewMapFile(wizard, name, modUtilities::FilePathOnly(newProjectFile)) &&
                !name.empty())
                section += "#include " + name + '\0';
        }
        profile::WriteSection(wizard.Files, newProjectFile, "MAP", section);
        return true;
    });
}

bool WriteNewMapFile(Conversion& wizard, std::string& mapFileName, const std::string& folder) {
    return Guarded(wizard.Errors, "modRewrite:WriteNewMapFile", false, [&] {
        const auto& ids = wizard.Globals.ProjectContextIDs;
        if (!ids) {
            modMessages::ShowMessage(wizard.View(),
                                     "No Map definitions read from the WinHelp project file.",
                                     mb::kOKOnly, "Writing Alias File", {}, 0);
            return true;
        }
        std::string name = NameInNewFolder(mapFileName);
        if (name.empty()) {
            ShowRefusedName(wizard, mapFileName, "Writing Map File");
            mapFileName.clear();
            return true;
        }
        std::string path = modUtilities::MakeFullPathforFile(folder, name);
        if (modUtilities::FileExists(wizard.Files, path) &&
            modMessages::AskMessage(wizard.View(), modMessages::FromCatalogue(10018, path),
                                    mb::kYesNo | mb::kQuestion, "Writing Map File",
                                    {}) == mb::kNo) {
            const std::optional<std::string> answer = wizard.View().InputBox(
                "Please enter the name for the map file.", "New Map File", mapFileName);
            if (!answer || answer->empty()) {
                mapFileName.clear();
                return true;
            }
            name = NameInNewFolder(*answer);
            if (name.empty()) {
                ShowRefusedName(wizard, *answer, "Writing Map File");
                mapFileName.clear();
                return true;
            }
            path = modUtilities::MakeFullPathforFile(folder, name);
        }
        mapFileName = name;

        std::string text = HeaderBanner("; Map File written automatically by ");
        text += ";";
        text += kCrLf;
        for (const auto& id : *ids) {
            text += "#define " + id->ContextString + " " + modParser::CHeaderValue(id->ContextID) +
                    id->Comment;
            text += kCrLf;
        }
        wizard.Files.WriteAll(path, text);
        return true;
    });
}

}  // namespace tamrix::modRewrite
