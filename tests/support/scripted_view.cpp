#include "support/scripted_view.h"

namespace tamrix::testing {

int ScriptedView::MessageBox(const MessageRequest& request) {
    messages.push_back(request);
    if (!answers.empty()) {
        const int answer = answers.front();
        answers.pop_front();
        return answer;
    }
    if (auto it = answersById.find(request.catalogueId); it != answersById.end()) return it->second;
    return NegativeAnswerOfStyle(request.style);
}

void ScriptedView::ErrorBox(const std::string& text, const std::string& title) {
    errors.emplace_back(text, title);
}

std::optional<std::string> ScriptedView::InputBox(const std::string&, const std::string&,
                                                  const std::string&) {
    if (inputAnswers.empty()) return std::nullopt;
    auto answer = inputAnswers.front();
    inputAnswers.pop_front();
    return answer;
}

std::string ScriptedView::OpenFileDialog(const FileDialogRequest&) {
    if (openAnswers.empty()) return {};
    std::string answer = openAnswers.front();
    openAnswers.pop_front();
    return answer;
}

std::string ScriptedView::SaveFileDialog(const FileDialogRequest&) {
    if (saveAnswers.empty()) return {};
    std::string answer = saveAnswers.front();
    saveAnswers.pop_front();
    return answer;
}

void ScriptedView::SetProgressCaption(const std::string& caption) {
    progress.push_back({"caption", caption, 0});
}
void ScriptedView::SetProgressMax(int maximum) { progress.push_back({"max", {}, maximum}); }
void ScriptedView::SetProgressValue(int value) { progress.push_back({"value", {}, value}); }
void ScriptedView::SetProgressVisible(bool visible) {
    progress.push_back({"visible", {}, visible ? 1 : 0});
}

std::vector<long> ScriptedView::MessageIds() const {
    std::vector<long> ids;
    for (const auto& m : messages) ids.push_back(m.catalogueId);
    return ids;
}

std::vector<std::string> ScriptedView::Captions() const {
    std::vector<std::string> captions;
    for (const auto& p : progress)
        if (p.what == "caption") captions.push_back(p.text);
    return captions;
}

}  // namespace tamrix::testing
