#pragma once
// Turning the body of an untitled topic into plain text for a popup. Nothing
// here parses HTML: each function searches, without regard to case, for the
// fixed tag texts it names and nothing else.
#include <string>
#include <string_view>

#include "platform/byte_text.h"
#include "platform/program_identity.h"

namespace tamrix {
/// Where unexpected errors go.
class ErrorReporter;
}  // namespace tamrix

namespace tamrix::modStrings {

/// The string helpers the text conversion uses, under the old module's name.
using tamrix::ReplaceAll;
using tamrix::TabsToSpaces;
using tamrix::VersionString;

/// Removes the list, bold, italic, underline and heading tags, turns <BR> into a
/// line break and decodes &gt; &lt; &nbsp; and, last, &amp;.
std::string RemoveHTMLTags(ErrorReporter& errors, std::string_view text);
/// Puts `bullet` in place of each <LI>, a line break in place of each </LI>, and
/// drops the <UL>/<OL> tags (closing tags with the line break after them).
std::string RemoveListTags(ErrorReporter& errors, std::string_view text, std::string_view bullet);
/// Removes the first anchor, link text included, from its "<A" to the first
/// "</A>" after it. Without such a pair the text comes back unchanged.
std::string RemoveAnchor(ErrorReporter& errors, std::string_view text);
/// Removes "<A HREF=...>" and "</A>" pairs, keeping the link text. Stops, leaving
/// the rest as it is, at the first link it cannot take apart.
std::string RemoveHREFs(ErrorReporter& errors, std::string_view text);
/// Replaces every "<IMG ...>" by " (*) "; an image tag without ">" stays.
std::string RemoveIMGs(ErrorReporter& errors, std::string_view text);
/// Drops CR LF pairs at the end, then at the start.
std::string TrimNewLines(ErrorReporter& errors, std::string_view text);
/// Escapes the text for a script string: \ first, then CR LF, tab, quotes and "?".
std::string ReplaceSpecialChars(ErrorReporter& errors, std::string_view text);

}  // namespace tamrix::modStrings
