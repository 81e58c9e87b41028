#pragma once

#include "imaging/block_decoder.hpp"

#include <array>
#include <cstdint>
#include <optional>
#include <span>

/// Codings that lose nothing, for blocks that come out of a decoder: whatever was decoded once is compressed
/// without a further loss.
namespace pelrath {

/// The end points of a block's colours, as they are stored.
struct ColourEnds {
    std::uint16_t first;
    std::uint16_t second;
};

/// End points whose palette has all of these colours, which differ, and of which there are two to four. With
/// `four` the palette has two colours between the end points, which are in falling order then, else one, and
/// they are in rising order.
[[nodiscard]] std::optional<ColourEnds> exactEnds(std::span<const Texel> colours, bool four);

/// The end points that come nearest to one colour; `error` is the squared distance. It is the third entry,
/// and may be others.
struct NearestEnds {
    ColourEnds ends;
    unsigned error;
};
[[nodiscard]] NearestEnds nearestEnds(const Texel& colour, bool four);

/// The lowest 16 bits of a DXT5 block's alphas whose eight entries have all of these values, which rise and
/// of which there are one to sixteen.
[[nodiscard]] std::optional<std::uint16_t> exactAlphaEnds(std::span<const std::uint8_t> values);

} // namespace pelrath
