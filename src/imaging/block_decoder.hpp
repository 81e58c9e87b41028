#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

/// Exact decoding of DXT1 and DXT5 blocks (the BC1 and BC3 of Direct3D's block compression formats).
namespace pelrath {

enum class BlockFormat { Dxt1, Dxt5 };

/// Alpha 255 is opaque.
struct Texel {
    std::uint8_t red;
    std::uint8_t green;
    std::uint8_t blue;
    std::uint8_t alpha;

    bool operator==(const Texel&) const = default;
};
inline constexpr std::size_t bytesPerTexel = 4;
static_assert(sizeof(Texel) == bytesPerTexel);

/// The 4 x 4 texels of a block, row by row from the top left.
inline constexpr std::size_t texelsPerBlock = 16;
using BlockTexels = std::array<Texel, texelsPerBlock>;

/// The colours that the end points of a block stand for, in the order of their numbers.
using BlockPalette = std::array<Texel, 4>;
/// `colours` holds the end points in its lowest 32 bits. The order of the end points says something only in
/// DXT1: where the first is not above the second, the fourth colour is clear.
[[nodiscard]] BlockPalette paletteOf(BlockFormat format, std::uint64_t colours);

using BlockAlphas = std::array<std::uint8_t, 8>;
/// The same for the end points in the lowest 16 bits of a DXT5 block's alphas.
[[nodiscard]] BlockAlphas alphasOf(std::uint64_t alphas);

[[nodiscard]] constexpr std::size_t bytesPerBlock(BlockFormat format) {
    return format == BlockFormat::Dxt1 ? 8 : 16;
}

/// Bytes of one level; sides in texels, from 1. A side that is no multiple of 4 ends in a whole block.
[[nodiscard]] constexpr std::uint64_t bytesPerLevel(BlockFormat format, std::uint32_t width,
                                                    std::uint32_t height) {
    const std::uint64_t across = (std::uint64_t{width} + 3) / 4;
    const std::uint64_t down = (std::uint64_t{height} + 3) / 4;
    return across * down * bytesPerBlock(format);
}

/// Bytes of the first `levels` levels, each half as wide and half as high as the one before, but no side
/// below 1; at most 32.
[[nodiscard]] constexpr std::uint64_t bytesPerChain(BlockFormat format, std::uint32_t width,
                                                    std::uint32_t height, std::uint32_t levels) {
    std::uint64_t bytes = 0;
    for (std::uint32_t level = 0; level < levels; ++level) {
        bytes += bytesPerLevel(format, std::max(width >> level, 1U), std::max(height >> level, 1U));
    }
    return bytes;
}

/// Decodes one level into rows from the top, without padding. 5-bit channels widen as v << 3 | v >> 2, 6-bit
/// ones as v << 2 | v >> 4; interpolated values are cut to whole steps, as the common software decoders do.
/// Fails with "Invalid procedure call" unless `blocks` holds at least bytesPerLevel() and `texels` exactly
/// 4 x width x height bytes.
void decodeLevel(BlockFormat format, std::span<const std::byte> blocks, std::uint32_t width,
                 std::uint32_t height, std::span<std::byte> texels);

} // namespace pelrath
