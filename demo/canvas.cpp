#include "canvas.hpp"

namespace demo {

namespace {

constexpr int subRows = 4;

// Adds the part of each pixel of `row` between the crossings a and b.
void addRun(std::vector<float>& row, float a, float b, float weight) {
    a = std::clamp(a, 0.0F, real(static_cast<int>(row.size())));
    b = std::clamp(b, 0.0F, real(static_cast<int>(row.size())));
    for (int x = floorInt(a); real(x) < b; ++x) {
        const float part = std::min(b, real(x + 1)) - std::max(a, real(x));
        row[static_cast<std::size_t>(x)] += part * weight;
    }
}

void collectCrossings(std::span<const Vec2> points, float y, std::vector<float>& crossings) {
    crossings.clear();
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Vec2 a = points[i];
        const Vec2 b = points[(i + 1) % points.size()];
        if ((a.y <= y) == (b.y <= y)) continue;
        crossings.push_back(a.x + (y - a.y) / (b.y - a.y) * (b.x - a.x));
    }
    std::sort(crossings.begin(), crossings.end());
}

// Calls visit(x, y, coverage) for every pixel the polygon touches (even-odd rule).
template <class Visit>
void scanPolygon(std::span<const Vec2> points, int width, int height, Visit visit) {
    if (points.size() < 3) return;
    const auto [low, high] =
        std::minmax_element(points.begin(), points.end(), [](Vec2 a, Vec2 b) { return a.y < b.y; });
    const int bottom = std::min(height - 1, floorInt(high->y));
    std::vector<float> row(static_cast<std::size_t>(width));
    std::vector<float> crossings;
    for (int y = std::max(0, floorInt(low->y)); y <= bottom; ++y) {
        std::fill(row.begin(), row.end(), 0.0F);
        float first = real(width);
        float last = 0.0F;
        for (int sub = 0; sub < subRows; ++sub) {
            collectCrossings(points, real(y) + (real(sub) + 0.5F) / real(subRows), crossings);
            for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
                addRun(row, crossings[i], crossings[i + 1], 1.0F / real(subRows));
            }
            if (crossings.empty()) continue;
            first = std::min(first, crossings.front());
            last = std::max(last, crossings.back());
        }
        const int end = std::min(width - 1, floorInt(last));
        for (int x = std::max(0, floorInt(first)); x <= end; ++x) {
            const float coverage = row[static_cast<std::size_t>(x)];
            if (coverage > 0.0F) visit(x, y, std::min(1.0F, coverage));
        }
    }
}

} // namespace

void Mask::addPolygon(std::span<const Vec2> points) {
    const int height = static_cast<int>(values_.size()) / width_;
    scanPolygon(points, width_, height, [this](int x, int y, float coverage) {
        float& value = values_[size(width_, y) + static_cast<std::size_t>(x)];
        value = std::max(value, coverage);
    });
}

Canvas::Canvas(int width, int height, Color fill)
    : width_(width), height_(height),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), fill) {}

void Canvas::blend(int x, int y, Color color, float coverage) {
    if (clip_ != nullptr) coverage *= clip_->at(x, y);
    const float source = color.a * coverage;
    if (source <= 0.0F) return;
    Color& under = at(x, y);
    const float kept = under.a * (1.0F - source);
    const float alpha = source + kept;
    under.r = (color.r * source + under.r * kept) / alpha;
    under.g = (color.g * source + under.g * kept) / alpha;
    under.b = (color.b * source + under.b * kept) / alpha;
    under.a = alpha;
}

void Canvas::blendPolygon(std::span<const Vec2> points, Color color) {
    scanPolygon(points, width_, height_,
                [this, color](int x, int y, float coverage) { blend(x, y, color, coverage); });
}

} // namespace demo
