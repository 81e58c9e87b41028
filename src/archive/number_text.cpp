#include "archive/number_text.hpp"

#include "platform/text.hpp"

#include <algorithm>
#include <array>

namespace pelrath {

namespace {

// Writes the digits of a magnitude so that they end before `end`; answers where they begin.
template <unsigned Base>
char* writeDigits(char* end, std::uint32_t magnitude) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    do {
        *--end = digits[magnitude % Base];
        magnitude /= Base;
    } while (magnitude != 0);
    return end;
}

char* writeDecimal(char* end, std::int32_t number) {
    const auto bits = static_cast<std::uint32_t>(number);
    char* start = writeDigits<10>(end, number < 0 ? 0U - bits : bits);
    *--start = number < 0 ? '-' : ' ';
    return start;
}

// A blank or sign, and the ten digits of the longest 32-bit number.
using Room = std::array<char, 11>;

// The largest listings hold a million numbers: none of them is a text of its own on the way.
void appendField(std::string& line, std::string_view digits, std::size_t width, std::size_t behind) {
    const std::size_t at = line.size();
    line.append(std::max(digits.size(), width) + behind, ' ');
    digits.copy(line.data() + at + (digits.size() < width ? width - digits.size() : 0), digits.size());
}

std::string_view upToEnd(const Room& room, const char* start) {
    return {start, static_cast<std::size_t>(room.data() + room.size() - start)};
}

} // namespace

void appendRightAligned(std::string& line, std::string_view text, std::size_t width, std::size_t behind) {
    const std::size_t count = characterCount(text);
    if (count < width) line.append(width - count, ' ');
    line.append(text).append(behind, ' ');
}

void appendDecimal(std::string& line, std::int32_t number, std::size_t width, std::size_t behind) {
    Room room;
    appendField(line, upToEnd(room, writeDecimal(room.data() + room.size(), number)), width, behind);
}

void appendHexadecimal(std::string& line, std::int32_t number, std::size_t width, std::size_t behind) {
    Room room;
    const char* start = writeDigits<16>(room.data() + room.size(), static_cast<std::uint32_t>(number));
    appendField(line, upToEnd(room, start), width, behind);
}

std::string fileNumberText(std::int32_t count) {
    std::string text;
    appendDecimal(text, count, 7, 1);
    return text;
}

std::string indexText(std::int32_t number) {
    std::string text;
    appendDecimal(text, number, 5, 2);
    return text;
}

} // namespace pelrath
