#pragma once

#include "imaging/block_decoder.hpp"
#include "imaging/bound_pixels.hpp"
#include "platform/posix/files.hpp"

#include <cstddef>
#include <span>

namespace pelrath {

/// Compresses one level, in parts that can be done in any order and at once. Each block gets the coding that
/// comes nearest to its texels (by the squared error of what decodeLevel() makes of it), as far as can be
/// found in the time; of a DXT5 block, alpha and colours each by itself. In DXT5 the colour of every texel
/// counts, whatever its alpha; in DXT1 texels with an alpha below 128 become clear, and the colours of the
/// others count. A level that has been decoded from blocks is coded without a loss.
class LevelEncoder {
public:
    /// The level's channels are red, green, blue and alpha. `known` has blocks that the level may have had
    /// before, or nothing: each one's coding stays unless another comes nearer. Fails with "Invalid procedure
    /// call" unless the sides are at least 1, and pixels' values, known blocks and blocks as many as these
    /// say.
    LevelEncoder(BlockFormat format, const Pixels& level, Bytes known, std::span<std::byte> blocks);

    [[nodiscard]] std::size_t parts() const;
    void encodePart(std::size_t part) const;
    void encodeAll() const;

private:
    [[nodiscard]] std::size_t blocksAcross() const { return (level_.sides.width + std::size_t{3}) / 4; }
    [[nodiscard]] std::size_t rowsAPart() const;

    BlockFormat format_;
    Pixels level_;
    Bytes known_;
    std::span<std::byte> blocks_;
};

} // namespace pelrath
