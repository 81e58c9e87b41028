#include <array>

#include "noise.hpp"
#include "pen.hpp"
#include "terrain.hpp"

namespace demo {

namespace {

// A parcel of land and what grows on it.
Color crop(Vec2 p, const Cell& parcel) {
    static constexpr std::array<Color, 7> colors{rgb(0x5E7038), rgb(0xB59C54), rgb(0x7A6244), rgb(0x4C6430),
                                                 rgb(0x8E9448), rgb(0xC7B06A), rgb(0x6B7A40)};
    const Color color = colors[static_cast<std::size_t>(parcel.id * 6.99F)];
    const float turn = parcel.id * 37.0F;
    const float across = p.x * std::cos(turn) + p.y * std::sin(turn);
    const float rows = 0.5F + 0.5F * std::sin(across * 130.0F);
    return shaded(color, 0.8F + 0.16F * rows + 0.4F * (fractalNoise(p * 9.0F, 4, 5) - 0.4F));
}

void drawTreeTop(const Pen& pen, Vec2 at, float radius, Random& random) {
    pen.disc(at + Vec2{radius * 0.45F, radius * 0.5F}, radius, grey(0.02F, 0.4F));
    const Color leaf = mix(rgb(0x2A3E1E), rgb(0x4E6230), random.uniform());
    pen.disc(at, radius, leaf);
    for (int i = 0; i < 7; ++i) {
        const Vec2 off = polar(random.range(0.0F, 360.0F), radius * random.range(0.2F, 0.8F));
        const float lit = clamp01(0.5F - (off.x + off.y) / radius * 0.5F);
        pen.disc(at + off, radius * 0.36F, shaded(leaf, 0.7F + 0.8F * lit));
    }
}

// A ridged roof from above; the half that faces the light is the brighter.
void drawRoof(const Pen& pen, Vec2 half, Color color) {
    pen.rect(Vec2{-half.x, -half.y} + Vec2{0.006F, 0.008F}, Vec2{half.x, half.y} + Vec2{0.008F, 0.01F},
             grey(0.0F, 0.5F));
    pen.rect({-half.x, -half.y}, {half.x, 0.0F}, shaded(color, 1.15F));
    pen.rect({-half.x, 0.0F}, {half.x, half.y}, shaded(color, 0.72F));
    const int rows = std::max(2, floorInt(half.y / 0.005F));
    for (int i = -rows; i <= rows; ++i) {
        const float y = half.y * real(i) / real(rows);
        pen.line({-half.x, y}, {half.x, y}, 0.0008F, grey(0.0F, 0.35F));
    }
    pen.line({-half.x, 0.0F}, {half.x, 0.0F}, 0.0022F, shaded(color, 1.45F));
    pen.rect({half.x * 0.4F, -half.y * 0.5F}, {half.x * 0.4F + 0.006F, -half.y * 0.5F + 0.006F},
             rgb(0x5A3A2E));
}

Color roofColor(Random& random) {
    static constexpr std::array<Color, 6> colors{rgb(0x8A4A36), rgb(0x6E3C2E), rgb(0x565A60),
                                                 rgb(0x9A5A40), rgb(0x4A4844), rgb(0x7C6A58)};
    return shaded(colors[static_cast<std::size_t>(random.below(6))], random.range(0.85F, 1.15F));
}

void drawAsphalt(Canvas& canvas, Color color, std::uint32_t seed) {
    canvas.paint([&](Vec2 p) {
        const float side = real(std::min(canvas.width(), canvas.height()));
        const float grain = fractalNoise(p * (90.0F / side), 3, seed, 0);
        const float worn = fractalNoise(p * (5.0F / side), 4, seed + 4U);
        return shaded(color, 0.62F + 0.45F * grain + 0.32F * worn);
    });
}

void drawCrack(const Pen& pen, Vec2 at, Random& random, Color color) {
    float degrees = random.range(0.0F, 360.0F);
    for (int i = 0; i < 22; ++i) {
        degrees += random.range(-45.0F, 45.0F);
        const Vec2 next = at + polar(degrees, 0.016F);
        pen.line(at, next, 0.0024F, color);
        at = next;
    }
}

void drawBlock(const Pen& pen, Vec2 lo, Vec2 hi, Random& random) {
    pen.rect(lo, hi, rgb(0x8C887E));
    const Vec2 yardLo = lo + Vec2{0.055F, 0.055F};
    const Vec2 yardHi = hi - Vec2{0.055F, 0.055F};
    pen.rect(yardLo, yardHi, rgb(0x5D6244));
    for (int i = 0; i < 8; ++i)
        drawTreeTop(pen, random.inside(yardLo, yardHi), random.range(0.006F, 0.012F), random);
    const float width = hi.x - lo.x;
    const int houses = std::max(3, floorInt(width / 0.05F));
    const float step = width / real(houses);
    for (int i = 0; i < houses; ++i) {
        const float x = lo.x + step * (real(i) + 0.5F);
        const Vec2 half{step * 0.48F, random.range(0.02F, 0.027F)};
        drawRoof(pen.at({x, lo.y + 0.03F}), half, roofColor(random));
        drawRoof(pen.at({x, hi.y - 0.03F}), half, roofColor(random));
    }
    const int rows = std::max(1, floorInt((hi.y - lo.y - 0.12F) / 0.05F));
    const float stepY = (hi.y - lo.y - 0.12F) / real(rows);
    for (int i = 0; i < rows; ++i) {
        const float y = lo.y + 0.06F + stepY * (real(i) + 0.5F);
        const Vec2 half{stepY * 0.48F, random.range(0.02F, 0.027F)};
        drawRoof(pen.at({lo.x + 0.03F, y}, 1.0F, -90.0F), half, roofColor(random));
        drawRoof(pen.at({hi.x - 0.03F, y}, 1.0F, -90.0F), half, roofColor(random));
    }
}

} // namespace

void drawFarmland(Canvas& canvas) {
    const float side = real(canvas.width());
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pixel * (1.0F / side);
        const Vec2 bend{fractalNoise(p * 2.0F, 2, 7), fractalNoise(p * 2.0F, 2, 8)};
        const Cell parcel = cellNoise({p.x * 7.0F + bend.x, p.y * 5.0F + p.x * 1.5F + bend.y}, 9);
        const float ragged = 0.03F * (fractalNoise(p * 60.0F, 2, 10) - 0.5F);
        const Color field = crop(p * 2.0F, parcel);
        return mix(shaded(rgb(0x2C3A1E), 0.7F + fractalNoise(p * 90.0F, 2, 11) * 0.8F), field,
                   smoothStep(0.03F, 0.05F, parcel.edge + ragged));
    });
    const Pen pen(canvas);
    Random random(12);
    Vec2 from{-0.02F, 0.3F};
    for (int i = 0; i < 40; ++i) {
        const Vec2 to = from + Vec2{0.028F, 0.012F * std::sin(real(i) * 0.4F)};
        pen.line(from, to, 0.011F, rgb(0xA89A7C));
        from = to;
    }
    for (int i = 0; i < 9; ++i) {
        const Vec2 at = Vec2{0.56F, 0.36F} + random.inside({-0.07F, -0.05F}, {0.07F, 0.06F});
        drawRoof(pen.at(at, 1.0F, random.range(-40.0F, 40.0F)), {random.range(0.012F, 0.022F), 0.01F},
                 roofColor(random));
    }
    for (int i = 0; i < 240; ++i) {
        const Vec2 at = random.inside({0.0F, 0.0F}, {1.0F, 1.0F});
        if (fractalNoise(at * 6.0F, 2, 13) < 0.54F) continue;
        drawTreeTop(pen, at, random.range(0.004F, 0.008F), random);
    }
}

