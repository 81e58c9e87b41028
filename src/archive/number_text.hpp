#pragma once

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

/// A file or texture count as its box shows it (7 characters and a blank).
[[nodiscard]] std::string fileNumberText(std::int32_t count);
/// A running number as the panes and its box show it (5 characters and two blanks).
[[nodiscard]] std::string indexText(std::int32_t number);

} // namespace pelrath
