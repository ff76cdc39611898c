#include "parser/sitemap_reader.h"

#include <memory>
#include <string_view>
#include "model/conversion.h"

#include "model/project_state.h"
#include "parser/tag_readers.h"
#include "platform/byte_text.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"
#include "platform/program_error.h"

namespace tamrix::modParser {
namespace {

// The value as the sitemap writes it: up to the first ">", then up to the
// first double quote (trimmed), then without its anchor.
std::string CutValue(std::string_view value) {
    const std::size_t gt = value.find('>');
    if (gt != std::string_view::npos) value = value.substr(0, gt);
    value = Before(value, '"');
    return std::string(Before(Trim(value), '#'));
}

void AddUnlessPresent(CTargets& targets, const std::string& target) {
    if (!CTargetExists(targets, target)) targets.Add(target);
}

// Every "Local" parameter value of one sitemap object.
void AddLocalValues(std::string_view object, CTargets& targets) {
    constexpr std::string_view kLocal = "\"Local\"";
    std::size_t from = 0;
    while (true) {
        const std::size_t p = FindNoCase(object, kLocal, from);
        if (p == kNotFound) return;
        const std::size_t rest = std::min(object.size(), p + kLocal.size() + 1);
        const std::size_t next = object.find('>', p);
        const std::size_t value = FindNoCase(object, "VALUE=", rest);
        // Without a value, or without a ">" after it, this object gives nothing more.
        if (value == kNotFound) return;
        const std::size_t start = std::min(object.size(), value + 7);
        if (object.find('>', start) == std::string_view::npos) return;
        AddUnlessPresent(targets, CutValue(object.substr(start)));
        if (next == std::string_view::npos) return;
        from = next + 1;
    }
}

// Reads every sitemap object of a file into `targets`.
void ReadObjects(Conversion& wizard, const std::string& file, CTargets& targets) {
    TextReader stream(wizard.Files, file);
    for (std::string object = HTMLObject(wizard, stream); !object.empty();
         object = HTMLObject(wizard, stream))
        AddLocalValues(object, targets);
}

}  // namespace

bool ParseIndexFile(Conversion& wizard, const std::string& indexFile) {
    return Guarded(wizard.Errors, "modParser:ParseIndexFile", false, [&] {
        if (!modUtilities::FileExists(wizard.Files, indexFile)) return true;
        if (!wizard.Globals.IndexTargets)
            wizard.Globals.IndexTargets = std::make_shared<CTargets>();
        ReadObjects(wizard, indexFile, *wizard.Globals.IndexTargets);
        return true;
    });
}

bool ParseContentsFile(Conversion& wizard, const std::string& contentsFile) {
    return Guarded(wizard.Errors, "modParser:ParseContentsFile", false, [&] {
        if (!wizard.Globals.ContentsTargets)
            wizard.Globals.ContentsTargets = std::make_shared<CTargets>();
        CTargets& targets = *wizard.Globals.ContentsTargets;
        ReadObjects(wizard, contentsFile, targets);

        TextReader stream(wizard.Files, contentsFile);
        wizard.Globals.PendingAnchorText.clear();
        for (std::string anchor = HTMLAnchor(wizard, stream); !anchor.empty();
             anchor = HTMLAnchor(wizard, stream)) {
            const std::size_t href = FindNoCase(anchor, "HREF=");
            if (href == kNotFound) continue;
            // One character after "HREF=" skips the assumed opening quote.
            const std::size_t start = std::min(anchor.size(), href + 6);
            AddUnlessPresent(targets, CutValue(std::string_view(anchor).substr(start)));
        }
        return true;
    });
}

}  // namespace tamrix::modParser
