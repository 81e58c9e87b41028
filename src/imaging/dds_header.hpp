#pragma once

#include "imaging/block_decoder.hpp"
#include "imaging/checked_bytes.hpp"

/// Offsets, sizes and flags are those of the published DDS file header: a 4-byte magic and a surface
/// description of 124 bytes with a pixel format of 32 bytes inside.
namespace pelrath {

inline constexpr std::size_t levelCountAt = 28;
inline constexpr std::size_t capabilitiesAt = 108;
inline constexpr std::uint32_t textureCapability = 0x1000;
inline constexpr std::uint32_t fourCCFlag = 4;

[[nodiscard]] constexpr std::uint32_t fourCC(char a, char b, char c, char d) {
    return static_cast<std::uint32_t>(a) | static_cast<std::uint32_t>(b) << 8 |
           static_cast<std::uint32_t>(c) << 16 | static_cast<std::uint32_t>(d) << 24;
}
inline constexpr std::uint32_t ddsMagic = fourCC('D', 'D', 'S', ' ');
inline constexpr std::uint32_t dxt1Code = fourCC('D', 'X', 'T', '1');
inline constexpr std::uint32_t dxt3Code = fourCC('D', 'X', 'T', '3');
inline constexpr std::uint32_t dxt5Code = fourCC('D', 'X', 'T', '5');

/// What the header's FourCC names. Raises ImageLibraryError for a header without one, and for any other
/// format.
[[nodiscard]] BlockFormat blockFormatOf(const CheckedBytes& file);

} // namespace pelrath
