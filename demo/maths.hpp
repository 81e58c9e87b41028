#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>

namespace demo {

inline constexpr float pi = std::numbers::pi_v<float>;

struct Vec2 {
    float x = 0.0F;
    float y = 0.0F;
};

constexpr Vec2 operator+(Vec2 a, Vec2 b) { return {a.x + b.x, a.y + b.y}; }
constexpr Vec2 operator-(Vec2 a, Vec2 b) { return {a.x - b.x, a.y - b.y}; }
constexpr Vec2 operator*(Vec2 a, float k) { return {a.x * k, a.y * k}; }
constexpr float dot(Vec2 a, Vec2 b) { return a.x * b.x + a.y * b.y; }
inline float length(Vec2 a) { return std::sqrt(dot(a, a)); }

constexpr float real(int value) { return static_cast<float>(value); }
// Not std::floor, which is a call into the library on a plain x86-64.
constexpr int floorInt(float value) {
    const int whole = static_cast<int>(value);
    return value < static_cast<float>(whole) ? whole - 1 : whole;
}
constexpr float clamp01(float value) { return value < 0.0F ? 0.0F : (value > 1.0F ? 1.0F : value); }
constexpr float lerp(float a, float b, float t) { return a + (b - a) * t; }
constexpr float fade(float t) { return t * t * (3.0F - 2.0F * t); }
constexpr float smoothStep(float lo, float hi, float v) { return fade(clamp01((v - lo) / (hi - lo))); }
constexpr float fraction(float value) { return value - static_cast<float>(floorInt(value)); }
constexpr float radians(float degrees) { return degrees * pi / 180.0F; }

// The point at `radius` from the origin; 0 degrees is up and angles grow clockwise, as on a dial.
inline Vec2 polar(float degrees, float radius) {
    return {std::sin(radians(degrees)) * radius, -std::cos(radians(degrees)) * radius};
}

inline float segmentDistance(Vec2 p, Vec2 a, Vec2 b) {
    const Vec2 along = b - a;
    const float squared = dot(along, along);
    const float t = squared > 0.0F ? clamp01(dot(p - a, along) / squared) : 0.0F;
    return length(p - (a + along * t));
}

} // namespace demo
