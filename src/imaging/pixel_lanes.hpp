#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <immintrin.h>
#endif

/// Arithmetic on the channels of two pixels at once, in narrow whole numbers, or on two such pairs where the
/// processor has registers that are as wide. The wide ones keep the pairs apart: each half of a result comes
/// from the halves of what went in.
namespace pelrath {

inline constexpr std::size_t lanes = 4; ///< for a pixel's channels; those that there are not hold anything

using Shorts = std::int16_t __attribute__((vector_size(4 * lanes)));
using Sums = std::int32_t __attribute__((vector_size(4 * lanes)));

struct NarrowRegisters {
    using Values = Shorts;
    using Totals = Sums;
};

template <typename Values>
[[nodiscard, gnu::always_inline]] inline Values valuesAt(const std::int16_t* from) {
    Values values;
    std::memcpy(&values, from, sizeof values);
    return values;
}

/// Two numbers, in turns.
template <typename Registers>
[[nodiscard, gnu::always_inline]] inline typename Registers::Values pairOf(const std::int16_t* two) {
    std::int32_t both = 0;
    std::memcpy(&both, two, sizeof both);
    return reinterpret_cast<typename Registers::Values>(typename Registers::Totals{} + both);
}

/// The halves of two, number by number in turns.
inline void interleave(const Shorts& a, const Shorts& b, Shorts& low, Shorts& high) {
    low = __builtin_shufflevector(a, b, 0, 8, 1, 9, 2, 10, 3, 11);
    high = __builtin_shufflevector(a, b, 4, 12, 5, 13, 6, 14, 7, 15);
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

/// To each sum a[i] * b[i] + a[i + 1] * b[i + 1] of two neighbours.
inline void addProducts(Sums& sums, const Shorts& a, const Shorts& b) {
#ifdef __SSE2__
    sums +=
        reinterpret_cast<Sums>(_mm_madd_epi16(reinterpret_cast<__m128i>(a), reinterpret_cast<__m128i>(b)));
#else
    for (std::size_t i = 0; i < lanes; ++i) {
        sums[i] += a[2 * i] * b[2 * i] + a[2 * i + 1] * b[2 * i + 1];
    }
#endif
}

/// The numbers of one after those of the other, the nearest ones that there is room for.
inline void pack(const Sums& a, const Sums& b, Shorts& packed) {
#ifdef __SSE2__
    packed =
        reinterpret_cast<Shorts>(_mm_packs_epi32(reinterpret_cast<__m128i>(a), reinterpret_cast<__m128i>(b)));
#else
    for (std::size_t i = 0; i < 2 * lanes; ++i) {
        packed[i] = static_cast<std::int16_t>(std::clamp(i < lanes ? a[i] : b[i - lanes], -32768, 32767));
    }
#endif
}

/// The same as bytes, cut to 0..255.
[[nodiscard]] inline std::uint64_t packedBytes(Shorts values) {
    std::uint64_t bytes = 0;
#ifdef __SSE2__
    const auto whole = reinterpret_cast<__m128i>(values);
    _mm_storel_epi64(reinterpret_cast<__m128i*>(&bytes), _mm_packus_epi16(whole, whole));
#else
    for (std::size_t i = 0; i < 2 * lanes; ++i) {
        bytes |= std::uint64_t{static_cast<std::uint8_t>(std::clamp<std::int16_t>(values[i], 0, 255))}
                 << 8 * i;
    }
#endif
    return bytes;
}

#ifdef __SSE2__
using WideShorts = std::int16_t __attribute__((vector_size(8 * lanes)));
using WideSums = std::int32_t __attribute__((vector_size(8 * lanes)));
struct WideRegisters {
    using Values = WideShorts;
    using Totals = WideSums;
};

// Wide ones are passed in another way where a function does not know that there are registers for them: only
// references to them are handed over, or nothing is called.
[[gnu::target("avx2")]] inline void interleave(const WideShorts& a, const WideShorts& b, WideShorts& low,
                                               WideShorts& high) {
    low = reinterpret_cast<WideShorts>(
        _mm256_unpacklo_epi16(reinterpret_cast<__m256i>(a), reinterpret_cast<__m256i>(b)));
    high = reinterpret_cast<WideShorts>(
        _mm256_unpackhi_epi16(reinterpret_cast<__m256i>(a), reinterpret_cast<__m256i>(b)));
}
[[gnu::target("avx2")]] inline void addProducts(WideSums& sums, const WideShorts& a, const WideShorts& b) {
    sums += reinterpret_cast<WideSums>(
        _mm256_madd_epi16(reinterpret_cast<__m256i>(a), reinterpret_cast<__m256i>(b)));
}
[[gnu::target("avx2")]] inline void pack(const WideSums& a, const WideSums& b, WideShorts& packed) {
    packed = reinterpret_cast<WideShorts>(
        _mm256_packs_epi32(reinterpret_cast<__m256i>(a), reinterpret_cast<__m256i>(b)));
}
#endif

/// Pairs of bytes, of which the last of 2 or 4 channels is alpha: colours times alpha, and alpha, with 255
/// as 64 times 255.
template <std::size_t channels>
[[nodiscard]] Shorts multipliedByAlpha(Shorts pair) {
    using Unsigned = std::uint16_t __attribute__((vector_size(4 * lanes)));
    constexpr int alpha = 2 * (channels - 1);
    const Shorts opaque = Shorts{} + 255;
    const auto factors = reinterpret_cast<Unsigned>(
        channels == 2 ? __builtin_shufflevector(pair, opaque, alpha, alpha + 1, 8, 9, 8, 9, 8, 9)
                      : __builtin_shufflevector(pair, opaque, alpha, alpha + 1, alpha, alpha + 1, alpha,
                                                alpha + 1, 8, 9));
    const auto products = reinterpret_cast<Unsigned>(pair) * factors;
    return reinterpret_cast<Shorts>((products + (products >> 8)) >> 2);
}

} // namespace pelrath
