#pragma once
// The contents (.hhc) and index (.hhk) readers: the file names their sitemap
// entries refer to, kept exactly as written, without anchors and without repeats.
#include <string>

namespace tamrix::modParser {

// Fills modGlobals::IndexTargets; a missing index file is no error.
bool ParseIndexFile(const std::string& indexFile);
// Fills modGlobals::ContentsTargets from the sitemap entries and the plain links.
bool ParseContentsFile(const std::string& contentsFile);

}  // namespace tamrix::modParser
