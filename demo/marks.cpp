#include "marks.hpp"

#include <array>

namespace demo {

namespace {

struct Palette {
    Color outer;
    Color middle;
    Color inner;
};

Palette paletteOf(Insignia kind) {
    switch (kind) {
    case Insignia::Rings:
        return {rgb(0x1F3B63), rgb(0xD9D6C8), rgb(0xC8872B)};
    case Insignia::Star:
        return {rgb(0x20303F), rgb(0xE2E0D6), rgb(0xE2E0D6)};
    case Insignia::Diamond:
        return {rgb(0x1B1C1E), rgb(0xDDDAD0), rgb(0x23262A)};
    case Insignia::Halves:
        return {rgb(0xDAD7CC), rgb(0x8E2B24), rgb(0x2E5B46)};
    }
    return {};
}

void drawDiamond(const Pen& pen, Vec2 c, float r, Color color) {
    pen.polygon(std::array<Vec2, 4>{Vec2{c.x, c.y - r}, {c.x + r, c.y}, {c.x, c.y + r}, {c.x - r, c.y}},
                color);
}

std::vector<Vec2> halfDisc(Vec2 c, float r) {
    std::vector<Vec2> points;
    for (int i = 0; i <= 32; ++i)
        points.push_back(c + polar(180.0F * real(i) / 32.0F, r));
    return points;
}

} // namespace

void drawInsignia(const Pen& pen, Vec2 c, float r, Insignia kind) {
    const Palette p = paletteOf(kind);
    switch (kind) {
    case Insignia::Rings:
        pen.disc(c, r, p.outer);
        pen.disc(c, r * 0.66F, p.middle);
        pen.disc(c, r * 0.36F, p.inner);
        break;
    case Insignia::Star:
        pen.disc(c, r, p.outer);
        pen.star(c, r * 0.96F, r * 0.34F, 6, p.middle);
        pen.disc(c, r * 0.2F, p.outer);
        break;
    case Insignia::Diamond:
        drawDiamond(pen, c, r * 1.1F, p.middle);
        drawDiamond(pen, c, r, p.outer);
        drawDiamond(pen, c, r * 0.62F, p.middle);
        drawDiamond(pen, c, r * 0.42F, p.inner);
        break;
    case Insignia::Halves:
        pen.disc(c, r, p.outer);
        pen.disc(c, r * 0.86F, p.middle);
        pen.polygon(halfDisc(c, r * 0.86F), p.inner);
        pen.ring(c, r * 0.3F, r * 0.12F, p.outer);
        break;
    }
}

void drawFinFlash(const Pen& pen, Vec2 lo, Vec2 hi, Insignia kind) {
    const Palette p = paletteOf(kind);
    const float third = (hi.x - lo.x) / 3.0F;
    pen.rect(lo, {lo.x + third, hi.y}, p.outer);
    pen.rect({lo.x + third, lo.y}, {lo.x + 2.0F * third, hi.y}, p.middle);
    pen.rect({lo.x + 2.0F * third, lo.y}, hi, p.inner);
}

void drawSharkMouth(const Pen& pen) {
    const std::array<Vec2, 7> knots{{{0.0F, -0.02F},
                                     {0.06F, -0.012F},
                                     {0.14F, -0.005F},
                                     {0.19F, -0.016F},
                                     {0.15F, 0.025F},
                                     {0.08F, 0.036F},
                                     {0.0F, 0.028F}}};
    const std::vector<Vec2> lips = closedCurve(knots);
    pen.polygon(lips, rgb(0x8F1D1A));
    for (int i = 0; i < 9; ++i) {
        const float x = 0.008F + 0.016F * real(i);
        const float top = -0.018F + 0.013F * std::sin(x * 11.0F);
        const float low = 0.031F + 0.006F * std::sin(x * 22.0F) - 0.35F * std::max(0.0F, x - 0.1F);
        pen.polygon(std::array<Vec2, 3>{Vec2{x, top}, {x + 0.015F, top + 0.001F}, {x + 0.008F, top + 0.017F}},
                    rgb(0xECE9DD));
        pen.polygon(std::array<Vec2, 3>{Vec2{x + 0.006F, low}, {x + 0.021F, low}, {x + 0.013F, low - 0.016F}},
                    rgb(0xECE9DD));
    }
    for (std::size_t i = 0; i < lips.size(); ++i) {
        pen.line(lips[i], lips[(i + 1) % lips.size()], 0.003F, rgb(0x141414));
    }
    pen.ellipse({0.13F, -0.038F}, {0.017F, 0.01F}, rgb(0x141414));
    pen.ellipse({0.13F, -0.038F}, {0.014F, 0.0078F}, rgb(0xECE9DD));
    pen.disc({0.126F, -0.038F}, 0.005F, rgb(0x141414));
}

void drawEmblem(const Pen& pen) {
    pen.disc({0.0F, 0.0F}, 1.0F, rgb(0x22364D));
    pen.ring({0.0F, 0.0F}, 0.93F, 0.06F, rgb(0xD9B65A));
    for (const float side : {-1.0F, 1.0F}) {
        for (int i = 0; i < 4; ++i) {
            const float drop = 0.16F * real(i);
            pen.taper({0.16F * side, 0.05F + 0.07F * real(i)},
                      {(0.78F - 0.1F * real(i)) * side, -0.3F + drop * 1.6F}, 0.14F, 0.05F,
                      rgb(i % 2 == 0 ? 0xE9E5D8 : 0xCFCABA));
        }
    }
    pen.rect({-0.2F, -0.3F}, {0.2F, 0.45F}, rgb(0x2A1D14));
    pen.rect({-0.15F, -0.25F}, {0.15F, 0.4F}, rgb(0xF0B63E));
    pen.glow({0.0F, 0.1F}, 0.22F, rgb(0xFFF6C8));
    pen.rect({-0.26F, 0.4F}, {0.26F, 0.5F}, rgb(0x2A1D14));
    pen.polygon(std::array<Vec2, 3>{Vec2{-0.26F, -0.28F}, {0.26F, -0.28F}, {0.0F, -0.5F}}, rgb(0x2A1D14));
    pen.ring({0.0F, -0.57F}, 0.09F, 0.035F, rgb(0x2A1D14));
}

void panelLine(const Pen& pen, Vec2 a, Vec2 b, float strength) {
    const Vec2 along = b - a;
    const float size = std::max(1e-6F, length(along));
    const Vec2 side = Vec2{-along.y, along.x} * (1.3F * pen.pixel() / size);
    pen.line(a + side, b + side, pen.pixel(), grey(1.0F, 0.16F * strength));
    pen.line(a, b, 1.4F * pen.pixel(), grey(0.05F, 0.5F * strength));
}

void panelLines(const Pen& pen, std::span<const Vec2> points, float strength) {
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
        panelLine(pen, points[i], points[i + 1], strength);
}

void rivetRow(const Pen& pen, Vec2 a, Vec2 b, float spacing, float strength) {
    const int count = std::max(1, floorInt(length(b - a) / spacing));
    for (int i = 0; i <= count; ++i) {
        const Vec2 p = a + (b - a) * (real(i) / real(count));
        pen.disc(p + Vec2{0.6F, 0.6F} * pen.pixel(), 0.9F * pen.pixel(), grey(1.0F, 0.16F * strength));
        pen.disc(p, 0.9F * pen.pixel(), grey(0.05F, 0.34F * strength));
    }
}

void hatch(const Pen& pen, Vec2 lo, Vec2 hi) {
    panelLines(pen, std::array<Vec2, 5>{lo, Vec2{hi.x, lo.y}, hi, Vec2{lo.x, hi.y}, lo});
    const Vec2 inset = Vec2{4.0F, 4.0F} * pen.pixel();
    for (const Vec2 corner : {lo + inset, hi - inset, Vec2{hi.x - inset.x, lo.y + inset.y},
                              Vec2{lo.x + inset.x, hi.y - inset.y}}) {
        pen.disc(corner, 1.6F * pen.pixel(), grey(0.08F, 0.55F));
    }
}

} // namespace demo
