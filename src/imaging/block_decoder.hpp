#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

/// Exact decoding of DXT1 and DXT5 blocks (the BC1 and BC3 of Direct3D's block compression formats).
namespace pelrath {

enum class BlockFormat { Dxt1, Dxt5 };

struct Texel {
    std::uint8_t red;
    std::uint8_t green;
    std::uint8_t blue;
    std::uint8_t alpha; ///< 255: opaque
    bool operator==(const Texel&) const = default;
};
static_assert(sizeof(Texel) == 4);

/// The 4 x 4 texels of a block, row by row from the top left.
using DecodedBlock = std::array<Texel, 16>;

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

/// `block` holds bytesPerBlock(format) bytes. 5-bit channels widen as v << 3 | v >> 2, 6-bit ones as
/// v << 2 | v >> 4; interpolated values are cut to whole steps, as the common software decoders do.
[[nodiscard]] DecodedBlock decodeBlock(BlockFormat format, std::span<const std::byte> block);

/// Decodes one level into rows from the top, 4 bytes a texel (red, green, blue, alpha), without padding.
/// Fails with "Invalid procedure call" unless `blocks` holds at least bytesPerLevel() and `texels` exactly
/// 4 x width x height bytes.
void decodeLevel(BlockFormat format, std::span<const std::byte> blocks, std::uint32_t width,
                 std::uint32_t height, std::span<std::byte> texels);

} // namespace pelrath
