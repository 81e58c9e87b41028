#include "platform/text.hpp"

#include "platform/posix/glib_owned.hpp"

#include <algorithm>
#include <array>
#include <iterator>

#include <glib.h>

namespace pelrath {

namespace {

// Windows-1252's bytes 80 to 9F; its unused ones stand for themselves.
constexpr std::array<char32_t, 32> upperControls{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

void appendCharacter(std::string& text, char32_t character) {
    std::array<char, 6> bytes{};
    const int count = g_unichar_to_utf8(character, bytes.data());
    text.append(bytes.data(), static_cast<std::size_t>(count));
}

// Without a branch: names are upper-cased by the ten thousand.
char asciiUpper(char c) {
    const auto small = static_cast<unsigned char>(c - 'a') < 26U;
    return static_cast<char>(c ^ (small ? 0x20 : 0));
}

bool isControl(std::string_view character) {
    const auto first = static_cast<unsigned char>(character[0]);
    if (character.size() == 1) return first < 0x20 || first == 0x7F;
    return first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0; // U+0080 to U+009F
}

} // namespace

bool isAscii(std::string_view text) {
    unsigned char all = 0;
    for (const char c : text) {
        all |= static_cast<unsigned char>(c);
    }
    return all < 0x80;
}

bool isUtf8(std::string_view text) { return g_utf8_validate_len(text.data(), text.size(), nullptr) != FALSE; }

std::string validUtf8(std::string_view text) {
    const GlibOwned<char> valid{g_utf8_make_valid(text.data(), static_cast<gssize>(text.size()))};
    return valid.get();
}

std::string ansiToUtf8(std::string_view ansi) {
    if (isAscii(ansi)) return std::string{ansi};
    std::string text;
    text.reserve(ansi.size() * 2);
    for (const char c : ansi) {
        const auto byte = static_cast<unsigned char>(c);
        appendCharacter(text, byte >= 0x80 && byte < 0xA0 ? upperControls[byte - 0x80U] : byte);
    }
    return text;
}

std::string fieldText(std::span<const char> field) {
    const std::string_view whole{field.data(), field.size()};
    const std::string_view front = whole.substr(0, whole.find('\0'));
    if (whole.find_first_not_of('\0', front.size()) == std::string_view::npos) return ansiToUtf8(front);
    std::string characters; // with zeros among them
    std::remove_copy(field.begin(), field.end(), std::back_inserter(characters), '\0');
    return ansiToUtf8(characters);
}

unsigned char ansiCode(char32_t character) {
    const auto* const found = std::find(upperControls.begin(), upperControls.end(), character);
    if (found != upperControls.end())
        return static_cast<unsigned char>(0x80 + (found - upperControls.begin()));
    const bool sameCode = character < 0x80 || (character >= 0xA0 && character <= 0xFF);
    return sameCode ? static_cast<unsigned char>(character) : static_cast<unsigned char>('?');
}

char32_t lastCharacter(std::string_view text) {
    if (text.empty()) return 0;
    std::size_t start = text.size() - 1;
    while (start > 0 && isContinuation(text[start])) {
        --start;
    }
    return g_utf8_get_char_validated(text.data() + start, static_cast<gssize>(text.size() - start));
}

std::size_t characterCount(std::string_view text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return !isContinuation(c); }));
}

std::size_t bytesOfCharacters(std::string_view text, std::size_t characters) {
    std::size_t at = 0;
    for (; at < text.size(); ++at) {
        if (isContinuation(text[at])) continue;
        if (characters == 0) break;
        --characters;
    }
    return at;
}

std::string_view firstCharacters(std::string_view text, std::size_t characters) {
    return text.substr(0, bytesOfCharacters(text, characters));
}

void makeUpperCase(std::span<char> ascii) {
    std::transform(ascii.begin(), ascii.end(), ascii.begin(), asciiUpper);
}

std::string upperCase(std::string_view text) {
    std::string result;
    if (isAscii(text)) {
        result = text;
        makeUpperCase(result);
        return result;
    }
    result.reserve(text.size());
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at < end) {
        const gunichar character = g_utf8_get_char_validated(at, end - at);
        const bool valid = character < 0x110000;
        if (valid) appendCharacter(result, g_unichar_toupper(character));
        if (!valid) result.push_back(*at);
        at += valid ? g_utf8_next_char(at) - at : 1;
    }
    return result;
}

std::string_view trimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string visibleText(std::string_view text) {
    std::string visible;
    while (!text.empty()) {
        const std::string_view character = firstCharacters(text, 1);
        visible += isControl(character) ? "\uFFFD" : character;
        text.remove_prefix(character.size());
    }
    return visible;
}

bool matchesPattern(const std::string& pattern, const std::string& text) {
    return g_utf8_validate(pattern.c_str(), -1, nullptr) != FALSE &&
           g_pattern_match_simple(pattern.c_str(), text.c_str()) != FALSE;
}

void appendPadded(std::string& line, std::string_view text, std::size_t width) {
    line.append(text);
    const std::size_t count = characterCount(text);
    if (count < width) line.append(width - count, ' ');
}

} // namespace pelrath