void drawCityBlock(Canvas& canvas) {
    drawAsphalt(canvas, rgb(0x6C6A66), 14);
    const Pen pen(canvas);
    Random random(15);
    for (const Vec2 lo : {Vec2{0.03F, 0.03F},
                          {0.36F, 0.03F},
                          {0.74F, 0.03F},
                          {0.03F, 0.4F},
                          {0.36F, 0.4F},
                          {0.74F, 0.4F},
                          {0.03F, 0.72F},
                          {0.36F, 0.72F},
                          {0.74F, 0.72F}}) {
        const float width = lo.x < 0.1F ? 0.29F : (lo.x < 0.5F ? 0.34F : 0.23F);
        const float height = lo.y < 0.1F ? 0.33F : (lo.y < 0.5F ? 0.28F : 0.25F);
        drawBlock(pen, lo, lo + Vec2{width, height}, random);
    }
    for (int i = 0; i < 34; ++i) {
        const float t = real(i) / 34.0F;
        drawTreeTop(pen, {t, 0.38F}, 0.007F, random);
        pen.line({0.34F, t}, {0.34F, t + 0.014F}, 0.0016F, rgb(0xD8D4C4, 0.7F));
        pen.line({0.72F, t}, {0.72F, t + 0.014F}, 0.0016F, rgb(0xD8D4C4, 0.7F));
    }
}

