#pragma once

#include "canvas.hpp"

namespace demo {

void drawInstrumentPanel(Canvas& canvas);
void drawSwitchPanel(Canvas& canvas);
void drawPlacard(Canvas& canvas);
void drawMap(Canvas& canvas);
void drawSeatHarness(Canvas& canvas);
void drawThrottleQuadrant(Canvas& canvas);

} // namespace demo
