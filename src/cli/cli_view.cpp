#include "cli/cli_view.h"

#include <algorithm>
#include <istream>
#include <ostream>

#include "platform/byte_text.h"
#include "wizard/options_dialog.h"

namespace tamrix::cli {
namespace {

const char* ButtonName(int code) {
    switch (code) {
        case mb::kOK: return "OK";
        case mb::kCancel: return "Cancel";
        case mb::kAbort: return "Abort";
        case mb::kRetry: return "Retry";
        case mb::kIgnore: return "Ignore";
        case mb::kYes: return "Yes";
        case mb::kNo: return "No";
        default: return "?";
    }
}

}  // namespace

CliView::CliView(const CliOptions& options, std::istream& in, std::ostream& err, bool interactive,
                 bool showProgress)
    : options_(options),
      in_(in),
      err_(err),
      interactive_(interactive),
      showProgress_(showProgress) {}

std::string CliView::OneLine(const std::string& text) {
    std::string out = ReplaceAll(ReplaceAll(text, "\r\n", "\n"), "\r", "\n");
    // Continuation lines are indented so a message reads as one block.
    out = ReplaceAll(out, "\n", "\n    ");
    return out;
}

int CliView::Answer(const MessageRequest& request, bool& asked) {
    asked = false;
    int codes[3] = {};
    const int n = ButtonsOfStyle(request.style, codes);
    if (n == 1) return codes[0];
    auto allowed = [&](int code) {
        for (int i = 0; i < n; ++i)
            if (codes[i] == code) return true;
        return false;
    };
    if (auto it = options_.answers.find(request.catalogueId);
        request.catalogueId != 0 && it != options_.answers.end() && allowed(it->second))
        return it->second;
    if (options_.defaultAnswer == DefaultAnswer::kYes)
        return AffirmativeAnswerOfStyle(request.style);
    if (options_.defaultAnswer == DefaultAnswer::kNo) return NegativeAnswerOfStyle(request.style);
    if (interactive_) {
        std::string choices;
        for (int i = 0; i < n; ++i) choices += std::string(i ? "/" : "") + ButtonName(codes[i]);
        while (true) {
            err_ << "[" << choices << "]? " << std::flush;
            std::string line;
            if (!std::getline(in_, line)) break;
            line = Trim(line);
            for (int i = 0; i < n; ++i)
                if (!line.empty() && StartsWithNoCase(ButtonName(codes[i]), line)) {
                    asked = true;
                    return codes[i];
                }
        }
    }
    return NegativeAnswerOfStyle(request.style);
}

int CliView::MessageBox(const MessageRequest& request) {
    ClearProgress();
    int codes[3] = {};
    const bool question = ButtonsOfStyle(request.style, codes) > 1;
    // Quiet runs show warnings, and questions only when they are really asked.
    const bool warning =
        (request.style & 0x70) == mb::kExclamation || (request.style & 0x70) == mb::kCritical;
    const bool asking = question && interactive_ && !Preanswered(request);
    const bool shown = !options_.quiet || (warning && !question) || asking;
    if (shown) {
        err_ << request.title << ": " << OneLine(request.text);
        if (request.catalogueId != 0 && question)
            err_ << "  [message " << request.catalogueId << "]";
        err_ << "\n";
    }
    bool asked = false;
    const int answer = Answer(request, asked);
    if (question && !asked && shown) err_ << "  -> " << ButtonName(answer) << "\n";
    err_ << std::flush;
    return answer;
}

void CliView::ErrorBox(const std::string& text, const std::string& title) {
    ++errors_;
    ClearProgress();
    err_ << title << ": " << OneLine(text) << "\n" << std::flush;
}

void CliView::ErrorRepeated(const std::string& text, const std::string& title, int times) {
    errors_ += times;
    ClearProgress();
    err_ << title << ": " << OneLine(text) << "\n    (repeated " << times << " times)\n"
         << std::flush;
}

bool CliView::Preanswered(const MessageRequest& request) const {
    return options_.defaultAnswer != DefaultAnswer::kAsk ||
           (request.catalogueId != 0 && options_.answers.count(request.catalogueId) != 0);
}

std::optional<std::string> CliView::InputBox(const std::string& prompt, const std::string& title,
                                             const std::string& defaultText) {
    ClearProgress();
    err_ << title << ": " << OneLine(prompt) << " [" << defaultText << "]\n";
    if (!interactive_) {
        err_ << "  -> cancelled\n" << std::flush;
        return std::nullopt;
    }
    err_ << "> " << std::flush;
    std::string line;
    if (!std::getline(in_, line)) return std::nullopt;
    return line.empty() ? defaultText : line;
}

void CliView::SetProgressCaption(const std::string& caption) {
    caption_ = caption;
    // After a finished count a new caption is a new phase: its numbers are not known yet.
    if (max_ > 0 && value_ >= max_) max_ = value_ = 0;
    DrawProgress(true);
}

void CliView::SetProgressMax(int maximum) {
    // A new maximum starts a new operation and its clock.
    max_ = maximum;
    value_ = 0;
    started_ = clock_();
    DrawProgress(true);
}

void CliView::SetProgressValue(int value) {
    value_ = value;
    DrawProgress(max_ > 0 && value_ >= max_);
}

void CliView::SetProgressVisible(bool visible) {
    visible_ = visible;
    if (!visible) ClearProgress();
}

void CliView::DrawProgress(bool force) {
    if (!showProgress_ || options_.quiet) return;
    constexpr auto kRedrawInterval = std::chrono::milliseconds(100);
    const auto now = clock_();
    if (!force && drawn_ && now - lastDrawn_ < kRedrawInterval) return;
    lastDrawn_ = now;
    constexpr int kWidth = 30;
    const int value = std::clamp(value_, 0, std::max(max_, 0));
    const int filled = max_ > 0 ? std::min(kWidth, value * kWidth / max_) : 0;
    const int percent = max_ > 0 ? value * 100 / max_ : 0;
    const long seconds =
        static_cast<long>(std::chrono::duration_cast<std::chrono::seconds>(now - started_).count());
    char numbers[64] = "";
    if (max_ > 0)
        std::snprintf(numbers, sizeof numbers, "%3d%% %d/%d %ld:%02ld  ", percent, value, max_,
                      seconds / 60, seconds % 60);
    err_ << "\r\x1b[K[" << std::string(static_cast<std::size_t>(filled), '#')
         << std::string(static_cast<std::size_t>(kWidth - filled), ' ') << "] " << numbers
         << caption_.substr(0, 50) << std::flush;
    drawn_ = true;
}

void CliView::ClearProgress() {
    if (!drawn_) return;
    err_ << "\r\x1b[K" << std::flush;
    drawn_ = false;
}

void CliView::ShowOptionsDialog(OptionsDialog& dialog) {
    dialog.chkCssFile = options_.css;
    dialog.txtCssFileName = options_.cssName;
    dialog.OK(*this);
}

}  // namespace tamrix::cli
