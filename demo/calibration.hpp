#pragma once

#include "canvas.hpp"

namespace demo {

void drawColorCard(Canvas& canvas); // gradients, alpha steps, fine chequers and named corners
void drawGreyCard(Canvas& canvas);
void drawCutOutCard(Canvas& canvas); // shapes over a transparent ground
void drawAlphaRamp(Canvas& canvas);
void drawChequer(Canvas& canvas);     // texel by texel
void drawFourCorners(Canvas& canvas); // four steps from dark to light, one for each quarter
void drawRamp(Canvas& canvas);
void drawOnePixelFrame(Canvas& canvas);

} // namespace demo
