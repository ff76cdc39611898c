#pragma once
// The contents (.hhc) and index (.hhk) readers: the file names their sitemap
// entries refer to, kept exactly as written, without anchors and without repeats.
#include <string>

namespace tamrix {
/// The conversion whose project state is read.
class Conversion;
}  // namespace tamrix

namespace tamrix::modParser {

/// Fills wizard.Globals.IndexTargets; a missing index file is no error.
bool ParseIndexFile(Conversion& wizard, const std::string& indexFile);
/// Fills wizard.Globals.ContentsTargets from the sitemap entries and the plain links.
bool ParseContentsFile(Conversion& wizard, const std::string& contentsFile);

}  // namespace tamrix::modParser
