#include "imaging/level_difference.hpp"

#include <algorithm>
#include <cstdlib>

namespace pelrath {

LevelDifference differenceOf(const LevelPicture& now, const LevelPicture& before) {
    constexpr int stronger = 8; // what compression does is otherwise too dark to be seen
    LevelDifference result;
    result.picture = {now.width, now.height, std::vector<std::byte>(now.texels.size())};
    std::uint64_t sum = 0;
    for (std::size_t at = 0; at < now.texels.size(); at += bytesPerTexel) {
        std::array<int, bytesPerTexel> by{};
        for (std::size_t i = 0; i < by.size(); ++i) {
            by[i] = std::abs(std::to_integer<int>(now.texels[at + i]) -
                             std::to_integer<int>(before.texels[at + i]));
            sum += static_cast<std::uint64_t>(by[i]);
            result.largest = std::max(result.largest, by[i]);
        }
        for (std::size_t i = 0; i < by.size(); ++i) {
            result.picture.texels[at + i] =
                static_cast<std::byte>(std::min(std::max(by[i], by[3]) * stronger, 255));
        }
    }
    result.mean = static_cast<double>(sum) / static_cast<double>(std::max<std::size_t>(now.texels.size(), 1));
    return result;
}

// The block that holds a texel, decoded.
std::array<std::uint8_t, 4> texelOf(BlockFormat format, std::span<const std::byte> blocks, std::int32_t width,
                                    std::int32_t x, std::int32_t y) {
    const auto across = static_cast<std::size_t>((width + 3) / 4);
    const std::size_t block = static_cast<std::size_t>(y / 4) * across + static_cast<std::size_t>(x / 4);
    std::array<std::byte, 16 * bytesPerTexel> decoded{};
    decodeLevel(format, blocks.subspan(block * bytesPerBlock(format), bytesPerBlock(format)), 4, 4, decoded);
    const std::size_t at = static_cast<std::size_t>(y % 4 * 4 + x % 4) * bytesPerTexel;
    std::array<std::uint8_t, 4> values{};
    std::transform(&decoded[at], &decoded[at] + bytesPerTexel, values.begin(),
                   [](std::byte value) { return std::to_integer<std::uint8_t>(value); });
    return values;
}

LevelPicture pictureOf(BlockFormat format, std::span<const std::byte> blocks, std::int32_t width,
                       std::int32_t height) {
    const auto across = static_cast<std::uint32_t>(width);
    const auto down = static_cast<std::uint32_t>(height);
    LevelPicture picture{width, height, std::vector<std::byte>(std::size_t{across} * down * bytesPerTexel)};
    decodeLevel(format, blocks, across, down, picture.texels);
    return picture;
}

} // namespace pelrath
