#pragma once

#include "imaging/refusal.hpp"
#include "transfer/held_archive.hpp"

#include <cstddef>
#include <vector>

namespace pelrath {

/// The blocks that the archive has of at most `count` levels of the chosen texture, from `first` on, one
/// level behind another: those of a picture with these sides and of the chain below it. Ends before a level
/// that has other sides or another length than such a picture's. Fails as HeldArchive::file() and as reads
/// do.
[[nodiscard]] std::vector<std::byte> knownBlocks(HeldArchive& archive, std::size_t first, std::size_t count,
                                                 Sides sides);

} // namespace pelrath
