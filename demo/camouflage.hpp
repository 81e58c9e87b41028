#pragma once

#include "color.hpp"
#include "noise.hpp"

namespace demo {

enum class Pattern {
    Plain,
    Bands,     // two colours with wavy edges
    Splinter,  // two colours in straight-edged shards
    Mottle,    // soft blotches over a plain ground
    Whitewash, // worn white over two colours
    Metal,     // bare sheets, each with its own brightness
};

struct PaintScheme {
    Pattern pattern = Pattern::Plain;
    Color ground;
    Color second;
    Color underside;
    std::uint32_t seed = 1;
};

// The paint at p; one unit is the length of the airframe.
Color upperPaint(const PaintScheme& scheme, Vec2 p);
Color lowerPaint(const PaintScheme& scheme, Vec2 p);

// Upper paint above y = edge, the underside below it, with the edge the scheme would have.
Color sidePaint(const PaintScheme& scheme, Vec2 p, float edge);

} // namespace demo
