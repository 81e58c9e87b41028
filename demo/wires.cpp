#include "wires.hpp"

#include <array>

#include "noise.hpp"
#include "pen.hpp"

namespace demo {

namespace {

void drawWire(const Pen& pen, Vec2 a, Vec2 b, float width, Color color) {
    pen.line(a, b, width, shaded(color, 0.55F));
    const Vec2 lit{-width * 0.12F, -width * 0.15F};
    pen.line(a + lit, b + lit, width * 0.5F, color);
}

void drawBarb(const Pen& pen, Vec2 at, float degrees, Color color) {
    for (const float turn : {25.0F, 155.0F, 205.0F, -25.0F}) {
        drawWire(pen, at, at + polar(degrees + turn, 0.085F), 0.018F, color);
    }
    pen.ring(at, 0.018F, 0.018F, shaded(color, 0.8F));
}

} // namespace

void drawChainLink(Canvas& canvas) {
    const Pen pen(canvas);
    constexpr int meshes = 8;
    const float step = 1.0F / real(meshes);
    const int columns = floorInt(pen.right() / step + 0.5F);
    for (int y = 0; y <= meshes; ++y) {
        for (int x = 0; x <= columns; ++x) {
            const Vec2 knot{real(x) * step, real(y) * step};
            const Color zinc = shaded(rgb(0xA8AEAC), 0.85F + 0.3F * hashed(x % columns, y % meshes, 3));
            const Vec2 half{step / 2.0F, step / 2.0F};
            drawWire(pen, knot - half, knot + half, 0.017F, zinc);
            drawWire(pen, knot + Vec2{half.x, -half.y}, knot + Vec2{-half.x, half.y}, 0.017F, zinc);
        }
    }
}

void drawBarbedWire(Canvas& canvas) {
    const Pen pen(canvas);
    const Color rusty = rgb(0x8A7868);
    for (const float x : {0.03F, 0.5F, 0.97F}) {
        pen.line({x * pen.right(), 0.06F}, {x * pen.right(), 1.0F}, 0.05F, rgb(0x54432F));
        pen.line({x * pen.right() - 0.01F, 0.06F}, {x * pen.right() - 0.01F, 1.0F}, 0.012F, rgb(0x7C6749));
    }
    for (const float y : {0.2F, 0.48F, 0.76F}) {
        const auto height = [&](float x) { return y + 0.02F * std::sin(x * 9.0F + y * 20.0F); };
        for (int i = 0; i < 64; ++i) {
            const float x = pen.right() * real(i) / 64.0F;
            const float next = pen.right() * real(i + 1) / 64.0F;
            drawWire(pen, {x, height(x)}, {next, height(next)}, 0.018F, rusty);
        }
        for (int i = 0; i < 9; ++i) {
            const float x = pen.right() * (real(i) + 0.5F) / 9.0F;
            drawBarb(pen, {x, height(x)}, 40.0F * real(i), rusty);
        }
    }
}

void drawAntennaWire(Canvas& canvas) {
    const Pen pen(canvas);
    drawWire(pen, {0.0F, 0.3F}, {pen.right(), 0.6F}, 0.05F, rgb(0x4A4B48));
    for (const float t : {0.12F, 0.88F}) {
        const Vec2 at{t * pen.right(), 0.3F + 0.3F * t};
        for (int i = -1; i <= 1; ++i)
            pen.disc(at + Vec2{0.16F * real(i), 0.0F}, 0.12F, rgb(0xC9C3B0));
        pen.disc(at + Vec2{-0.03F, -0.05F}, 0.04F, rgb(0xF2EEE2));
    }
}

void drawLatticeMast(Canvas& canvas) {
    const Pen pen(canvas);
    const Color red = rgb(0x9C3226);
    const Color white = rgb(0xD5D1C4);
    const float x = pen.right() / 2.0F;
    const float h = pen.bottom();
    constexpr int bays = 16;
    for (int i = 0; i < bays; ++i) {
        const float t0 = real(i) / real(bays);
        const float t1 = real(i + 1) / real(bays);
        const float w0 = 0.06F + 0.36F * t0;
        const float w1 = 0.06F + 0.36F * t1;
        const Color color = i / 2 % 2 == 0 ? red : white;
        drawWire(pen, {x - w0, h * t0}, {x - w1, h * t1}, 0.07F, color);
        drawWire(pen, {x + w0, h * t0}, {x + w1, h * t1}, 0.07F, color);
        drawWire(pen, {x - w0, h * t0}, {x + w1, h * t1}, 0.04F, color);
        drawWire(pen, {x + w0, h * t0}, {x - w1, h * t1}, 0.04F, color);
        drawWire(pen, {x - w1, h * t1}, {x + w1, h * t1}, 0.05F, color);
    }
}

void drawCamouflageNet(Canvas& canvas) {
    const Pen pen(canvas);
    Random random(19);
    for (int i = 0; i <= 16; ++i) {
        const float t = real(i) / 16.0F;
        pen.line({t, 0.0F}, {t, 1.0F}, 0.007F, rgb(0x4A4630));
        pen.line({0.0F, t}, {1.0F, t}, 0.007F, rgb(0x4A4630));
    }
    const std::array<Color, 4> cloth{rgb(0x4F5A33), rgb(0x6B6A3E), rgb(0x5A4A30), rgb(0x3B4A2C)};
    for (int i = 0; i < 520; ++i) {
        const Vec2 at = random.inside({0.0F, 0.0F}, {1.0F, 1.0F});
        const Vec2 half = polar(random.range(0.0F, 360.0F), random.range(0.015F, 0.035F));
        const Color color =
            shaded(cloth[static_cast<std::size_t>(random.below(4))], random.range(0.75F, 1.2F));
        pen.taper(at - half, at + half, 0.03F, 0.014F, color);
        pen.line(at - half, at, 0.004F, shaded(color, 0.6F));
    }
}

// A turning propeller, smeared to a translucent disc with two bright sweeps and yellow tips.
void drawPropellerDisc(Canvas& canvas) {
    const Vec2 middle{real(canvas.width()) / 2.0F, real(canvas.height()) / 2.0F};
    const float radius = std::min(middle.x, middle.y) * 0.98F;
    canvas.paint([=](Vec2 p) {
        const Vec2 to = (p - middle) * (1.0F / radius);
        const float r = length(to);
        const float turn = std::atan2(to.y, to.x);
        const float sweep = std::pow(0.5F + 0.5F * std::cos(3.0F * turn + 1.5F * r), 5.0F);
        const float rim = smoothStep(1.0F, 0.985F, r);
        const float tip = smoothStep(0.93F, 0.94F, r);
        const float alpha = rim * (0.16F + 0.34F * sweep) * smoothStep(0.06F, 0.22F, r) + rim * 0.12F * tip;
        return withAlpha(mix(grey(0.12F), rgb(0xD8AC34), tip * 0.9F), alpha);
    });
    const Pen pen = Pen(canvas).at({0.5F, 0.5F}, 0.5F);
    pen.disc({}, 0.13F, rgb(0x33393A));
    pen.glow({-0.03F, -0.03F}, 0.1F, grey(0.7F, 0.6F));
}

void drawPropellerBlade(Canvas& canvas) {
    const Pen pen(canvas);
    const float h = pen.bottom();
    const std::array<Vec2, 10> knots{{{0.40F, h},
                                      {0.36F, 0.88F * h},
                                      {0.14F, 0.62F * h},
                                      {0.1F, 0.3F * h},
                                      {0.22F, 0.06F * h},
                                      {0.5F, 0.01F * h},
                                      {0.82F, 0.1F * h},
                                      {0.86F, 0.5F * h},
                                      {0.66F, 0.88F * h},
                                      {0.6F, h}}};
    const std::vector<Vec2> outline = closedCurve(knots);
    Mask mask(canvas.width(), canvas.height());
    mask.addPolygon(pen.toPixels(outline));
    canvas.setClip(&mask);
    canvas.overlay([&](Vec2 p) {
        const Vec2 at = pen.fromPixels(p);
        const Color black = shaded(rgb(0x232526), 1.3F - 0.8F * std::abs(at.x - 0.35F));
        const Color color = at.y < 0.1F * h ? rgb(0xD2A52C) : black;
        const float scratch = fractalNoise({at.x * 40.0F, at.y * 6.0F}, 3, 4);
        const float worn = smoothStep(0.14F, 0.04F, at.x) + 0.4F * smoothStep(0.4F * h, 0.0F, at.y);
        return mix(color, rgb(0xA9ACAB), smoothStep(0.7F, 0.76F, scratch + 0.2F * worn));
    });
    drawText(pen.at({0.5F, 0.6F * h}), "A 7", {}, 0.2F, rgb(0xC9C4B0, 0.8F));
    drawText(pen.at({0.5F, 0.64F * h}), "R.H.", {}, 0.13F, rgb(0xC9C4B0, 0.8F));
    canvas.setClip(nullptr);
}

void drawLadder(Canvas& canvas) {
    const Pen pen(canvas);
    const Color yellow = rgb(0xC79A2C);
    for (int i = 0; i < 14; ++i) {
        const float y = pen.bottom() * (real(i) + 0.5F) / 14.0F;
        drawWire(pen, {0.16F, y}, {0.84F, y}, 0.11F, shaded(yellow, 0.9F));
    }
    drawWire(pen, {0.14F, 0.0F}, {0.14F, pen.bottom()}, 0.15F, yellow);
    drawWire(pen, {0.86F, 0.0F}, {0.86F, pen.bottom()}, 0.15F, yellow);
}

} // namespace demo
