#pragma once
// Joining the lines of a tag that spans lines, each followed by one space.
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace tamrix::modParser {

/// Appends following lines of `stream` to `text` (each followed by one space) until
/// `keyword` occurs at or after `from` (without regard to case); returns its
/// position, or kNotFound when the stream ends first. Only new text is searched,
/// so joining many lines stays linear.
std::size_t JoinLinesUntil(TextReader& stream, std::string& text, std::string_view keyword,
                           std::size_t from);

}  // namespace tamrix::modParser
