#pragma once
// How each topic file is referred to: by links from other topic files
// (internal) and by context-ID definitions (external).
#include "model/c_topic_files.h"
#include "model/conversion.h"

namespace tamrix {
/// Where unexpected errors go.
class ErrorReporter;
}  // namespace tamrix

namespace tamrix::modUtilities {

/// Counts, for each topic file, the links of other topics to it; false when the user cancels at an
/// unknown target.
bool UpdateInternalReferences(Conversion& wizard);
/// False when too many topic files lack a topic ID and the user does not go on.
bool CheckProjectValidity(ErrorReporter& errors, const CTopicFiles* topicFiles);
/// Counts, for each topic, the map and project context IDs that name it.
bool CountExternalReferences(Conversion& wizard);
/// Gives each topic the value of the map definition of its context string.
bool UpdateExternalReferences(Conversion& wizard);
/// How many topic files have no title.
int UntitledTopics(ErrorReporter& errors, const CTopicFiles* topicFiles);

}  // namespace tamrix::modUtilities
