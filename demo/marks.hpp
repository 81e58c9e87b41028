#pragma once

#include "pen.hpp"

namespace demo {

// Invented insignia.
enum class Insignia { Rings, Star, Diamond, Halves };

void drawInsignia(const Pen& pen, Vec2 centre, float radius, Insignia kind);

// Three upright bars in the colours of the insignia, for a fin.
void drawFinFlash(const Pen& pen, Vec2 lo, Vec2 hi, Insignia kind);

void drawSharkMouth(const Pen& pen); // about 0.2 long, the teeth opening towards x = 0
void drawEmblem(const Pen& pen);     // a winged lantern inside the unit disc

void panelLine(const Pen& pen, Vec2 a, Vec2 b, float strength = 1.0F);
void panelLines(const Pen& pen, std::span<const Vec2> points, float strength = 1.0F);
void rivetRow(const Pen& pen, Vec2 a, Vec2 b, float spacing, float strength = 1.0F);
// A panel with a fastener in each corner.
void hatch(const Pen& pen, Vec2 lo, Vec2 hi);

} // namespace demo
