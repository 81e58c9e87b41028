#include "cockpit.hpp"

#include <array>

#include "instruments.hpp"
#include "noise.hpp"

namespace demo {

namespace {

const Color ink = rgb(0xDAD6C4);

// Painted sheet metal, crackled by age.
void paintPanel(Canvas& canvas, Color color, std::uint32_t seed) {
    const float side = real(std::min(canvas.width(), canvas.height()));
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pixel * (1.0F / side);
        const float crackle = fractalNoise(p * 110.0F, 2, seed);
        const float worn = fractalNoise(p * 6.0F, 5, seed + 1U);
        return shaded(mix(color, rgb(0x8A8C86), 0.5F * smoothStep(0.64F, 0.7F, worn)),
                      0.78F + 0.44F * crackle);
    });
}

void drawScrew(const Pen& pen, Vec2 at, float radius, float turn) {
    pen.disc(at + Vec2{radius, radius} * 0.3F, radius * 1.1F, grey(0.0F, 0.5F));
    pen.disc(at, radius, rgb(0x8B8E8C));
    pen.disc(at - Vec2{radius, radius} * 0.2F, radius * 0.6F, rgb(0xB2B5B2));
    pen.line(at - polar(turn, radius * 0.8F), at + polar(turn, radius * 0.8F), radius * 0.3F, rgb(0x1E1F1E));
}

void drawSwitch(const Pen& panel, Vec2 where, float size, bool up, std::string_view label) {
    const Pen pen = panel.at(where, size);
    const Vec2 at;
    pen.disc(at, 0.05F, rgb(0x1A1B1B));
    pen.disc(at, 0.042F, rgb(0x9A9E9C));
    pen.disc(at, 0.026F, rgb(0x2A2C2B));
    const Vec2 tip = at + Vec2{0.0F, up ? -0.075F : 0.075F};
    pen.taper(at + Vec2{0.008F, 0.01F}, tip + Vec2{0.012F, 0.014F}, 0.024F, 0.042F, grey(0.0F, 0.5F));
    pen.taper(at, tip, 0.022F, 0.04F, rgb(0xC6CAC8));
    pen.disc(tip - Vec2{0.006F, 0.006F}, 0.011F, rgb(0xF0F2F0));
    drawText(pen, label, at + Vec2{0.0F, 0.14F}, 0.028F, ink, 0.15F);
    drawText(pen, "ON", at + Vec2{0.0F, -0.13F}, 0.022F, ink, 0.15F);
}

void drawLamp(const Pen& pen, Vec2 at, float radius, Color color) {
    pen.disc(at, radius * 1.35F, rgb(0x222323));
    pen.ring(at, radius * 1.2F, radius * 0.2F, rgb(0x8E918E));
    pen.disc(at, radius, shaded(color, 0.55F));
    pen.glow(at - Vec2{radius, radius} * 0.25F, radius * 0.8F, color);
    pen.disc(at - Vec2{radius, radius} * 0.35F, radius * 0.16F, grey(1.0F, 0.7F));
}

} // namespace

void drawInstrumentPanel(Canvas& canvas) {
    paintPanel(canvas, rgb(0x2F3432), 1);
    const Pen pen(canvas);
    const float w = pen.right();
    // The six flying instruments stand in two rows on a panel of their own.
    pen.rect({w / 2.0F - 0.49F, 0.06F}, {w / 2.0F + 0.49F, 0.74F}, rgb(0x1E2221));
    pen.frame({w / 2.0F - 0.49F, 0.06F}, {w / 2.0F + 0.49F, 0.74F}, 0.008F, rgb(0x4C524F));
    const std::array<Instrument, 6> six{Instrument::Airspeed,  Instrument::Horizon, Instrument::Climb,
                                        Instrument::Altimeter, Instrument::Compass, Instrument::TurnAndSlip};
    for (int i = 0; i < 6; ++i) {
        const Vec2 at{w / 2.0F + 0.32F * real(i % 3 - 1), 0.235F + 0.33F * real(i / 3)};
        drawInstrument(pen.at(at, 0.15F), six[static_cast<std::size_t>(i)]);
    }
    drawInstrument(pen.at({w / 2.0F + 0.64F, 0.2F}, 0.125F), Instrument::Revolutions);
    drawInstrument(pen.at({w / 2.0F + 0.64F, 0.48F}, 0.125F), Instrument::Manifold);
    drawInstrument(pen.at({w / 2.0F + 0.64F, 0.75F}, 0.105F), Instrument::Fuel);
    drawInstrument(pen.at({w / 2.0F + 0.87F, 0.34F}, 0.085F), Instrument::OilTemperature);
    drawInstrument(pen.at({w / 2.0F - 0.63F, 0.23F}, 0.12F), Instrument::Clock);
    for (int i = 0; i < 5; ++i) {
        drawSwitch(pen, {w / 2.0F - 0.93F + 0.098F * real(i), 0.56F}, 0.62F, i % 3 != 1,
                   std::array{"MAG", "PUMP", "PITOT", "GUN", "NAV"}[static_cast<std::size_t>(i)]);
    }
    for (int i = 0; i < 4; ++i) {
        drawLamp(pen, {w / 2.0F - 0.94F + 0.054F * real(i), 0.24F}, 0.015F,
                 std::array{rgb(0xD8402C), rgb(0x4CB85A), rgb(0x4CB85A),
                            rgb(0xE8B64C)}[static_cast<std::size_t>(i)]);
    }
    drawText(pen, "UNDERCARRIAGE", {w / 2.0F - 0.86F, 0.3F}, 0.016F, ink, 0.15F);
    drawText(pen, "EMERGENCY BOOST", {w / 2.0F - 0.66F, 0.86F}, 0.026F, rgb(0xD8402C), 0.16F);
    pen.rect({w / 2.0F - 0.26F, 0.795F}, {w / 2.0F + 0.26F, 0.94F}, rgb(0x121413));
    drawText(pen, "MAX DIVE 450 M.P.H.", {w / 2.0F, 0.84F}, 0.024F, ink);
    drawText(pen, "FLAPS BELOW 140", {w / 2.0F, 0.895F}, 0.024F, ink);
    for (const float y : {0.035F, 0.965F}) {
        for (int i = 0; i < 10; ++i)
            drawScrew(pen, {w * (real(i) + 0.5F) / 10.0F, y}, 0.011F, 53.0F * real(i));
    }
}

