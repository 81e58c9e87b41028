#pragma once

#include "canvas.hpp"

#include <vector>

namespace pelrath::demo {

/// Paints one texture. What follows is such a painter, or makes one.
using Painter = std::function<void(Canvas&)>;
using Paint = void(Canvas&);
Paint rivetedMetal, radialEngine, propellerDisc, horizon, instrumentPanel, farmland, houseFront,
    warningStripes, chainLink, sunGlow, colorCard, cutOutCard, oddFrame, alphaRamp, chequer, corners;

/// How an aircraft looks.
struct Livery {
    enum Pattern { Plain, Bands, Splinter, Whitewash, Metal } pattern;
    enum Mark { Rings, Diamond, Star, Halves } mark;
    unsigned dark, light, below;
    unsigned outer, inner; ///< of the mark
    const char* code;
    unsigned letters, trim;
    double wear; ///< from 0 to 1
};
Painter skinSheet(const Livery& livery);

/// A round instrument. Numbers stand from `from`, clockwise, over `sweep` degrees.
struct Dial {
    const char* title;
    const char* numbers; ///< with blanks between
    double from, sweep;
    int between;                 ///< small marks between two numbers
    double hand, second;         ///< where the hands point, as parts of the sweep; below 0: no such hand
    double green = -1, red = -1; ///< where the green and the red arc begin; each ends where the next begins
};
extern const Dial altimeter, airspeed, clockDial, manifold, oil, climb, fuel;
Painter dial(const Dial& kind);

/// Ground that repeats at its edges, in three colours from the hollows to the heights.
struct Ground {
    unsigned low, middle, high;
    double size;        ///< of the largest patches
    int stretch = 1;    ///< how much wider than high they are
    double rows = 0;    ///< furrows
    int cells = 0;      ///< stones or tree tops, so many in a row
    double soft = 0.15; ///< how far a cell's edge reaches into it
    double bend = 0;    ///< how much the patches wind
};
Painter ground(const Ground& kind);

/// A broad tree; without leaves it is bare.
struct Growth {
    unsigned leaf;
    int leaves;    ///< at the end of each twig
    double spread; ///< of the branches, in degrees
    unsigned seed;
};
Painter tree(const Growth& kind);

/// Bricks, tiles or planks in courses.
struct Courses {
    unsigned joint, low, high; ///< the joints' colour, and between which colours the pieces' lie
    double width, height, gap;
    double round = 0; ///< how far a piece hangs over the next course, as a part of its height
};
Painter courses(const Courses& kind);

/// Smoke, fire and clouds: a heap lit from above, or from within.
struct Puffs {
    unsigned shade, light, seed;
    double density = 1;
    unsigned core = 0; ///< what glows inside, 0 for nothing
    double base = 1;   ///< where it ends below, as a part of the height, 0 in the middle
};
Painter puffs(const Puffs& kind);

struct Texture {
    const char* name; ///< as it stands in an archive, Windows-1252
    int width, height;
    const char* type; ///< DXT1, DXT5 or ARGB, which holds the texels as they are
    int levels;       ///< 0: down to one texel
    Painter paint;
    unsigned ground = 0; ///< the colour of clear texels, and below all that can be seen through
};

/// In the order of the archives.
const std::vector<Texture>& catalogue();

} // namespace pelrath::demo
