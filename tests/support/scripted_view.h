#pragma once
// A view for tests: answers come from a queue (or by catalogue ID), and every
// message, error box and progress update is recorded.
#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/view.h"

namespace tamrix::testing {

struct ProgressEvent {
    std::string what;  // "caption", "max", "value", "visible"
    std::string text;
    int number = 0;
};

template <class Base>
class ScriptedViewOf : public Base {
public:
    // Answers used in order; when the queue is empty the answer is by catalogue
    // ID, else the negative button of the style.
    std::deque<int> answers;
    std::map<long, int> answersById;
    std::deque<std::optional<std::string>> inputAnswers;
    std::deque<std::string> openAnswers;
    std::deque<std::string> saveAnswers;

    std::vector<MessageRequest> messages;
    std::vector<std::pair<std::string, std::string>> errors;  // text, title
    std::vector<std::pair<std::string, int>> repeats;         // text, further times
    std::vector<ProgressEvent> progress;
    int eventsProcessed = 0;

    int MessageBox(const MessageRequest& request) override {
        messages.push_back(request);
        if (!answers.empty()) {
            const int answer = answers.front();
            answers.pop_front();
            return answer;
        }
        if (auto it = answersById.find(request.catalogueId); it != answersById.end())
            return it->second;
        return NegativeAnswerOfStyle(request.style);
    }
    void ErrorBox(const std::string& text, const std::string& title) override {
        errors.emplace_back(text, title);
    }
    void ErrorRepeated(const std::string& text, const std::string&, int times) override {
        repeats.emplace_back(text, times);
    }
    std::optional<std::string> InputBox(const std::string&, const std::string&,
                                        const std::string&) override {
        if (inputAnswers.empty()) return std::nullopt;
        auto answer = inputAnswers.front();
        inputAnswers.pop_front();
        return answer;
    }
    std::string OpenFileDialog(const FileDialogRequest&) override { return Pop(openAnswers); }
    std::string SaveFileDialog(const FileDialogRequest&) override { return Pop(saveAnswers); }
    void SetProgressCaption(const std::string& caption) override {
        progress.push_back({"caption", caption, 0});
    }
    void SetProgressMax(int maximum) override { progress.push_back({"max", {}, maximum}); }
    void SetProgressValue(int value) override { progress.push_back({"value", {}, value}); }
    void SetProgressVisible(bool visible) override {
        progress.push_back({"visible", {}, visible ? 1 : 0});
    }
    void ProcessEvents() override { ++eventsProcessed; }

    // Catalogue IDs of the messages shown, in order.
    std::vector<long> MessageIds() const {
        std::vector<long> ids;
        for (const auto& m : messages) ids.push_back(m.catalogueId);
        return ids;
    }
    std::vector<std::string> Captions() const {
        std::vector<std::string> captions;
        for (const auto& p : progress)
            if (p.what == "caption") captions.push_back(p.text);
        return captions;
    }
    // The message shown at `index`: its catalogue ID, caption and, unless -1, style.
    void ExpectMessage(std::size_t index, long id, const std::string& title, int style = -1) {
        ASSERT_LT(index, messages.size());
        EXPECT_EQ(messages[index].catalogueId, id);
        EXPECT_EQ(messages[index].title, title);
        EXPECT_EQ(style == -1 ? -1 : messages[index].style, style);
    }
    // Whether an unexpected-error box named `procedure`.
    bool ErrorNamed(const std::string& procedure) const {
        for (const auto& e : errors)
            if (e.first.find(procedure) != std::string::npos) return true;
        return false;
    }
    // The first message whose text contains `part`, or nullptr.
    const MessageRequest* FindMessage(const std::string& part) const {
        for (const auto& m : messages)
            if (m.text.find(part) != std::string::npos) return &m;
        return nullptr;
    }

private:
    static std::string Pop(std::deque<std::string>& queue) {
        if (queue.empty()) return {};
        std::string answer = queue.front();
        queue.pop_front();
        return answer;
    }
};

using ScriptedView = ScriptedViewOf<IView>;

}  // namespace tamrix::testing
