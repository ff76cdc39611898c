#pragma once
// Writing one topic file of the new project under its new name, with its links
// to generated files renamed and, when wanted, the style sheet link added.
#include <string>

#include "model/c_topic_file.h"
#include "model/conversion.h"

namespace tamrix::modRewrite {

/// cssLink is the line made by MakeCSSLinkString, or empty for no link. A topic
/// whose new file would lie outside newRootPath is refused (not written) and
/// true is returned so that the rest of the project is still written.
bool RewriteTopicFile(Conversion& wizard, CTopicFile& topic, const std::string& oldProjectFile,
                      const std::string& newRootPath, const std::string& cssLink);

}  // namespace tamrix::modRewrite
