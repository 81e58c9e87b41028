#pragma once

#include "canvas.hpp"

namespace demo {

// Ground seen from above; all of these repeat without a seam (terrain.cpp).
void drawGrass(Canvas& canvas);
void drawMeadow(Canvas& canvas);
void drawPloughedField(Canvas& canvas);
void drawWheatField(Canvas& canvas);
void drawForest(Canvas& canvas);
void drawWater(Canvas& canvas);
void drawShallows(Canvas& canvas);
void drawSand(Canvas& canvas);
void drawRock(Canvas& canvas);
void drawSnow(Canvas& canvas);
void drawMud(Canvas& canvas);

// What people made of it (works.cpp).
void drawFarmland(Canvas& canvas);
void drawCityBlock(Canvas& canvas);
void drawVillage(Canvas& canvas);
void drawRoad(Canvas& canvas);
void drawRunway(Canvas& canvas);
void drawRunwayNumbers(Canvas& canvas);
void drawRailway(Canvas& canvas);
void drawPerforatedPlanks(Canvas& canvas);
void drawOrchard(Canvas& canvas);

} // namespace demo
