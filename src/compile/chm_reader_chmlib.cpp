#include <chm_lib.h>

#include <algorithm>
#include <memory>

#include "compile/chm_reader.h"
#include "platform/byte_text.h"

namespace tamrix::compile {
namespace {

using ChmHandle = std::unique_ptr<chmFile, decltype(&chm_close)>;

// An internal file, or empty when it is absent.
std::string Object(chmFile* chm, const char* name) {
    chmUnitInfo unit{};
    if (chm_resolve_object(chm, name, &unit) != CHM_RESOLVE_SUCCESS) return {};
    std::string bytes(static_cast<std::size_t>(unit.length), '\0');
    const LONGINT64 read =
        chm_retrieve_object(chm, &unit, reinterpret_cast<unsigned char*>(bytes.data()), 0,
                            static_cast<LONGINT64>(unit.length));
    bytes.resize(read > 0 ? static_cast<std::size_t>(read) : 0);
    return bytes;
}

// Little-endian DWORD at `at`, or nothing past the end.
bool Dword(const std::string& bytes, std::size_t at, std::uint32_t& value) {
    if (at > bytes.size() || bytes.size() - at < 4) return false;
    value = 0;
    for (int i = 3; i >= 0; --i) value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
    return true;
}

// The NUL-terminated text at `at`, or empty past the end.
std::string TextAt(const std::string& bytes, std::size_t at) {
    if (at >= bytes.size()) return {};
    return std::string(bytes.c_str() + at);
}

}  // namespace

bool ChmReaderAvailable() { return true; }

bool ReadChm(const std::string& file, const std::vector<std::string>& candidates,
             ChmContents& contents, std::string& error) {
    ChmHandle chm(chm_open(file.c_str()), &chm_close);
    if (!chm) {
        error = "cannot open " + file + " as a compiled help file";
        return false;
    }
    contents = {};
    for (const std::string& path : candidates) {
        chmUnitInfo unit{};
        if (chm_resolve_object(chm.get(), ("/" + path).c_str(), &unit) != CHM_RESOLVE_SUCCESS ||
            !contents.storedFiles.insert(Fold(path)).second)
            continue;
        if (EndsWithNoCase(path, ".htm") || EndsWithNoCase(path, ".html")) ++contents.htmlFiles;
    }

    // #IVB: a DWORD byte count, then pairs of context number and #STRINGS offset.
    const std::string ivb = Object(chm.get(), "/#IVB");
    const std::string strings = Object(chm.get(), "/#STRINGS");
    std::uint32_t length = 0;
    if (Dword(ivb, 0, length)) {
        const std::size_t end = std::min<std::size_t>(ivb.size(), 4 + std::size_t{length});
        for (std::size_t at = 4; at + 8 <= end; at += 8) {
            std::uint32_t number = 0, offset = 0;
            Dword(ivb, at, number);
            Dword(ivb, at + 4, offset);
            contents.contextMap.push_back(
                {static_cast<std::int32_t>(number), TextAt(strings, offset)});
        }
    }

    // #TOPICS: 16-byte entries whose third DWORD is an offset into #URLTBL, whose
    // 12-byte entries end in an offset into #URLSTR; there the local path follows
    // two DWORDs.
    const std::string topics = Object(chm.get(), "/#TOPICS");
    const std::string urlTable = Object(chm.get(), "/#URLTBL");
    const std::string urlStrings = Object(chm.get(), "/#URLSTR");
    for (std::size_t at = 0; at + 16 <= topics.size(); at += 16) {
        std::uint32_t urlEntry = 0, urlOffset = 0;
        if (Dword(topics, at + 8, urlEntry) &&
            Dword(urlTable, std::size_t{urlEntry} + 8, urlOffset))
            contents.topicUrls.push_back(TextAt(urlStrings, std::size_t{urlOffset} + 8));
    }
    return true;
}

}  // namespace tamrix::compile
