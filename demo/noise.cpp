#include "noise.hpp"

#include <array>

namespace demo {

namespace {

std::uint32_t scramble(int x, int y, std::uint32_t seed) {
    std::uint32_t h = static_cast<std::uint32_t>(x) * 0x8DA6B343U ^
                      static_cast<std::uint32_t>(y) * 0xD8163841U ^ seed * 0xCB1AB31FU;
    h ^= h >> 15U;
    h *= 0x2C1B3C6DU;
    h ^= h >> 12U;
    h *= 0x297A2D39U;
    return h ^ (h >> 15U);
}

int wrapped(int value, int period) {
    if (period <= 0) return value;
    const int rest = value % period;
    return rest < 0 ? rest + period : rest;
}

// Fewer rounds than scramble(): three good bits are enough, and this is where most of the time goes.
unsigned direction(int x, int y, std::uint32_t seed) {
    std::uint32_t h = static_cast<std::uint32_t>(x) * 0x8DA6B343U +
                      static_cast<std::uint32_t>(y) * 0xD8163841U + seed * 0xCB1AB31FU;
    h = (h ^ h >> 15U) * 0x2C1B3C6DU;
    return h >> 29U;
}

float slope(int x, int y, Vec2 offset, std::uint32_t seed) {
    static constexpr float d = 0.70710678F;
    static constexpr std::array<Vec2, 8> directions{
        {{1, 0}, {d, d}, {0, 1}, {-d, d}, {-1, 0}, {-d, -d}, {0, -1}, {d, -d}}};
    return dot(directions[direction(x, y, seed)], offset);
}

} // namespace

float hashed(int x, int y, std::uint32_t seed) {
    return static_cast<float>(scramble(x, y, seed) >> 8U) / 16777216.0F;
}

float gradientNoise(Vec2 p, std::uint32_t seed, int period) {
    const int left = floorInt(p.x);
    const int top = floorInt(p.y);
    const Vec2 f{p.x - real(left), p.y - real(top)};
    const int x0 = wrapped(left, period);
    const int x1 = wrapped(left + 1, period);
    const int y0 = wrapped(top, period);
    const int y1 = wrapped(top + 1, period);
    const float u = fade(f.x);
    const float upper = lerp(slope(x0, y0, f, seed), slope(x1, y0, {f.x - 1, f.y}, seed), u);
    const float lower = lerp(slope(x0, y1, {f.x, f.y - 1}, seed), slope(x1, y1, {f.x - 1, f.y - 1}, seed), u);
    return 0.5F + 0.75F * lerp(upper, lower, fade(f.y));
}

float fractalNoise(Vec2 p, int octaves, std::uint32_t seed, int period) {
    float sum = 0.0F;
    float weight = 0.5F;
    float total = 0.0F;
    for (int i = 0; i < octaves; ++i) {
        sum += weight * gradientNoise(p, seed + static_cast<std::uint32_t>(i), period);
        total += weight;
        weight *= 0.5F;
        p = p * 2.0F;
        period *= 2;
    }
    return sum / total;
}

Cell cellNoise(Vec2 p, std::uint32_t seed, int period) {
    const int left = floorInt(p.x);
    const int top = floorInt(p.y);
    Cell cell;
    float first = 100.0F;
    float second = 100.0F;
    for (int y = top - 1; y <= top + 1; ++y) {
        for (int x = left - 1; x <= left + 1; ++x) {
            const int wx = wrapped(x, period);
            const int wy = wrapped(y, period);
            const Vec2 point{real(x) + hashed(wx, wy, seed), real(y) + hashed(wx, wy, seed + 77U)};
            const Vec2 to = p - point;
            const float squared = dot(to, to);
            if (squared < first) {
                second = first;
                first = squared;
                cell.id = hashed(wx, wy, seed + 154U);
                cell.centre = point;
            } else if (squared < second) {
                second = squared;
            }
        }
    }
    cell.nearest = std::sqrt(first);
    cell.edge = std::sqrt(second) - cell.nearest;
    return cell;
}

} // namespace demo
