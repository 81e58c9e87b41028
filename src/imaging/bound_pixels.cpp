#include "imaging/bound_pixels.hpp"

#include <IL/il.h>

namespace pelrath {

Pixels boundPixels(const LibraryFunctions& library) {
    const auto number = [&](ILenum mode) { return library.ilGetInteger(mode); };
    Pixels pixels{
        .sides = {static_cast<std::uint32_t>(number(IL_IMAGE_WIDTH)),
                  static_cast<std::uint32_t>(number(IL_IMAGE_HEIGHT))},
        .format = number(IL_IMAGE_FORMAT),
        .channels = static_cast<std::size_t>(number(IL_IMAGE_CHANNELS)),
        .fromTop = number(IL_IMAGE_ORIGIN) == IL_ORIGIN_UPPER_LEFT,
        .values = {},
    };
    const bool bytes = number(IL_IMAGE_TYPE) == IL_UNSIGNED_BYTE && pixels.format != IL_COLOUR_INDEX;
    ILubyte* const data = library.ilGetData();
    if (bytes && data != nullptr) {
        pixels.values = {data, static_cast<std::size_t>(pixels.sides.pixels()) * pixels.channels};
    }
    return pixels;
}

AlphaUse alphaUseOf(const Pixels& pixels) {
    constexpr std::uint8_t opaque = 255;
    AlphaUse use;
    use.channel = pixels.channels == 2 || pixels.channels == 4;
    if (!use.channel) return use;
    for (std::size_t at = pixels.channels - 1; at < pixels.values.size(); at += pixels.channels) {
        if (pixels.values[at] == 0) ++use.clear;
        if (pixels.values[at] != 0 && pixels.values[at] != opaque) ++use.soft;
    }
    return use;
}

} // namespace pelrath
