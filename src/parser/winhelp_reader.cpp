#include "parser/winhelp_reader.h"

#include "messages/messages.h"
#include "model/conversion.h"
#include "model/project_state.h"
#include "parser/winhelp_definitions.h"
#include "parser/winhelp_includes.h"
#include "platform/byte_text.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"
#include "platform/profile.h"
#include "platform/program_error.h"

namespace tamrix::modParser {
namespace {

// A section cut at the buffer's end has lost lines.
constexpr long kSectionTooLong = profile::kBufferSize - 2;
constexpr std::string_view kNoContents = "\\\\\\\\";

std::vector<std::string> SectionLines(const std::string& section) {
    std::vector<std::string> lines;
    for (const std::string& raw : Split(section, '\0')) {
        std::string line = Trim(TabsToSpaces(raw));
        if (!line.empty()) lines.push_back(std::move(line));
    }
    return lines;
}

void ReadMapSection(Conversion& wizard, const std::string& projectFile, const std::string& folder,
                    BoxPosition box) {
    std::string section;
    if (profile::GetSection(wizard.Files, projectFile, "MAP", section) <= 0) return;
    wizard.Globals.ProjectContextIDs = std::make_shared<CContextIDs>();
    wizard.Globals.MapFileCount = 0;
    wizard.Globals.DuplicateIncludes.clear();
    wizard.Globals.InvalidContextIDs.clear();
    wizard.Globals.MapSectionText = section;
    for (const std::string& line : SectionLines(section)) {
        if (StartsWithNoCase(line, "#include")) {
            bool found = false;
            const std::string path = FullPathofIncludeFile(wizard, line, folder, found, box);
            if (found)
                AddMapFile(wizard, wizard.Globals.MapFiles, wizard.Globals.MapFileCount, path);
        } else if (StartsWithNoCase(line, "#define") || line.find('=') != std::string::npos ||
                   line.find(' ') != std::string::npos) {
            AddContextIDFromString(wizard, line, *wizard.Globals.ProjectContextIDs, projectFile, 0);
        }
    }
    const int listed = wizard.Globals.MapFileCount;
    for (int i = 0; i < listed; ++i) AddIncludedMapFiles(wizard, wizard.Globals.MapFiles[i]);
}

void ReadAliasSection(Conversion& wizard, const std::string& projectFile, const std::string& folder,
                      BoxPosition box) {
    wizard.Globals.AliasFileCount = 0;
    wizard.Globals.ProjectAliases = std::make_shared<CAliases>();
    std::string section;
    profile::GetSection(wizard.Files, projectFile, "ALIAS", section);
    for (const std::string& line : SectionLines(section)) {
        if (StartsWithNoCase(line, "#include")) {
            bool found = false;
            const std::string path = FullPathofIncludeFile(wizard, line, folder, found, box);
            if (!found) continue;
            CheckCommentFormat(wizard, path);
            AddMapFile(wizard, wizard.Globals.AliasFiles, wizard.Globals.AliasFileCount, path);
        } else if (line.find('=') != std::string::npos) {
            AddAliasFromString(wizard, line);
        }
    }
    const int listed = wizard.Globals.AliasFileCount;
    for (int i = 0; i < listed; ++i) AddIncludedAliasFiles(wizard, wizard.Globals.AliasFiles[i]);
}

}  // namespace

bool OpenWinProjectFile(Conversion& wizard, const std::string& projectFile, bool& hasAlias,
                        bool& hasMap) {
    hasAlias = false;
    hasMap = false;
    return Guarded(wizard.Errors, "modParser:OpenWinProjectFile", false, [&] {
        if (!modUtilities::FileExists(wizard.Files, projectFile)) {
            modMessages::ShowMessage(
                wizard.View(),
                modMessages::FromCatalogue(10069, modUtilities::FileNameNoPath(projectFile)),
                mb::kOKOnly, "Opening WinHelp Project File", wizard.Box());
            return false;
        }
        std::string section;
        const long aliasChars = profile::GetSection(wizard.Files, projectFile, "ALIAS", section);
        hasAlias = aliasChars > 0;
        if (aliasChars >= kSectionTooLong)
            modMessages::ShowMessage(wizard.View(), modMessages::FromCatalogue(10034), mb::kOKOnly,
                                     "Warning", wizard.Box());
        const long mapChars = profile::GetSection(wizard.Files, projectFile, "MAP", section);
        hasMap = mapChars > 0;
        if (mapChars >= kSectionTooLong)
            modMessages::ShowMessage(wizard.View(), modMessages::FromCatalogue(10035), mb::kOKOnly,
                                     "Warning", wizard.Box());
        return true;
    });
}

bool ParseWinProjectFile(Conversion& wizard, const std::string& projectFile) {
    return Guarded(wizard.Errors, "modParser:ParseWinProjectFile", false, [&] {
        const std::string folder = modUtilities::FilePathOnly(projectFile);
        ReadMapSection(wizard, projectFile, folder, wizard.Box());
        ReadAliasSection(wizard, projectFile, folder, wizard.Box());
        std::string contents;
        profile::GetString(wizard.Files, projectFile, "OPTIONS", "CONTENTS", kNoContents, contents);
        wizard.Globals.ContentsTopic =
            contents == kNoContents ? std::string() : std::string(Before(contents, '\0'));
        return true;
    });
}

bool ParseMapFile(Conversion& wizard, const std::string& mapFile, int mapFileIndex) {
    return Guarded(wizard.Errors, "modParser:ParseMapFile", false, [&] {
        if (!wizard.Globals.MapContextIDs)
            wizard.Globals.MapContextIDs = std::make_shared<CContextIDs>();
        TextReader reader(wizard.Files, mapFile);
        std::string raw;
        while (reader.ReadLine(raw)) {
            const std::string line = Trim(TabsToSpaces(raw));
            if (line.empty() || ContainsNoCase(line, "#include") || IsCommentLine(line)) continue;
            AddContextIDFromString(wizard, line, *wizard.Globals.MapContextIDs, mapFile,
                                   mapFileIndex);
        }
        return true;
    });
}

void AddMapFile(Conversion& wizard, std::vector<std::string>& list, Counter16& count,
                const std::string& path) {
    GuardedVoid(wizard.Errors, "modParser:AddMapFile", [&] {
        if (path.empty()) return;
        for (int i = 0; i < count && i < static_cast<int>(list.size()); ++i) {
            if (EqualsNoCase(list[static_cast<std::size_t>(i)], path)) {
                if (!wizard.Globals.DuplicateIncludes.empty())
                    wizard.Globals.DuplicateIncludes += '^';
                wizard.Globals.DuplicateIncludes += path;
                return;
            }
        }
        // Room for 11 paths first, then 10 more at a time.
        if (list.size() < 11) list.resize(11);
        while (static_cast<int>(list.size()) <= count) list.resize(list.size() + 10);
        list[static_cast<std::size_t>(count)] = path;
        ++count;
    });
}

}  // namespace tamrix::modParser
