#include "imaging/channel_mask.hpp"

#include "imaging/plain_targa.hpp"
#include "imaging/refusal.hpp"

#include <bit>

namespace pelrath {

ChannelMask channelMask(std::uint32_t mask, unsigned bits) {
    if (mask == 0) return {};
    const auto shift = static_cast<unsigned>(std::countr_zero(mask));
    const std::uint32_t run = mask >> shift;
    const bool contiguous = (run & (run + 1)) == 0;
    if (!contiguous || (bits < 32 && mask >> bits != 0)) refuse(Refusal::ImpossibleValue);
    return {mask, shift};
}

std::uint8_t ChannelMask::valueIn(std::uint32_t pixel, std::uint8_t absent) const {
    if (mask == 0) return absent;
    return scaledToByte((pixel & mask) >> shift, mask >> shift);
}

} // namespace pelrath
