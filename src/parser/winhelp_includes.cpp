#include "parser/winhelp_includes.h"

#include <vector>
#include "model/conversion.h"

#include "messages/messages.h"
#include "model/project_state.h"
#include "parser/winhelp_reader.h"
#include "platform/byte_text.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"
#include "platform/program_error.h"

namespace tamrix::modParser {
namespace {

constexpr std::string_view kInclude = "#include";

bool HasDrive(std::string_view name) {
    const auto c = static_cast<unsigned char>(name.empty() ? 0 : name[0]);
    return name.size() >= 2 && name[1] == ':' && ((c | 0x20) >= 'a' && (c | 0x20) <= 'z');
}

void AddIncludedFiles(Conversion& wizard, const std::string& file, std::vector<std::string>& list,
                      Counter16& count) {
    TextReader reader(wizard.Files, file);
    const std::string folder = modUtilities::FilePathOnly(file);
    std::string line;
    while (reader.ReadLine(line)) {
        const std::string trimmed = Trim(TabsToSpaces(line));
        if (!StartsWithNoCase(trimmed, kInclude)) continue;
        bool found = false;
        const std::string path =
            FullPathofIncludeFile(wizard, ReplaceAllExact(trimmed, "\"", " "), folder, found);
        if (found) AddMapFile(wizard, list, count, path);
    }
}

}  // namespace

std::string IncludedName(std::string_view line, bool& angleForm) {
    const std::size_t at = FindNoCase(line, kInclude);
    std::string name = at == kNotFound ? Trim(line) : Trim(line.substr(at + kInclude.size()));
    name = Trim(ReplaceAllExact(name, "\"", " "));
    const std::size_t open = name.find('<');
    angleForm = open != std::string::npos;
    if (angleForm) {
        name = name.substr(open + 1);
        if (const std::size_t close = name.find('>'); close != std::string::npos)
            name = name.substr(0, close);
        name = Trim(name);
    }
    return name;
}

std::string FullPathofIncludeFile(Conversion& wizard, std::string_view line,
                                  std::string_view baseFolder, bool& found, BoxPosition position) {
    found = false;
    return Guarded(wizard.Errors, "modParser:FullPathofIncludeFile", std::string(), [&] {
        bool angleForm = false;
        const std::string name = IncludedName(line, angleForm);
        const std::string path =
            HasDrive(name) ? name : modUtilities::MakeFullPathforFile(baseFolder, name);
        // A folder is no include file either.
        if (name.empty() || !modUtilities::FileExists(wizard.Files, path)) {
            const long id = angleForm ? 10036 : 10037;
            modMessages::ShowMessage(wizard.View(), modMessages::FromCatalogue(id), mb::kOKOnly,
                                     "Parsing #include reference", position);
            return std::string();
        }
        found = true;
        return path;
    });
}

void AddIncludedMapFiles(Conversion& wizard, const std::string& mapFile) {
    GuardedVoid(wizard.Errors, "modParser:AddIncludedMapFiles", [&] {
        AddIncludedFiles(wizard, mapFile, wizard.Globals.MapFiles, wizard.Globals.MapFileCount);
    });
}

void AddIncludedAliasFiles(Conversion& wizard, const std::string& aliasFile) {
    GuardedVoid(wizard.Errors, "modParser:AddIncludedAliasFiles", [&] {
        AddIncludedFiles(wizard, aliasFile, wizard.Globals.AliasFiles,
                         wizard.Globals.AliasFileCount);
    });
}

void CheckCommentFormat(Conversion& wizard, const std::string& aliasFile) {
    GuardedVoid(wizard.Errors, "modParser:CheckCommentFormat", [&] {
        if (!modUtilities::FileExists(wizard.Files, aliasFile)) {
            modMessages::ShowMessage(wizard.View(), modMessages::FromCatalogue(10050), mb::kOKOnly,
                                     "Checking Alias File Format", {});
            return;
        }
        TextReader reader(wizard.Files, aliasFile);
        std::string line;
        while (reader.ReadLine(line)) {
            const std::string trimmed = Trim(line);
            if (trimmed.empty() || trimmed[0] == ';') continue;
            if (trimmed.rfind("/*", 0) == 0) {
                modMessages::ShowMessage(
                    wizard.View(), modMessages::FromCatalogue(10049, aliasFile, "C-type /*  */"),
                    mb::kExclamation, "Scanning Header Files", {});
                return;
            }
        }
    });
}

}  // namespace tamrix::modParser
