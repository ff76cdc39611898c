#pragma once
// The writers' text buffer: a whole file held as text with a selection,
// edited by case-insensitive find and replace-selection.
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace tamrix {

/// A file's text with a selection, edited the way the writers' edit control was.
class TextBuffer {
public:
    /// File operations raise BasicError on failure.
    void LoadFile(FileSystem& fs, std::string_view path);
    /// Writes the text back byte for byte.
    void SaveFile(FileSystem& fs, std::string_view path) const;

    /// The whole text.
    const std::string& Text() const { return text_; }
    /// Replaces the whole text and collapses the selection at its start.
    void SetText(std::string text);
    /// The length of the text in bytes.
    long Length() const { return static_cast<long>(text_.size()); }

    /// Searches `what` without regard to case from zero-based `from` to the end;
    /// selects the match and returns its position, or returns -1 (selection unchanged).
    long Find(std::string_view what, long from);

    /// Zero-based start of the selection.
    long SelStart() const { return selStart_; }
    /// Length of the selection.
    long SelLength() const { return selLength_; }
    /// Setting the start collapses the selection, as the edit control does.
    void SetSelStart(long start);
    /// Lengthens or shortens the selection, cut at the end of the text.
    void SetSelLength(long length);
    /// The selected text.
    std::string SelText() const;
    /// Replaces the selection; the caret then stands after the inserted text.
    void ReplaceSel(std::string_view replacement);

private:
    std::string text_;
    std::string folded_;  // text_ folded for case-insensitive search
    long selStart_ = 0;
    long selLength_ = 0;
};

}  // namespace tamrix
