#include "parser/winhelp_reader.h"

#include "messages/messages.h"
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

void ReadMapSection(const std::string& projectFile, const std::string& folder, BoxPosition box) {
    std::string section;
    if (profile::GetSection(projectFile, "MAP", section) <= 0) return;
    modGlobals::ProjectContextIDs = std::make_shared<CContextIDs>();
    modGlobals::MapFileCount = 0;
    modGlobals::DuplicateIncludes.clear();
    modGlobals::InvalidContextIDs.clear();
    modGlobals::MapSectionText = section;
    for (const std::string& line : SectionLines(section)) {
        if (StartsWithNoCase(line, "#include")) {
            bool found = false;
            const std::string path = FullPathofIncludeFile(line, folder, found, box);
            if (found) AddMapFile(modGlobals::MapFiles, modGlobals::MapFileCount, path);
        } else if (StartsWithNoCase(line, "#define") || line.find('=') != std::string::npos ||
                   line.find(' ') != std::string::npos) {
            AddContextIDFromString(line, *modGlobals::ProjectContextIDs, projectFile, 0);
        }
    }
    const int listed = modGlobals::MapFileCount;
    for (int i = 0; i < listed; ++i) AddIncludedMapFiles(modGlobals::MapFiles[i]);
}

void ReadAliasSection(const std::string& projectFile, const std::string& folder, BoxPosition box) {
    modGlobals::AliasFileCount = 0;
    modGlobals::ProjectAliases = std::make_shared<CAliases>();
    std::string section;
    profile::GetSection(projectFile, "ALIAS", section);
    for (const std::string& line : SectionLines(section)) {
        if (StartsWithNoCase(line, "#include")) {
            bool found = false;
            const std::string path = FullPathofIncludeFile(line, folder, found, box);
            if (!found) continue;
            CheckCommentFormat(path);
            AddMapFile(modGlobals::AliasFiles, modGlobals::AliasFileCount, path);
        } else if (line.find('=') != std::string::npos) {
            AddAliasFromString(line);
        }
    }
    const int listed = modGlobals::AliasFileCount;
    for (int i = 0; i < listed; ++i) AddIncludedAliasFiles(modGlobals::AliasFiles[i]);
}

}  // namespace

bool OpenWinProjectFile(WizardState& wizard, const std::string& projectFile, bool& hasAlias,
                        bool& hasMap) {
    hasAlias = false;
    hasMap = false;
    return Guarded("modParser:OpenWinProjectFile", false, [&] {
        if (!modUtilities::FileExists(projectFile)) {
            modMessages::ShowMessage(
                modMessages::FromCatalogue(10069, modUtilities::FileNameNoPath(projectFile)),
                mb::kOKOnly, "Opening WinHelp Project File", wizard.Box());
            return false;
        }
        std::string section;
        const long aliasChars = profile::GetSection(projectFile, "ALIAS", section);
        hasAlias = aliasChars > 0;
        if (aliasChars >= kSectionTooLong)
            modMessages::ShowMessage(modMessages::FromCatalogue(10034), mb::kOKOnly, "Warning",
                                     wizard.Box());
        const long mapChars = profile::GetSection(projectFile, "MAP", section);
        hasMap = mapChars > 0;
        if (mapChars >= kSectionTooLong)
            modMessages::ShowMessage(modMessages::FromCatalogue(10035), mb::kOKOnly, "Warning",
                                     wizard.Box());
        return true;
    });
}

bool ParseWinProjectFile(WizardState& wizard, const std::string& projectFile) {
    return Guarded("modParser:ParseWinProjectFile", false, [&] {
        const std::string folder = modUtilities::FilePathOnly(projectFile);
        ReadMapSection(projectFile, folder, wizard.Box());
        ReadAliasSection(projectFile, folder, wizard.Box());
        std::string contents;
        profile::GetString(projectFile, "OPTIONS", "CONTENTS", kNoContents, contents);
        modGlobals::ContentsTopic =
            contents == kNoContents ? std::string() : std::string(Before(contents, '\0'));
        return true;
    });
}

bool ParseMapFile(const std::string& mapFile, int mapFileIndex) {
    return Guarded("modParser:ParseMapFile", false, [&] {
        if (!modGlobals::MapContextIDs) modGlobals::MapContextIDs = std::make_shared<CContextIDs>();
        TextReader reader(mapFile);
        std::string raw;
        while (reader.ReadLine(raw)) {
            const std::string line = Trim(TabsToSpaces(raw));
            if (line.empty() || ContainsNoCase(line, "#include") || IsCommentLine(line)) continue;
            AddContextIDFromString(line, *modGlobals::MapContextIDs, mapFile, mapFileIndex);
        }
        return true;
    });
}

void AddMapFile(std::vector<std::string>& list, Counter16& count, const std::string& path) {
    GuardedVoid("modParser:AddMapFile", [&] {
        if (path.empty()) return;
        for (int i = 0; i < count && i < static_cast<int>(list.size()); ++i) {
            if (EqualsNoCase(list[static_cast<std::size_t>(i)], path)) {
                if (!modGlobals::DuplicateIncludes.empty()) modGlobals::DuplicateIncludes += '^';
                modGlobals::DuplicateIncludes += path;
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
