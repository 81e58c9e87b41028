#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pelrath {

/// The library's name of one of its error codes. Every name but that of 0 ends with one blank, and messages
/// carry it along; a code without a name gives "Error Type not found !". Never fails.
[[nodiscard]] std::string getErrorTypeName(std::int32_t code);

/// What a code says of a file that was to be loaded, and what helps, which is `remedy` where the file is
/// damaged: the rest of a sentence that begins with the file, without its full stop.
[[nodiscard]] std::string loadAdvice(std::int32_t code, std::string_view remedy);

/// The text of every report of a library failure: prefix, decimal code, " -> ", the code's name.
[[nodiscard]] std::string libraryFailureText(std::string_view prefix, std::int32_t code);

} // namespace pelrath
