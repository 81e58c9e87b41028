#pragma once

#include "canvas.hpp"

namespace demo {

enum class Skin { Temperate, Desert, BareMetal, Splinter, Mottled, Winter, Naval, Night, Trainer };

void drawSkinSheet(Canvas& canvas, Skin skin);     // every piece of the airframe on one square sheet
void drawFuselageSheet(Canvas& canvas, Skin skin); // for a canvas four times as wide as high
void drawWingSheet(Canvas& canvas, Skin skin, bool upper);

} // namespace demo
