#pragma once

#include "imaging/library_functions.hpp"
#include "imaging/refusal.hpp"

#include <cstddef>
#include <cstdint>
#include <span>

namespace pelrath {

/// The pixels of a picture or a level: rows without padding.
struct Pixels {
    Sides sides;
    std::int32_t format = 0;  ///< the library's number
    std::size_t channels = 0; ///< bytes a pixel; the last one of 2 or 4 is alpha
    bool fromTop = false;     ///< the first row is the topmost
    std::span<std::uint8_t> values;
};

/// Those of the library's bound image, or of the level of it that is active. They are the library's, and
/// stay where they are until it changes the image. None where it keeps anything else than a byte for each
/// channel, or no channels at all.
[[nodiscard]] Pixels boundPixels(const LibraryFunctions& library);

/// What a picture does with its alpha channel.
struct AlphaUse {
    bool channel = false;    ///< there is one
    std::uint64_t clear = 0; ///< pixels with none of it
    std::uint64_t soft = 0;  ///< pixels with some
};

[[nodiscard]] AlphaUse alphaUseOf(const Pixels& pixels);

} // namespace pelrath
