#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pelrath {

/// The names in an opened folder that `isWanted` says yes to. None where it cannot be read.
[[nodiscard]] std::vector<std::string> namesIn(int folder, bool (*isWanted)(std::string_view name));

} // namespace pelrath
