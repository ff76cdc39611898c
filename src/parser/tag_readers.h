#pragma once
// Plain-text tag readers shared by the topic scanner, the contents and index
// readers and the popup writers. Keyword searches ignore case; quote searches are exact.
#include <string>
#include <string_view>

namespace tamrix::modParser {

// The quoted value after "HREF=", or empty. A missing quote is reported (error 0).
std::string HTMLHrefTarget(std::string_view tag);
// The quoted value after "NAME=", or empty. A missing quote is reported (error 0).
std::string HTMLAnchorName(std::string_view tag);

}  // namespace tamrix::modParser
