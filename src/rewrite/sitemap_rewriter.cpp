#include "rewrite/sitemap_rewriter.h"

#include "model/project_state.h"
#include "platform/path_helpers.h"
#include "platform/program_error.h"
#include "platform/text_buffer.h"
#include "rewrite/containment.h"

namespace tamrix::modRewrite {
namespace {

bool RewriteSitemap(WizardState& wizard, const std::string& oldProjectFile,
                    const std::string& file, const std::string& newRootPath,
                    const CTargets* targets, const std::string& caption) {
    if (!modUtilities::FileExists(file)) return true;
    const std::string name = modUtilities::FileNameNoPath(file);
    if (!IsSafeRelativeName(name)) {
        RefuseOutsideFile(wizard, name);
        return true;
    }
    TextBuffer buffer;
    buffer.LoadFile(modUtilities::FilePathOnly(oldProjectFile) + name);
    const long count = targets != nullptr ? targets->Count() : 0;
    modUtilities::InitializeProgressBar(wizard, count, caption);
    const auto& topics = modGlobals::TopicFiles;
    for (long i = 1; i <= count; ++i) {
        const std::string target = modUtilities::FileNameNoPath(targets->Item(i)->TargetString);
        buffer.SetSelStart(0);
        if (const auto topic = topics ? topics->Find(target) : nullptr) {
            // A match at position 0 ends the search, as it always has.
            while (buffer.Find(target, buffer.SelStart()) >= 1) buffer.ReplaceSel(topic->NewFileName);
        }
        modUtilities::UpdateProgressBar(wizard, i);
    }
    buffer.SaveFile(modUtilities::MakeFullPathforFile(newRootPath, name));
    return true;
}

}  // namespace

bool RewriteIndex(WizardState& wizard, const std::string& oldProjectFile,
                  const std::string& indexFile, const std::string& newRootPath) {
    return Guarded("modRewrite:RewriteIndex", false, [&] {
        return RewriteSitemap(wizard, oldProjectFile, indexFile, newRootPath,
                              modGlobals::IndexTargets.get(), "Writing New Index File ...");
    });
}

bool RewriteContents(WizardState& wizard, const std::string& oldProjectFile,
                     const std::string& contentsFile, const std::string& newRootPath) {
    return Guarded("modRewrite:RewriteContents", false, [&] {
        return RewriteSitemap(wizard, oldProjectFile, contentsFile, newRootPath,
                              modGlobals::ContentsTargets.get(), "Writing New Contents File ...");
    });
}

}  // namespace tamrix::modRewrite
