// The driver of the write, kept apart from the other project writers because it
// is the one that needs the map and alias writer.
#include "model/conversion.h"
#include "model/project_state.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"
#include "platform/program_error.h"
#include "rewrite/containment.h"
#include "rewrite/map_alias_writer.h"
#include "rewrite/project_writer.h"
#include "rewrite/sitemap_rewriter.h"
#include "rewrite/topic_rewriter.h"

namespace tamrix::modRewrite {
namespace {

void ClearFileDefined(const std::shared_ptr<CContextIDs>& ids) {
    if (!ids) return;
    for (const auto& id : *ids) id->FileDefined = false;
}

}  // namespace

bool RewriteHelpProject(Conversion& wizard, const std::string& oldProjectFile,
                        const std::string& newProjectName, const std::string& newRootPath) {
    return Guarded(wizard.Errors, "modRewrite:RewriteHelpProject", false, [&] {
        const ProjectState& g = wizard.Globals;
        wizard.Globals.RefusedFiles.clear();
        wizard.Globals.RefusedTopicIDs.clear();
        wizard.Globals.ClashingTopicIDs.clear();
        SettleNewFileNames(wizard);
        const std::string newProjectFile =
            modUtilities::MakeFullPathforFile(newRootPath, newProjectName);
        bool ok = RewriteProjectFile(wizard, oldProjectFile, newProjectFile);
        if (ok) {
            modUtilities::InitializeProgressBar(wizard, g.TopicFiles->Count(),
                                                "Writing New Topic Files ...");
            modUtilities::ShowProgressBar(wizard, true);
            const std::string cssLink = MakeCSSLinkString(wizard, newRootPath);
            long done = 0;
            FileSystem::QueuedWrites queued(wizard.Files);
            // A failed file does not stop the loop; only the last result counts.
            for (const auto& topic : *g.TopicFiles) {
                ok = RewriteTopicFile(wizard, *topic, oldProjectFile, newRootPath, cssLink);
                topic->JavaModified = false;
                modUtilities::UpdateProgressBar(wizard, ++done);
            }
            queued.Finish();
            if (ok) {
                ok = RewriteIndex(wizard, oldProjectFile, wizard.IndexFile, newRootPath);
                if (ok)
                    ok = RewriteContents(wizard, oldProjectFile, wizard.ContentsFile, newRootPath);
            }
        }

        modUtilities::InitializeProgressBar(wizard, 3, "Copying Map and Alias Files ...");
        NewFileList newMapFiles;
        if (ok) ok = CopyMapFiles(wizard, g.MapFiles, g.MapFileCount, newRootPath, newMapFiles);
        modUtilities::UpdateProgressBar(wizard, 1);
        const bool mapSectionIds = g.ProjectContextIDs && g.ProjectContextIDs->Count() > 0;
        if (ok && (mapSectionIds || g.MapFileCount >= 1))
            ok = AddMapFiles(wizard, newMapFiles, newProjectFile);
        else if (ok)
            CopyKeptMapIncludes(wizard, oldProjectFile, newProjectFile);
        modUtilities::UpdateProgressBar(wizard, 2);
        ClearFileDefined(g.MapContextIDs);
        ClearFileDefined(g.ProjectContextIDs);
        modUtilities::UpdateProgressBar(wizard, 3);
        if (ok) {
            NewFileList newAliasFiles;
            std::string aliasFileName;
            std::string aliasIncludeName;
            if (g.MapContextIDs || g.ProjectContextIDs)
                ok = WriteAliasFiles(wizard, newRootPath, newAliasFiles, aliasFileName,
                                     aliasIncludeName);
            if (ok)
                RewriteInternalAliases(wizard, newProjectFile, newAliasFiles, aliasFileName,
                                       aliasIncludeName);
        }
        return UpdateContextIDs(wizard);
    });
}

}  // namespace tamrix::modRewrite
