#pragma once

#include "pen.hpp"

namespace demo {

enum class Instrument {
    Altimeter,
    Airspeed,
    Compass,
    Horizon,
    Clock,
    Manifold,
    Revolutions,
    OilTemperature,
    Fuel,
    TurnAndSlip,
    Climb
};

// The pen's origin is the middle of the dial and its unit the radius of the bezel.
void drawInstrument(const Pen& pen, Instrument instrument);

// One instrument filling a canvas.
void drawInstrument(Canvas& canvas, Instrument instrument);

// A needle on a transparent ground, pointing up the longer side.
void drawNeedle(Canvas& canvas);

// The turning card of a compass, seen flat.
void drawCompassStrip(Canvas& canvas);

} // namespace demo
