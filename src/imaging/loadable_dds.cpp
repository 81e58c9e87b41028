#include "imaging/checked_bytes.hpp"
#include "imaging/loadable_file.hpp"

#include <algorithm>

/// Offsets, sizes and flags are those of the published DDS file header: a 4-byte magic and a surface
/// description of 124 bytes with a pixel format of 32 bytes inside.
namespace pelrath {

namespace {

constexpr std::uint32_t fourCC(char a, char b, char c, char d) {
    return static_cast<std::uint32_t>(a) | static_cast<std::uint32_t>(b) << 8 |
           static_cast<std::uint32_t>(c) << 16 | static_cast<std::uint32_t>(d) << 24;
}

constexpr std::uint32_t mipmapCountFlag = 0x20000;
constexpr std::uint32_t volumeFlag = 0x800000;
constexpr std::uint32_t fourCCFlag = 4;
constexpr std::uint32_t cubeMapOrVolume = 0x200 | 0x200000;
constexpr std::uint32_t mostLevels = 15; // 16384 down to 1

BlockFormat blockFormatOf(const CheckedBytes& file) {
    if ((file.longAt(80) & fourCCFlag) == 0) refuse(Refusal::KindNotSupported);
    switch (file.longAt(84)) {
    case fourCC('D', 'X', 'T', '1'):
        return BlockFormat::Dxt1;
    case fourCC('D', 'X', 'T', '5'):
        return BlockFormat::Dxt5;
    default:
        refuse(Refusal::KindNotSupported);
    }
}

void checkHeader(const CheckedBytes& file) {
    if (file.size() < 4 || file.longAt(0) != fourCC('D', 'D', 'S', ' ')) refuse(Refusal::NotThisKind);
    if (file.longAt(4) != 124 || file.longAt(76) != 32) refuse(Refusal::NotThisKind);
    const bool volume = (file.longAt(8) & volumeFlag) != 0 && file.longAt(24) > 1;
    if (volume || (file.longAt(112) & cubeMapOrVolume) != 0) refuse(Refusal::KindNotSupported);
}

void checkLevels(const CheckedBytes& file, BlockFormat format, Sides sides) {
    const bool counted = (file.longAt(8) & mipmapCountFlag) != 0;
    const std::uint32_t levels = counted ? std::max(file.longAt(28), 1U) : 1;
    if (levels > mostLevels) refuse(Refusal::ImpossibleValue);
    std::uint64_t needed = LoadableFile::blocksAt;
    for (std::uint32_t level = 0; level < levels; ++level) {
        needed +=
            bytesPerLevel(format, std::max(sides.width >> level, 1U), std::max(sides.height >> level, 1U));
    }
    if (needed > file.size()) refuse(Refusal::Truncated);
}

void put(std::vector<std::byte>& file, std::size_t offset, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) {
        file[offset + i] = static_cast<std::byte>(value >> (8 * i));
    }
}

/// Leaves nothing of the original header but the sides and the format: the library believes the rest too,
/// and writers differ in how they fill it.
void writePlainHeader(std::vector<std::byte>& file, BlockFormat format, Sides sides,
                      std::uint64_t levelBytes) {
    const std::uint32_t code =
        format == BlockFormat::Dxt1 ? fourCC('D', 'X', 'T', '1') : fourCC('D', 'X', 'T', '5');
    std::fill_n(file.begin() + 4, LoadableFile::blocksAt - 4, std::byte{0});
    put(file, 4, 124);
    put(file, 8, 0x00081007); // capabilities, sides, pixel format and linear size are given
    put(file, 12, sides.height);
    put(file, 16, sides.width);
    put(file, 20, static_cast<std::uint32_t>(levelBytes));
    put(file, 76, 32);
    put(file, 80, fourCCFlag);
    put(file, 84, code);
    put(file, 108, 0x1000); // texture
}

} // namespace

LoadableFile makeLoadableDds(std::vector<std::byte> file) {
    const CheckedBytes bytes{file};
    checkHeader(bytes);
    const BlockFormat format = blockFormatOf(bytes);
    const Sides sides = checkedSides(bytes.longAt(16), bytes.longAt(12));
    checkLevels(bytes, format, sides);
    const std::uint64_t levelBytes = bytesPerLevel(format, sides.width, sides.height);
    file.resize(LoadableFile::blocksAt + static_cast<std::size_t>(levelBytes));
    writePlainHeader(file, format, sides, levelBytes);
    return {FileKind::Dds, std::move(file), sides, format};
}

} // namespace pelrath
