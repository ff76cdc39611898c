#include "reports/table_line.h"

#include "platform/byte_text.h"

namespace tamrix {

TableLine& TableLine::Put(std::size_t column, std::string_view text) {
    if (column < 1 || column > kWidth) return *this;
    const std::size_t start = column - 1;
    const std::size_t n = std::min(text.size(), kWidth - start);
    line_.replace(start, n, text.substr(0, n));
    return *this;
}

std::string TableLine::TrimmedRight() const { return TrimRight(line_); }

std::string TableLine::Trimmed() const { return Trim(line_); }

}  // namespace tamrix
