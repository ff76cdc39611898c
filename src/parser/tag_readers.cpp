#include "parser/tag_readers.h"

#include "model/conversion.h"
#include "model/project_state.h"
#include "parser/line_joining.h"
#include "platform/byte_text.h"
#include "platform/program_error.h"

namespace tamrix::modParser {
namespace {

// The trimmed text between the first two double quotes after `keyword`; the
// place named by `missingQuotePlace(tag)` is reported when a quote is missing.
template <class Place>
std::string QuotedValueAfter(ErrorReporter& errors, std::string_view tag, std::string_view keyword,
                             Place missingQuotePlace) {
    const std::size_t key = FindNoCase(tag, keyword);
    if (key == kNotFound) return {};
    const std::string_view rest = tag.substr(key + keyword.size());
    const std::size_t open = rest.find('"');
    const std::size_t close = open == std::string_view::npos ? open : rest.find('"', open + 1);
    if (close == std::string_view::npos) {
        ReportProgramError(errors, 0, missingQuotePlace(tag));
        return {};
    }
    return Trim(rest.substr(open + 1, close - open - 1));
}

// The pending anchor text is handed from call to call without copying it: the
// buffer stays in PendingAnchorText and only PendingAnchorStart moves on, so a
// long line full of anchors is read in linear time. A start that does not point
// at an "<A" of the text takes the text whole.
std::size_t TakePendingStart(Conversion& wizard) {
    const std::string& text = wizard.Globals.PendingAnchorText;
    const std::size_t start = wizard.Globals.PendingAnchorStart;
    wizard.Globals.PendingAnchorStart = 0;
    if (start < text.size() && StartsWithNoCase(std::string_view(text).substr(start), "<A"))
        return start;
    return 0;
}

void KeepPending(Conversion& wizard, std::string&& buffer, std::size_t start) {
    wizard.Globals.PendingAnchorText = std::move(buffer);
    wizard.Globals.PendingAnchorStart = start;
}

std::string ReadTag(TextReader& stream, std::string_view open, std::string_view close, int& state) {
    state = 0;
    std::string line;
    const std::size_t at = stream.ReadLineWith(line, open);
    if (at == kNotFound) return {};
    state = 1;
    std::string text = line.substr(at);
    text += ' ';
    const std::size_t end = JoinLinesUntil(stream, text, close, 0);
    if (end == kNotFound) return {};
    state = 2;
    text.resize(end + close.size());
    return text;
}

}  // namespace

std::string HTMLHrefTarget(ErrorReporter& errors, std::string_view tag) {
    return QuotedValueAfter(errors, tag, "HREF=", [](std::string_view t) {
        return "Missing quotes in HREF string " + std::string(t) + " in:modParser:HTMLHrefTarget";
    });
}

std::string HTMLAnchorName(ErrorReporter& errors, std::string_view tag) {
    return QuotedValueAfter(errors, tag, "NAME=", [](std::string_view) {
        return std::string("modParser:HTMLAnchorName");
    });
}

std::string HTMLAnchor(Conversion& wizard, TextReader& stream) {
    return Guarded(wizard.Errors, "modParser:HTMLAnchor", std::string(), [&] {
        std::string text;
        std::size_t from = 0;
        if (!wizard.Globals.PendingAnchorText.empty()) {
            from = TakePendingStart(wizard);
            text = std::move(wizard.Globals.PendingAnchorText);
            wizard.Globals.PendingAnchorText.clear();
        } else {
            wizard.Globals.PendingAnchorStart = 0;
            from = stream.ReadLineWith(text, "<A");
            if (from == kNotFound) return std::string();
            text += ' ';
        }
        wizard.Globals.AnchorState = 1;
        const std::size_t close = JoinLinesUntil(stream, text, "</A>", from);
        if (close == kNotFound) return std::string();
        const std::size_t end = close + 4;
        std::string anchor = text.substr(from, end - from);
        const std::size_t next = FindNoCase(text, "<A", end);
        if (next != kNotFound) {
            KeepPending(wizard, std::move(text), next);
        } else {
            wizard.Globals.PendingAnchorText.clear();
        }
        wizard.Globals.AnchorState = 2;
        return anchor;
    });
}

std::string HTMLArea(Conversion& wizard, TextReader& stream) {
    return Guarded(wizard.Errors, "modParser:HTMLArea", std::string(),
                   [&] { return ReadTag(stream, "<AREA", ">", wizard.Globals.AreaState); });
}

std::string HTMLObject(Conversion& wizard, TextReader& stream) {
    return Guarded(wizard.Errors, "modParser:HTMLObject", std::string(), [&] {
        return ReadTag(stream, "<OBJECT", "</OBJECT>", wizard.Globals.ObjectState);
    });
}

bool CTargetExists(const CTargets& targets, std::string_view target) {
    return targets.ContainsNoCase(target);
}

}  // namespace tamrix::modParser
