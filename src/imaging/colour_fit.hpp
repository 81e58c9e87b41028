#pragma once

#include "imaging/lanes.hpp"

namespace pelrath {

/// A colour of each of eight blocks: red, green and blue from 0 to 255.
using LaneColour = std::array<Lanes, 3>;

/// The colours of eight blocks. A texel that does not count, because it is clear or beyond the level's edge,
/// weighs 0 instead of 1 and has the colour of one that does.
struct ColourBatch {
    std::array<LaneColour, 16> texels;
    std::array<Lanes, 16> weights;
};

/// Codings of eight blocks' colours, and the squared error that each leaves of the colours that count.
struct ColourCodings {
    LaneInts four;    ///< true where the palette has two colours between the end points, false: one
    LaneColour first; ///< an end point in the steps that are stored: 0 to 31, 63 and 31
    LaneColour second;
    Lanes error;
};

/// The same as they are stored: end points of 5, 6 and 5 bits in the order that says which palette it is, and
/// two bits for each texel, the first one's lowest.
struct StoredColours {
    LaneInts first;
    LaneInts second;
    LaneInts choices;
};

/// How many colours a palette has, its end points among them. The fourth entry of one of three is clear, and
/// is never chosen here.
enum class PaletteKind { Four, Three };

/// Finds good codings: the end points are fitted to the texels nearest to each entry of the palette.
[[nodiscard]] ColourCodings fitColours(const ColourBatch& batch, PaletteKind kind);

/// Moves the end points by steps, one channel after another, to where they leave a smaller error.
void polishColours(const ColourBatch& batch, ColourCodings& codings);

/// With the nearest entry for each texel.
[[nodiscard]] StoredColours storedColours(const ColourBatch& batch, const ColourCodings& codings);

} // namespace pelrath
