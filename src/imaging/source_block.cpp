#include "imaging/source_block.hpp"

#include <algorithm>
#include <cstring>

namespace pelrath {

SourceBlock blockAt(const Pixels& level, std::uint32_t left, std::uint32_t top) {
    SourceBlock block;
    const std::uint32_t columns = std::min(4U, level.sides.width - left);
    const std::uint32_t rows = std::min(4U, level.sides.height - top);
    for (std::uint32_t row = 0; row < rows; ++row) {
        const std::size_t y = level.fromTop ? top + row : level.sides.height - 1 - (top + row);
        const std::size_t from = (y * level.sides.width + left) * bytesPerTexel;
        std::memcpy(&block.texels[std::size_t{4} * row], &level.values[from], columns * bytesPerTexel);
        block.inside = static_cast<TexelMarks>(block.inside | ((1U << columns) - 1) << 4 * row);
    }
    return block;
}

BlockTexels onlyMarked(const BlockTexels& texels, TexelMarks marks) {
    BlockTexels filled = texels;
    std::size_t next = 0;
    for (std::size_t i = 0; i < texelsPerBlock; ++i) {
        if (isMarked(marks, i)) continue;
        while (!isMarked(marks, next % texelsPerBlock)) {
            ++next;
        }
        filled[i] = texels[next++ % texelsPerBlock];
    }
    return filled;
}

} // namespace pelrath
