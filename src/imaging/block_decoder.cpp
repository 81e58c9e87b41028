#include "imaging/block_decoder.hpp"

#include "imaging/checked_bytes.hpp"
#include "platform/runtime_error.hpp"

#include <cstring>

namespace pelrath {

namespace {

Texel widen(unsigned packed) {
    const unsigned red = packed >> 11;
    const unsigned green = packed >> 5 & 63U;
    const unsigned blue = packed & 31U;
    return {static_cast<std::uint8_t>(red << 3 | red >> 2),
            static_cast<std::uint8_t>(green << 2 | green >> 4),
            static_cast<std::uint8_t>(blue << 3 | blue >> 2), 255};
}

Texel mix(Texel a, Texel b, unsigned weightOfA, unsigned weightOfB) {
    const auto channel = [=](unsigned x, unsigned y) {
        return static_cast<std::uint8_t>((weightOfA * x + weightOfB * y) / (weightOfA + weightOfB));
    };
    return {channel(a.red, b.red), channel(a.green, b.green), channel(a.blue, b.blue), 255};
}

template <BlockFormat format>
void decode(std::span<const std::byte> block, BlockTexels& texels) {
    const std::uint64_t colourBits = littleEndian(block.last<8>());
    const BlockPalette palette = paletteOf(format, colourBits);
    std::uint64_t choice = colourBits >> 32;
    for (Texel& texel : texels) {
        texel = palette[choice & 3U];
        choice >>= 2;
    }
    if constexpr (format == BlockFormat::Dxt5) {
        const std::uint64_t alphaBits = littleEndian(block.first<8>());
        const BlockAlphas alphas = alphasOf(alphaBits);
        choice = alphaBits >> 16;
        for (Texel& texel : texels) {
            texel.alpha = alphas[choice & 7U];
            choice >>= 3;
        }
    }
}

template <BlockFormat format>
void decodeBlocks(std::span<const std::byte> blocks, std::size_t width, std::size_t height,
                  std::byte* texels) {
    constexpr std::size_t blockSize = bytesPerBlock(format);
    BlockTexels decoded;
    for (std::size_t y = 0; y < height; y += 4) {
        const std::size_t rows = std::min<std::size_t>(4, height - y);
        for (std::size_t x = 0; x < width; x += 4) {
            decode<format>(blocks.first(blockSize), decoded);
            blocks = blocks.subspan(blockSize);
            const std::size_t columns = std::min<std::size_t>(4, width - x);
            for (std::size_t row = 0; row < rows; ++row) {
                std::memcpy(texels + ((y + row) * width + x) * bytesPerTexel, &decoded[row * 4],
                            columns * bytesPerTexel);
            }
        }
    }
}

} // namespace

BlockPalette paletteOf(BlockFormat format, std::uint64_t colours) {
    const auto first = static_cast<unsigned>(colours & 0xFFFFU);
    const auto second = static_cast<unsigned>(colours >> 16 & 0xFFFFU);
    const Texel a = widen(first);
    const Texel b = widen(second);
    if (format == BlockFormat::Dxt5 || first > second) return {a, b, mix(a, b, 2, 1), mix(a, b, 1, 2)};
    return {a, b, mix(a, b, 1, 1), Texel{0, 0, 0, 0}};
}

BlockAlphas alphasOf(std::uint64_t alphas) {
    const auto first = static_cast<unsigned>(alphas & 0xFFU);
    const auto second = static_cast<unsigned>(alphas >> 8 & 0xFFU);
    const unsigned steps = first > second ? 7 : 5;
    BlockAlphas all{static_cast<std::uint8_t>(first), static_cast<std::uint8_t>(second)};
    for (unsigned i = 1; i < steps; ++i) {
        all[i + 1] = static_cast<std::uint8_t>(((steps - i) * first + i * second) / steps);
    }
    if (steps == 5) all[7] = 255;
    return all;
}

void decodeLevel(BlockFormat format, std::span<const std::byte> blocks, std::uint32_t width,
                 std::uint32_t height, std::span<std::byte> texels) {
    if (width == 0 || height == 0 || blocks.size() < bytesPerLevel(format, width, height) ||
        texels.size() != std::uint64_t{width} * height * bytesPerTexel) {
        throw makeError(ErrorNumber::InvalidCall, "decodeLevel");
    }
    if (format == BlockFormat::Dxt1) {
        decodeBlocks<BlockFormat::Dxt1>(blocks, width, height, texels.data());
    } else {
        decodeBlocks<BlockFormat::Dxt5>(blocks, width, height, texels.data());
    }
}

} // namespace pelrath
