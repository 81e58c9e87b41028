#include "camouflage.hpp"

namespace demo {

namespace {

Color bands(const PaintScheme& scheme, Vec2 p) {
    const Vec2 bend{fractalNoise(p * 5.0F, 2, scheme.seed + 9U),
                    fractalNoise(p * 5.0F, 2, scheme.seed + 19U)};
    const float field = gradientNoise({p.x * 5.0F + bend.x, p.y * 3.5F + p.x * 2.0F + bend.y}, scheme.seed);
    return mix(scheme.ground, scheme.second, smoothStep(0.492F, 0.508F, field));
}

Color splinter(const PaintScheme& scheme, Vec2 p) {
    const Vec2 skewed{p.x * 6.5F + p.y * 4.0F, p.y * 6.5F - p.x * 2.0F};
    return mix(scheme.ground, scheme.second, cellNoise(skewed, scheme.seed).id > 0.52F ? 1.0F : 0.0F);
}

Color mottle(const PaintScheme& scheme, Vec2 p) {
    const float field = fractalNoise(p * 34.0F, 2, scheme.seed);
    return mix(scheme.ground, scheme.second, 0.85F * smoothStep(0.5F, 0.68F, field));
}

Color whitewash(const PaintScheme& scheme, Vec2 p) {
    const float worn = fractalNoise({p.x * 9.0F, p.y * 22.0F}, 5, scheme.seed + 5U);
    const float brush = fractalNoise({p.x * 160.0F, p.y * 20.0F}, 2, scheme.seed + 6U);
    const float cover = smoothStep(0.36F, 0.5F, 0.75F * (1.0F - worn) + 0.25F * brush + 0.02F);
    return mix(bands(scheme, p), rgb(0xE4E6E4), 0.93F * cover);
}

Color metal(const PaintScheme& scheme, Vec2 p) {
    const int column = floorInt(p.x / 0.0667F);
    const int row = floorInt(p.y / 0.048F + 0.5F * real(column % 2));
    const float sheet = hashed(column, row, scheme.seed);
    const float grain = fractalNoise({p.x * 12.0F, p.y * 340.0F}, 2, scheme.seed + 3U);
    const float sheen = fractalNoise(p * 4.0F, 2, scheme.seed + 4U);
    return shaded(mix(scheme.ground, scheme.second, sheet * 0.7F), 0.84F + 0.14F * grain + 0.18F * sheen);
}

} // namespace

Color upperPaint(const PaintScheme& scheme, Vec2 p) {
    switch (scheme.pattern) {
    case Pattern::Plain:
        return scheme.ground;
    case Pattern::Bands:
        return bands(scheme, p);
    case Pattern::Splinter:
        return splinter(scheme, p);
    case Pattern::Mottle:
        return mottle(scheme, p);
    case Pattern::Whitewash:
        return whitewash(scheme, p);
    case Pattern::Metal:
        return metal(scheme, p);
    }
    return scheme.ground;
}

Color lowerPaint(const PaintScheme& scheme, Vec2 p) {
    return scheme.pattern == Pattern::Metal ? metal(scheme, p) : scheme.underside;
}

Color sidePaint(const PaintScheme& scheme, Vec2 p, float edge) {
    if (scheme.pattern == Pattern::Metal) return metal(scheme, p);
    const bool soft = scheme.pattern == Pattern::Mottle;
    const float wave = soft ? 0.012F * (fractalNoise(p * 12.0F, 2, scheme.seed + 30U) - 0.5F) : 0.0F;
    const float width = soft ? 0.012F : 0.0007F;
    const float below = smoothStep(edge - width, edge + width, p.y + wave);
    if (below >= 1.0F) return scheme.underside;
    return mix(upperPaint(scheme, p), scheme.underside, below);
}

} // namespace demo
