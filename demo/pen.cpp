#include "pen.hpp"

#include <array>

namespace demo {

Pen::Pen(Canvas& canvas) : canvas_(&canvas), unit_(real(std::min(canvas.width(), canvas.height()))) {
    axisX_ = {unit_, 0.0F};
    axisY_ = {0.0F, unit_};
}

Pen Pen::at(Vec2 origin, float scale, float degrees) const {
    const float c = std::cos(radians(degrees)) * scale;
    const float s = std::sin(radians(degrees)) * scale;
    Pen moved = *this;
    moved.origin_ = toPixels(origin);
    moved.axisX_ = axisX_ * c + axisY_ * s;
    moved.axisY_ = axisY_ * c - axisX_ * s;
    moved.unit_ = unit_ * scale;
    return moved;
}

Pen Pen::mirrored() const {
    Pen other = *this;
    other.axisX_ = axisX_ * -1.0F;
    return other;
}

std::vector<Vec2> Pen::toPixels(std::span<const Vec2> points) const {
    std::vector<Vec2> result;
    result.reserve(points.size());
    for (const Vec2 p : points)
        result.push_back(toPixels(p));
    return result;
}

Vec2 Pen::fromPixels(Vec2 p) const {
    const Vec2 to = p - origin_;
    return {dot(to, axisX_) / (unit_ * unit_), dot(to, axisY_) / (unit_ * unit_)};
}

template <class Coverage>
void Pen::fill(Vec2 lo, Vec2 hi, Color color, Coverage coverage) const {
    const int right = std::min(canvas_->width() - 1, floorInt(hi.x));
    const int bottom = std::min(canvas_->height() - 1, floorInt(hi.y));
    for (int y = std::max(0, floorInt(lo.y)); y <= bottom; ++y) {
        for (int x = std::max(0, floorInt(lo.x)); x <= right; ++x) {
            const float part = coverage(Vec2{real(x) + 0.5F, real(y) + 0.5F});
            if (part > 0.0F) canvas_->blend(x, y, color, std::min(1.0F, part));
        }
    }
}

void Pen::disc(Vec2 centre, float radius, Color color) const {
    const Vec2 c = toPixels(centre);
    const float r = std::max(0.5F, radius * unit_);
    // Below one pixel the dot keeps its size and loses strength instead.
    color.a *= std::min(1.0F, radius * unit_ / r);
    const Vec2 reach{r + 1.0F, r + 1.0F};
    fill(c - reach, c + reach, color, [=](Vec2 p) { return r + 0.5F - length(p - c); });
}

void Pen::ring(Vec2 centre, float radius, float width, Color color) const {
    arc(centre, radius, width, 0.0F, 360.0F, color);
}

void Pen::arc(Vec2 centre, float radius, float width, float from, float to, Color color) const {
    const Vec2 c = toPixels(centre);
    const float r = radius * unit_;
    const float half = std::max(0.5F, width * unit_ / 2.0F);
    color.a *= std::min(1.0F, width * unit_);
    const Vec2 reach{r + half + 1.0F, r + half + 1.0F};
    const bool whole = to - from >= 360.0F;
    fill(c - reach, c + reach, color, [&, this](Vec2 p) {
        const float part = half + 0.5F - std::abs(length(p - c) - r);
        if (part <= 0.0F || whole) return part;
        const Vec2 local = fromPixels(p) - centre;
        const float turn = std::atan2(local.x, -local.y) * 180.0F / pi - from;
        return turn - 360.0F * std::floor(turn / 360.0F) <= to - from ? part : 0.0F;
    });
}

void Pen::line(Vec2 a, Vec2 b, float width, Color color) const { taper(a, b, width, width, color); }

void Pen::taper(Vec2 from, Vec2 to, float widthA, float widthB, Color color) const {
    const Vec2 a = toPixels(from);
    const Vec2 b = toPixels(to);
    const float halfA = std::max(0.5F, widthA * unit_ / 2.0F);
    const float halfB = std::max(0.5F, widthB * unit_ / 2.0F);
    color.a *= std::min(1.0F, std::max(widthA, widthB) * unit_);
    const float half = std::max(halfA, halfB) + 1.0F;
    const Vec2 lo{std::min(a.x, b.x) - half, std::min(a.y, b.y) - half};
    const Vec2 hi{std::max(a.x, b.x) + half, std::max(a.y, b.y) + half};
    const Vec2 along = b - a;
    const float squared = std::max(1e-6F, dot(along, along));
    fill(lo, hi, color, [=](Vec2 p) {
        const float t = clamp01(dot(p - a, along) / squared);
        return lerp(halfA, halfB, t) + 0.5F - length(p - (a + along * t));
    });
}

void Pen::polyline(std::span<const Vec2> points, float width, Color color) const {
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
        line(points[i], points[i + 1], width, color);
}

void Pen::polygon(std::span<const Vec2> points, Color color) const {
    canvas_->blendPolygon(toPixels(points), color);
}

void Pen::rect(Vec2 lo, Vec2 hi, Color color) const {
    polygon(std::array<Vec2, 4>{lo, Vec2{hi.x, lo.y}, hi, Vec2{lo.x, hi.y}}, color);
}

void Pen::frame(Vec2 lo, Vec2 hi, float width, Color color) const {
    polyline(std::array<Vec2, 5>{lo, Vec2{hi.x, lo.y}, hi, Vec2{lo.x, hi.y}, lo}, width, color);
}

void Pen::star(Vec2 centre, float radius, float inner, int points, Color color) const {
    std::vector<Vec2> outline;
    for (int i = 0; i < 2 * points; ++i) {
        const float r = i % 2 == 0 ? radius : inner;
        outline.push_back(centre + polar(180.0F * real(i) / real(points), r));
    }
    polygon(outline, color);
}

void Pen::ellipse(Vec2 centre, Vec2 radii, Color color) const {
    std::vector<Vec2> outline;
    for (int i = 0; i < 48; ++i) {
        const Vec2 p = polar(7.5F * real(i), 1.0F);
        outline.push_back(centre + Vec2{p.x * radii.x, p.y * radii.y});
    }
    polygon(outline, color);
}

void Pen::glow(Vec2 centre, float radius, Color color) const {
    const Vec2 c = toPixels(centre);
    const float r = radius * unit_;
    fill(c - Vec2{r, r}, c + Vec2{r, r}, color,
         [=](Vec2 p) { return fade(clamp01(1.0F - length(p - c) / r)); });
}

void Pen::streak(Vec2 from, Vec2 to, float width, Color color) const {
    const Vec2 a = toPixels(from);
    const Vec2 b = toPixels(to);
    const float half = std::max(0.7F, width * unit_ / 2.0F);
    const Vec2 lo{std::min(a.x, b.x) - half, std::min(a.y, b.y) - half};
    const Vec2 hi{std::max(a.x, b.x) + half, std::max(a.y, b.y) + half};
    const Vec2 along = b - a;
    const float squared = std::max(1e-6F, dot(along, along));
    fill(lo, hi, color, [=](Vec2 p) {
        const float t = clamp01(dot(p - a, along) / squared);
        const float side = length(p - (a + along * t)) / (half * (0.5F + 0.5F * t));
        return (1.0F - t) * fade(clamp01(1.0F - side));
    });
}

std::vector<Vec2> closedCurve(std::span<const Vec2> knots, int stepsPerKnot) {
    std::vector<Vec2> points;
    const std::size_t n = knots.size();
    for (std::size_t i = 0; i < n; ++i) {
        const Vec2 before = knots[(i + n - 1) % n];
        const Vec2 a = knots[i];
        const Vec2 b = knots[(i + 1) % n];
        const Vec2 after = knots[(i + 2) % n];
        if (a.x == b.x && a.y == b.y) continue;
        for (int step = 0; step < stepsPerKnot; ++step) {
            const float t = real(step) / real(stepsPerKnot);
            const Vec2 linear = (b - before) * t;
            const Vec2 square = (before * 2.0F - a * 5.0F + b * 4.0F - after) * (t * t);
            const Vec2 cube = (a * 3.0F - before - b * 3.0F + after) * (t * t * t);
            points.push_back((a * 2.0F + linear + square + cube) * 0.5F);
        }
    }
    return points;
}

} // namespace demo
