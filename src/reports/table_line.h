#pragma once
// A 144-column log line into which texts are written at fixed 1-based columns.
#include <string>
#include <string_view>

namespace tamrix {

/// A 144-column log line; texts are written into it at 1-based columns.
class TableLine {
public:
    /// The line width in columns.
    static constexpr std::size_t kWidth = 144;

    /// A line of spaces.
    TableLine() : line_(kWidth, ' ') {}
    /// Overwrites from `column` on; text that would pass column 144 is cut.
    TableLine& Put(std::size_t column, std::string_view text);
    /// The whole line, trailing spaces kept.
    const std::string& Full() const { return line_; }
    /// The line without its trailing spaces.
    std::string TrimmedRight() const;
    /// The line without leading or trailing spaces.
    std::string Trimmed() const;

private:
    std::string line_;
};

}  // namespace tamrix
