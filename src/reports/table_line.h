#pragma once
// A 144-column log line into which texts are written at fixed 1-based columns.
#include <string>
#include <string_view>

namespace tamrix {

class TableLine {
public:
    static constexpr std::size_t kWidth = 144;

    TableLine() : line_(kWidth, ' ') {}
    // Overwrites from `column` on; text that would pass column 144 is cut.
    TableLine& Put(std::size_t column, std::string_view text);
    const std::string& Full() const { return line_; }
    std::string TrimmedRight() const;
    std::string Trimmed() const;

private:
    std::string line_;
};

}  // namespace tamrix
