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

/// Which palettes a block may have: of four colours, of three with the fourth entry clear and never chosen
/// here, or for each block the one that comes nearer.
enum class Palettes { Four, Three, Either };

/// Finds good codings: the end points are fitted to the texels nearest to each entry of the palette.
[[nodiscard]] ColourCodings fitColours(const ColourBatch& batch, Palettes palettes);

} // namespace pelrath
