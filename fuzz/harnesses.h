#pragma once
// The bodies of the fuzz harnesses. The libFuzzer mains under fuzz/ and the
// regression test that replays tests/data/fuzz/ call the same functions, so a
// saved crasher runs exactly as the fuzzer ran it.
#include <stdlib.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "model/conversion.h"
#include "model/project_state.h"
#include "parser/project_reader.h"
#include "parser/sitemap_reader.h"
#include "parser/tag_readers.h"
#include "parser/topic_scanner.h"
#include "parser/winhelp_definitions.h"
#include "parser/winhelp_reader.h"
#include "platform/byte_text.h"
#include "platform/file_system.h"
#include "platform/view.h"
#include "popups/body_reader.h"
#include "popups/html_to_text.h"
#include "popups/popup_text.h"

namespace tamrix::fuzz {

// Splits an input in two at the first "\x01\x01\x01", so one input can carry a
// project file and the file it includes.
inline std::pair<std::string, std::string> SplitInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view all(reinterpret_cast<const char*>(data), size);
    const std::size_t cut = all.find("\x01\x01\x01");
    if (cut == std::string_view::npos) return {std::string(all), std::string()};
    return {std::string(all.substr(0, cut)), std::string(all.substr(cut + 3))};
}

// One scratch folder per process, removed at exit. The write root points into it,
// so a reader that wrote anything anywhere else would raise instead.
inline const std::string& ScratchFolder() {
    static const std::string folder = [] {
        const char* tmp = ::getenv("TMPDIR");
        std::string pattern =
            std::string(tmp != nullptr && *tmp != '\0' ? tmp : "/tmp") + "/tamrix-fuzz-XXXXXX";
        if (::mkdtemp(pattern.data()) == nullptr) ::abort();
        static std::string removal = "rm -rf '" + pattern + "'";
        ::atexit([] { (void)!::system(removal.c_str()); });
        return pattern;
    }();
    return folder;
}

inline std::string WriteScratch(FileSystem& fs, const std::string& relative,
                                std::string_view content) {
    fs.SetWriteRoot(ScratchFolder());
    const std::string path = ScratchFolder() + "/" + relative;
    fs.WriteAll(path, content);
    return path;
}

inline std::string Bytes(const std::uint8_t* data, std::size_t size) {
    return std::string(reinterpret_cast<const char*>(data), size);
}

// Each run is a conversion of its own with the silent view, which answers No.
struct FreshRun {
    SilentView view;
    Conversion wizard{view};
};

inline const char* kTopicA =
    "<HTML>\r\n<HEAD>\r\n<TITLE>A</TITLE>\r\n</HEAD>\r\n<BODY>\r\n<P><A NAME=\"IDH_A\"></A>"
    "See <A HREF=\"html\\b.htm#x\">b</A></P>\r\n</BODY>\r\n</HTML>\r\n";
inline const char* kTopicB =
    "<HTML>\r\n<HEAD>\r\n<TITLE></TITLE>\r\n</HEAD>\r\n<BODY>\r\n<P><A NAME=\"IDH_B\"></A>"
    "<A NAME=\"x\"></A>Popup</P>\r\n</BODY>\r\n</HTML>\r\n";

// The .hhp is the input (before the cut); after the cut comes html\b.htm.
inline int ProjectReader(const std::uint8_t* data, std::size_t size) {
    FreshRun run;
    auto [project, topic] = SplitInput(data, size);
    WriteScratch(run.wizard.Files, "a.htm", kTopicA);
    run.wizard.Files.CreateFolder(ScratchFolder() + "/html");
    WriteScratch(run.wizard.Files, "html/b.htm", topic.empty() ? std::string(kTopicB) : topic);
    const std::string hhp = WriteScratch(run.wizard.Files, "old.hhp", project);
    int htmCount = 0;
    modParser::OpenProjectFile(run.wizard, hhp, htmCount);
    int missing = 0;
    bool stopped = false;
    modParser::ParseProjectFile(run.wizard, hhp, missing, stopped);
    modParser::GetIndexFileName(run.wizard, hhp);
    modParser::GetContentsFileName(run.wizard, hhp);
    return 0;
}

