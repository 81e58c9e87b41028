#include "materials.hpp"

#include <array>

#include "noise.hpp"
#include "pen.hpp"

namespace demo {

namespace {

float unit(const Canvas& canvas) { return real(std::min(canvas.width(), canvas.height())); }

} // namespace

void drawBrick(Canvas& canvas) {
    const float u = unit(canvas);
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pixel * (1.0F / u);
        const int row = floorInt(p.y * 16.0F);
        const float along = p.x * 8.0F + (row % 2 == 0 ? 0.0F : 0.5F);
        const Vec2 in{fraction(along) - 0.5F, fraction(p.y * 16.0F) - 0.5F};
        const float rough = fractalNoise(p * 50.0F, 3, 2);
        const float edge =
            std::min((0.5F - std::abs(in.x)) * 2.0F, 0.5F - std::abs(in.y)) + 0.05F * (rough - 0.5F);
        const float own = hashed(floorInt(along) % 8, row % 16, 1);
        const Color clay = shaded(mix(rgb(0x7A3E2C), rgb(0xA8603F), own), 0.62F + 0.75F * rough);
        const Color lit = shaded(clay, 1.0F - 0.3F * smoothStep(0.25F, 0.45F, in.y) +
                                           0.15F * smoothStep(-0.3F, -0.45F, in.y));
        const Color mortar = shaded(rgb(0xA59E8E), 0.65F + 0.6F * rough);
        return mix(mortar, lit, smoothStep(0.07F, 0.12F, edge));
    });
}

void drawCorrugatedIron(Canvas& canvas) {
    const float u = unit(canvas);
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pixel * (1.0F / u);
        const float wave = std::cos(p.x * 20.0F * 2.0F * pi);
        const float slope = std::sin(p.x * 20.0F * 2.0F * pi);
        const float runs = fractalNoise({p.x * 14.0F, p.y * 2.5F}, 4, 4);
        const float spots = fractalNoise(p * 9.0F, 5, 5);
        const float lap = smoothStep(0.0F, 0.03F, fraction(p.y * 2.0F));
        const float rust = smoothStep(0.5F, 0.68F, 0.5F * runs + 0.5F * spots + 0.1F * (1.0F - lap));
        const Color zinc = mix(rgb(0x8F9696), rgb(0xB0B5B2), spots);
        return shaded(mix(zinc, rgb(0x7E4A2C), rust),
                      (0.72F + 0.18F * wave + 0.17F * slope) * (0.7F + 0.3F * lap));
    });
    const Pen pen(canvas);
    for (int i = 0; i < 20; i += 2) {
        for (const float y : {0.02F, 0.52F})
            pen.disc({(real(i)) / 20.0F, y}, 0.007F, rgb(0x3D3A36));
    }
}

void drawRoofTiles(Canvas& canvas) {
    const Pen pen(canvas);
    canvas.paint([](Vec2) { return rgb(0x2A1A14); });
    const float width = 1.0F / 14.0F;
    for (int row = -1; row <= 12; ++row) {
        const float y = real(12 - row) / 12.0F;
        for (int column = -1; column <= 14; ++column) {
            const float x = (real(column) + (row % 2 == 0 ? 0.0F : 0.5F)) * width;
            const float own = hashed((column + 14) % 14, (row + 12) % 12, 6);
            const Color clay = mix(rgb(0x7E3F2B), rgb(0xB4694A), own);
            const Pen tile = pen.at({x + width / 2.0F, y}, width);
            tile.ellipse({0.03F, 0.14F}, {0.52F, 0.62F}, grey(0.0F, 0.5F));
            tile.rect({-0.48F, -1.3F}, {0.48F, 0.1F}, clay);
            tile.ellipse({0.0F, 0.08F}, {0.48F, 0.55F}, clay);
            tile.streak({-0.28F, 0.5F}, {-0.28F, -0.9F}, 0.3F, rgb(0xD89A78, 0.5F));
            tile.line({0.49F, -1.2F}, {0.49F, 0.1F}, 0.05F, rgb(0x2A1A14));
        }
    }
    canvas.overlay([&](Vec2 p) {
        const float moss = fractalNoise(p * (7.0F / unit(canvas)), 5, 7);
        return withAlpha(rgb(0x4A5230), 0.7F * smoothStep(0.56F, 0.7F, moss));
    });
}

