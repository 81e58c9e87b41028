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

/// Fills `to` with the picture of `from` in other sides. Where a side shrinks, the filter is stretched by as
/// much, so that every pixel of `from` has its share; linear and bilinear are the triangle, and nearest takes
/// the pixel in the middle. Where there is alpha, colours count as much as they can be seen, and those of a
/// pixel that becomes clear all the same. Values are rounded and cut to 0..255. Fails with "Invalid procedure
/// call" unless both have the same 1 to 4 channels, sides of at least 1, and as many values as these say.
void resample(const Pixels& from, ScaleFilter filter, const Pixels& to);

} // namespace pelrath
