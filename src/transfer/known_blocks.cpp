#include "transfer/known_blocks.hpp"

#include "archive/image_file_kind.hpp"
#include "imaging/block_decoder.hpp"

#include <algorithm>
#include <span>

namespace pelrath {

std::vector<std::byte> knownBlocks(HeldArchive& archive, std::size_t first, std::size_t count, Sides sides) {
    const TextureRecord& texture = archive.session().chosenTexture();
    const auto native = nativeImageKind(texture);
    const bool dxt1 = native && native->kind == ImageFileKind::Bmp;
    std::vector<std::byte> blocks;
    for (const MipmapRecord& level : std::span{texture.mipmaps}.subspan(first).first(count)) {
        const std::uint64_t size =
            bytesPerLevel(dxt1 ? BlockFormat::Dxt1 : BlockFormat::Dxt5, sides.width, sides.height);
        const bool same = level.width == static_cast<std::int64_t>(sides.width) &&
                          level.height == static_cast<std::int64_t>(sides.height) &&
                          level.dataSize == static_cast<std::int64_t>(size);
        if (!same) break;
        const std::size_t before = blocks.size();
        blocks.resize(before + static_cast<std::size_t>(size));
        archive.file()->readAt(static_cast<std::uint64_t>(level.dataOffset),
                               std::span{blocks}.subspan(before));
        sides = {std::max(sides.width / 2, 1U), std::max(sides.height / 2, 1U)};
    }
    return blocks;
}

} // namespace pelrath
