#include "imaging/dds_header.hpp"
#include "imaging/loadable_file.hpp"

#include <algorithm>

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

void checkLevels(const CheckedBytes& file, BlockFormat format, Sides sides) {
    const bool counted = (file.longAt(8) & mipmapCountFlag) != 0;
    const std::uint32_t levels = counted ? std::max(file.longAt(levelCountAt), 1U) : 1;
    if (levels > mostLevels) refuse(Refusal::ImpossibleValue);
    static_cast<void>(
        file.slice(LoadableFile::blocksAt, bytesPerChain(format, sides.width, sides.height, levels)));
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
