#pragma once

#include "platform/posix/files.hpp"

#include <array>
#include <bit>
#include <cstdint>
#include <span>

namespace pelrath {

/// The magic and the surface description with which a DDS file begins, in file order, as Microsoft's DDS
/// programming guide gives them.
struct DdsHeader {
    std::uint32_t magic, size, flags, height, width, linearSize, depth, mipmapCount;
    std::array<std::uint32_t, 11> reserved;
    std::uint32_t formatSize, formatFlags, fourCC, bitsPerPixel;
    std::array<std::uint32_t, 4> masks; ///< red, green, blue, alpha
    std::array<std::uint32_t, 4> capabilities;
    std::uint32_t reserved2;

    /// Values of these fields that mean something here.
    enum Flags : std::uint32_t { MipmapCountGiven = 0x20000, VolumeGiven = 0x800000 };
    enum FormatFlags : std::uint32_t { WithAlpha = 0x1, FourCCGiven = 0x4, Rgb = 0x40 };
    enum Capabilities : std::uint32_t { Complex = 0x8, Texture = 0x1000, Mipmap = 0x400000 };
    enum SecondCapabilities : std::uint32_t { CubeMap = 0x200, Volume = 0x200000 };
};
static_assert(sizeof(DdsHeader) == 128 && std::endian::native == std::endian::little);

/// Four characters as a header's number.
[[nodiscard]] constexpr std::uint32_t fourCC(char a, char b, char c, char d) {
    const auto byte = [](char character) { return std::uint32_t{static_cast<unsigned char>(character)}; };
    return byte(a) | byte(b) << 8 | byte(c) << 16 | byte(d) << 24;
}
inline constexpr std::uint32_t ddsMagic = fourCC('D', 'D', 'S', ' ');
inline constexpr std::uint32_t dxt1Code = fourCC('D', 'X', 'T', '1');
inline constexpr std::uint32_t dxt3Code = fourCC('D', 'X', 'T', '3');
inline constexpr std::uint32_t dxt5Code = fourCC('D', 'X', 'T', '5');

/// Of a file that holds one level in blocks and nothing else.
[[nodiscard]] DdsHeader ddsLevelHeader(std::uint32_t width, std::uint32_t height, std::uint32_t levelBytes,
                                       std::uint32_t fourCC);

/// What a file's bytes begin with; those that there are not count as 0.
[[nodiscard]] DdsHeader ddsHeaderOf(Bytes file);

/// The header as it stands in its file.
[[nodiscard]] inline Bytes bytesOf(const DdsHeader& header) { return std::as_bytes(std::span{&header, 1}); }

} // namespace pelrath
