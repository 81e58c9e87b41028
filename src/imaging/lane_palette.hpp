#pragma once

#include "imaging/block_decoder.hpp"
#include "imaging/colour_fit.hpp"

namespace pelrath {

// What decoders make of end points, for eight blocks at once. All of it is inlined: with and without
// registers of eight lanes, lanes are passed in different ways.

inline constexpr std::size_t colourChannels = 3;
/// The largest steps of a stored end point's channels.
inline constexpr std::array<float, colourChannels> lastSteps{31, 63, 31};

[[nodiscard]] inline Lanes dot(const LaneColour& a, const LaneColour& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
[[nodiscard]] inline LaneColour between(const LaneColour& from, const LaneColour& to) {
    return {to[0] - from[0], to[1] - from[1], to[2] - from[2]};
}

/// In the steps that are stored.
struct Ends {
    LaneColour first;
    LaneColour second;
};

/// A step as one of the 256 values of a channel.
[[nodiscard]] inline Lanes widened(Lanes step, std::size_t channel) {
    return channel == 1 ? step * 4 + cut(step * (1 / 16.0F)) : step * 8 + cut(step * (1 / 4.0F));
}

using LanePalette = std::array<LaneColour, 4>;

/// One channel of the four entries. The fourth of a palette of three is left as the third.
[[nodiscard]] inline std::array<Lanes, 4> entriesBetween(Lanes first, Lanes second, LaneInts four,
                                                         std::size_t channel) {
    const Lanes a = widened(first, channel), b = widened(second, channel);
    const Lanes half = cut((a + b) * 0.5F);
    return {a, b, choose(four, cut((2 * a + b + 0.5F) * (1 / 3.0F)), half),
            choose(four, cut((a + 2 * b + 0.5F) * (1 / 3.0F)), half)};
}

[[nodiscard]] inline LanePalette lanePaletteOf(const Ends& ends, LaneInts four) {
    LanePalette palette;
    for (std::size_t c = 0; c < colourChannels; ++c) {
        const std::array<Lanes, 4> entries = entriesBetween(ends.first[c], ends.second[c], four, c);
        for (std::size_t i = 0; i < entries.size(); ++i) {
            palette[i][c] = entries[i];
        }
    }
    return palette;
}

} // namespace pelrath
