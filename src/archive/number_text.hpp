#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// How the listing writes its numbers.
namespace pelrath {

/// Appends a text right-aligned in `width` characters with `behind` blanks after it; a longer text is kept
/// whole and pushes the rest of the line to the right.
void appendRightAligned(std::string& line, std::string_view text, std::size_t width, std::size_t behind);

/// The same for a number: decimal with a leading blank or minus sign, or upper-case hexadecimal without
/// leading zeros, a negative number as its 32-bit two's complement.
void appendDecimal(std::string& line, std::int32_t number, std::size_t width, std::size_t behind);
void appendHexadecimal(std::string& line, std::int32_t number, std::size_t width, std::size_t behind);

/// Numbers one behind another, each in a column of 10 characters with a blank behind it, as the functions
/// above write it. Lines of listings are almost nothing else, a million numbers in the largest: they are
/// written in place, and reach their line together.
class NumberColumns {
public:
    static constexpr std::size_t most = 24;

    /// No more than `most` of both kinds.
    void addDecimal(std::int32_t number);
    void addHexadecimal(std::int32_t number);
    [[nodiscard]] std::string_view text() const { return {text_.data(), size_}; }

private:
    static constexpr std::size_t width = 10;
    std::array<char, most*(width + 2)> text_; // the longest number is one longer than its column
    std::size_t size_ = 0;
};

/// A file or texture count as its box shows it (7 characters and a blank).
[[nodiscard]] std::string fileNumberText(std::int32_t count);
/// A running number as the panes and its box show it (5 characters and two blanks).
[[nodiscard]] std::string indexText(std::int32_t number);

} // namespace pelrath
