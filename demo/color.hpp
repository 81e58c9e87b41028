#pragma once

#include <cstdint>

#include "maths.hpp"

namespace demo {

// Straight (not premultiplied) colour, every channel 0..1.
struct Color {
    float r = 0.0F;
    float g = 0.0F;
    float b = 0.0F;
    float a = 1.0F;
};

constexpr Color rgb(std::uint32_t hex, float alpha = 1.0F) {
    const auto channel = [hex](unsigned shift) {
        return static_cast<float>((hex >> shift) & 0xFFU) / 255.0F;
    };
    return {channel(16), channel(8), channel(0), alpha};
}

constexpr Color grey(float value, float alpha = 1.0F) { return {value, value, value, alpha}; }
constexpr Color withAlpha(Color c, float alpha) { return {c.r, c.g, c.b, alpha}; }
constexpr Color shaded(Color c, float k) { return {c.r * k, c.g * k, c.b * k, c.a}; }
constexpr Color mix(Color a, Color b, float t) {
    return {lerp(a.r, b.r, t), lerp(a.g, b.g, t), lerp(a.b, b.b, t), lerp(a.a, b.a, t)};
}

constexpr std::uint8_t toByte(float channel) {
    return static_cast<std::uint8_t>(floorInt(clamp01(channel) * 255.0F + 0.5F));
}

} // namespace demo
