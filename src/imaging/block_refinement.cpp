#include "imaging/block_refinement.hpp"

#include "imaging/checked_bytes.hpp"
#include "platform/runtime_error.hpp"

#include <algorithm>
#include <array>
#include <cstring> // the block compressor needs it

#define STB_DXT_STATIC
#define STB_DXT_IMPLEMENTATION
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb/stb_dxt.h>
#pragma GCC diagnostic pop

namespace pelrath {

namespace {

constexpr std::size_t texelsPerBlock = 16;
constexpr std::size_t alphaAt = 3;

using Texel = std::array<std::uint8_t, bytesPerTexel>;
using Marks = std::array<bool, texelsPerBlock>;

/// The 4 x 4 texels of a block, row by row from the top left. The compressor reads them as whole words.
struct Texels {
    alignas(std::uint32_t) std::array<Texel, texelsPerBlock> at{};
};

/// The bytes of a block of either format.
using Coding = std::array<std::byte, bytesPerBlock(BlockFormat::Dxt5)>;

Texels decodeBlock(BlockFormat format, std::span<const std::byte> block) {
    Texels decoded;
    decodeLevel(format, block, 4, 4, std::as_writable_bytes(std::span{decoded.at}));
    return decoded;
}

struct Block {
    Texels texels;
    Marks inside{}; ///< false beyond the right or bottom edge of the level
};

Block blockAt(const Pixels& level, std::uint32_t left, std::uint32_t top) {
    Block block;
    const std::uint32_t columns = std::min(4U, level.sides.width - left);
    const std::uint32_t rows = std::min(4U, level.sides.height - top);
    for (std::size_t row = 0; row < rows; ++row) {
        const std::size_t y = level.fromTop ? top + row : level.sides.height - 1 - (top + row);
        const std::size_t from = (y * level.sides.width + left) * bytesPerTexel;
        std::memcpy(&block.texels.at[row * 4], &level.values[from], columns * bytesPerTexel);
        std::fill_n(&block.inside[row * 4], columns, true);
    }
    return block;
}

/// Which texels' colours can be seen. Where none can, those of DXT5 count, as they are stored all the same.
Marks visibleTexels(BlockFormat format, const Block& block, const Texels& decoded) {
    const Texels& alphas = format == BlockFormat::Dxt1 ? decoded : block.texels;
    Marks visible{};
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        visible[i] = block.inside[i] && alphas.at[i][alphaAt] != 0;
    }
    return format == BlockFormat::Dxt5 && visible == Marks{} ? block.inside : visible;
}

/// The texels with those that are not marked replaced by the marked ones in turn, so that they add nothing.
Texels onlyMarked(const Texels& texels, const Marks& marks) {
    Texels filled = texels;
    std::size_t next = 0;
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        if (marks[i]) continue;
        while (!marks[next % texelsPerBlock]) {
            ++next;
        }
        filled.at[i] = texels.at[next++ % texelsPerBlock];
    }
    return filled;
}

unsigned squaredDistance(const Texel& a, const Texel& b, std::size_t from, std::size_t to) {
    unsigned sum = 0;
    for (std::size_t channel = from; channel < to; ++channel) {
        const int difference = a[channel] - b[channel];
        sum += static_cast<unsigned>(difference * difference);
    }
    return sum;
}

unsigned colourDistance(const Texel& a, const Texel& b) { return squaredDistance(a, b, 0, alphaAt); }
unsigned alphaDistance(const Texel& a, const Texel& b) { return squaredDistance(a, b, alphaAt, alphaAt + 1); }

template <auto distance>
unsigned errorOf(const Texels& wanted, const Texels& decoded, const Marks& counting) {
    unsigned sum = 0;
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        if (counting[i]) sum += distance(wanted.at[i], decoded.at[i]);
    }
    return sum;
}

