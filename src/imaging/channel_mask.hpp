#pragma once

#include <cstdint>

namespace pelrath {

/// A channel's place inside a 16- or 32-bit pixel: contiguous bits, or none.
struct ChannelMask {
    std::uint32_t mask = 0;
    unsigned shift = 0;

    /// The channel's value on the scale 0 to 255, rounded; `absent` where the mask has no bit.
    [[nodiscard]] std::uint8_t valueIn(std::uint32_t pixel, std::uint8_t absent) const;
};

/// Raises ImageLibraryError for a mask that is torn, or does not fit a pixel of so many bits.
[[nodiscard]] ChannelMask channelMask(std::uint32_t mask, unsigned bits);

} // namespace pelrath
