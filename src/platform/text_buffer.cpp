#include "platform/text_buffer.h"

#include <algorithm>

#include "platform/byte_text.h"
#include "platform/file_system.h"

namespace tamrix {

void TextBuffer::LoadFile(FileSystem& fs, std::string_view path) { SetText(fs.ReadAll(path)); }

void TextBuffer::SaveFile(FileSystem& fs, std::string_view path) const { fs.WriteAll(path, text_); }

void TextBuffer::SetText(std::string text) {
    text_ = std::move(text);
    folded_ = Fold(text_);
    selStart_ = 0;
    selLength_ = 0;
}

long TextBuffer::Find(std::string_view what, long from) {
    if (what.empty() || from < 0 || from > Length()) return -1;
    const std::size_t hit = folded_.find(Fold(what), static_cast<std::size_t>(from));
    if (hit == std::string::npos) return -1;
    selStart_ = static_cast<long>(hit);
    selLength_ = static_cast<long>(what.size());
    return selStart_;
}

void TextBuffer::SetSelStart(long start) {
    selStart_ = std::clamp(start, 0L, Length());
    selLength_ = 0;
}

void TextBuffer::SetSelLength(long length) {
    selLength_ = std::clamp(length, 0L, Length() - selStart_);
}

std::string TextBuffer::SelText() const {
    return text_.substr(static_cast<std::size_t>(selStart_), static_cast<std::size_t>(selLength_));
}

void TextBuffer::ReplaceSel(std::string_view replacement) {
    const auto start = static_cast<std::size_t>(selStart_);
    const auto length = static_cast<std::size_t>(selLength_);
    text_.replace(start, length, replacement);
    folded_.replace(start, length, Fold(replacement));
    selStart_ += static_cast<long>(replacement.size());
    selLength_ = 0;
}

}  // namespace tamrix