void compressColours(Texels texels, std::span<std::byte, 8> coding) {
    for (Texel& texel : texels.at) {
        texel[alphaAt] = 255; // the compressor takes blocks for one colour only with equal alphas
    }
    stb_compress_dxt_block(reinterpret_cast<unsigned char*>(coding.data()), texels.at[0].data(), 0,
                           STB_DXT_HIGHQUAL);
}

void compressAlphas(const Texels& texels, std::span<std::byte, 8> coding) {
    std::array<std::uint8_t, texelsPerBlock> alphas{};
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        alphas[i] = texels.at[i][alphaAt];
    }
    stb_compress_bc4_block(reinterpret_cast<unsigned char*>(coding.data()), alphas.data());
}

/// Turns a coding into one with transparent texels: the end points in rising order say so, and leave one
/// colour between them.
void cutOut(const Texels& texels, const Marks& visible, std::span<std::byte, 8> coding) {
    constexpr std::uint32_t eachChoiceOnce = 0b11'10'01'00;
    const auto ends = static_cast<std::uint32_t>(littleEndian(coding.first<4>()));
    if ((ends & 0xFFFFU) > ends >> 16) writeLong(coding, 0, ends >> 16 | ends << 16);
    writeLong(coding, 4, eachChoiceOnce);
    const Texels palette = decodeBlock(BlockFormat::Dxt1, coding);
    std::uint32_t choices = 0;
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        const auto nearer = [&](const Texel& a, const Texel& b) {
            return colourDistance(a, texels.at[i]) < colourDistance(b, texels.at[i]);
        };
        const auto best = std::min_element(palette.at.begin(), palette.at.begin() + 3, nearer);
        const auto choice = visible[i] ? static_cast<std::uint32_t>(best - palette.at.begin()) : 3U;
        choices |= choice << (2 * i);
    }
    writeLong(coding, 4, choices);
}

void refineBlock(BlockFormat format, const Block& block, std::span<std::byte> stored) {
    const Texels decoded = decodeBlock(format, stored);
    const Marks counting = visibleTexels(format, block, decoded);
    const unsigned colourError = errorOf<colourDistance>(block.texels, decoded, counting);
    const unsigned alphaError =
        format == BlockFormat::Dxt5 ? errorOf<alphaDistance>(block.texels, decoded, block.inside) : 0;
    if ((colourError == 0 && alphaError == 0) || counting == Marks{}) return;

    Coding coding;
    const std::span<std::byte> other = std::span{coding}.first(stored.size());
    const std::span<std::byte, 8> colours = other.last<8>();
    compressColours(onlyMarked(block.texels, counting), colours);
    if (format == BlockFormat::Dxt5) {
        compressAlphas(onlyMarked(block.texels, block.inside), other.first<8>());
    } else if (counting != block.inside) {
        cutOut(block.texels, counting, colours);
    }
    const Texels otherDecoded = decodeBlock(format, other);
    if (errorOf<colourDistance>(block.texels, otherDecoded, counting) < colourError) {
        std::copy(colours.begin(), colours.end(), stored.last<8>().begin());
    }
    if (errorOf<alphaDistance>(block.texels, otherDecoded, block.inside) < alphaError) {
        std::copy_n(other.begin(), 8, stored.begin());
    }
}

} // namespace

void refineBlocks(BlockFormat format, const Pixels& level, std::span<std::byte> blocks) {
    if (level.sides.width == 0 || level.sides.height == 0 ||
        level.values.size() != level.sides.pixels() * bytesPerTexel ||
        blocks.size() != bytesPerLevel(format, level.sides.width, level.sides.height)) {
        throw makeError(ErrorNumber::InvalidCall, "refineBlocks");
    }
    for (std::uint32_t top = 0; top < level.sides.height; top += 4) {
        for (std::uint32_t left = 0; left < level.sides.width; left += 4) {
            refineBlock(format, blockAt(level, left, top), blocks.first(bytesPerBlock(format)));
            blocks = blocks.subspan(bytesPerBlock(format));
        }
    }
}

} // namespace pelrath
