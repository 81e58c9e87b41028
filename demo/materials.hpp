#pragma once

#include "canvas.hpp"

namespace demo {

// Surfaces of things built; most of them repeat (materials.cpp).
void drawBrick(Canvas& canvas);
void drawCorrugatedIron(Canvas& canvas);
void drawRoofTiles(Canvas& canvas);
void drawWoodPlanks(Canvas& canvas);
void drawConcrete(Canvas& canvas);
void drawTreadPlate(Canvas& canvas);
void drawLeather(Canvas& canvas);
void drawCanvasCloth(Canvas& canvas);
void drawSandbags(Canvas& canvas);
void drawStripes(Canvas& canvas);

// Whole objects and fronts (buildings.cpp).
void drawHangarDoors(Canvas& canvas);
void drawHouseFront(Canvas& canvas);
void drawControlTower(Canvas& canvas);
void drawAmmoCrate(Canvas& canvas);
void drawFuelDrum(Canvas& canvas);
void drawShipSide(Canvas& canvas);
void drawSignBoard(Canvas& canvas);
void drawTruckGrille(Canvas& canvas);

} // namespace demo