// Arbitrary bytes as a topic file, through the scanner and each tag reader.
inline int TopicScanner(const std::uint8_t* data, std::size_t size) {
    FreshRun run;
    const std::string text = Bytes(data, size);
    const std::string file = WriteScratch(run.wizard.Files, "topic.htm", text);
    std::string title, topicId, targets, extraIds;
    int hotspots = 0;
    modParser::ParseTopicFile(run.wizard, file, title, topicId, targets, hotspots, extraIds);
    modParser::FindContextID(run.wizard, file, topicId);
    modParser::HTMLHrefTarget(run.wizard.Errors, text);
    modParser::HTMLAnchorName(run.wizard.Errors, text);

    TextReader head;
    head.OpenText(text);
    modParser::ExtractTopicTitle(run.wizard.Errors, modParser::HTMLHeader(run.wizard, head), title);

    run.wizard.Globals = ProjectState{};
    TextReader anchors;
    anchors.OpenText(text);
    for (std::string tag = modParser::HTMLAnchor(run.wizard, anchors); !tag.empty();
         tag = modParser::HTMLAnchor(run.wizard, anchors)) {
        modParser::HTMLHrefTarget(run.wizard.Errors, tag);
        modParser::HTMLAnchorName(run.wizard.Errors, tag);
    }
    run.wizard.Globals = ProjectState{};
    TextReader areas;
    areas.OpenText(text);
    while (!modParser::HTMLArea(run.wizard, areas).empty()) {
    }
    run.wizard.Globals = ProjectState{};
    TextReader objects;
    objects.OpenText(text);
    while (!modParser::HTMLObject(run.wizard, objects).empty()) {
    }
    return 0;
}

// The .hpj is the input before the cut, the map header "map.h" after it; the
// .hpj can #include it. Every line also goes through AddContextIDFromString.
inline int WinHelpReader(const std::uint8_t* data, std::size_t size) {
    FreshRun run;
    auto [hpj, map] = SplitInput(data, size);
    const std::string mapFile = WriteScratch(run.wizard.Files, "map.h", map);
    const std::string hpjFile = WriteScratch(run.wizard.Files, "old.hpj", hpj);
    bool hasAlias = false, hasMap = false;
    modParser::OpenWinProjectFile(run.wizard, hpjFile, hasAlias, hasMap);
    modParser::ParseWinProjectFile(run.wizard, hpjFile);
    modParser::ParseMapFile(run.wizard, mapFile, 1);
    CContextIDs loose;
    TextReader lines;
    lines.OpenText(Bytes(data, size));
    for (std::string line; lines.ReadLine(line);) {
        modParser::AddContextIDFromString(run.wizard, line, loose, "old.hpj", 0);
        modParser::AddContextIDFromString(run.wizard, line, loose, "map.h", 1);
    }
    return 0;
}

// Arbitrary bytes as both the index and the contents file.
inline int SitemapReader(const std::uint8_t* data, std::size_t size) {
    FreshRun run;
    const std::string text = Bytes(data, size);
    modParser::ParseIndexFile(run.wizard, WriteScratch(run.wizard.Files, "old.hhk", text));
    modParser::ParseContentsFile(run.wizard, WriteScratch(run.wizard.Files, "old.hhc", text));
    return 0;
}

// Every popup string function on arbitrary bytes.
inline int PopupStrings(const std::uint8_t* data, std::size_t size) {
    FreshRun run;
    const std::string text = Bytes(data, size);
    modStrings::RemoveHTMLTags(run.wizard.Errors, text);
    modStrings::RemoveListTags(run.wizard.Errors, text, "* ");
    modStrings::RemoveAnchor(run.wizard.Errors, text);
    modStrings::RemoveHREFs(run.wizard.Errors, text);
    modStrings::RemoveIMGs(run.wizard.Errors, text);
    modStrings::TrimNewLines(run.wizard.Errors, text);
    modStrings::ReplaceSpecialChars(run.wizard.Errors, text);
    modStrings::TabsToSpaces(text);
    // ReplaceAll takes its search text and replacement from the input's two halves.
    auto [find, replacement] = SplitInput(data, size);
    modStrings::ReplaceAll(replacement, find.substr(0, 8), find);
    modStrings::VersionString();
    TextReader reader;
    reader.OpenText(text);
    const std::string body = modPopups::HTMLBodyContents(run.wizard.Errors, reader);
    modPopups::CleanPopupBody(run.wizard.Errors, run.wizard.Globals, text,
                              modPopups::PopupKind::Script);
    modPopups::CleanPopupBody(run.wizard.Errors, run.wizard.Globals, text,
                              modPopups::PopupKind::TextPopup);
    modPopups::CleanPopupBody(run.wizard.Errors, run.wizard.Globals, body,
                              modPopups::PopupKind::Script);
    modPopups::CleanPopupBody(run.wizard.Errors, run.wizard.Globals, body,
                              modPopups::PopupKind::TextPopup);
    return 0;
}

}  // namespace tamrix::fuzz
