#include "messages/messages.h"

#include <map>

#include "platform/byte_text.h"
#include "platform/format.h"
#include "platform/program_error.h"

namespace tamrix::modMessages {

extern const char* const kCatalogueTable;

namespace {

// "ID<TAB>text" lines; "\n" in a text stands for a line feed.
std::map<long, std::string> ParseCatalogue(std::string_view table) {
    std::map<long, std::string> catalogue;
    for (const std::string& line : Split(table, '\n')) {
        const std::size_t tab = line.find('\t');
        if (tab == std::string::npos) continue;
        const long id = std::stol(line.substr(0, tab));
        std::string text;
        const std::string raw = line.substr(tab + 1);
        for (std::size_t i = 0; i < raw.size(); ++i) {
            if (raw[i] == '\\' && i + 1 < raw.size() && raw[i + 1] == 'n') {
                text += '\n';
                ++i;
            } else if (raw[i] == '\\' && i + 1 < raw.size() && raw[i + 1] == '\\') {
                text += '\\';
                ++i;
            } else {
                text += raw[i];
            }
        }
        catalogue[id] = text;
    }
    return catalogue;
}

const std::map<long, std::string>& Catalogue() {
    static const std::map<long, std::string> catalogue = ParseCatalogue(kCatalogueTable);
    return catalogue;
}

std::string CatalogueTextOrEmpty(long id) {
    const auto text = CatalogueText(id);
    return text ? *text : std::string();
}

}  // namespace

std::optional<std::string> CatalogueText(long id) {
    const auto& catalogue = Catalogue();
    const auto it = catalogue.find(id);
    if (it == catalogue.end()) return std::nullopt;
    return it->second;
}

std::string GetMessageString(long id, std::string_view insertText, std::string_view insertText2) {
    // Nothing but memory can fail here, and the caller's guard reports that.
    const auto text = CatalogueText(id);
    if (!text) return "Resource ID" + SignedText(id) + " Missing";
    // Left to right in one pass: an insert that holds a placeholder itself is
    // not searched again, so it cannot loop.
    std::string result = ReplaceAllExact(*text, kInsertText, insertText);
    if (!insertText2.empty()) result = ReplaceAllExact(result, kInsertText2, insertText2);
    return result;
}

CatalogueMessage FromCatalogue(long id, std::string_view insertText, std::string_view insertText2) {
    return {id, GetMessageString(id, insertText, insertText2)};
}

void ShowMessage(IView& view, const CatalogueMessage& message, int style, std::string_view title,
                 BoxPosition position) {
    ShowMessage(view, message.text, style, title, position, message.id);
}

int AskMessage(IView& view, const CatalogueMessage& message, int style, std::string_view title,
               BoxPosition position) {
    return AskMessage(view, message.text, style, title, position, message.id);
}

int AskMessage(IView& view, std::string_view text, int style, std::string_view title,
               BoxPosition position, long catalogueId) {
    try {
        MessageRequest request;
        request.text = std::string(text);
        request.style = style;
        request.title = std::string(title);
        request.catalogueId = catalogueId;
        request.position = position;
        return view.MessageBox(request);
    } catch (...) {
        return mb::kOK;  // the message routines suppress their own errors
    }
}

void ShowMessage(IView& view, std::string_view text, int style, std::string_view title,
                 BoxPosition position, long catalogueId) {
    AskMessage(view, text, style, title, position, catalogueId);
}

int AskMessageID(IView& view, long id, int style, std::string_view title, std::string_view extra,
                 BoxPosition position) {
    const std::string text = CatalogueTextOrEmpty(id);
    const std::string shown =
        text.empty() ? std::string("Unknown message ID") : text + "\r\n" + std::string(extra);
    return AskMessage(view, shown, style, title, position, id);
}

void ShowMessageID(IView& view, long id, int style, std::string_view title, std::string_view extra,
                   BoxPosition position) {
    AskMessageID(view, id, style, title, extra, position);
}

}  // namespace tamrix::modMessages
