#pragma once

#include "imaging/block_decoder.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pelrath {

/// Texels of four bytes, red, green, blue and alpha, rows from the top.
struct LevelPicture {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::vector<std::byte> texels;
};

/// Where a level changed.
struct LevelDifference {
    LevelPicture picture; ///< each value's difference eight times; that of alpha lightens all of a texel
    double mean = 0;      ///< of all values of all texels, 0 to 255
    int largest = 0;
};

/// Of two pictures with the same sides.
[[nodiscard]] LevelDifference differenceOf(const LevelPicture& now, const LevelPicture& before);

/// A level's blocks, decoded. Fails as decodeLevel() does.
[[nodiscard]] LevelPicture pictureOf(BlockFormat format, std::span<const std::byte> blocks,
                                     std::int32_t width, std::int32_t height);

/// Red, green, blue and alpha of the texel at these places of a level that is so many texels wide.
[[nodiscard]] std::array<std::uint8_t, 4> texelOf(BlockFormat format, std::span<const std::byte> blocks,
                                                  std::int32_t width, std::int32_t x, std::int32_t y);

} // namespace pelrath
