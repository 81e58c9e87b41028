#pragma once

#include "imaging/block_decoder.hpp"
#include "imaging/bound_pixels.hpp"

#include <bit>
#include <cstdint>

namespace pelrath {

/// A bit for each texel of a block, the first one's lowest.
using TexelMarks = std::uint16_t;

[[nodiscard]] inline bool isMarked(TexelMarks marks, std::size_t texel) {
    return (unsigned{marks} >> texel & 1U) != 0;
}

/// A block of a picture that is to be compressed.
struct SourceBlock {
    BlockTexels texels{};
    TexelMarks inside = 0; ///< those that are not beyond the right or bottom edge of the level
};

/// The block whose first texel is at `left` and `top` of a level with four channels: red, green, blue, alpha.
[[nodiscard]] SourceBlock blockAt(const Pixels& level, std::uint32_t left, std::uint32_t top);

/// The texels with those that are not marked replaced by the marked ones in turn, so that they add nothing
/// new. There must be one.
[[nodiscard]] BlockTexels onlyMarked(const BlockTexels& texels, TexelMarks marks);

/// Sums `distance(texel's number)` of those that are marked.
template <typename Distance>
[[nodiscard]] unsigned sumOver(TexelMarks marks, Distance distance) {
    unsigned sum = 0;
    for (unsigned left = marks; left != 0; left &= left - 1) {
        sum += distance(static_cast<std::size_t>(std::countr_zero(left)));
    }
    return sum;
}

} // namespace pelrath
