#pragma once

#include "canvas.hpp"

namespace demo {

// All of these draw over a transparent ground.
void drawTree(Canvas& canvas);
void drawAutumnTree(Canvas& canvas);
void drawPine(Canvas& canvas);
void drawPalm(Canvas& canvas);
void drawBareTree(Canvas& canvas);
void drawBush(Canvas& canvas);
void drawGrassTuft(Canvas& canvas);
void drawReeds(Canvas& canvas);
void drawIvy(Canvas& canvas);

} // namespace demo
