#include "popups/body_reader.h"

#include "platform/byte_text.h"
#include "platform/program_error.h"

namespace tamrix::modPopups {

bool HTMLBodyStart(ErrorReporter& errors, TextReader& reader) {
    return Guarded(errors, "modPopups:HTMLBodyStart", false, [&] {
        std::string line;
        while (reader.ReadLine(line)) {
            if (ContainsNoCase(line, "<BODY")) return true;
        }
        return false;
    });
}

std::string HTMLBodyContents(ErrorReporter& errors, TextReader& reader) {
    return Guarded(errors, "modPopups:HTMLBodyContents", std::string(), [&] {
        std::string body;
        if (!HTMLBodyStart(errors, reader)) return body;
        std::string line;
        while (reader.ReadLine(line)) {
            if (ContainsNoCase(line, "</BODY>")) break;
            if (line.empty()) continue;
            if (!body.empty()) body += "\r\n";
            body += line;
        }
        return body;
    });
}

}  // namespace tamrix::modPopups
