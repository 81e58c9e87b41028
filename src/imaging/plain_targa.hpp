#pragma once

#include "imaging/refusal.hpp"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace pelrath {

/// One pixel in the order of the plain file's bytes.
struct Bgra {
    std::uint8_t blue = 0;
    std::uint8_t green = 0;
    std::uint8_t red = 0;
    std::uint8_t alpha = 255;
};

/// A channel that runs from 0 to `highest` on the scale 0 to 255, rounded.
[[nodiscard]] constexpr std::uint8_t scaledToByte(std::uint64_t value, std::uint64_t highest) {
    return static_cast<std::uint8_t>(highest == 255 ? value : (value * 255 + highest / 2) / highest);
}

/// The one form into which every picture that the library cannot read is brought: an uncompressed TGA file
/// of 24 bits, or of 32 where there is alpha, with the top row first.
class PlainTarga {
public:
    PlainTarga(Sides sides, bool hasAlpha);

    [[nodiscard]] const Sides& sides() const { return sides_; }

    /// `x` from the left and `y` from the top, both inside the sides.
    void put(std::uint32_t x, std::uint32_t y, Bgra pixel) {
        std::byte* at = bytes_.data() + headerBytes + (std::size_t{y} * sides_.width + x) * channels_;
        at[0] = std::byte{pixel.blue};
        at[1] = std::byte{pixel.green};
        at[2] = std::byte{pixel.red};
        if (channels_ == 4) at[3] = std::byte{pixel.alpha};
    }

    /// The whole file; nothing is left here.
    [[nodiscard]] std::vector<std::byte> take() { return std::move(bytes_); }

private:
    static constexpr std::size_t headerBytes = 18;

    Sides sides_;
    std::size_t channels_;
    std::vector<std::byte> bytes_;
};

} // namespace pelrath
