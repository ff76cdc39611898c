#pragma once
// A view for tests: answers come from a queue (or by catalogue ID), and every
// message, error box and progress update is recorded.
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/view.h"

namespace tamrix::testing {

class ScriptedView : public IView {
public:
    struct Progress {
        std::string what;  // "caption", "max", "value", "visible"
        std::string text;
        int number = 0;
    };

    // Answers used in order; when the queue is empty the answer is by ID, else
    // the negative button of the style.
    std::deque<int> answers;
    std::map<long, int> answersById;
    std::deque<std::optional<std::string>> inputAnswers;
    std::deque<std::string> openAnswers;
    std::deque<std::string> saveAnswers;

    std::vector<MessageRequest> messages;
    std::vector<std::pair<std::string, std::string>> errors;  // text, title
    std::vector<Progress> progress;
    int eventsProcessed = 0;

    int MessageBox(const MessageRequest& request) override;
    void ErrorBox(const std::string& text, const std::string& title) override;
    std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultText) override;
    std::string OpenFileDialog(const FileDialogRequest& request) override;
    std::string SaveFileDialog(const FileDialogRequest& request) override;
    void SetProgressCaption(const std::string& caption) override;
    void SetProgressMax(int maximum) override;
    void SetProgressValue(int value) override;
    void SetProgressVisible(bool visible) override;
    void ProcessEvents() override { ++eventsProcessed; }

    // Catalogue IDs of the messages shown, in order.
    std::vector<long> MessageIds() const;
    std::vector<std::string> Captions() const;
};

}  // namespace tamrix::testing
