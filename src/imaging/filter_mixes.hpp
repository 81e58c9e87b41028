#pragma once

#include "imaging/resample.hpp"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace pelrath {

/// Shares are counted in 1 / (1 << shareBits).
inline constexpr int shareBits = 14;

/// The source pixels, from `first` on, that one output pixel is mixed from, and their shares: whole numbers
/// that are 1 << shareBits in all, in pairs, of which the last one may be 0.
struct Mix {
    std::size_t first = 0;
    std::vector<std::int16_t> shares;

    [[nodiscard]] std::size_t end() const { return first + shares.size(); }
};

/// One for each of `to` output columns or rows, out of `from`; both at least 1. Any filter but nearest. Where
/// the sides are the same, each is the pixel itself.
[[nodiscard]] std::vector<Mix> mixesOf(std::uint32_t from, std::uint32_t to, ScaleFilter filter);

} // namespace pelrath
