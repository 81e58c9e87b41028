#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

/// Text inside the program is UTF-8; a character is one code point. Nothing here depends on the locale.
namespace pelrath {

/// Single-byte ANSI text (Windows-1252) as UTF-8. The code page's five unused bytes (81, 8D, 8F, 90, 9D)
/// become the C1 controls of the same value, so that every byte survives a round trip.
[[nodiscard]] std::string ansiToUtf8(std::string_view ansi);

/// The characters of a fixed-width field: every zero byte is skipped, wherever it stands.
[[nodiscard]] std::string fieldText(std::span<const char> field);

/// The single-byte code of a character, '?' for one that the code page lacks.
[[nodiscard]] unsigned char ansiCode(char32_t character);

/// The last character of a text, 0 for an empty one.
[[nodiscard]] char32_t lastCharacter(std::string_view text);

[[nodiscard]] std::size_t characterCount(std::string_view text);

/// The bytes that the first `characters` characters take (all of them when there are fewer).
[[nodiscard]] std::size_t bytesOfCharacters(std::string_view text, std::size_t characters);

/// The text's first `characters` characters.
[[nodiscard]] std::string_view firstCharacters(std::string_view text, std::size_t characters);

[[nodiscard]] bool isAscii(std::string_view text);

[[nodiscard]] bool isUtf8(std::string_view text);

/// `text` with U+FFFD in the place of what is no UTF-8.
[[nodiscard]] std::string validUtf8(std::string_view text);

/// Upper case in place, of a text that is ASCII.
void makeUpperCase(std::span<char> ascii);

/// Upper case character by character, so that the number of characters never changes.
[[nodiscard]] std::string upperCase(std::string_view text);

/// `text` without the blanks (U+0020 only) at both ends.
[[nodiscard]] std::string_view trimBlanks(std::string_view text);

/// `text` with U+FFFD in the place of each control character, which would show nothing. For names in
/// messages.
[[nodiscard]] std::string visibleText(std::string_view text);

/// True where `*` stands for any characters and `?` for any one character of `text`, and every other one for
/// itself. False for a pattern that is no UTF-8.
[[nodiscard]] bool matchesPattern(const std::string& pattern, const std::string& text);

/// Appends `text` with blanks behind it up to `width` characters; a longer text is kept whole.
void appendPadded(std::string& line, std::string_view text, std::size_t width);

} // namespace pelrath
