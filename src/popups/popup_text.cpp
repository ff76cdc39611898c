#include "popups/popup_text.h"

#include <algorithm>
#include "model/conversion.h"

#include "model/project_state.h"
#include "parser/tag_readers.h"
#include "platform/byte_text.h"
#include "platform/file_system.h"
#include "platform/path_helpers.h"
#include "popups/body_reader.h"
#include "popups/html_to_text.h"

namespace tamrix::modPopups {
namespace {

// Bullet of script strings: the Windows-1252 bullet character and a blank.
constexpr std::string_view kScriptBullet = "\x95 ";
constexpr std::string_view kTextBullet = "* ";

// Takes the first anchor's name, drops everything up to its "</A>", then every
// further leading anchor (any "<A" for scripts, only named ones for text popups).
std::string DropLeadingAnchors(ErrorReporter& errors, std::string text, PopupKind kind,
                               std::string& anchorName) {
    const std::size_t open = FindNoCase(text, "<A");
    if (open == kNotFound) return text;
    const std::size_t close = FindNoCase(text, "</A>", open);
    const std::string_view rest = std::string_view(text).substr(open);
    anchorName =
        modParser::HTMLAnchorName(errors, close == kNotFound ? rest : rest.substr(0, close - open));
    if (close != kNotFound) text.erase(0, close + 4);
    text = Trim(text);
    // Each anchor is dropped where the last one ended, not by copying the rest.
    const std::string_view leading = kind == PopupKind::Script ? "<A" : "<A NAME=";
    std::string_view remaining = text;
    while (StartsWithNoCase(remaining, leading)) {
        const std::size_t end = FindNoCase(remaining, "</A>");
        if (end == kNotFound) break;  // an anchor without "</A>" cannot be removed
        remaining.remove_prefix(end + 4);
        remaining.remove_prefix(std::min(remaining.size(), remaining.find_first_not_of(' ')));
    }
    return std::string(remaining);
}

std::string RemoveScriptListTags(std::string text) {
    text = ReplaceAll(text, "<LI>", kScriptBullet);
    for (const char* tag : {"</LI>", "<UL>\r\n", "<UL>", "<OL>\r\n", "<OL>", "</UL>\r\n", "</UL>",
                            "</OL>\r\n", "</OL>"})
        text = ReplaceAll(text, tag, "");
    return text;
}

}  // namespace

PopupText CleanPopupBody(ErrorReporter& errors, const ProjectState& project, std::string body,
                         PopupKind kind) {
    using namespace modStrings;
    const bool script = kind == PopupKind::Script;
    PopupText result;
    std::string text = DropLeadingAnchors(errors, std::move(body), kind, result.anchorName);
    text = ReplaceAll(ReplaceAll(text, "<P>", ""), "</P>", "");
    if (ContainsNoCase(text, "<LI>"))
        text = script ? RemoveScriptListTags(text) : RemoveListTags(errors, text, kTextBullet);
    text = ReplaceAll(text, "<BR>", "");
    if (script) {
        text = ReplaceSpecialChars(errors, RemoveHTMLTags(errors, TrimNewLines(errors, text)));
        if (project.RemoveScriptLinks && ContainsNoCase(text, "HREF="))
            text = RemoveHREFs(errors, text);
        else if (project.RemovePopupImages && ContainsNoCase(text, "<IMG "))
            text = RemoveIMGs(errors, text);
    } else {
        text = RemoveHTMLTags(errors, text);
        if (project.RemoveTextLinks && ContainsNoCase(text, "HREF="))
            text = RemoveHREFs(errors, text);
        if (project.RemovePopupImages && ContainsNoCase(text, "<IMG "))
            text = RemoveIMGs(errors, text);
        text = TrimNewLines(errors, text);
    }
    result.text = std::move(text);
    return result;
}

PopupText ReadPopupTopic(Conversion& wizard, const std::string& root, const CTopicFile& topic,
                         PopupKind kind) {
    // Where the write step put it; html\ when it wrote nothing there, so that no
    // name from the old project leads the reader outside the new folder.
    std::string path = modUtilities::MakeFullPathforFile(root, topic.NewNamePath());
    if (!wizard.Files.Written(path))
        path = modUtilities::MakeFullPathforFile(root, "html/" + topic.NewFileName);
    TextReader reader(wizard.Files, path);
    return CleanPopupBody(wizard.Errors, wizard.Globals, HTMLBodyContents(wizard.Errors, reader),
                          kind);
}

std::string PopupName(const CTopicFile& topic, const std::string& anchorName) {
    if (!anchorName.empty() && !EqualsNoCase(anchorName, topic.Context)) return anchorName;
    return topic.Context;
}

}  // namespace tamrix::modPopups
