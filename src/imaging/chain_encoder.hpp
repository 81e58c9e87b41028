#pragma once

#include "imaging/level_encoder.hpp"

#include <cstddef>
#include <cstdint>
#include <span>

namespace pelrath {

/// Of the blocks of all these levels.
[[nodiscard]] std::uint64_t bytesOfLevels(BlockFormat format, std::span<const Pixels> levels);

/// Compresses the levels of a picture on all cores, one behind another into `blocks` (see LevelEncoder).
/// `known` has the blocks of as many levels as it is long for, or nothing. Fails as LevelEncoder does, and
/// with "Invalid procedure call" unless `blocks` is as long as bytesOfLevels() says.
void encodeChain(BlockFormat format, std::span<const Pixels> levels, Bytes known,
                 std::span<std::byte> blocks);

} // namespace pelrath
