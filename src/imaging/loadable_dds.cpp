#include "imaging/channel_mask.hpp"
#include "imaging/dds_header.hpp"
#include "imaging/loadable_file.hpp"
#include "imaging/plain_targa.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace pelrath {

namespace {

constexpr std::uint32_t mipmapCountFlag = 0x20000;
constexpr std::uint32_t volumeFlag = 0x800000;
constexpr std::uint32_t cubeMapOrVolume = 0x200 | 0x200000;
constexpr std::uint32_t mostLevels = 15; // 16384 down to 1

void checkHeader(const CheckedBytes& file) {
    if (file.longAt(4) != 124 || file.longAt(76) != 32) refuse(Refusal::NotThisKind);
    const bool volume = (file.longAt(8) & volumeFlag) != 0 && file.longAt(24) > 1;
    if (volume || (file.longAt(capabilitiesAt + 4) & cubeMapOrVolume) != 0) refuse(Refusal::KindNotSupported);
}

/// Answers the bytes of level 0, which stand first, once those of all declared levels are found there;
/// `bytesOfSides` says how many one of these sides has.
template <typename BytesOfSides>
Bytes firstLevel(const CheckedBytes& file, Sides sides, BytesOfSides bytesOfSides) {
    const bool counted = (file.longAt(8) & mipmapCountFlag) != 0;
    const std::uint32_t levels = counted ? std::max(file.longAt(levelCountAt), 1U) : 1;
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
    constexpr std::uint32_t alphaFlag = 1;
    constexpr std::size_t masksAt = 92; // red, green, blue, alpha
    const unsigned bits = file.longAt(88);
    requireOneOf({24, 32}, bits, Refusal::KindNotSupported);
    std::array<ChannelMask, 4> masks;
    for (std::size_t i = 0; i < masks.size(); ++i) {
        const bool absent = i == 3 && (file.longAt(80) & alphaFlag) == 0;
        masks[i] = channelMask(absent ? 0 : file.longAt(masksAt + i * 4), bits);
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
void writePlainHeader(std::vector<std::byte>& file, BlockFormat format, Sides sides,
                      std::uint64_t levelBytes) {
    std::fill_n(file.begin() + 4, LoadableFile::blocksAt - 4, std::byte{0});
    writeLong(file, 4, 124);
    writeLong(file, 8, 0x00081007); // capabilities, sides, pixel format and linear size are given
    writeLong(file, 12, sides.height);
    writeLong(file, 16, sides.width);
    writeLong(file, 20, static_cast<std::uint32_t>(levelBytes));
    writeLong(file, 76, 32);
    writeLong(file, 80, fourCCFlag);
    writeLong(file, 84, format == BlockFormat::Dxt1 ? dxt1Code : dxt5Code);
    writeLong(file, capabilitiesAt, textureCapability);
}

} // namespace

LoadableFile makeLoadableDds(std::vector<std::byte> file) {
    constexpr std::uint32_t plainFlag = 0x40;
    const CheckedBytes bytes{file};
    checkHeader(bytes);
    const std::uint32_t flags = bytes.longAt(80);
    const bool blocks = (flags & fourCCFlag) != 0;
    const bool plain = !blocks && (flags & plainFlag) != 0;
    const bool dxt3 = blocks && bytes.longAt(84) == dxt3Code;
    const BlockFormat format = plain || dxt3 ? BlockFormat::Dxt5 : blockFormatOf(bytes);
    const Sides sides = checkedSides(bytes.longAt(16), bytes.longAt(12));
    if (plain) return repaintPlain(bytes, sides);
    if (dxt3) return repaintDxt3(bytes, sides);
    const std::size_t levelBytes = firstLevel(bytes, sides, [format](Sides level) {
                                       return bytesPerLevel(format, level.width, level.height);
                                   }).size();
    file.resize(LoadableFile::blocksAt + levelBytes);
    writePlainHeader(file, format, sides, levelBytes);
    return {FileKind::Dds, std::move(file), sides, format};
}

} // namespace pelrath
