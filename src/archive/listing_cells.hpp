#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pelrath::listing {

/// The titles of a pane's columns, out of its title line.
[[nodiscard]] std::vector<std::string> titleCells(std::string_view title);

/// The cells of a pane's line under that title line: as many as there are titles, without the blanks around
/// them, and with U+FFFD in the place of a control character.
[[nodiscard]] std::vector<std::string> lineCells(std::string_view title, std::string_view line);

} // namespace pelrath::listing
