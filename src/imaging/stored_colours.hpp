#pragma once

#include "imaging/colour_fit.hpp"

namespace pelrath {

/// Moves the end points by steps, one channel after another, to where they leave a smaller error.
void polishColours(const ColourBatch& batch, ColourCodings& codings);

/// Codings as they are stored: end points of 5, 6 and 5 bits in the order that says which palette it is, and
/// two bits for each texel, the first one's lowest.
struct StoredColours {
    LaneInts first;
    LaneInts second;
    LaneInts choices;
};

/// With the nearest entry for each texel.
[[nodiscard]] StoredColours storedColours(const ColourBatch& batch, const ColourCodings& codings);

} // namespace pelrath
