#include "parser/tag_readers.h"

#include "platform/byte_text.h"
#include "platform/program_error.h"

namespace tamrix::modParser {
namespace {

// The trimmed text between the first two double quotes after `keyword`;
// `missingQuotePlace` is reported when a quote is missing.
std::string QuotedValueAfter(std::string_view tag, std::string_view keyword,
                             const std::string& missingQuotePlace) {
    const std::size_t key = FindNoCase(tag, keyword);
    if (key == kNotFound) return {};
    const std::string_view rest = tag.substr(key + keyword.size());
    const std::size_t open = rest.find('"');
    const std::size_t close = open == std::string_view::npos ? open : rest.find('"', open + 1);
    if (close == std::string_view::npos) {
        ReportProgramError(0, missingQuotePlace);
        return {};
    }
    return Trim(rest.substr(open + 1, close - open - 1));
}

}  // namespace

std::string HTMLHrefTarget(std::string_view tag) {
    return QuotedValueAfter(tag, "HREF=",
                            "Missing quotes in HREF string " + std::string(tag) +
                                " in:modParser:HTMLHrefTarget");
}

std::string HTMLAnchorName(std::string_view tag) {
    return QuotedValueAfter(tag, "NAME=", "modParser:HTMLAnchorName");
}

}  // namespace tamrix::modParser
