#pragma once

#include "canvas.hpp"

namespace pelrath::demo {

/// Paints one texture. What follows makes such painters.
using Painter = std::function<void(Canvas&)>;

/// How an aircraft looks.
struct Livery {
    enum Pattern { Plain, Bands, Splinter, Mottle, Whitewash, Metal } pattern;
    enum Mark { Rings, Diamond, Star, Halves } mark;
    unsigned dark, light, below;
    unsigned outer, inner; ///< of the mark
    const char* code;
    unsigned letters, trim;
    double wear; ///< from 0 to 1
};
Painter skinSheet(const Livery& livery);
Painter fuselageSide(const Livery& livery);
Painter wingPair(const Livery& livery);
void rivetedMetal(Canvas& canvas);
void radialEngine(Canvas& canvas);
void wheel(Canvas& canvas);
void propellerDisc(Canvas& canvas);
void bulletHoles(Canvas& canvas);
void tornPanel(Canvas& canvas);
void emblem(Canvas& canvas);
void letterSheet(Canvas& canvas);
void dropTank(Canvas& canvas);
void shadow(Canvas& canvas);

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
void horizon(Canvas& canvas);
void compass(Canvas& canvas);
void instrumentPanel(Canvas& canvas);
void switchPanel(Canvas& canvas);
void placard(Canvas& canvas);
void needle(Canvas& canvas);
void reticle(Canvas& canvas);
void canopyGlass(Canvas& canvas);
void coastMap(Canvas& canvas);

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
void farmland(Canvas& canvas);
void cityBlocks(Canvas& canvas);
void runway(Canvas& canvas);
void railway(Canvas& canvas);

/// A broad tree; without leaves it is bare.
struct Growth {
    unsigned leaf;
    int leaves;    ///< at the end of each twig
    double spread; ///< of the branches, in degrees
    unsigned seed;
};
Painter tree(const Growth& kind);
void pine(Canvas& canvas);
void grassTuft(Canvas& canvas);

/// Bricks, tiles or planks in courses.
struct Courses {
    unsigned joint, low, high; ///< the joints' colour, and between which colours the pieces' lie
    double width, height, gap;
    double round = 0; ///< how far a piece hangs over the next course, as a part of its height
};
Painter courses(const Courses& kind);
void houseFront(Canvas& canvas);
void watchTower(Canvas& canvas);
void hangarDoors(Canvas& canvas);
void warningStripes(Canvas& canvas);
void chainLink(Canvas& canvas);
void ladder(Canvas& canvas);

/// Smoke, fire and clouds: a heap lit from above, or from within.
struct Puffs {
    unsigned shade, light, seed;
    double density = 1;
    unsigned core = 0; ///< what glows inside, 0 for nothing
    double base = 1;   ///< where it ends below, as a part of the height, 0 in the middle
};
Painter puffs(const Puffs& kind);
void cirrus(Canvas& canvas);
void sunGlow(Canvas& canvas);
void crater(Canvas& canvas);

void colorCard(Canvas& canvas);
void cutOutCard(Canvas& canvas);
void oddFrame(Canvas& canvas);
void alphaRamp(Canvas& canvas);
void chequer(Canvas& canvas);
void corners(Canvas& canvas);

} // namespace pelrath::demo
