#pragma once
// Cutting the body out of a topic file for the popup writers.
#include <string>

#include "platform/file_system.h"

namespace tamrix {
/// Where unexpected errors go.
class ErrorReporter;
}  // namespace tamrix

namespace tamrix::modPopups {

/// Reads up to and including the first line that holds "<BODY"; false when the
/// file ends first.
bool HTMLBodyStart(ErrorReporter& errors, TextReader& reader);
/// The lines between the "<BODY" line and the "</BODY>" line (both dropped whole),
/// empty lines skipped, joined with CR LF. Empty without "<BODY".
std::string HTMLBodyContents(ErrorReporter& errors, TextReader& reader);

}  // namespace tamrix::modPopups
