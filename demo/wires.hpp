#pragma once

#include "canvas.hpp"

namespace demo {

// All of these draw over a transparent ground.
void drawChainLink(Canvas& canvas);
void drawBarbedWire(Canvas& canvas);
void drawAntennaWire(Canvas& canvas);
void drawLatticeMast(Canvas& canvas);
void drawCamouflageNet(Canvas& canvas);
void drawPropellerDisc(Canvas& canvas);
void drawPropellerBlade(Canvas& canvas);
void drawLadder(Canvas& canvas);

} // namespace demo
