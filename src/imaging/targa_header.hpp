#pragma once

#include "imaging/checked_bytes.hpp"
#include "imaging/refusal.hpp"

#include <cstddef>
#include <cstdint>

/// Offsets and codes are those of the Truevision TGA format, version 2.0.
namespace pelrath {

enum class PixelKind { Palette = 1, TrueColour = 2, Grey = 3 };

/// What a file says of the alpha in its pixels.
enum class AlphaClaim { NotMade, None, Straight, Premultiplied };

/// How one pixel, or one entry of the palette, is stored.
struct PixelForm {
    unsigned bits = 0;
    bool grey = false;

    /// The last byte may be alpha.
    [[nodiscard]] bool hasAlphaByte() const { return bits == 32 || (bits == 16 && grey); }
    /// The highest bit may be alpha.
    [[nodiscard]] bool hasAlphaBit() const { return bits == 16 && !grey; }
    [[nodiscard]] std::size_t bytes() const { return (bits + 7) / 8; }
};

/// What a TGA file's header, extension area and footer say, once it has been found possible.
struct TargaHeader {
    PixelKind kind = PixelKind::TrueColour;
    bool runs = false;
    PixelForm stored;  ///< of the picture data
    PixelForm colours; ///< of what is shown: the palette's form in a palette picture
    Sides sides;
    bool fromRight = false;
    bool fromTop = false;
    unsigned firstIndex = 0; ///< the index of the palette's first entry
    Bytes palette;
    std::uint64_t dataAt = 0;
    AlphaClaim alphaClaim = AlphaClaim::NotMade;
};

/// Raises ImageLibraryError when the header is impossible or of a kind that is not read.
[[nodiscard]] TargaHeader readTargaHeader(const CheckedBytes& file);

} // namespace pelrath
