#include "parser/topic_scanner.h"

#include "messages/messages.h"
#include "model/conversion.h"
#include "model/project_state.h"
#include "parser/line_joining.h"
#include "parser/tag_readers.h"
#include "platform/byte_text.h"
#include "platform/counter16.h"
#include "platform/program_error.h"

namespace tamrix::modParser {
namespace {

void AppendListItem(std::string& list, std::string_view item) {
    if (!list.empty()) list += '^';
    list += item;
}

}  // namespace

std::string HTMLHeader(Conversion& wizard, TextReader& stream) {
    return Guarded(wizard.Errors, "modParser:HTMLHeader", std::string(), [&] {
        wizard.Globals.HeadState = 0;
        std::string line;
        if (stream.ReadLineWith(line, "<HEAD") == kNotFound) return std::string();
        wizard.Globals.HeadState = 1;
        std::string text = line + ' ';
        if (JoinLinesUntil(stream, text, "</HEAD>", 0) == kNotFound) return std::string();
        wizard.Globals.HeadState = 2;
        return text;
    });
}

bool ExtractTopicTitle(ErrorReporter& errors, std::string_view head, std::string& title) {
    title.clear();
    return Guarded(errors, "modParser:ExtractTopicTitle", false, [&] {
        const std::size_t open = FindNoCase(head, "<TITLE>");
        if (open == kNotFound) {
            modMessages::ShowMessage(errors.View(), modMessages::FromCatalogue(5003), mb::kOKOnly,
                                     "ExtractTopicTitle", {});
            return false;
        }
        const std::size_t start = open + 7;
        const std::size_t close = FindNoCase(head, "</TITLE>", start);
        if (close == kNotFound) RaiseError(err::kInvalidCall, "TITLE never closes");
        title = Trim(head.substr(start, close - start));
        return !title.empty();
    });
}

bool FindContextID(Conversion& wizard, TextReader& stream, std::string& topicId) {
    topicId.clear();
    return Guarded(wizard.Errors, "modParser:FindContextID", false, [&] {
        wizard.Globals.BodyState = 0;
        std::string line;
        if (stream.ReadLineWith(line, "<BODY") == kNotFound) return true;
        wizard.Globals.BodyState = 1;
        // The body's own line first, then each next line that holds "<A".
        for (std::size_t a = FindNoCase(line, "<A");; a = kNotFound) {
            if (a == kNotFound) a = stream.ReadLineWith(line, "<A");
            if (a == kNotFound) return true;
            // "<ABBR", "<ADDRESS" and the like pass the whole line over.
            if (a + 2 < line.size() && line[a + 2] != ' ') continue;
            std::string text = line.substr(a);
            text += ' ';
            JoinLinesUntil(stream, text, "</A>", 0);
            wizard.Globals.BodyState = 2;
            const std::size_t name = FindNoCase(text, "NAME=");
            if (name == kNotFound) return true;
            // The ID runs from after the assumed opening quote to before the
            // assumed closing quote in front of the first ">".
            const std::size_t gt = text.find('>');
            if (gt == std::string::npos || gt < name + 7)
                RaiseError(err::kInvalidCall, "Malformed anchor name");
            topicId = Trim(std::string_view(text).substr(name + 6, gt - name - 7));
            return true;
        }
    });
}

bool FindContextID(Conversion& wizard, const std::string& file, std::string& topicId) {
    topicId.clear();
    return Guarded(wizard.Errors, "modParser:FindContextID", false, [&] {
        TextReader stream(wizard.Files, file);
        return FindContextID(wizard, stream, topicId);
    });
}

bool ParseTopicFile(Conversion& wizard, const std::string& file, std::string& title,
                    std::string& topicId, std::string& targets, int& hotspots,
                    std::string& extraIds) {
    title.clear();
    topicId.clear();
    targets.clear();
    extraIds.clear();
    hotspots = 0;
    return Guarded(wizard.Errors, "modParser:ParseTopicFile", false, [&] {
        const std::string content = wizard.Files.ReadAll(file);
        TextReader stream;
        stream.OpenView(content);
        const bool ok = ExtractTopicTitle(wizard.Errors, HTMLHeader(wizard, stream), title);

        stream.OpenView(content);
        FindContextID(wizard, stream, topicId);  // a missing or malformed ID never fails the file

        stream.OpenView(content);
        wizard.Globals.PendingAnchorText.clear();
        for (std::string anchor = HTMLAnchor(wizard, stream); !anchor.empty();
             anchor = HTMLAnchor(wizard, stream)) {
            const std::string target = HTMLHrefTarget(wizard.Errors, anchor);
            if (!target.empty()) {
                AppendListItem(targets, target);
                continue;
            }
            const std::string name = HTMLAnchorName(wizard.Errors, anchor);
            if (!name.empty() && !EqualsNoCase(name, topicId)) AppendListItem(extraIds, name);
        }

        stream.OpenView(content);
        Counter16 spots;
        for (std::string area = HTMLArea(wizard, stream); !area.empty();
             area = HTMLArea(wizard, stream)) {
            const std::string target = HTMLHrefTarget(wizard.Errors, area);
            if (target.empty()) continue;
            ++spots;
            AppendListItem(targets, target);
        }
        hotspots = spots;
        return ok;
    });
}

bool ParseTopicFile(Conversion& wizard, const std::string& file, ParsedTopic& topic) {
    topic.ok = ParseTopicFile(wizard, file, topic.title, topic.topicId, topic.targets,
                              topic.hotspots, topic.extraIds);
    return topic.ok;
}

}  // namespace tamrix::modParser