void drawVillage(Canvas& canvas) {
    drawMeadow(canvas);
    const Pen pen(canvas);
    Random random(16);
    const auto road = [](float x) { return 0.52F + 0.1F * std::sin(x * 6.28F); };
    for (int i = 0; i < 50; ++i) {
        const float x = real(i) / 50.0F;
        pen.line({x, road(x)}, {x + 0.02F, road(x + 0.02F)}, 0.045F, rgb(0x9C9078));
    }
    for (int i = 0; i < 22; ++i) {
        const float x = (real(i / 2) + 0.5F) / 11.0F + random.range(-0.015F, 0.015F);
        const float side = i % 2 == 0 ? -1.0F : 1.0F;
        const Vec2 at{x, road(x) + side * random.range(0.065F, 0.13F)};
        drawRoof(pen.at(at, 1.0F, random.range(-25.0F, 25.0F)),
                 {random.range(0.025F, 0.04F), random.range(0.018F, 0.024F)}, roofColor(random));
        drawTreeTop(pen, at + Vec2{0.045F, side * 0.05F}, random.range(0.012F, 0.022F), random);
    }
    drawRoof(pen.at({0.3F, 0.82F}, 1.0F, 12.0F), {0.08F, 0.034F}, rgb(0x565A60));
    drawRoof(pen.at({0.39F, 0.84F}, 1.0F, 12.0F), {0.03F, 0.03F}, rgb(0x3F474C));
    for (int i = 0; i < 60; ++i) {
        const Vec2 at = random.inside({0.0F, 0.0F}, {1.0F, 1.0F});
        if (std::abs(at.y - road(at.x)) > 0.2F) drawTreeTop(pen, at, random.range(0.012F, 0.026F), random);
    }
}

void drawRoad(Canvas& canvas) {
    drawAsphalt(canvas, rgb(0x5A5955), 17);
    const Pen pen(canvas);
    Random random(18);
    for (const float side : {0.0F, 1.0F}) {
        const float edge = side * pen.right();
        const float inward = side > 0.5F ? -1.0F : 1.0F;
        for (int i = 0; i < 900; ++i) {
            const float x = edge + inward * random.uniform() * random.uniform() * 0.2F;
            pen.disc({x, random.range(0.0F, pen.bottom())}, random.range(0.008F, 0.022F),
                     shaded(rgb(0x6B6A40), random.range(0.6F, 1.2F)));
        }
    }
    for (int i = 0; i < floorInt(pen.bottom() / 0.8F); ++i) {
        const float y = 0.8F * real(i) + 0.15F;
        pen.rect({pen.right() / 2.0F - 0.02F, y}, {pen.right() / 2.0F + 0.02F, y + 0.45F},
                 rgb(0xCFCBB8, 0.8F));
    }
    for (int i = 0; i < 12; ++i) {
        drawCrack(pen, random.inside({0.2F, 0.0F}, {pen.right() - 0.2F, pen.bottom()}), random,
                  grey(0.08F, 0.6F));
    }
}

void drawRunway(Canvas& canvas) {
    drawAsphalt(canvas, rgb(0x8E8B82), 19);
    const Pen pen(canvas);
    Random random(20);
    for (int i = 0; i <= floorInt(pen.right() / 0.25F); ++i) {
        pen.line({0.25F * real(i), 0.0F}, {0.25F * real(i), 1.0F}, 0.004F, grey(0.1F, 0.55F));
    }
    for (int i = 1; i < 4; ++i)
        pen.line({0.0F, 0.25F * real(i)}, {pen.right(), 0.25F * real(i)}, 0.004F, grey(0.1F, 0.55F));
    for (int i = 0; i < 60; ++i) {
        const float x = random.range(-0.2F, pen.right());
        const float y = random.below(2) == 0 ? random.range(0.3F, 0.42F) : random.range(0.58F, 0.7F);
        pen.streak({x, y}, {x + random.range(0.3F, 0.9F), y}, 0.022F, rgb(0x1B1A19, 0.45F));
    }
    for (int i = 0; i < floorInt(pen.right() / 0.5F); ++i) {
        pen.rect({0.5F * real(i) + 0.1F, 0.488F}, {0.5F * real(i) + 0.4F, 0.512F}, rgb(0xE2DFD2, 0.85F));
    }
    for (const float y : {0.035F, 0.965F})
        pen.line({0.0F, y}, {pen.right(), y}, 0.018F, rgb(0xE2DFD2, 0.8F));
    for (int i = 0; i < 16; ++i) {
        drawCrack(pen, random.inside({0.0F, 0.0F}, {pen.right(), 1.0F}), random, grey(0.1F, 0.5F));
        pen.glow(random.inside({0.0F, 0.0F}, {pen.right(), 1.0F}), random.range(0.02F, 0.06F),
                 rgb(0x201D1A, 0.5F));
    }
}

