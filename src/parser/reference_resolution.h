#pragma once
// How each topic file is referred to: by links from other topic files
// (internal) and by context-ID definitions (external).
#include "model/c_topic_files.h"
#include "model/conversion.h"

namespace tamrix {
class ErrorReporter;
}

namespace tamrix::modUtilities {

bool UpdateInternalReferences(Conversion& wizard);
/// False when too many topic files lack a topic ID and the user does not go on.
bool CheckProjectValidity(ErrorReporter& errors, const CTopicFiles* topicFiles);
bool CountExternalReferences(Conversion& wizard);
bool UpdateExternalReferences(Conversion& wizard);
int UntitledTopics(ErrorReporter& errors, const CTopicFiles* topicFiles);

}  // namespace tamrix::modUtilities