void drawSwitchPanel(Canvas& canvas) {
    paintPanel(canvas, rgb(0x343835), 5);
    const Pen pen(canvas);
    constexpr std::array<std::string_view, 8> labels{"MAG 1", "MAG 2", "FUEL",  "STARTER",
                                                     "LAMPS", "RADIO", "PITOT", "GUNS"};
    for (int i = 0; i < 8; ++i) {
        const Vec2 at{pen.right() * (real(i % 4) + 0.5F) / 4.0F, 0.28F + 0.45F * real(i / 4)};
        drawSwitch(pen, at, 1.0F, i % 3 != 0, labels[static_cast<std::size_t>(i)]);
    }
    pen.line({0.03F, 0.5F}, {pen.right() - 0.03F, 0.5F}, 0.004F, ink);
    for (const float x : {0.035F, pen.right() - 0.035F}) {
        for (const float y : {0.035F, pen.bottom() - 0.035F})
            drawScrew(pen, {x, y}, 0.016F, 900.0F * x + 70.0F * y);
    }
}

void drawPlacard(Canvas& canvas) {
    paintPanel(canvas, rgb(0x151616), 8);
    const Pen pen(canvas);
    const float w = pen.right();
    pen.frame({0.05F, 0.05F}, {w - 0.05F, pen.bottom() - 0.05F}, 0.015F, rgb(0xB8BBB6));
    drawText(pen, "STARTING", {w / 2.0F, 0.2F}, 0.1F, rgb(0xE8B64C), 0.16F);
    drawText(pen, "1. FUEL ON  PRIME 4", {w / 2.0F, 0.42F}, 0.06F, ink);
    drawText(pen, "2. THROTTLE 1/2 INCH", {w / 2.0F, 0.57F}, 0.06F, ink);
    drawText(pen, "3. MAGS ON  PRESS", {w / 2.0F, 0.72F}, 0.06F, ink);
    for (const float x : {0.11F, w - 0.11F})
        drawScrew(pen, {x, 0.2F}, 0.03F, 400.0F * x);
}

