#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "canvas.hpp"

namespace demo {

// Draws anti-aliased shapes in its own coordinates: a shift, an even scale, a turn and perhaps a mirror away
// from the pixels of the canvas.
class Pen {
public:
    // Origin in the top left corner; one unit is the shorter side of the canvas.
    explicit Pen(Canvas& canvas);

    // A pen whose origin, unit and x axis lie at `origin`, `scale` and `degrees` of this one.
    Pen at(Vec2 origin, float scale = 1.0F, float degrees = 0.0F) const;
    Pen mirrored() const; // x grows to the left

    Canvas& canvas() const { return *canvas_; }
    float right() const { return real(canvas_->width()) / unit_; } // of a pen that was not moved
    float bottom() const { return real(canvas_->height()) / unit_; }
    float pixel() const { return 1.0F / unit_; }
    Vec2 toPixels(Vec2 p) const { return origin_ + axisX_ * p.x + axisY_ * p.y; }
    std::vector<Vec2> toPixels(std::span<const Vec2> points) const;
    Vec2 fromPixels(Vec2 p) const;

    void disc(Vec2 centre, float radius, Color color) const;
    void ring(Vec2 centre, float radius, float width, Color color) const;
    void arc(Vec2 centre, float radius, float width, float fromDegrees, float toDegrees, Color color) const;
    void line(Vec2 a, Vec2 b, float width, Color color) const;
    void taper(Vec2 a, Vec2 b, float widthA, float widthB, Color color) const;
    void polyline(std::span<const Vec2> points, float width, Color color) const;
    void polygon(std::span<const Vec2> points, Color color) const;
    void rect(Vec2 lo, Vec2 hi, Color color) const;
    void frame(Vec2 lo, Vec2 hi, float width, Color color) const;
    void star(Vec2 centre, float radius, float inner, int points, Color color) const;
    void ellipse(Vec2 centre, Vec2 radii, Color color) const;

    // Colour that fades from the centre to nothing at the radius.
    void glow(Vec2 centre, float radius, Color color) const;
    // A band that fades to nothing at its sides and, from a to b, along its length.
    void streak(Vec2 a, Vec2 b, float width, Color color) const;

private:
    template <class Coverage>
    void fill(Vec2 lo, Vec2 hi, Color color, Coverage coverage) const;

    Canvas* canvas_;
    Vec2 origin_;
    Vec2 axisX_;
    Vec2 axisY_;
    float unit_;
};

// Points on a smooth closed curve through `knots`; a knot given twice is a corner.
std::vector<Vec2> closedCurve(std::span<const Vec2> knots, int stepsPerKnot = 8);

enum class Align { Left, Centre };

// Capitals, digits and a little punctuation; `at` is on the middle height of the line.
void drawText(const Pen& pen, std::string_view text, Vec2 at, float height, Color color, float weight = 0.14F,
              Align align = Align::Centre);

} // namespace demo
