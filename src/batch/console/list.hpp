#pragma once

#include "archive/catalogue.hpp"

#include <iosfwd>
#include <string>

namespace pelrath::batch {

/// A line for each texture: number from 1 on, sides of level 0, type, number of levels, bytes, and the name
/// with what would show nothing as U+FFFD.
void listAsTable(const CddsArchive& archive, std::ostream& out);

/// The same with every level, and the names as they are.
void listAsJson(const CddsArchive& archive, const std::string& path, std::ostream& out);

} // namespace pelrath::batch
