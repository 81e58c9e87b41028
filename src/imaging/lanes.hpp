#pragma once

#include "imaging/wide_registers.hpp"

#include <array>
#include <cstddef>
#include <cstdint>

/// Arithmetic on eight blocks side by side, one in each lane. Floats are never contracted, so that every
/// processor gets the same results.
namespace pelrath {

inline constexpr std::size_t laneCount = 8;

using Lanes = float __attribute__((vector_size(4 * laneCount)));
using LaneInts = std::int32_t __attribute__((vector_size(4 * laneCount)));

[[nodiscard]] inline Lanes lanes(float value) { return Lanes{} + value; }
[[nodiscard]] inline LaneInts laneInts(std::int32_t value) { return LaneInts{} + value; }

/// Lane by lane, `a` where the comparison's result `where` is true.
[[nodiscard]] inline Lanes choose(LaneInts where, Lanes a, Lanes b) { return where ? a : b; }
[[nodiscard]] inline LaneInts choose(LaneInts where, LaneInts a, LaneInts b) { return where ? a : b; }

[[nodiscard]] inline Lanes least(Lanes a, Lanes b) { return a < b ? a : b; }
[[nodiscard]] inline Lanes most(Lanes a, Lanes b) { return a > b ? a : b; }
[[nodiscard]] inline Lanes within(Lanes value, float low, float high) {
    return most(least(value, lanes(high)), lanes(low));
}

[[nodiscard]] inline LaneInts toInts(Lanes values) { return __builtin_convertvector(values, LaneInts); }
[[nodiscard]] inline Lanes toLanes(LaneInts values) { return __builtin_convertvector(values, Lanes); }
/// Without the fraction; of values from 0 on.
[[nodiscard]] inline Lanes cut(Lanes values) { return toLanes(toInts(values)); }

[[nodiscard]] inline bool anyOf(LaneInts marks) {
    std::int32_t any = 0;
    for (std::size_t lane = 0; lane < laneCount; ++lane) {
        any |= marks[lane];
    }
    return any != 0;
}

} // namespace pelrath
