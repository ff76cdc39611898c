#include "platform/profile.h"

#include <optional>
#include <vector>

#include "platform/byte_text.h"
#include "platform/file_system.h"
#include "platform/program_error.h"

namespace tamrix::profile {
namespace {

// One physical line with its terminator, so unchanged lines are written back as they were.
struct Line {
    std::string_view body;
    std::string_view whole;
};

std::vector<Line> SplitLines(std::string_view content) {
    std::vector<Line> lines;
    std::size_t pos = 0;
    while (pos < content.size()) {
        std::size_t end = FindLineBreak(content, pos);
        std::size_t next;
        if (end == std::string_view::npos) {
            end = content.size();
            next = end;
        } else {
            next = end + 1;
            if (content[end] == '\r' && next < content.size() && content[next] == '\n') ++next;
        }
        lines.push_back({content.substr(pos, end - pos), content.substr(pos, next - pos)});
        pos = next;
    }
    return lines;
}

// The name of a section header line, or nothing.
std::optional<std::string> HeaderName(std::string_view body) {
    // Most lines are no header: told by their first character, without a copy.
    const std::size_t first = body.find_first_not_of(" \t");
    if (first == std::string_view::npos || body[first] != '[') return std::nullopt;
    const std::string trimmed = Trim(TabsToSpaces(body));
    const std::size_t close = trimmed.find(']');
    return Trim(trimmed.substr(1, close == std::string::npos ? std::string::npos : close - 1));
}

// Lines [first, last) of the body of the first section named `section`; header
// is the index of its header line. Returns false when the section is missing.
bool FindSection(const std::vector<Line>& lines, std::string_view section, std::size_t& header,
                 std::size_t& first, std::size_t& last) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const auto name = HeaderName(lines[i].body);
        if (!name || !EqualsNoCase(*name, Trim(section))) continue;
        header = i;
        first = i + 1;
        last = first;
        while (last < lines.size() && !HeaderName(lines[last].body)) ++last;
        return true;
    }
    return false;
}

bool IsBlank(std::string_view body) { return Trim(TabsToSpaces(body)).empty(); }

std::string Join(const std::vector<Line>& lines, std::size_t from, std::size_t to) {
    std::string out;
    for (std::size_t i = from; i < to; ++i) out += lines[i].whole;
    return out;
}

std::string EnsureEndsWithNewLine(std::string text, std::string_view eol) {
    if (!text.empty() && text.back() != '\n' && text.back() != '\r') text += eol;
    return text;
}

std::string SectionLines(std::string_view lines, std::string_view eol) {
    std::string out;
    for (const std::string& line : Split(lines, '\0'))
        if (!line.empty()) out += line + std::string(eol);
    return out;
}

std::string ReadIfPresent(FileSystem& fs, std::string_view file) {
    return fs.FileExists(file) ? fs.ReadAll(file) : std::string();
}

}  // namespace

namespace text {

long GetSection(std::string_view content, std::string_view section, std::string& out,
                long bufferSize) {
    out.clear();
    const std::vector<Line> lines = SplitLines(content);
    std::size_t header = 0, first = 0, last = 0;
    if (FindSection(lines, section, header, first, last)) {
        for (std::size_t i = first; i < last; ++i) {
            const std::string line = Trim(lines[i].body);
            if (line.empty() || line[0] == ';') continue;
            out += line;
            out += '\0';
        }
    }
    if (bufferSize < 2) {
        out.clear();
        return 0;
    }
    if (static_cast<long>(out.size()) + 1 > bufferSize) {
        out.resize(static_cast<std::size_t>(bufferSize - 2));
        return bufferSize - 2;
    }
    return static_cast<long>(out.size());
}

bool GetString(std::string_view content, std::string_view section, std::string_view key,
               std::string& value) {
    const std::vector<Line> lines = SplitLines(content);
    std::size_t header = 0, first = 0, last = 0;
    if (!FindSection(lines, section, header, first, last)) return false;
    for (std::size_t i = first; i < last; ++i) {
        const std::string_view body = lines[i].body;
        const std::size_t eq = body.find('=');
        if (eq == std::string_view::npos) continue;
        if (!EqualsNoCase(Trim(body.substr(0, eq)), Trim(key))) continue;
        value = Trim(body.substr(eq + 1));
        if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
            value.back() == value.front())
            value = value.substr(1, value.size() - 2);
        return true;
    }
    return false;
}

