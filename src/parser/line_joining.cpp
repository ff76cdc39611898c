#include "parser/line_joining.h"

#include <algorithm>

#include "platform/byte_text.h"

namespace tamrix::modParser {

std::size_t JoinLinesUntil(TextReader& stream, std::string& text, std::string_view keyword,
                           std::size_t from) {
    std::size_t found = FindNoCase(text, keyword, from);
    std::string line;
    while (found == kNotFound) {
        if (!stream.ReadLine(line)) return kNotFound;
        // A match may begin in the last few characters already held.
        const std::size_t back = keyword.size() > 1 ? keyword.size() - 1 : 0;
        const std::size_t start = std::max(from, text.size() > back ? text.size() - back : 0);
        text += line;
        text += ' ';
        found = FindNoCase(text, keyword, start);
    }
    return found;
}

}  // namespace tamrix::modParser
