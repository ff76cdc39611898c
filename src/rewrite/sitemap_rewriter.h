#pragma once
// Writing the new index (.hhk) and contents (.hhc) files: the generated topic
// file names their targets name are replaced by the new names.
#include <string>

#include "model/conversion.h"

namespace tamrix::modRewrite {

/// indexFile / contentsFile is the old file as the wizard holds it; the new file
/// keeps its name and goes into newRootPath. A missing old file writes nothing.
bool RewriteIndex(Conversion& wizard, const std::string& oldProjectFile,
                  const std::string& indexFile, const std::string& newRootPath);
/// Writes the new contents file the way RewriteIndex writes the index.
bool RewriteContents(Conversion& wizard, const std::string& oldProjectFile,
                     const std::string& contentsFile, const std::string& newRootPath);

}  // namespace tamrix::modRewrite
