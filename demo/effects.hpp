#pragma once

#include "canvas.hpp"

namespace demo {

// Billowing things, soft at the edge (clouds.cpp).
void drawWhiteSmoke(Canvas& canvas);
void drawBlackSmoke(Canvas& canvas);
void drawDust(Canvas& canvas);
void drawFlakBurst(Canvas& canvas);
void drawCumulus(Canvas& canvas);
void drawCirrus(Canvas& canvas);
void drawFire(Canvas& canvas);
void drawExplosion(Canvas& canvas);
void drawSplash(Canvas& canvas);
void drawContrail(Canvas& canvas);

// Light, glass and marks left on surfaces (effects.cpp).
void drawCanopyGlass(Canvas& canvas);
void drawTracer(Canvas& canvas);
void drawSearchlight(Canvas& canvas);
void drawMuzzleFlash(Canvas& canvas);
void drawSunGlow(Canvas& canvas);
void drawShadowBlob(Canvas& canvas);
void drawAircraftShadow(Canvas& canvas);
void drawBulletHoles(Canvas& canvas);
void drawOilStain(Canvas& canvas);
void drawBombCrater(Canvas& canvas);
void drawReticle(Canvas& canvas);
void drawParachute(Canvas& canvas);
void drawRain(Canvas& canvas);

} // namespace demo