void drawWoodPlanks(Canvas& canvas) {
    const float u = unit(canvas);
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pixel * (1.0F / u);
        const int plank = floorInt(p.y * 8.0F);
        const float in = fraction(p.y * 8.0F);
        const float joint = fraction(p.x + 0.37F * real(plank));
        const float warp = fractalNoise({p.x * 3.0F + real(plank) * 9.0F, p.y * 8.0F}, 3, 8);
        const float rings = fraction((p.y * 8.0F + warp * 1.6F) * 4.0F);
        const float grain = fractalNoise({p.x * 10.0F, p.y * 190.0F}, 3, 9);
        const float own = hashed(plank, 0, 10);
        const Color wood =
            mix(rgb(0x6E4F33), rgb(0xA07C50), 0.4F * own + 0.35F * rings + 0.3F * (grain - 0.3F));
        const float gap = smoothStep(0.0F, 0.05F, std::min(in, 1.0F - in)) * smoothStep(0.0F, 0.004F, joint);
        return shaded(wood, (0.3F + 0.7F * gap) * (0.8F + 0.35F * grain));
    });
    const Pen pen(canvas);
    for (int plank = 0; plank < 8; ++plank) {
        const float x = fraction(1.0F - 0.37F * real(plank));
        for (const float side : {-0.018F, 0.018F}) {
            pen.disc({x + side, (real(plank) + 0.28F) / 8.0F}, 0.005F, rgb(0x2B2825));
            pen.disc({x + side, (real(plank) + 0.72F) / 8.0F}, 0.005F, rgb(0x2B2825));
        }
    }
}

void drawConcrete(Canvas& canvas) {
    const float u = unit(canvas);
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pixel * (1.0F / u);
        const float cloud = fractalNoise(p * 4.0F, 5, 11);
        const float grain = fractalNoise(p * 80.0F, 3, 12);
        const float runs = fractalNoise({p.x * 16.0F, p.y * 1.6F}, 4, 13);
        const float board = smoothStep(0.0F, 0.02F, fraction(p.y * 6.0F)) * 0.08F;
        const float pits = smoothStep(0.72F, 0.78F, gradientNoise(p * 60.0F, 14));
        const Color stone = mix(rgb(0x8C8A82), rgb(0xB4B1A6), cloud);
        return shaded(mix(stone, rgb(0x5F5B50), 0.6F * smoothStep(0.52F, 0.7F, runs)),
                      0.74F + board + 0.3F * grain - 0.3F * pits);
    });
    const Pen pen(canvas);
    for (const Vec2 at : {Vec2{0.25F, 0.25F}, {0.75F, 0.25F}, {0.25F, 0.75F}, {0.75F, 0.75F}}) {
        pen.disc(at, 0.014F, rgb(0x4A483F));
        pen.streak(at, at + Vec2{0.0F, 0.16F}, 0.02F, rgb(0x6A4A30, 0.6F));
    }
}

void drawTreadPlate(Canvas& canvas) {
    const float u = unit(canvas);
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pixel * (1.0F / u);
        return shaded(mix(rgb(0x63676A), rgb(0x83878A), fractalNoise(p * 5.0F, 4, 15)),
                      0.8F + 0.4F * fractalNoise(p * 70.0F, 2, 16));
    });
    const Pen pen(canvas);
    for (int y = 0; y <= 12; ++y) {
        for (int x = 0; x <= 12; ++x) {
            const Vec2 at{real(x) / 12.0F, real(y) / 12.0F};
            const Vec2 along = polar((x + y) % 2 == 0 ? 45.0F : -45.0F, 0.03F);
            pen.line(at - along + Vec2{0.004F, 0.005F}, at + along + Vec2{0.004F, 0.005F}, 0.018F,
                     grey(0.05F, 0.6F));
            pen.line(at - along, at + along, 0.016F, rgb(0x8F9396));
            pen.line(at - along + Vec2{-0.002F, -0.003F}, at + along + Vec2{-0.002F, -0.003F}, 0.006F,
                     rgb(0xC9CCCC));
        }
    }
}

