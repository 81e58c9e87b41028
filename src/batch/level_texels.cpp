#include "batch/level_texels.hpp"

#include "archive/image_file_kind.hpp"
#include "batch/opened_archive.hpp"
#include "imaging/refusal.hpp"

namespace pelrath::batch {

namespace {

BlockFormat formatOf(const TextureRecord& texture) {
    return nativeImageKind(texture)->kind == ImageFileKind::Bmp ? BlockFormat::Dxt1 : BlockFormat::Dxt5;
}

std::uint32_t unsignedOf(std::int32_t side) { return static_cast<std::uint32_t>(side); }

} // namespace

std::string whyNotDecoded(const TextureRecord& texture, const MipmapRecord& level) {
    if (std::string unsupported = whyNotSupported(texture); !unsupported.empty()) return unsupported;
    const std::string sides = std::to_string(level.width) + " x " + std::to_string(level.height);
    if (!possibleSides(level.width, level.height)) return "it cannot have " + sides + " pixels";
    const std::uint64_t needed =
        bytesPerLevel(formatOf(texture), unsignedOf(level.width), unsignedOf(level.height));
    if (static_cast<std::uint64_t>(level.dataSize) >= needed) return {};
    return "it has " + std::to_string(level.dataSize) + " bytes, and " + sides + " pixels take " +
           std::to_string(needed);
}

std::vector<std::byte> texelsOf(const TextureRecord& texture, const MipmapRecord& level, Bytes data) {
    std::vector<std::byte> texels(static_cast<std::size_t>(level.width) *
                                  static_cast<std::size_t>(level.height) * bytesPerTexel);
    decodeLevel(formatOf(texture), data, unsignedOf(level.width), unsignedOf(level.height), texels);
    return texels;
}

std::vector<std::byte> dataOf(const InputFile& archive, const MipmapRecord& level) {
    std::vector<std::byte> data(static_cast<std::size_t>(level.dataSize));
    if (!data.empty()) archive.readAt(static_cast<std::uint64_t>(level.dataOffset), data);
    return data;
}

} // namespace pelrath::batch
