#include "rewrite/sitemap_rewriter.h"

#include "model/conversion.h"
#include "model/project_state.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"
#include "platform/program_error.h"
#include "rewrite/containment.h"
#include "rewrite/ordered_replace.h"

namespace tamrix::modRewrite {
namespace {

bool RewriteSitemap(Conversion& wizard, const std::string& oldProjectFile, const std::string& file,
                    const std::string& newRootPath, const CTargets* targets,
                    const std::string& caption) {
    if (!modUtilities::FileExists(wizard.Files, file)) return true;
    const std::string name = modUtilities::FileNameNoPath(file);
    if (!IsSafeRelativeName(name)) {
        RefuseOutsideFile(wizard, name);
        return true;
    }
    FileSystem& fs = wizard.Files;
    const std::string text = fs.ReadAll(modUtilities::FilePathOnly(oldProjectFile) + name);
    const long count = targets != nullptr ? targets->Count() : 0;
    modUtilities::InitializeProgressBar(wizard, count, caption);
    // Each target's generated name is replaced by its topic's new name wherever it
    // stands; a target that names no topic file is passed over.
    const auto& topics = wizard.Globals.TopicFiles;
    std::vector<NameReplacement> names;
    names.reserve(static_cast<std::size_t>(count));
    for (long i = 1; i <= count; ++i) {
        const std::string target = modUtilities::FileNameNoPath(targets->Item(i).TargetString);
        if (const auto topic = topics ? topics->Find(target) : nullptr)
            names.push_back({target, topic->NewFileName});
        modUtilities::UpdateProgressBar(wizard, i);
    }
    fs.WriteAll(modUtilities::MakeFullPathforFile(newRootPath, name),
                ReplaceInOrder(text, names).text);
    return true;
}
}  // namespace

bool RewriteIndex(Conversion& wizard, const std::string& oldProjectFile,
                  const std::string& indexFile, const std::string& newRootPath) {
    return Guarded(wizard.Errors, "modRewrite:RewriteIndex", false, [&] {
        return RewriteSitemap(wizard, oldProjectFile, indexFile, newRootPath,
                              wizard.Globals.IndexTargets.get(), "Writing New Index File ...");
    });
}

bool RewriteContents(Conversion& wizard, const std::string& oldProjectFile,
                     const std::string& contentsFile, const std::string& newRootPath) {
    return Guarded(wizard.Errors, "modRewrite:RewriteContents", false, [&] {
        return RewriteSitemap(wizard, oldProjectFile, contentsFile, newRootPath,
                              wizard.Globals.ContentsTargets.get(),
                              "Writing New Contents File ...");
    });
}

}  // namespace tamrix::modRewrite
