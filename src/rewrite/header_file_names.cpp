#include "rewrite/header_file_names.h"

#include "messages/messages.h"
#include "model/conversion.h"
#include "platform/byte_text.h"
#include "platform/path_helpers.h"
#include "platform/program_identity.h"

namespace tamrix::modRewrite {

std::string NameInNewFolder(std::string_view path) {
    std::string name = modUtilities::FileNameNoPath(path);
    // "C:name" is relative to a drive's current folder on Windows: keep the name only.
    if (name.size() >= 2 && name[1] == ':') name.erase(0, 2);
    if (FindSeparator(name) != std::string::npos) return {};
    if (name.empty() || name == "." || name == "..") return {};
    return name;
}

std::string WithHeaderExtension(std::string_view name) {
    if (EqualsNoCase(FileExtension(name), "h")) return std::string(name);
    return FileBaseName(name) + ".h";
}

void ShowRefusedName(Conversion& wizard, std::string_view name, std::string_view title) {
    modMessages::ShowMessage(wizard.View(),
                             "The name \"" + std::string(name) +
                                 "\" does not name a file inside the new project folder, "
                                 "so the file was not written.",
                             mb::kExclamation, title, {}, 0);
}

std::string HeaderBanner(std::string_view bannerText) {
    return BannerLine(bannerText) + std::string(kCrLf) + "; " + FileDateText() + std::string(kCrLf);
}

}  // namespace tamrix::modRewrite
