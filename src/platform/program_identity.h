#pragma once
// The program's name, version and the date texts written into files and logs.
#include <string>
#include <string_view>

namespace tamrix {

/// major "." minor "." revision, each without leading zeros.
std::string VersionString();
/// `text` + program name + " Version " + VersionString(): the first line of a generated file.
std::string BannerLine(std::string_view text);
/// The date line of generated files: "March 05, 2011, 02:07 PM".
std::string FileDateText();
/// The date line of logs: "March 05, 2011: 02:07 PM".
std::string LogDateText();

}  // namespace tamrix
