#pragma once

#include "imaging/block_decoder.hpp"
#include "imaging/bound_pixels.hpp"

#include <cstddef>
#include <span>

namespace pelrath {

/// Compresses a level's blocks once more, and keeps of each the coding that comes nearer to its texels (by
/// the squared error of what decodeLevel() makes of it); of a DXT5 block, alpha and colours each by itself.
/// The colour of a texel that is transparent does not count, and a DXT1 block keeps its choice of
/// transparent texels. The level's channels are red, green, blue and alpha. Fails with "Invalid procedure
/// call" unless the sides are at least 1, and the pixels' values and the blocks as many as they need.
void refineBlocks(BlockFormat format, const Pixels& level, std::span<std::byte> blocks);

} // namespace pelrath
