#pragma once

#include <string>
#include <string_view>

/// Names that nothing else has: a prefix and six letters or digits.
namespace pelrath {

/// How many names are tried before none is taken to be free.
inline constexpr int uniqueNameAttempts = 100;

/// Likely free; whoever takes it makes sure of that.
[[nodiscard]] std::string uniqueName(std::string_view prefix);

[[nodiscard]] bool isUniqueName(std::string_view name, std::string_view prefix);

} // namespace pelrath
