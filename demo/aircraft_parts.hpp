#pragma once

#include "canvas.hpp"

namespace demo {

void drawTyre(Canvas& canvas);
void drawTyreTread(Canvas& canvas);
void drawRadiatorGrille(Canvas& canvas);
void drawEngineFront(Canvas& canvas); // cylinders of a radial engine
void drawExhaustStacks(Canvas& canvas);
void drawCowling(Canvas& canvas);
void drawRivetedMetal(Canvas& canvas);
void drawFabricRudder(Canvas& canvas); // for a canvas higher than wide
void drawDropTank(Canvas& canvas);
void drawBombSide(Canvas& canvas);
void drawDamagedPanel(Canvas& canvas); // the torn hole is transparent
void drawNoseArt(Canvas& canvas);      // over a transparent ground
void drawCodeLetters(Canvas& canvas);  // over a transparent ground

} // namespace demo
