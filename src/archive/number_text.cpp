#include "archive/number_text.hpp"

#include "platform/text.hpp"

#include <algorithm>
#include <cstring>

namespace pelrath {

namespace {

constexpr std::array<char, 200> pairsOfDigits = [] {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

// These write the digits of a magnitude so that they end before `end`, and answer where they begin.
char* writeDecimalDigits(char* end, std::uint32_t magnitude) {
    for (; magnitude >= 10; magnitude /= 100) {
        end -= 2;
        std::memcpy(end, &pairsOfDigits[magnitude % 100 * 2], 2);
        if (magnitude < 100) return end;
    }
    *--end = static_cast<char>('0' + magnitude);
    return end;
}

char* writeHexadecimalDigits(char* end, std::uint32_t magnitude) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    do {
        *--end = digits[magnitude % 16];
        magnitude /= 16;
    } while (magnitude != 0);
    return end;
}

std::uint32_t magnitudeOf(std::int32_t number) {
    const auto bits = static_cast<std::uint32_t>(number);
    return number < 0 ? 0U - bits : bits;
}

char* writeDecimal(char* end, std::int32_t number) {
    char* start = writeDecimalDigits(end, magnitudeOf(number));
    *--start = number < 0 ? '-' : ' ';
    return start;
}

// A blank or sign, and the ten digits of the longest 32-bit number.
using Room = std::array<char, 11>;

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
    const char* start = writeHexadecimalDigits(room.data() + room.size(), static_cast<std::uint32_t>(number));
    appendField(line, upToEnd(room, start), width, behind);
}

void NumberColumns::addDecimal(std::int32_t number) {
    constexpr std::uint32_t tooLong = 1'000'000'000; // for a column that has room for the sign, too
    const std::size_t length = magnitudeOf(number) < tooLong ? width : width + 1;
    char* const column = text_.data() + size_;
    std::memset(column, ' ', width + 2);
    writeDecimal(column + length, number);
    size_ += length + 1;
}

void NumberColumns::addHexadecimal(std::int32_t number) {
    char* const column = text_.data() + size_;
    std::memset(column, ' ', width + 1);
    writeHexadecimalDigits(column + width, static_cast<std::uint32_t>(number));
    size_ += width + 1;
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
