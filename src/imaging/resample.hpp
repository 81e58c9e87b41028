#pragma once

#include "imaging/bound_pixels.hpp"

#include <cstdint>

namespace pelrath {

/// In the order of the dialog's list.
enum class ScaleFilter : std::uint8_t {
    Nearest,
    Linear,
    Bilinear,
    Box,
    Triangle,
    Bell,
    BSpline,
    Lanczos,
    Mitchell
};

/// What the colours of a pixel weigh: all the same, or as much as they can be seen. Then those of a pixel
/// that becomes clear are 0.
enum class ColourUnderAlpha : std::uint8_t { Counts, AsSeen };

/// Fills `to` with the picture of `from` in other sides. Where a side shrinks, the filter is stretched by as
/// much, so that every pixel of `from` has its share; where it grows, the filter runs over the pixels of
/// `from`; a side that keeps its length is not filtered. Linear and bilinear are the triangle, the box is the
/// part of `from` that an output pixel covers, and nearest takes the pixel in the middle. Values are rounded
/// and cut to 0..255. Uses all cores. Fails with "Invalid procedure call" unless both have the same 1 to 4
/// channels, sides of at least 1, and as many values as these say.
void resample(const Pixels& from, ScaleFilter filter, const Pixels& to,
              ColourUnderAlpha colours = ColourUnderAlpha::Counts);

} // namespace pelrath
