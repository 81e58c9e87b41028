#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pelrath {

/// The files, but no folders, that are on the disk and that a text names by their paths from the root, in
/// order and each once. A path may hold blanks.
[[nodiscard]] std::vector<std::string> filesNamedIn(std::string_view text);

} // namespace pelrath
