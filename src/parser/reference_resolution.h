#pragma once
// How each topic file is referred to: by links from other topic files
// (internal) and by context-ID definitions (external).
#include "model/c_topic_files.h"
#include "model/wizard_state.h"

namespace tamrix::modUtilities {

bool UpdateInternalReferences(WizardState& wizard);
// False when too many topic files lack a topic ID and the user does not go on.
bool CheckProjectValidity(const CTopicFiles* topicFiles);
bool CountExternalReferences(WizardState& wizard);
bool UpdateExternalReferences(WizardState& wizard);
int UntitledTopics(const CTopicFiles* topicFiles);

}  // namespace tamrix::modUtilities
