#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Private profile files: "[section]" lines and "key=value" lines below them. Sections and keys are found
/// without regard to case; blanks around sections, keys and values do not count; a line that begins with a
/// semicolon is a comment. The text is UTF-8.
namespace pelrath {

/// The value under section and key, cut to its first `longest` characters. One pair of quotes around it,
/// single or double, does not belong to it. Nothing when file, section or key is missing or the file cannot
/// be read.
[[nodiscard]] std::optional<std::string> readProfileString(const std::string& path, std::string_view section,
                                                           std::string_view key, std::size_t longest);

/// The number that the value begins with (decimal, or with 0x, 0o, 0b of that base), 0 where it begins with
/// none, reduced to 32 bits; `missing` where
/// there is no value or an empty one.
[[nodiscard]] std::int32_t readProfileInt(const std::string& path, std::string_view section,
                                          std::string_view key, std::int32_t missing);

/// Puts the value under section and key, which are made as needed, and leaves everything else in the file as
/// it is, down to its line ends. False, with the old file whole, when that fails, and for a text of more than
/// one line, which the format cannot hold.
bool writeProfileString(const std::string& path, std::string_view section, std::string_view key,
                        std::string_view value);

} // namespace pelrath
