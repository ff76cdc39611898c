#pragma once
// Plain-text tag readers shared by the topic scanner, the contents and index
// readers and the popup writers. Keyword searches ignore case; quote searches are exact.
// When a tag spans lines, the lines are joined, each followed by one space.
#include <string>
#include <string_view>

#include "model/c_target.h"
#include "platform/file_system.h"

namespace tamrix {

/// Where unexpected errors go.
class ErrorReporter;
/// The conversion whose project state is filled.
class Conversion;
}  // namespace tamrix

namespace tamrix::modParser {

/// The quoted value after "HREF=", or empty. A missing quote is reported (error 0).
std::string HTMLHrefTarget(ErrorReporter& errors, std::string_view tag);
/// The quoted value after "NAME=", or empty. A missing quote is reported (error 0).
std::string HTMLAnchorName(ErrorReporter& errors, std::string_view tag);

/// The next anchor, from its "<A" up to and including the first "</A>", or empty
/// at the end of the stream. Text after that "</A>" that opens another "<A" is kept
/// in wizard.Globals.PendingAnchorText for the next call.
std::string HTMLAnchor(Conversion& wizard, TextReader& stream);
/// The next "<AREA" tag up to its ">", or empty at the end; one tag per line.
std::string HTMLArea(Conversion& wizard, TextReader& stream);
/// The next "<OBJECT" element up to its "</OBJECT>", or empty at the end; one per line.
std::string HTMLObject(Conversion& wizard, TextReader& stream);

/// Whether an equal TargetString (without regard to case) is present.
bool CTargetExists(const CTargets& targets, std::string_view target);

}  // namespace tamrix::modParser
