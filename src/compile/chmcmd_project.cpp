#include "compile/chmcmd_project.h"

#include "platform/byte_text.h"
#include "platform/file_system.h"

namespace tamrix::compile {
namespace {

std::string SectionName(const std::string& line) {
    const std::string trimmed = Trim(TabsToSpaces(line));
    if (trimmed.empty() || trimmed[0] != '[') return {};
    return Fold(Trim(Before(std::string_view(trimmed).substr(1), ']')));
}

std::string Slashed(std::string path) {
    for (char& c : path) c = c == '\\' ? '/' : c;
    return path;
}

}  // namespace

std::string DiskRelativePath(const check::ProjectSections& project, const std::string& name) {
    const std::string anchor =
        name.find('#') == std::string::npos ? "" : name.substr(name.find('#'));
    const std::string file(Before(name, '#'));
    const std::string disk = project.Files().DiskPath(project.Folder() + file);
    if (!project.Files().FileExists(project.Folder() + file) || !disk.starts_with(project.Folder()))
        return Slashed(name);
    return Slashed(disk.substr(project.Folder().size())) + anchor;
}

std::string ChmcmdProjectText(const check::ProjectSections& project,
                              const std::vector<AliasedId>& round,
                              const std::string& compiledName) {
    TextReader reader(project.Files(), project.ProjectFile());
    std::string out, section, line;
    bool mapWritten = false, aliasWritten = false, optionsSeen = false;
    auto writeMap = [&] {
        out += "[MAP]\n";
        for (const AliasedId& id : round)
            out += "#define " + id.name + " " + std::to_string(id.value) + "\n";
        out += "\n";
        mapWritten = true;
    };
    auto writeAlias = [&] {
        out += "[ALIAS]\n";
        for (const AliasedId& id : round)
            out += id.name + "=" + DiskRelativePath(project, id.target) + "\n";
        out += "\n";
        aliasWritten = true;
    };
    while (reader.ReadLine(line)) {
        if (const std::string name = SectionName(line); !name.empty()) {
            section = name;
            if (section == "map") writeMap();
            if (section == "alias") writeAlias();
            if (section != "map" && section != "alias") out += line + "\n";
            if (section == "options") {
                out += "Compiled file=" + compiledName + "\n";
                optionsSeen = true;
            }
            continue;
        }
        const std::string text = Trim(TabsToSpaces(line));
        if (section == "map" || section == "alias") continue;
        if (section == "options" && StartsWithNoCase(text, "Compiled file")) {
            continue;
        } else if ((section == "files" || section == "text popups") && !text.empty() &&
                   text[0] != ';') {
            out += DiskRelativePath(project, text) + "\n";
        } else {
            out += line + "\n";
        }
    }
    if (!optionsSeen) out += "[OPTIONS]\nCompiled file=" + compiledName + "\n\n";
    if (!mapWritten) writeMap();
    if (!aliasWritten) writeAlias();
    return out;
}

}  // namespace tamrix::compile
