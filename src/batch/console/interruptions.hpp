#pragma once

#include "batch/console/telling.hpp"

#include <cstddef>
#include <string>

namespace pelrath::batch {

/// Tells the insertions into an archive that were interrupted and not completed, for commands that leave them
/// as they are: a texture may be a mixture until then. Answers how many. UnreadableArchive.
std::size_t tellInterrupted(const std::string& archive, const Console& console, Telling& telling);

} // namespace pelrath::batch
