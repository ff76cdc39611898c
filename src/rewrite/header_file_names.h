#pragma once
// Names and header lines of the map and alias files written into the new
// project folder.
#include <string>
#include <string_view>

namespace tamrix {
/// The conversion whose view shows the refusal.
class Conversion;
}  // namespace tamrix

namespace tamrix::modRewrite {

/// The line break of every written file.
inline constexpr std::string_view kCrLf = "\r\n";

/// The bare file name of `path` for a file in the new project folder: no folder,
/// no drive. Empty when nothing usable is left ("", ".", ".."), so that a name
/// read from a project file can never lead outside that folder.
std::string NameInNewFolder(std::string_view path);
/// The name with its extension replaced by ".h" unless it already is "h" (any case).
std::string WithHeaderExtension(std::string_view name);
/// Tells the user that a file was not written because of its name.
void ShowRefusedName(Conversion& wizard, std::string_view name, std::string_view title);
/// The banner line and the date line that begin every generated header file.
std::string HeaderBanner(std::string_view bannerText);

}  // namespace tamrix::modRewrite
