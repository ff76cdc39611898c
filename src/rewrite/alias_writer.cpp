#include <algorithm>

#include "messages/messages.h"
#include "model/conversion.h"
#include "model/project_state.h"
#include "parser/winhelp_reader.h"
#include "platform/byte_text.h"
#include "platform/counter16.h"
#include "platform/file_system.h"
#include "platform/format.h"
#include "platform/path_helpers.h"
#include "platform/profile.h"
#include "platform/program_error.h"
#include "rewrite/header_file_names.h"
#include "rewrite/map_alias_writer.h"

namespace tamrix::modRewrite {
namespace {

constexpr std::string_view kTopicFolder = "html\\";

// The topic an alias or context ID names: by topic ID first, then by extra anchor.
std::shared_ptr<CTopicFile> TopicNamed(Conversion& wizard, std::string_view name) {
    const auto& topics = wizard.Globals.TopicFiles;
    if (!topics || name.empty()) return nullptr;
    if (auto topic = topics->FirstWithContext(name)) return topic;
    return topics->FirstWithExtraId(name);
}

std::string AliasLine(std::string_view name, const CTopicFile& topic) {
    return std::string(name) + " = " + std::string(kTopicFolder) + topic.NewFileName;
}

// Both context-ID collections, the map-file IDs first.
template <class F>
void ForEachContextID(Conversion& wizard, F&& visit) {
    for (const auto* collection :
         {wizard.Globals.MapContextIDs.get(), wizard.Globals.ProjectContextIDs.get()}) {
        if (collection == nullptr) continue;
        for (const auto& id : *collection)
            visit(*id, collection == wizard.Globals.MapContextIDs.get());
    }
}

// An alias written into a rewritten alias file gives its context ID a topic.
void MarkAliased(Conversion& wizard, std::string_view name, const std::string& aliasFile) {
    for (const auto* collection :
         {wizard.Globals.MapContextIDs.get(), wizard.Globals.ProjectContextIDs.get()}) {
        if (collection == nullptr) continue;
        if (const auto id = collection->Find(name)) {
            id->FileDefined = true;
            id->AliasFile = aliasFile;
        }
    }
}

// One line of an old alias file as it reads in the new one.
std::string RewrittenAliasLine(Conversion& wizard, const std::string& line,
                               const std::string& newName) {
    const std::string trimmed = Trim(TabsToSpaces(line));
    if (!trimmed.empty() && trimmed[0] == ';') return line;
    if (StartsWithNoCase(trimmed, "#include")) {
        // Included alias files lie next to this one in the new folder, under their new names.
        bool bracket = false;
        std::string target = Trim(ReplaceAllExact(trimmed.substr(8), "\"", " "));
        if (const std::size_t open = target.find('<'); open != std::string::npos) {
            bracket = true;
            target = target.substr(open + 1);
            target = Trim(Before(target, '>'));
        }
        const std::string name = NameInNewFolder(target);
        if (name.empty()) return line;
        const std::string header = WithHeaderExtension(name);
        return "#include " + (bracket ? "<" + header + ">" : header);
    }
    const std::size_t eq = line.find('=');
    if (eq == std::string::npos) return line;
    const std::string name = Trim(TabsToSpaces(std::string_view(line).substr(0, eq)));
    if (name.empty()) return line;
    const std::string topicID =
        std::string(Before(Trim(TabsToSpaces(std::string_view(line).substr(eq + 1))), ' '));
    if (const auto topic = TopicNamed(wizard, topicID)) {
        MarkAliased(wizard, name, newName);
        return AliasLine(name, *topic);
    }
    return "; Could not find alias for: \"" + name + "\"";
}

}  // namespace

bool WriteAliasFiles(Conversion& wizard, const std::string& newRootPath, NewFileList& newAliasFiles,
                     std::string& aliasFileName, std::string& csAliasFileName) {
    return Guarded(wizard.Errors, "modRewrite:WriteAliasFiles", false, [&] {
        aliasFileName.clear();
        csAliasFileName.clear();
        bool ok = true;
        const int count = std::min<int>(wizard.Globals.AliasFileCount,
                                        static_cast<int>(wizard.Globals.AliasFiles.size()));
        if (count > 0) {
            modUtilities::InitializeProgressBar(wizard, count, "Rewriting Alias Files ...");
            for (int i = 0; i < count; ++i) {
                std::string newName;
                if (!RewriteOneAliasFile(wizard,
                                         wizard.Globals.AliasFiles[static_cast<std::size_t>(i)],
                                         newRootPath, newName))
                    ok = false;
                modParser::AddMapFile(wizard, newAliasFiles.names, newAliasFiles.count, newName);
                modUtilities::UpdateProgressBar(wizard, i + 1);
            }
        }
        if (!ok) return false;
        if (wizard.Globals.MapContextIDs || wizard.Globals.ProjectContextIDs) {
            aliasFileName = "NewAliases.h";
            csAliasFileName = "csAlias.h";
            WriteNewAliasFile(wizard, aliasFileName, csAliasFileName, newRootPath);
        }
        return true;
    });
}

bool RewriteOneAliasFile(Conversion& wizard, const std::string& oldAliasFile,
                         const std::string& newRootPath, std::string& newName) {
    newName.clear();
    return Guarded(wizard.Errors, "modRewrite:RewriteOneAliasFile", false, [&] {
        wizard.SetProgressCaption("Writing Alias Files");
        std::string name = NameInNewFolder(oldAliasFile);
        if (name.empty()) {
            ShowRefusedName(wizard, oldAliasFile, "Writing Alias Files");
            return false;
        }
        name = WithHeaderExtension(name);
        const std::string path = modUtilities::MakeFullPathforFile(newRootPath, name);
        newName = name;
        // No keeps the existing file, which is still included.
        if (modUtilities::FileExists(wizard.Files, path) &&
            modMessages::AskMessage(wizard.View(), modMessages::FromCatalogue(10018, path),
                                    mb::kYesNo | mb::kQuestion, "Writing Alias Files",
                                    {}) == mb::kNo)
            return true;

        std::string text = HeaderBanner("; Alias File written automatically by ");
        text += "; This Alias file is derived from the original Alias file: " +
                modUtilities::FileNameNoPath(oldAliasFile) + std::string(kCrLf);
        text += "; and the original Map files:" + std::string(kCrLf);
        const int mapCount = std::min<int>(wizard.Globals.MapFileCount,
                                           static_cast<int>(wizard.Globals.MapFiles.size()));
        for (int i = 0; i < mapCount; ++i)
            text +=
                "; and Map File " +
                modUtilities::FileNameNoPath(wizard.Globals.MapFiles[static_cast<std::size_t>(i)]) +
                std::string(kCrLf);
        text += "; Reading Old Alias File ;;;;;;;;;;;;;;;;;;;;;;;;;;;;;;;;;;" + std::string(kCrLf);
        TextReader reader(wizard.Files, oldAliasFile);
        std::string line;
        while (reader.ReadLine(line))
            text += RewrittenAliasLine(wizard, line, name) + std::string(kCrLf);
        wizard.Files.WriteAll(path, text);
        return true;
    });
}

bool WriteNewAliasFile(Conversion& wizard, std::string& aliasFileName, std::string& csAliasFileName,
                       const std::string& newRootPath) {
    return Guarded(wizard.Errors, "modRewrite:WriteNewAliasFile", false, [&] {
        if (!wizard.Globals.MapContextIDs && !wizard.Globals.ProjectContextIDs) {
            modMessages::ShowMessage(wizard.View(), "No Map files or definitions read.",
                                     mb::kOKOnly, "Writing Alias File", wizard.Box(), 0);
            return false;
        }
        const std::string normalName = NameInNewFolder(aliasFileName);
        const std::string untitledName = NameInNewFolder(csAliasFileName);
        if (normalName.empty() || untitledName.empty()) {
            ShowRefusedName(wizard, normalName.empty() ? aliasFileName : csAliasFileName,
                            "Writing Alias File");
            return false;
        }
        aliasFileName = normalName;
        csAliasFileName = untitledName;

        long total = 0;
        ForEachContextID(wizard, [&](const CContextID&, bool) { ++total; });
        modUtilities::InitializeProgressBar(wizard, total, "Writing New Alias Files ...");

        std::string normal = HeaderBanner("; Alias File written automatically by ");
        std::string untitled = normal;
        normal +=
            "; Automatic aliases for normal topics ;;;;;;;;;;;;;;;;;;;;;;;;;;" + std::string(kCrLf);
        untitled +=
            "; Automatic aliases for untitled topic files whose text may be extracted to "
            "cshelp.txt ;;;;;;;;;;" +
            std::string(kCrLf);

        long done = 0;
        ForEachContextID(wizard, [&](CContextID& id, bool fromMapFile) {
            ++done;
            const bool skip = id.FileDefined ||
                              (fromMapFile && id.ContextIDVal == 0 && wizard.Globals.IgnoreZeroIDs);
            if (!skip) {
                if (const auto topic = TopicNamed(wizard, id.ContextString)) {
                    const std::string line =
                        AliasLine(id.ContextString, *topic) + std::string(kCrLf);
                    if (topic->HasTitle) {
                        normal += line;
                        id.AliasFile = normalName;
                    } else if (topic->ExternalReferences > 0) {
                        untitled += line;
                        id.AliasFile = untitledName;
                    }
                    id.FileDefined = true;
                }
            }
            modUtilities::UpdateProgressBar(wizard, done);
        });

        if (const int missing = UnAliasedContexts(wizard); missing > 0) {
            normal += ";" + std::string(kCrLf);
            normal += ";    Could not find aliases for " + FormatNumber(missing, "0") +
                      " context ID's: ;;;;;;;" + std::string(kCrLf);
            normal += ";    For more information view the rewrite log." + std::string(kCrLf);
        }
        FileSystem& fs = wizard.Files;
        fs.WriteAll(modUtilities::MakeFullPathforFile(newRootPath, normalName), normal);
        fs.WriteAll(modUtilities::MakeFullPathforFile(newRootPath, untitledName), untitled);
        return true;
    });
}

bool RewriteInternalAliases(Conversion& wizard, const std::string& newProjectFile,
                            const NewFileList& newAliasFiles, const std::string& aliasFileName,
                            const std::string& csAliasFileName) {
    return Guarded(wizard.Errors, "modRewrite:RewriteInternalAliases", false, [&] {
        const auto& aliases = wizard.Globals.ProjectAliases;
        if (aliases && aliases->Count() > 0)
            modUtilities::InitializeProgressBar(wizard, aliases->Count(),
                                                "Writing Internal Aliases ...");
        std::string section;
        const int count =
            std::min<int>(newAliasFiles.count, static_cast<int>(newAliasFiles.names.size()));
        for (int i = 0; i < count; ++i)
            section +=
                "#include " +
                modUtilities::FileNameNoPath(newAliasFiles.names[static_cast<std::size_t>(i)]) +
                '\0';
        if (!aliasFileName.empty())
            section += "#include " + modUtilities::FileNameNoPath(aliasFileName) + '\0';
        section += "#Include " + csAliasFileName + '\0';

        if (aliases) {
            long done = 0;
            for (const auto& alias : *aliases) {
                alias->AliasFound = false;
                const auto& topics = wizard.Globals.TopicFiles;
                const auto topic = topics && !alias->TopicID.empty()
                                       ? topics->FirstWithContext(alias->TopicID)
                                       : nullptr;
                if (topic) {
                    section += alias->ContextID + " = " + std::string(kTopicFolder) +
                               topic->NewFileName + alias->Comment + '\0';
                    alias->AliasFound = true;
                }
                modUtilities::UpdateProgressBar(wizard, ++done);
            }
            UpdateContextIDs(wizard);
        }

        std::string old;
        if (profile::GetSection(wizard.Files, newProjectFile, "ALIAS", old) > 0)
            profile::DeleteSection(wizard.Files, newProjectFile, "ALIAS");
        return profile::WriteSection(wizard.Files, newProjectFile, "ALIAS", section) == 1;
    });
}

int UnAliasedContexts(Conversion& wizard) {
    return Guarded(wizard.Errors, "modRewrite:UnAliasedContexts", 0, [&] {
        Counter16 count;
        ForEachContextID(wizard, [&](const CContextID& id, bool) {
            if (!id.FileDefined) ++count;
        });
        return static_cast<int>(count);
    });
}

bool UpdateContextIDs(Conversion& wizard) {
    return Guarded(wizard.Errors, "modRewrite:UpdateContextIDs", false, [&] {
        const auto& aliases = wizard.Globals.ProjectAliases;
        if (!aliases) return true;
        for (const auto& alias : *aliases) {
            if (!alias->AliasFound) continue;
            for (const auto* collection :
                 {wizard.Globals.MapContextIDs.get(), wizard.Globals.ProjectContextIDs.get()}) {
                if (collection == nullptr) continue;
                if (const auto id = collection->Find(alias->ContextID); id && !id->FileDefined)
                    id->FileDefined = true;
            }
        }
        return true;
    });
}

}  // namespace tamrix::modRewrite
