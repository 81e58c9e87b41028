#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

/// Arithmetic on the channels of two pixels at once, in narrow whole numbers.
namespace pelrath {

inline constexpr std::size_t lanes = 4; ///< for a pixel's channels; those that there are not hold anything

using Shorts = std::int16_t __attribute__((vector_size(4 * lanes)));
using Sums = std::int32_t __attribute__((vector_size(4 * lanes)));

[[nodiscard]] inline Shorts shortsAt(const std::int16_t* values) {
    Shorts shorts;
    std::memcpy(&shorts, values, sizeof shorts);
    return shorts;
}

/// Two numbers, in turns.
[[nodiscard]] inline Shorts pairOf(const std::int16_t* two) {
    std::int32_t both = 0;
    std::memcpy(&both, two, sizeof both);
    return reinterpret_cast<Shorts>(Sums{} + both);
}

[[nodiscard]] inline Shorts lowInterleaved(Shorts a, Shorts b) {
    return __builtin_shufflevector(a, b, 0, 8, 1, 9, 2, 10, 3, 11);
}
[[nodiscard]] inline Shorts highInterleaved(Shorts a, Shorts b) {
    return __builtin_shufflevector(a, b, 4, 12, 5, 13, 6, 14, 7, 15);
}

/// The bytes of two pixels, four of each: the first of both, the second of both.
[[nodiscard]] inline Shorts interleaved(const std::uint8_t* a, const std::uint8_t* b) {
    using Bytes16 = std::uint8_t __attribute__((vector_size(4 * lanes)));
    std::int32_t first = 0;
    std::int32_t second = 0;
    std::memcpy(&first, a, sizeof first);
    std::memcpy(&second, b, sizeof second);
    const auto one = reinterpret_cast<Bytes16>(Sums{first});
    const auto other = reinterpret_cast<Bytes16>(Sums{second});
    const Bytes16 both =
        __builtin_shufflevector(one, other, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
    return reinterpret_cast<Shorts>(
        __builtin_shufflevector(both, Bytes16{}, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23));
}

/// Of each two neighbours a[i] * b[i] + a[i + 1] * b[i + 1].
[[nodiscard]] inline Sums addedProducts(Shorts a, Shorts b) {
#ifdef __SSE2__
    return reinterpret_cast<Sums>(_mm_madd_epi16(reinterpret_cast<__m128i>(a), reinterpret_cast<__m128i>(b)));
#else
    Sums sums;
    for (std::size_t i = 0; i < lanes; ++i) {
        sums[i] = a[2 * i] * b[2 * i] + a[2 * i + 1] * b[2 * i + 1];
    }
    return sums;
#endif
}

/// The numbers of one after those of the other, the nearest ones that there is room for.
[[nodiscard]] inline Shorts packed(Sums a, Sums b) {
#ifdef __SSE2__
    return reinterpret_cast<Shorts>(
        _mm_packs_epi32(reinterpret_cast<__m128i>(a), reinterpret_cast<__m128i>(b)));
#else
    Shorts shorts;
    for (std::size_t i = 0; i < 2 * lanes; ++i) {
        shorts[i] = static_cast<std::int16_t>(std::clamp(i < lanes ? a[i] : b[i - lanes], -32768, 32767));
    }
    return shorts;
#endif
}

/// Puts eight numbers as bytes, cut to 0..255.
inline void putBytes(Shorts values, std::uint8_t* bytes) {
#ifdef __SSE2__
    const auto whole = reinterpret_cast<__m128i>(values);
    _mm_storel_epi64(reinterpret_cast<__m128i*>(bytes), _mm_packus_epi16(whole, whole));
#else
    for (std::size_t i = 0; i < 2 * lanes; ++i) {
        bytes[i] = static_cast<std::uint8_t>(std::clamp<std::int16_t>(values[i], 0, 255));
    }
#endif
}

/// Pairs of bytes, of which the last of 2 or 4 channels is alpha: colours times alpha, and alpha, with 255
/// as 64 times 255.
[[nodiscard]] inline Shorts multipliedByAlpha(Shorts pair, std::size_t channels) {
    using Unsigned = std::uint16_t __attribute__((vector_size(4 * lanes)));
    const auto channelsOf = reinterpret_cast<Sums>(pair);
    constexpr std::int32_t opaque = 255 << 16 | 255;
    Sums factors = Sums{} + channelsOf[channels - 1];
    factors[channels - 1] = opaque;
    const auto products = reinterpret_cast<Unsigned>(pair) * reinterpret_cast<Unsigned>(factors);
    return reinterpret_cast<Shorts>((products + (products >> 8)) >> 2);
}

} // namespace pelrath
