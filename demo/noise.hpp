#pragma once

#include <cstdint>

#include "maths.hpp"

namespace demo {

// xorshift; written out here because the distributions of <random> differ between libraries.
class Random {
public:
    explicit Random(std::uint32_t seed) : state_(seed * 2654435769U + 0x9E37U) {
        if (state_ == 0U) state_ = 1U;
    }
    std::uint32_t next() {
        state_ ^= state_ << 13U;
        state_ ^= state_ >> 17U;
        state_ ^= state_ << 5U;
        return state_;
    }
    float uniform() { return static_cast<float>(next() >> 8U) / 16777216.0F; }
    float range(float lo, float hi) { return lerp(lo, hi, uniform()); }
    int below(int limit) { return static_cast<int>(next() % static_cast<std::uint32_t>(limit)); }
    Vec2 inside(Vec2 lo, Vec2 hi) {
        const float x = range(lo.x, hi.x);
        return {x, range(lo.y, hi.y)};
    }

private:
    std::uint32_t state_;
};

// A value 0..1 that depends on the lattice point and the seed alone.
float hashed(int x, int y, std::uint32_t seed);

// Gradient noise, about 0..1 around 0.5. With a period above 0 the field repeats every `period` units.
float gradientNoise(Vec2 p, std::uint32_t seed, int period = 0);

// Sum of `octaves` noises, each with twice the frequency and half the strength of the one before.
float fractalNoise(Vec2 p, int octaves, std::uint32_t seed, int period = 0);

struct Cell {
    float nearest = 0.0F; // distance to the nearest feature point
    float edge = 0.0F;    // distance of the second nearest, less the nearest
    float id = 0.0F;      // 0..1, constant over the cell
    Vec2 centre;
};

// Voronoi cells, one feature point for every unit square.
Cell cellNoise(Vec2 p, std::uint32_t seed, int period = 0);

} // namespace demo
