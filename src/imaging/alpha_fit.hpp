#pragma once

#include "imaging/lanes.hpp"

namespace pelrath {

/// The alphas of eight blocks, from 0 to 255. A texel beyond the level's edge weighs 0 instead of 1.
struct AlphaBatch {
    std::array<Lanes, 16> values;
    std::array<Lanes, 16> weights;
};

/// Codings of eight blocks' alphas, and the squared error that each leaves.
struct AlphaCodings {
    LaneInts
        eight; ///< true where eight values lie from `low` to `high`; false: six, with 0 and 255 beside them
    Lanes low; ///< 0 to 255
    Lanes high;
    Lanes error;
};

/// Finds codings near the best possible ones.
[[nodiscard]] AlphaCodings fitAlphas(const AlphaBatch& batch);

} // namespace pelrath
