#include "parser/reference_resolution.h"

#include <memory>
#include <unordered_map>
#include <vector>
#include "model/conversion.h"

#include "messages/messages.h"
#include "model/project_state.h"
#include "platform/byte_text.h"
#include "platform/format.h"
#include "platform/program_error.h"

namespace tamrix::modUtilities {
namespace {

constexpr int kObjectNotSet = 91;

// For each context name (folded), the topic files that carry it as topic ID or
// extra ID, with how many times each does.
using NameIndex = std::unordered_map<std::string, std::vector<std::pair<CTopicFile*, int>>>;

void NoteName(NameIndex& index, std::string_view name, CTopicFile* topic) {
    auto& uses = index[Fold(name)];
    if (!uses.empty() && uses.back().first == topic) {
        ++uses.back().second;
    } else {
        uses.emplace_back(topic, 1);
    }
}

NameIndex IndexTopicNames(const CTopicFiles& topicFiles) {
    NameIndex index;
    for (const auto& topic : topicFiles) {
        NoteName(index, topic->Context, topic.get());
        for (const std::string& extra : Split(topic->ExtraIds, '^'))
            NoteName(index, extra, topic.get());
    }
    return index;
}

void CountDefinitions(const CContextIDs& definitions, const NameIndex& index,
                      Conversion* progress) {
    long position = 0;
    for (const auto& definition : definitions) {
        const auto it = index.find(Fold(definition->ContextString));
        if (it != index.end()) {
            for (const auto& [topic, uses] : it->second) topic->ExternalReferences += uses;
        }
        if (progress != nullptr) UpdateProgressBar(*progress, ++position);
    }
}

}  // namespace

bool UpdateInternalReferences(Conversion& wizard) {
    return Guarded(wizard.Errors, "modUtilities:UpdateInternalReferences", false, [&] {
        if (!wizard.Globals.TopicFiles) return true;
        const CTopicFiles& topicFiles = *wizard.Globals.TopicFiles;
        CTopicFile* previous = nullptr;
        for (const auto& topic : topicFiles) {
            for (const auto& target : topic->targets()) {
                const std::string_view file = Before(target.TargetString, '#');
                if (file.empty()) continue;
                if (CTopicFile* found = topicFiles.TargetTopic(target)) {
                    found->InternalReferences += 1;
                    previous = found;
                    continue;
                }
                const int answer = modMessages::AskMessage(
                    wizard.View(), modMessages::FromCatalogue(10052, std::string(file)),
                    mb::kOKCancel, "Checking internal references to topic files", wizard.Box());
                if (answer == mb::kCancel) return false;
                // The unresolved link is counted for the file of the last link that resolved.
                if (previous == nullptr) RaiseError(kObjectNotSet);
                previous->InternalReferences += 1;
            }
        }
        return true;
    });
}

bool CheckProjectValidity(ErrorReporter& errors, const CTopicFiles* topicFiles) {
    return Guarded(errors, "modUtilities:CheckProjectValidity", false, [&] {
        long withoutId = 0;
        long total = 0;
        if (topicFiles != nullptr) {
            for (const auto& topic : *topicFiles) {
                ++total;
                if (topic->Context.empty()) ++withoutId;
            }
        }
        if (withoutId * 4 <= total) return true;
        const int answer = modMessages::AskMessage(
            errors.View(),
            modMessages::FromCatalogue(10023, SignedText(withoutId), SignedText(total)),
            mb::kYesNo | mb::kQuestion, "HTML Project Check", {});
        return answer == mb::kYes;
    });
}

bool CountExternalReferences(Conversion& wizard) {
    return Guarded(wizard.Errors, "modUtilities:CountExternalReferences", false, [&] {
        if (!wizard.Globals.TopicFiles) return true;
        const NameIndex index = IndexTopicNames(*wizard.Globals.TopicFiles);
        if (wizard.Globals.MapContextIDs) {
            InitializeProgressBar(wizard, wizard.Globals.MapContextIDs->Count(),
                                  "Setting External References ...");
            CountDefinitions(*wizard.Globals.MapContextIDs, index, &wizard);
        }
        if (wizard.Globals.ProjectContextIDs)
            CountDefinitions(*wizard.Globals.ProjectContextIDs, index, nullptr);
        return true;
    });
}

bool UpdateExternalReferences(Conversion& wizard) {
    return Guarded(wizard.Errors, "modUtilities:UpdateExternalReferences", false, [&] {
        if (!wizard.Globals.MapContextIDs || !wizard.Globals.TopicFiles) return true;
        InitializeProgressBar(wizard, wizard.Globals.MapContextIDs->Count(),
                              "Updating External Reference Values ...");
        long position = 0;
        for (const auto& definition : *wizard.Globals.MapContextIDs) {
            if (definition->FileDefined) {
                if (auto topic =
                        wizard.Globals.TopicFiles->FirstWithContext(definition->ContextString))
                    topic->ContextIDValueString = definition->ContextID;
            }
            UpdateProgressBar(wizard, ++position);
        }
        return true;
    });
}

int UntitledTopics(ErrorReporter& errors, const CTopicFiles* topicFiles) {
    return Guarded(errors, "modUtilities:UntitledTopics", 0, [&] {
        Counter16 count;
        if (topicFiles != nullptr) {
            for (const auto& topic : *topicFiles)
                if (!topic->HasTitle) ++count;
        }
        return count.Value();
    });
}

}  // namespace tamrix::modUtilities
