#include "imaging/plain_targa.hpp"

namespace pelrath {

PlainTarga::PlainTarga(Sides sides, bool hasAlpha)
    : sides_(sides), channels_(hasAlpha ? 4 : 3),
      bytes_(headerBytes + static_cast<std::size_t>(sides.pixels()) * channels_) {
    constexpr std::byte trueColour{2};
    constexpr std::byte topRowFirst{0x20};
    constexpr std::byte eightAlphaBits{8};
    bytes_[2] = trueColour;
    bytes_[12] = std::byte(sides.width & 0xFFU);
    bytes_[13] = std::byte(sides.width >> 8);
    bytes_[14] = std::byte(sides.height & 0xFFU);
    bytes_[15] = std::byte(sides.height >> 8);
    bytes_[16] = std::byte(channels_ * 8);
    bytes_[17] = hasAlpha ? topRowFirst | eightAlphaBits : topRowFirst;
}

} // namespace pelrath
