#pragma once

#include "imaging/channel_mask.hpp"
#include "imaging/checked_bytes.hpp"
#include "imaging/plain_targa.hpp"
#include "imaging/refusal.hpp"

#include <array>
#include <cstdint>
#include <vector>

namespace pelrath {

enum class BitmapCoding { Plain, Rle8, Rle4 };

/// What a BMP file's header says, once it has been found possible. Sizes and codes are those of the Windows
/// bitmap headers (12, 40, 52, 56, 108 and 124 bytes) and of the OS/2 2.x one (64 bytes).
struct BitmapHeader {
    std::uint32_t headerBytes = 0;
    Sides sides;
    bool topRowFirst = false;
    unsigned bits = 0;
    BitmapCoding coding = BitmapCoding::Plain;
    bool hasMasks = false;
    std::array<ChannelMask, 4> masks; ///< red, green, blue, alpha; for 16 and 32 bits
    std::vector<Bgra> palette;        ///< for 1, 4 and 8 bits; never empty there
    std::uint64_t dataAt = 0;

    /// Bytes from one row to the next, and those of a row that hold pixels, in a file that is not run-length
    /// coded.
    [[nodiscard]] std::uint64_t rowStride() const {
        return (std::uint64_t{sides.width} * bits + 31) / 32 * 4;
    }
    [[nodiscard]] std::uint64_t rowBytes() const { return (std::uint64_t{sides.width} * bits + 7) / 8; }
};

/// Raises ImageLibraryError when the header is impossible or of a kind that is not read.
[[nodiscard]] BitmapHeader readBitmapHeader(const CheckedBytes& file);

} // namespace pelrath
