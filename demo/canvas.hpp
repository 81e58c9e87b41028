#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "color.hpp"

namespace demo {

// Coverage 0..1 of a shape over a canvas.
class Mask {
public:
    Mask(int width, int height) : width_(width), values_(size(width, height)) {}
    void addPolygon(std::span<const Vec2> points);
    float at(int x, int y) const { return values_[size(width_, y) + static_cast<std::size_t>(x)]; }

private:
    static std::size_t size(int w, int h) {
        return static_cast<std::size_t>(w) * static_cast<std::size_t>(h);
    }
    int width_;
    std::vector<float> values_;
};

class Canvas {
public:
    Canvas(int width, int height, Color fill = {});

    int width() const { return width_; }
    int height() const { return height_; }
    Color& at(int x, int y) { return pixels_[index(x, y)]; }
    const Color& at(int x, int y) const { return pixels_[index(x, y)]; }

    // The mask limits every later blend; it must outlive its use. Null removes the limit.
    void setClip(const Mask* mask) { clip_ = mask; }

    void blend(int x, int y, Color color, float coverage = 1.0F);
    void blendPolygon(std::span<const Vec2> points, Color color);

    // Replaces every pixel by shader(pixel centre in pixels).
    template <class Shader>
    void paint(Shader shader) {
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x)
                at(x, y) = shader(Vec2{real(x) + 0.5F, real(y) + 0.5F});
        }
    }

    // Blends shader(pixel centre) over every pixel inside the rectangle lo..hi.
    template <class Shader>
    void overlay(Vec2 lo, Vec2 hi, Shader shader) {
        const int right = std::min(width_ - 1, floorInt(hi.x));
        const int bottom = std::min(height_ - 1, floorInt(hi.y));
        for (int y = std::max(0, floorInt(lo.y)); y <= bottom; ++y) {
            for (int x = std::max(0, floorInt(lo.x)); x <= right; ++x) {
                if (clip_ != nullptr && clip_->at(x, y) <= 0.0F) continue;
                blend(x, y, shader(Vec2{real(x) + 0.5F, real(y) + 0.5F}));
            }
        }
    }
    template <class Shader>
    void overlay(Shader shader) {
        overlay({0.0F, 0.0F}, {real(width_), real(height_)}, shader);
    }

private:
    std::size_t index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
    }

    int width_;
    int height_;
    std::vector<Color> pixels_;
    const Mask* clip_ = nullptr;
};

} // namespace demo
