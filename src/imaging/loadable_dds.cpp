#include "imaging/channel_mask.hpp"
#include "imaging/dds_format.hpp"
#include "imaging/loadable_file.hpp"
#include "imaging/plain_targa.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace pelrath {

namespace {

constexpr std::uint32_t mostLevels = 15; // 16384 down to 1

void checkHeader(const DdsHeader& header) {
    if (header.size != 124 || header.formatSize != 32) refuse(Refusal::NotThisKind);
    const bool volume = (header.flags & DdsHeader::VolumeGiven) != 0 && header.depth > 1;
    constexpr std::uint32_t notFlat = DdsHeader::CubeMap | DdsHeader::Volume;
    if (volume || (header.capabilities[1] & notFlat) != 0) refuse(Refusal::KindNotSupported);
}

/// Answers the bytes of level 0, which stand first, once those of all declared levels are found there;
/// `bytesOfSides` says how many one of these sides has.
template <typename BytesOfSides>
Bytes firstLevel(const CheckedBytes& file, Sides sides, BytesOfSides bytesOfSides) {
    const DdsHeader header = ddsHeaderOf(file.slice(0, sizeof header));
    const bool counted = (header.flags & DdsHeader::MipmapCountGiven) != 0;
    const std::uint32_t levels = counted ? std::max(header.mipmapCount, 1U) : 1;
    if (levels > mostLevels) refuse(Refusal::ImpossibleValue);
    std::uint64_t bytes = 0;
    for (std::uint32_t level = 0; level < levels; ++level) {
        bytes += bytesOfSides(Sides{std::max(sides.width >> level, 1U), std::max(sides.height >> level, 1U)});
    }
    static_cast<void>(file.slice(LoadableFile::blocksAt, bytes));
    return file.slice(LoadableFile::blocksAt, bytesOfSides(sides));
}

/// Pixels of 24 or 32 bits, each channel where its mask says.
LoadableFile repaintPlain(const CheckedBytes& file, Sides sides) {
    const DdsHeader header = ddsHeaderOf(file.slice(0, sizeof header));
    const unsigned bits = header.bitsPerPixel;
    requireOneOf({24, 32}, bits, Refusal::KindNotSupported);
    std::array<ChannelMask, 4> masks;
    for (std::size_t i = 0; i < masks.size(); ++i) {
        const bool absent = i == 3 && (header.formatFlags & DdsHeader::WithAlpha) == 0;
        masks[i] = channelMask(absent ? 0 : header.masks[i], bits);
    }
    const std::size_t pixelBytes = bits / 8;
    Bytes pixels = firstLevel(file, sides, [&](Sides level) { return level.pixels() * pixelBytes; });
    PlainTarga picture{sides, masks[3].mask != 0};
    for (std::uint32_t y = 0; y < sides.height; ++y) {
        for (std::uint32_t x = 0; x < sides.width; ++x) {
            const auto pixel = static_cast<std::uint32_t>(littleEndian(pixels.first(pixelBytes)));
            picture.put(x, y,
                        {masks[2].valueIn(pixel, 0), masks[1].valueIn(pixel, 0), masks[0].valueIn(pixel, 0),
                         masks[3].valueIn(pixel, 255)});
            pixels = pixels.subspan(pixelBytes);
        }
    }
    return {FileKind::Tga, picture.take(), sides, std::nullopt};
}

/// DXT3: the colours of DXT5 behind four bits of alpha for each texel.
LoadableFile repaintDxt3(const CheckedBytes& file, Sides sides) {
    constexpr BlockFormat colours = BlockFormat::Dxt5;
    const Bytes blocks = firstLevel(
        file, sides, [](Sides level) { return bytesPerLevel(colours, level.width, level.height); });
    std::vector<std::byte> texels(static_cast<std::size_t>(sides.pixels()) * bytesPerTexel);
    decodeLevel(colours, blocks, sides.width, sides.height, texels);
    PlainTarga picture{sides, true};
    const std::size_t across = (sides.width + 3) / 4;
    for (std::uint32_t y = 0; y < sides.height; ++y) {
        for (std::uint32_t x = 0; x < sides.width; ++x) {
            const Bytes block = blocks.subspan((y / 4 * across + x / 4) * bytesPerBlock(colours));
            const std::uint64_t alpha = littleEndian(block.first<8>()) >> (4 * (y % 4 * 4 + x % 4)) & 15U;
            const Bytes texel =
                Bytes{texels}.subspan((std::size_t{y} * sides.width + x) * bytesPerTexel, bytesPerTexel);
            const auto channel = [&](std::size_t i) { return std::to_integer<std::uint8_t>(texel[i]); };
            picture.put(x, y, {channel(2), channel(1), channel(0), scaledToByte(alpha, 15)});
        }
    }
    return {FileKind::Tga, picture.take(), sides, std::nullopt};
}

/// Leaves nothing of the original header but the sides and the format: the library believes the rest too,
/// and writers differ in how they fill it.
void writePlainHeader(std::vector<std::byte>& file, std::uint32_t fourCC, Sides sides,
                      std::size_t levelBytes) {
    const DdsHeader header =
        ddsLevelHeader(sides.width, sides.height, static_cast<std::uint32_t>(levelBytes), fourCC);
    std::ranges::copy(bytesOf(header), file.begin());
}

} // namespace

LoadableFile makeLoadableDds(std::vector<std::byte> file) {
    const CheckedBytes bytes{file};
    const DdsHeader header = ddsHeaderOf(bytes.slice(0, sizeof header));
    checkHeader(header);
    const bool blocks = (header.formatFlags & DdsHeader::FourCCGiven) != 0;
    const bool plain = !blocks && (header.formatFlags & DdsHeader::Rgb) != 0;
    const bool dxt3 = blocks && header.fourCC == dxt3Code;
    const BlockFormat format = plain || dxt3 ? BlockFormat::Dxt5 : blockFormatOf(header);
    const Sides sides = checkedSides(header.width, header.height);
    if (plain) return repaintPlain(bytes, sides);
    if (dxt3) return repaintDxt3(bytes, sides);
    const auto bytesOfSides = [format](Sides level) {
        return bytesPerLevel(format, level.width, level.height);
    };
    const std::size_t levelBytes = firstLevel(bytes, sides, bytesOfSides).size();
    file.resize(LoadableFile::blocksAt + levelBytes);
    writePlainHeader(file, header.fourCC, sides, levelBytes);
    return {FileKind::Dds, std::move(file), sides, format};
}

} // namespace pelrath