std::string WriteString(std::string_view content, std::string_view section, std::string_view key,
                        std::string_view value) {
    const std::vector<Line> lines = SplitLines(content);
    const std::string entry = Trim(key) + "=" + std::string(value);
    const std::string eol(LineEndOf(content));  // new lines end as the file's own do
    std::size_t header = 0, first = 0, last = 0;
    if (!FindSection(lines, section, header, first, last))
        return EnsureEndsWithNewLine(std::string(content), eol) + "[" + Trim(section) + "]" + eol +
               entry + eol;
    for (std::size_t i = first; i < last; ++i) {
        const std::string_view body = lines[i].body;
        const std::size_t eq = body.find('=');
        if (eq == std::string_view::npos || !EqualsNoCase(Trim(body.substr(0, eq)), Trim(key)))
            continue;
        const std::string_view ending = lines[i].whole.substr(body.size());
        return Join(lines, 0, i) + entry + (ending.empty() ? eol : std::string(ending)) +
               Join(lines, i + 1, lines.size());
    }
    std::size_t insertAt = last;
    while (insertAt > first && IsBlank(lines[insertAt - 1].body)) --insertAt;
    return EnsureEndsWithNewLine(Join(lines, 0, insertAt), eol) + entry + eol +
           Join(lines, insertAt, lines.size());
}

std::string WriteSection(std::string_view content, std::string_view section,
                         std::string_view newLines) {
    const std::vector<Line> lines = SplitLines(content);
    const std::string eol(LineEndOf(content));
    std::size_t header = 0, first = 0, last = 0;
    if (!FindSection(lines, section, header, first, last))
        return EnsureEndsWithNewLine(std::string(content), eol) + "[" + Trim(section) + "]" + eol +
               SectionLines(newLines, eol);
    // Blank lines that separate the section from the next one stay.
    std::size_t keepFrom = last;
    while (keepFrom > first && IsBlank(lines[keepFrom - 1].body)) --keepFrom;
    return EnsureEndsWithNewLine(Join(lines, 0, first), eol) + SectionLines(newLines, eol) +
           Join(lines, keepFrom, lines.size());
}

std::string DeleteSection(std::string_view content, std::string_view section) {
    const std::vector<Line> lines = SplitLines(content);
    std::size_t header = 0, first = 0, last = 0;
    if (!FindSection(lines, section, header, first, last)) return std::string(content);
    return Join(lines, 0, header) + Join(lines, last, lines.size());
}

}  // namespace text

long GetSection(FileSystem& fs, std::string_view file, std::string_view section, std::string& out,
                long bufferSize) {
    try {
        return text::GetSection(ReadIfPresent(fs, file), section, out, bufferSize);
    } catch (...) {
        out.clear();
        return 0;
    }
}

long GetString(FileSystem& fs, std::string_view file, std::string_view section,
               std::string_view key, std::string_view defaultValue, std::string& out,
               long bufferSize) {
    std::string value;
    bool found = false;
    try {
        found = text::GetString(ReadIfPresent(fs, file), section, key, value);
    } catch (...) {
        found = false;
    }
    out = found ? value : std::string(defaultValue);
    if (bufferSize < 1) {
        out.clear();
        return 0;
    }
    if (static_cast<long>(out.size()) > bufferSize - 1)
        out.resize(static_cast<std::size_t>(bufferSize - 1));
    return static_cast<long>(out.size());
}

namespace {
template <class Edit>
int Rewrite(FileSystem& fs, std::string_view file, Edit&& edit) {
    try {
        const std::string before = ReadIfPresent(fs, file);
        const std::string after = edit(before);
        if (after != before || !fs.FileExists(file)) fs.WriteAll(file, after);
        return 1;
    } catch (...) {
        return 0;
    }
}
}  // namespace

int WriteString(FileSystem& fs, std::string_view file, std::string_view section,
                std::string_view key, std::string_view value) {
    return Rewrite(fs, file,
                   [&](const std::string& c) { return text::WriteString(c, section, key, value); });
}

int WriteSection(FileSystem& fs, std::string_view file, std::string_view section,
                 std::string_view lines) {
    return Rewrite(fs, file,
                   [&](const std::string& c) { return text::WriteSection(c, section, lines); });
}

int DeleteSection(FileSystem& fs, std::string_view file, std::string_view section) {
    return Rewrite(fs, file, [&](const std::string& c) { return text::DeleteSection(c, section); });
}

}  // namespace tamrix::profile