void drawRunwayNumbers(Canvas& canvas) {
    drawAsphalt(canvas, rgb(0x6E6C67), 25);
    const Pen pen(canvas);
    const Color white = rgb(0xE4E1D4, 0.92F);
    for (int i = 0; i < 8; ++i) {
        const float x = 0.09F + 0.105F * real(i) + (i > 3 ? 0.05F : 0.0F);
        pen.rect({x, 0.62F}, {x + 0.055F, 0.98F}, white);
    }
    drawText(pen, "09", {0.35F, 0.34F}, 0.31F, white, 0.16F);
    drawText(pen, "L", {0.83F, 0.34F}, 0.31F, white, 0.16F);
    canvas.overlay([&](Vec2 p) {
        const float worn = fractalNoise(p * (40.0F / real(canvas.width())), 4, 26);
        return withAlpha(rgb(0x5A5853), 0.85F * smoothStep(0.55F, 0.66F, worn));
    });
}

void drawRailway(Canvas& canvas) {
    canvas.paint([&](Vec2 pixel) {
        const Cell stone = cellNoise(pixel * (34.0F / real(canvas.width())), 27);
        return shaded(mix(rgb(0x6B655B), rgb(0x9A9284), stone.id),
                      0.4F + 1.1F * smoothStep(0.0F, 0.35F, stone.edge));
    });
    const Pen pen(canvas);
    const int sleepers = floorInt(pen.bottom() / 0.2F);
    for (int i = 0; i < sleepers; ++i) {
        const float y = 0.2F * real(i) + 0.06F;
        pen.rect({0.12F, y}, {0.88F, y + 0.09F}, shaded(rgb(0x4A3A2C), 0.85F + 0.4F * hashed(i, 1, 28)));
        for (int k = 0; k < 4; ++k) {
            const float at = y + 0.012F + 0.022F * real(k);
            pen.line({0.13F, at}, {0.87F, at + 0.004F}, 0.004F, grey(0.05F, 0.4F));
        }
        for (const float x : {0.25F, 0.335F, 0.665F, 0.75F})
            pen.disc({x, y + 0.045F}, 0.012F, rgb(0x2A2420));
    }
    for (const float x : {0.29F, 0.71F}) {
        pen.line({x + 0.02F, -0.1F}, {x + 0.02F, pen.bottom() + 0.1F}, 0.06F, grey(0.02F, 0.4F));
        pen.line({x, -0.1F}, {x, pen.bottom() + 0.1F}, 0.05F, rgb(0x5A4232));
        pen.line({x, -0.1F}, {x, pen.bottom() + 0.1F}, 0.024F, rgb(0xB4B6B4));
    }
}

void drawPerforatedPlanks(Canvas& canvas) {
    const Pen pen(canvas);
    canvas.paint([&](Vec2 p) {
        const float rust = fractalNoise(p * (9.0F / real(canvas.width())), 5, 29);
        const float grain = fractalNoise(p * (90.0F / real(canvas.width())), 2, 30);
        return shaded(mix(rgb(0x6C6F68), rgb(0x7C5238), smoothStep(0.48F, 0.66F, rust)),
                      0.75F + 0.5F * grain);
    });
    for (int row = 0; row < 8; ++row) {
        const float y = 0.125F * real(row);
        pen.line({0.0F, y}, {1.0F, y}, 0.007F, grey(0.05F, 0.8F));
        pen.line({0.0F, y + 0.006F}, {1.0F, y + 0.006F}, 0.004F, grey(1.0F, 0.25F));
        const float joint = row % 2 == 0 ? 0.03F : 0.53F;
        pen.line({joint, y}, {joint, y + 0.125F}, 0.006F, grey(0.05F, 0.8F));
        for (int i = 0; i < 16; ++i) {
            const Vec2 at{(real(i) + 0.5F) / 16.0F, y + 0.0625F};
            pen.disc(at, 0.023F, grey(1.0F, 0.2F));
            pen.disc(at + Vec2{-0.002F, -0.002F}, 0.022F, grey(0.03F, 0.7F));
            pen.disc(at, 0.018F, rgb(0x3A3424));
        }
    }
}

void drawOrchard(Canvas& canvas) {
    drawGrass(canvas);
    const Pen pen(canvas);
    Random random(31);
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) {
            const Vec2 at{(real(x) + 0.5F) / 8.0F, (real(y) + 0.5F) / 8.0F};
            drawTreeTop(pen, at + random.inside({-0.008F, -0.008F}, {0.008F, 0.008F}),
                        random.range(0.028F, 0.042F), random);
        }
    }
}

} // namespace demo
