#pragma once
// Extracts from one .htm topic file, by plain text matching, its title, its topic
// ID (the name of the first anchor after the body start), its other anchor names,
// the link targets of its anchors and image-map areas, and its hotspot count.
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace tamrix {

/// Where unexpected errors go.
class ErrorReporter;
/// The conversion whose project state is filled.
class Conversion;
}  // namespace tamrix

namespace tamrix::modParser {

/// True when the file has a non-empty title. Targets and extra IDs are
/// "^"-separated; duplicates are kept.
bool ParseTopicFile(Conversion& wizard, const std::string& file, std::string& title,
                    std::string& topicId, std::string& targets, int& hotspots,
                    std::string& extraIds);

/// What ParseTopicFile gives for one file.
struct ParsedTopic {
    /// Its result: the file has a title.
    bool ok = false;
    std::string title;
    std::string topicId;
    std::string targets;
    std::string extraIds;
    int hotspots = 0;
};
/// The same, into one value; gives its `ok`.
bool ParseTopicFile(Conversion& wizard, const std::string& file, ParsedTopic& topic);
/// The head of the document ("<HEAD" to "</HEAD>", lines joined), or empty.
std::string HTMLHeader(Conversion& wizard, TextReader& stream);
/// The trimmed TITLE text; false when it is empty. A missing <TITLE> shows message 5003.
bool ExtractTopicTitle(ErrorReporter& errors, std::string_view head, std::string& title);
/// The topic ID of a file; true unless an unexpected error occurred (then the ID is empty).
bool FindContextID(Conversion& wizard, const std::string& file, std::string& topicId);
/// The same on an open stream.
bool FindContextID(Conversion& wizard, TextReader& stream, std::string& topicId);

}  // namespace tamrix::modParser