void drawMap(Canvas& canvas) {
    const Pen pen(canvas);
    const float w = pen.right();
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pen.fromPixels(pixel);
        const float land = fractalNoise(p * 2.6F + Vec2{0.4F, 0.1F}, 5, 11) + 0.16F * (p.x / w - 0.45F);
        const float hill = fractalNoise(p * 4.0F, 4, 12);
        const Color paper = shaded(rgb(0xE2D9BC), 0.9F + 0.2F * fractalNoise(p * 30.0F, 3, 13));
        const Color earth =
            mix(mix(paper, rgb(0xA9B888), 0.75F), rgb(0xB58E5E), smoothStep(0.5F, 0.72F, hill));
        const Color ground = mix(mix(paper, rgb(0x8FB2BE), 0.75F), earth, smoothStep(0.498F, 0.502F, land));
        const float contour = std::abs(fraction(hill * 22.0F) - 0.5F) / std::max(0.02F, 0.02F);
        const float onLand = smoothStep(0.51F, 0.52F, land);
        const Color lined = mix(ground, rgb(0x8A6238), 0.45F * onLand * smoothStep(1.6F, 0.6F, contour));
        return mix(lined, rgb(0x2B3A44), smoothStep(0.004F, 0.002F, std::abs(land - 0.5F)));
    });
    for (int i = 1; i < 8; ++i) {
        pen.line({w * real(i) / 8.0F, 0.0F}, {w * real(i) / 8.0F, pen.bottom()}, 0.0015F,
                 rgb(0x2A3A50, 0.6F));
        pen.line({0.0F, pen.bottom() * real(i) / 8.0F}, {w, pen.bottom() * real(i) / 8.0F}, 0.0015F,
                 rgb(0x2A3A50, 0.6F));
        drawText(pen, std::string_view("ABCDEFGH").substr(static_cast<std::size_t>(i), 1),
                 {w * real(i) / 8.0F - 0.06F, 0.028F}, 0.024F, rgb(0x2A3A50));
    }
    const std::array<Vec2, 5> route{
        {{0.16F * w, 0.82F}, {0.34F * w, 0.6F}, {0.55F * w, 0.64F}, {0.7F * w, 0.36F}, {0.86F * w, 0.22F}}};
    pen.polyline(route, 0.005F, rgb(0xB02A20));
    for (const Vec2 at : route) {
        pen.ring(at, 0.018F, 0.005F, rgb(0xB02A20));
        pen.disc(at, 0.005F, rgb(0xB02A20));
    }
    drawText(pen, "BASE", route[0] + Vec2{0.0F, 0.045F}, 0.028F, rgb(0x2B1A14), 0.16F);
    drawText(pen, "TARGET", route[4] + Vec2{0.0F, -0.045F}, 0.028F, rgb(0xB02A20), 0.16F);
    for (const float t : {0.25F, 0.5F, 0.75F}) {
        pen.line({w * t, 0.0F}, {w * t, pen.bottom()}, 0.006F, rgb(0x6A5A3A, 0.22F));
        pen.line({w * t + 0.005F, 0.0F}, {w * t + 0.005F, pen.bottom()}, 0.003F, grey(1.0F, 0.3F));
    }
    pen.frame({0.008F, 0.008F}, {w - 0.008F, pen.bottom() - 0.008F}, 0.005F, rgb(0x2B3A44));
}

void drawSeatHarness(Canvas& canvas) {
    const Pen pen(canvas);
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pen.fromPixels(pixel);
        const float weave = 0.5F + 0.5F * std::sin((p.x + p.y) * 190.0F) * std::sin((p.x - p.y) * 190.0F);
        const float edge = smoothStep(0.0F, 0.1F, std::min(p.x, 1.0F - p.x));
        return shaded(mix(rgb(0x8A7A52), rgb(0xB3A478), weave), 0.62F + 0.38F * edge);
    });
    for (const float x : {0.12F, 0.88F}) {
        for (int i = 0; i < floorInt(pen.bottom() * 10.0F); ++i) {
            pen.line({x, 0.1F * real(i)}, {x, 0.1F * real(i) + 0.06F}, 0.02F, rgb(0xD9CCA0));
        }
    }
    for (int i = 0; i < 3; ++i) {
        const Vec2 at{0.5F, pen.bottom() * (0.2F + 0.3F * real(i))};
        pen.disc(at, 0.16F, rgb(0x7C7F7C));
        pen.disc(at - Vec2{0.02F, 0.02F}, 0.12F, rgb(0xB6B9B6));
        pen.disc(at, 0.08F, rgb(0x15120C));
    }
}

void drawThrottleQuadrant(Canvas& canvas) {
    paintPanel(canvas, rgb(0x2B2E2C), 15);
    const Pen pen(canvas);
    constexpr std::array<std::string_view, 3> labels{"THROTTLE", "PITCH", "MIXTURE"};
    const std::array<Color, 3> knobs{rgb(0x1A1A1A), rgb(0x2E5B8A), rgb(0xA8322A)};
    for (int i = 0; i < 3; ++i) {
        const auto index = static_cast<std::size_t>(i);
        const float y = 0.25F + 0.27F * real(i);
        pen.line({0.15F, y}, {pen.right() - 0.15F, y}, 0.05F, rgb(0x0B0C0B));
        for (int k = 0; k <= 10; ++k) {
            const float x = lerp(0.15F, pen.right() - 0.15F, real(k) / 10.0F);
            pen.line({x, y - 0.06F}, {x, y - 0.035F}, 0.006F, ink);
        }
        const Vec2 at{lerp(0.3F, pen.right() - 0.3F, 0.25F + 0.3F * real(i)), y};
        pen.disc(at + Vec2{0.012F, 0.016F}, 0.07F, grey(0.0F, 0.6F));
        pen.disc(at, 0.065F, knobs[index]);
        pen.glow(at - Vec2{0.02F, 0.02F}, 0.04F, grey(1.0F, 0.6F));
        drawText(pen, labels[index], {pen.right() / 2.0F, y + 0.095F}, 0.036F, ink, 0.15F);
    }
    drawText(pen, "SHUT", {0.13F, 0.08F}, 0.035F, ink);
    drawText(pen, "OPEN", {pen.right() - 0.13F, 0.08F}, 0.035F, ink);
}

} // namespace demo