void drawLeather(Canvas& canvas) {
    const float u = unit(canvas);
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pixel * (1.0F / u);
        const Cell pore = cellNoise(p * 70.0F, 17);
        const float sag = std::sin(fraction(p.x * 4.0F) * pi);
        const float worn = fractalNoise(p * 4.0F, 4, 18);
        const Color hide = mix(rgb(0x3E2416), rgb(0x7A4A2C), 0.75F * sag + 0.5F * (worn - 0.5F));
        return shaded(mix(hide, rgb(0x9A7250), 0.5F * smoothStep(0.56F, 0.72F, worn)),
                      0.7F + 0.4F * smoothStep(0.0F, 0.25F, pore.edge));
    });
    const Pen pen(canvas);
    for (int i = 0; i <= 4; ++i) {
        const float x = real(i) / 4.0F;
        pen.line({x, 0.0F}, {x, pen.bottom()}, 0.012F, rgb(0x1A0E08, 0.8F));
        for (int k = 0; k < floorInt(pen.bottom() * 40.0F); ++k) {
            const float y = real(k) / 40.0F;
            for (const float side : {-0.018F, 0.018F})
                pen.line({x + side, y}, {x + side, y + 0.014F}, 0.005F, rgb(0xB59A70));
        }
    }
}

void drawCanvasCloth(Canvas& canvas) {
    const float u = unit(canvas);
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pixel * (1.0F / u);
        const float fold = fractalNoise({p.x * 3.0F + p.y, p.y * 1.2F}, 3, 19);
        const float next = fractalNoise({(p.x + 0.01F) * 3.0F + p.y, p.y * 1.2F}, 3, 19);
        const float weave = 0.5F + 0.25F * (std::sin(p.x * 640.0F) + std::sin(p.y * 640.0F));
        const float stain = fractalNoise(p * 5.0F, 4, 20);
        return shaded(mix(rgb(0x5E6040), rgb(0x7C7852), stain), 0.74F + 9.0F * (fold - next) + 0.14F * weave);
    });
    const Pen pen(canvas);
    for (const float y : {0.06F, 0.94F}) {
        pen.line({0.0F, y + 0.03F}, {1.0F, y + 0.03F}, 0.004F, grey(0.08F, 0.5F));
        for (int i = 0; i < 6; ++i) {
            pen.disc({(real(i) + 0.5F) / 6.0F, y}, 0.022F, rgb(0x9A8A54));
            pen.disc({(real(i) + 0.5F) / 6.0F, y}, 0.012F, rgb(0x15140F));
        }
    }
}

void drawSandbags(Canvas& canvas) {
    canvas.paint([](Vec2) { return rgb(0x1E1912); });
    const Pen pen(canvas);
    const float height = 1.0F / 7.0F;
    for (int row = 0; row <= 7; ++row) {
        for (int i = -1; i <= 4; ++i) {
            const float own = hashed((i + 4) % 4, row, 21);
            const Vec2 at{(real(i) + (row % 2 == 0 ? 0.25F : 0.75F)) / 4.0F, (real(row) + 0.5F) * height};
            const Pen bag = pen.at(at, 1.0F, (own - 0.5F) * 6.0F);
            const std::array<Vec2, 8> knots{{{-0.122F, 0.0F},
                                             {-0.112F, -0.06F},
                                             {0.0F, -0.07F},
                                             {0.112F, -0.058F},
                                             {0.124F, 0.004F},
                                             {0.112F, 0.064F},
                                             {0.0F, 0.074F},
                                             {-0.112F, 0.064F}}};
            const std::vector<Vec2> outline = closedCurve(knots);
            Mask mask(canvas.width(), canvas.height());
            mask.addPolygon(bag.toPixels(outline));
            canvas.setClip(&mask);
            const Vec2 reach = Vec2{0.15F, 0.1F} * (1.0F / pen.pixel());
            canvas.overlay(pen.toPixels(at) - reach, pen.toPixels(at) + reach, [&](Vec2 p) {
                const Vec2 in = bag.fromPixels(p);
                const float weave = 0.5F + 0.25F * (std::sin(in.x * 900.0F) + std::sin(in.y * 900.0F));
                const float lit = 0.86F - 5.0F * in.y - 18.0F * in.x * in.x;
                return shaded(mix(rgb(0x8C7A54), rgb(0xB09C72), own), clamp01(lit) * (0.8F + 0.3F * weave));
            });
            canvas.setClip(nullptr);
        }
    }
}

void drawStripes(Canvas& canvas) {
    const float u = unit(canvas);
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pixel * (1.0F / u);
        const float in = std::abs(fraction((p.x + p.y) * 2.0F) - 0.5F);
        const float worn = smoothStep(0.58F, 0.66F, fractalNoise(p * 9.0F, 5, 22));
        const Color band = mix(rgb(0x1C1B1A), rgb(0xD8A628), smoothStep(0.24F, 0.26F, in));
        return shaded(mix(band, rgb(0x83827C), 0.8F * worn), 0.85F + 0.3F * fractalNoise(p * 40.0F, 2, 23));
    });
}

} // namespace demo
