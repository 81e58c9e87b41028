#include "instruments.hpp"

#include <array>
#include <string>

#include "noise.hpp"

namespace demo {

namespace {

const Color paint = rgb(0xE6E3D0); // radium paint, a little yellowed
const Color face = rgb(0x131415);

struct Scale {
    float from; // degrees
    float to;
    int majors; // intervals between numbered ticks
    int minors; // parts of such an interval
    int first;  // number at the first tick
    int step;
};

void drawBezel(const Pen& pen) {
    pen.disc({}, 1.0F, rgb(0x2B2C2D));
    pen.ring({-0.008F, -0.008F}, 0.965F, 0.04F, rgb(0x47494B));
    pen.ring({}, 0.9F, 0.03F, rgb(0x0C0C0D));
    for (int i = 0; i < 4; ++i) {
        const Vec2 at = polar(45.0F + 90.0F * real(i), 0.945F);
        pen.disc(at, 0.038F, rgb(0x5A5C5D));
        const Vec2 slot = polar(20.0F + 67.0F * real(i), 0.03F);
        pen.line(at - slot, at + slot, 0.012F, rgb(0x161616));
    }
    pen.disc({}, 0.885F, face);
}

void drawGlass(const Pen& pen) {
    pen.arc({}, 0.74F, 0.22F, 292.0F, 338.0F, grey(1.0F, 0.035F));
    pen.arc({}, 0.74F, 0.1F, 296.0F, 332.0F, grey(1.0F, 0.04F));
    pen.ring({}, 0.865F, 0.05F, grey(0.0F, 0.35F));
}

void drawScale(const Pen& pen, const Scale& scale, bool closed, float textHeight = 0.13F) {
    const int ticks = scale.majors * scale.minors;
    for (int i = 0; i < ticks + (closed ? 0 : 1); ++i) {
        const float degrees = lerp(scale.from, scale.to, real(i) / real(ticks));
        const bool major = i % scale.minors == 0;
        pen.line(polar(degrees, major ? 0.7F : 0.76F), polar(degrees, 0.83F), major ? 0.026F : 0.013F, paint);
        if (!major) continue;
        const int number = scale.first + i / scale.minors * scale.step;
        drawText(pen, std::to_string(number), polar(degrees, 0.57F), textHeight, paint, 0.15F);
    }
}

void drawHand(const Pen& pen, float degrees, float reach, float width, Color color = paint) {
    const Pen turned = pen.at({}, 1.0F, degrees);
    const std::array<Vec2, 5> outline{{{-width * 0.5F, 0.18F},
                                       {width * 0.5F, 0.18F},
                                       {width, -reach * 0.75F},
                                       {0.0F, -reach},
                                       {-width, -reach * 0.75F}}};
    turned.at({0.02F, 0.025F}).polygon(outline, grey(0.0F, 0.45F));
    turned.polygon(outline, color);
    pen.disc({}, 0.085F, rgb(0x1D1E1F));
    pen.disc({-0.012F, -0.012F}, 0.05F, rgb(0x3A3C3D));
}

void drawLegend(const Pen& pen, std::string_view upper, std::string_view lower, float y) {
    drawText(pen, upper, {0.0F, y}, 0.08F, paint, 0.13F);
    drawText(pen, lower, {0.0F, y + 0.14F}, 0.06F, paint, 0.13F);
}

void drawAltimeter(const Pen& pen) {
    drawScale(pen, {0, 360, 10, 5, 0, 1}, true, 0.17F);
    drawLegend(pen, "ALT", "1000 FEET", -0.3F);
    pen.rect({0.16F, -0.075F}, {0.44F, 0.075F}, rgb(0x050505));
    drawText(pen, "1013", {0.3F, 0.0F}, 0.075F, paint);
    pen.frame({0.16F, -0.075F}, {0.44F, 0.075F}, 0.012F, rgb(0x55585A));
    drawHand(pen, 27.0F, 0.36F, 0.035F, rgb(0xC9C4A8));
    drawHand(pen, 262.0F, 0.52F, 0.055F);
    drawHand(pen, 118.0F, 0.8F, 0.032F);
}

void drawAirspeed(const Pen& pen) {
    pen.arc({}, 0.79F, 0.05F, 40.0F, 150.0F, rgb(0x3D7D4A));
    pen.arc({}, 0.79F, 0.05F, 150.0F, 275.0F, rgb(0xB99A2E));
    pen.line(polar(315.0F, 0.68F), polar(315.0F, 0.85F), 0.035F, rgb(0xB5281E));
    drawScale(pen, {10, 340, 9, 5, 0, 50}, false, 0.105F);
    drawLegend(pen, "M.P.H.", "AIR SPEED", -0.24F);
    drawHand(pen, 172.0F, 0.78F, 0.035F);
}

void drawCompassRose(const Pen& pen) {
    for (int i = 0; i < 72; ++i) {
        const float degrees = 5.0F * real(i);
        const bool major = i % 6 == 0;
        pen.line(polar(degrees, major ? 0.68F : (i % 2 == 0 ? 0.74F : 0.77F)), polar(degrees, 0.82F),
                 major ? 0.022F : 0.011F, paint);
        if (!major) continue;
        static constexpr std::array<std::string_view, 12> names{"N", "3",  "6",  "E", "12", "15",
                                                                "S", "21", "24", "W", "30", "33"};
        const auto index = static_cast<std::size_t>(i / 6);
        drawText(pen.at(polar(degrees, 0.56F), 1.0F, degrees), names[index], {},
                 index % 3 == 0 ? 0.16F : 0.11F, index % 3 == 0 ? rgb(0xE8B64C) : paint, 0.16F);
    }
}

void drawCompass(const Pen& pen) {
    drawCompassRose(pen.at({}, 1.0F, -37.0F));
    pen.line({-0.035F, 0.45F}, {-0.035F, -0.4F}, 0.015F, rgb(0xC84C30));
    pen.line({0.035F, 0.45F}, {0.035F, -0.4F}, 0.015F, rgb(0xC84C30));
    pen.polygon(std::array<Vec2, 3>{Vec2{-0.06F, -0.885F}, {0.06F, -0.885F}, {0.0F, -0.76F}}, rgb(0xE8B64C));
    const std::array<Vec2, 12> plane{{{0.0F, -0.3F},
                                      {0.04F, -0.22F},
                                      {0.045F, -0.08F},
                                      {0.3F, 0.03F},
                                      {0.3F, 0.09F},
                                      {0.045F, 0.05F},
                                      {0.03F, 0.24F},
                                      {0.12F, 0.3F},
                                      {0.12F, 0.34F},
                                      {-0.12F, 0.34F},
                                      {-0.12F, 0.3F},
                                      {-0.03F, 0.24F}}};
    pen.polygon(plane, paint);
    pen.polygon(std::array<Vec2, 4>{Vec2{-0.045F, -0.08F}, {-0.3F, 0.03F}, {-0.3F, 0.09F}, {-0.045F, 0.05F}},
                paint);
    pen.rect({-0.046F, -0.22F}, {0.01F, 0.25F}, paint);
}

// The ball of the horizon: sky above the tilted line, ground below it.
void drawHorizon(const Pen& pen) {
    const float tilt = -14.0F;
    const Pen ball = pen.at({0.0F, 0.08F}, 1.0F, tilt);
    const Vec2 middle = pen.toPixels(Vec2{});
    const float radius = 0.84F / pen.pixel();
    pen.canvas().overlay(middle - Vec2{radius, radius}, middle + Vec2{radius, radius}, [&](Vec2 p) {
        const float inside = clamp01(radius + 0.5F - length(p - middle));
        const float y = ball.fromPixels(p).y;
        const Color sky = mix(rgb(0x8FB4CC), rgb(0x35638C), clamp01(-y * 1.3F));
        const Color ground = mix(rgb(0x6D5236), rgb(0x30241A), clamp01(y * 1.3F));
        return withAlpha(mix(sky, ground, smoothStep(-0.006F, 0.006F, y)), inside);
    });
    ball.line({-0.8F, 0.0F}, {0.8F, 0.0F}, 0.018F, paint);
    for (const float y : {-0.36F, -0.18F, 0.18F, 0.36F}) {
        const float half = std::abs(y) > 0.3F ? 0.24F : 0.13F;
        ball.line({-half, y}, {half, y}, 0.013F, paint);
    }
    for (const float degrees : {-60.0F, -30.0F, -15.0F, 0.0F, 15.0F, 30.0F, 60.0F}) {
        pen.line(polar(degrees, 0.72F), polar(degrees, 0.83F), 0.022F, paint);
    }
    const Pen pointer = pen.at({}, 1.0F, tilt);
    pointer.polygon(std::array<Vec2, 3>{Vec2{-0.05F, -0.6F}, {0.05F, -0.6F}, {0.0F, -0.71F}}, rgb(0xE8B64C));
    const Color orange = rgb(0xE8842C);
    pen.line({-0.5F, 0.0F}, {-0.16F, 0.0F}, 0.04F, orange);
    pen.line({0.16F, 0.0F}, {0.5F, 0.0F}, 0.04F, orange);
    pen.arc({}, 0.16F, 0.04F, 90.0F, 270.0F, orange);
    pen.disc({}, 0.035F, orange);
    pen.rect({-0.06F, 0.6F}, {0.06F, 0.88F}, rgb(0x101112));
}

void drawClock(const Pen& pen) {
    for (int i = 0; i < 60; ++i) {
        const bool major = i % 5 == 0;
        pen.line(polar(6.0F * real(i), major ? 0.74F : 0.79F), polar(6.0F * real(i), 0.84F),
                 major ? 0.026F : 0.011F, paint);
        if (major) {
            drawText(pen, std::to_string(i == 0 ? 12 : i / 5), polar(6.0F * real(i), 0.62F), 0.15F, paint,
                     0.16F);
        }
    }
    pen.ring({0.0F, 0.3F}, 0.16F, 0.012F, paint);
    for (int i = 0; i < 12; ++i) {
        pen.line(Vec2{0.0F, 0.3F} + polar(30.0F * real(i), 0.125F),
                 Vec2{0.0F, 0.3F} + polar(30.0F * real(i), 0.16F), 0.01F, paint);
    }
    pen.line({0.0F, 0.3F}, Vec2{0.0F, 0.3F} + polar(215.0F, 0.13F), 0.014F, paint);
    drawText(pen, "8 DAYS", {0.0F, -0.3F}, 0.07F, paint);
    drawHand(pen, 307.0F, 0.48F, 0.04F);
    drawHand(pen, 84.0F, 0.72F, 0.03F);
    pen.line(polar(20.0F, -0.2F), polar(20.0F, 0.78F), 0.012F, rgb(0xC84C30));
}

void drawManifold(const Pen& pen) {
    pen.arc({}, 0.79F, 0.05F, 60.0F, 170.0F, rgb(0x3D7D4A));
    pen.arc({}, 0.79F, 0.05F, 170.0F, 250.0F, rgb(0x3A6A9C));
    pen.line(polar(268.0F, 0.68F), polar(268.0F, 0.85F), 0.035F, rgb(0xB5281E));
    drawScale(pen, {-150, 150, 6, 5, 10, 10}, false, 0.13F);
    drawLegend(pen, "MANIFOLD", "IN. HG", 0.18F);
    drawHand(pen, 45.0F, 0.78F, 0.035F);
}

void drawRevolutions(const Pen& pen) {
    pen.arc({}, 0.79F, 0.05F, 10.0F, 75.0F, rgb(0x3D7D4A));
    pen.line(polar(105.0F, 0.68F), polar(105.0F, 0.85F), 0.035F, rgb(0xB5281E));
    drawScale(pen, {-140, 140, 7, 5, 0, 5}, false, 0.15F);
    drawLegend(pen, "R.P.M.", "HUNDREDS", 0.2F);
    drawHand(pen, 32.0F, 0.78F, 0.035F);
}

void drawOilTemperature(const Pen& pen) {
    pen.arc({}, 0.79F, 0.06F, -20.0F, 60.0F, rgb(0x3D7D4A));
    pen.arc({}, 0.79F, 0.06F, 60.0F, 85.0F, rgb(0xB99A2E));
    pen.arc({}, 0.79F, 0.06F, 85.0F, 110.0F, rgb(0xB5281E));
    drawScale(pen, {-110, 110, 5, 4, 0, 25}, false, 0.14F);
    drawLegend(pen, "OIL", "DEG C", 0.34F);
    drawHand(pen, 38.0F, 0.76F, 0.04F);
}

void drawFuel(const Pen& pen) {
    pen.arc({}, 0.79F, 0.06F, -110.0F, -85.0F, rgb(0xB5281E));
    drawScale(pen, {-110, 110, 4, 4, 0, 20}, false, 0.14F);
    drawLegend(pen, "FUEL", "GALLONS", 0.34F);
    drawText(pen, "E", polar(-128.0F, 0.74F), 0.14F, rgb(0xC84C30), 0.18F);
    drawText(pen, "F", polar(128.0F, 0.74F), 0.14F, paint, 0.18F);
    drawHand(pen, -22.0F, 0.76F, 0.04F);
}

void drawTurnAndSlip(const Pen& pen) {
    for (const float degrees : {-32.0F, 0.0F, 32.0F}) {
        pen.line(polar(degrees, 0.62F), polar(degrees, 0.8F), 0.05F, paint);
    }
    drawText(pen, "L", {-0.6F, -0.15F}, 0.16F, paint);
    drawText(pen, "R", {0.6F, -0.15F}, 0.16F, paint);
    drawText(pen, "TURN", {0.0F, 0.2F}, 0.075F, paint);
    const Pen tube = pen.at({0.0F, -0.62F});
    tube.arc({}, 1.0F, 0.22F, 152.0F, 208.0F, rgb(0x9DA58E));
    tube.arc({}, 0.96F, 0.05F, 153.0F, 207.0F, rgb(0xC9CFBA));
    for (const float degrees : {173.0F, 187.0F}) {
        tube.line(polar(degrees, 0.89F), polar(degrees, 1.11F), 0.018F, rgb(0x17181A));
    }
    tube.disc(polar(177.0F, 1.0F), 0.1F, rgb(0x0D0E0F));
    tube.disc(polar(177.0F, 1.0F) + Vec2{-0.03F, -0.03F}, 0.03F, grey(0.8F));
    drawText(pen, "SLIP", {0.0F, 0.64F}, 0.075F, paint);
    drawHand(pen, -9.0F, 0.6F, 0.04F);
}

void drawClimb(const Pen& pen) {
    for (int i = -8; i <= 8; ++i) {
        const float degrees = -90.0F + 20.0F * real(i);
        const bool major = i % 2 == 0;
        pen.line(polar(degrees, major ? 0.7F : 0.76F), polar(degrees, 0.83F), major ? 0.026F : 0.013F, paint);
        if (major) drawText(pen, std::to_string(std::abs(i) / 2), polar(degrees, 0.56F), 0.15F, paint, 0.16F);
    }
    drawText(pen, "CLIMB", {0.08F, -0.27F}, 0.08F, paint);
    drawText(pen, "DIVE", {0.08F, 0.28F}, 0.08F, paint);
    drawHand(pen, -66.0F, 0.78F, 0.035F);
}

} // namespace

void drawInstrument(const Pen& pen, Instrument instrument) {
    drawBezel(pen);
    switch (instrument) {
    case Instrument::Altimeter:
        drawAltimeter(pen);
        break;
    case Instrument::Airspeed:
        drawAirspeed(pen);
        break;
    case Instrument::Compass:
        drawCompass(pen);
        break;
    case Instrument::Horizon:
        drawHorizon(pen);
        break;
    case Instrument::Clock:
        drawClock(pen);
        break;
    case Instrument::Manifold:
        drawManifold(pen);
        break;
    case Instrument::Revolutions:
        drawRevolutions(pen);
        break;
    case Instrument::OilTemperature:
        drawOilTemperature(pen);
        break;
    case Instrument::Fuel:
        drawFuel(pen);
        break;
    case Instrument::TurnAndSlip:
        drawTurnAndSlip(pen);
        break;
    case Instrument::Climb:
        drawClimb(pen);
        break;
    }
    drawGlass(pen);
}

void drawInstrument(Canvas& canvas, Instrument instrument) {
    canvas.paint([](Vec2 p) { return shaded(rgb(0x3B3E3C), 0.9F + 0.2F * fractalNoise(p * 0.35F, 2, 5)); });
    const Pen pen(canvas);
    drawInstrument(pen.at({pen.right() / 2.0F, pen.bottom() / 2.0F}, 0.485F), instrument);
}

void drawNeedle(Canvas& canvas) {
    const Pen pen(canvas);
    const float x = pen.right() / 2.0F;
    pen.taper({x, pen.bottom() * 0.8F}, {x, pen.bottom() * 0.12F}, 0.34F, 0.5F, paint);
    pen.polygon(std::array<Vec2, 3>{Vec2{x - 0.25F, pen.bottom() * 0.12F},
                                    {x + 0.25F, pen.bottom() * 0.12F},
                                    {x, pen.bottom() * 0.01F}},
                paint);
    pen.disc({x, pen.bottom() * 0.85F}, 0.46F, rgb(0x202122));
    pen.disc({x, pen.bottom() * 0.85F}, 0.2F, rgb(0x5A5C5D));
}

void drawCompassStrip(Canvas& canvas) {
    canvas.paint([](Vec2) { return face; });
    const Pen pen(canvas);
    for (int i = 0; i < 72; ++i) {
        const float x = (real(i) + 0.5F) / 72.0F * pen.right();
        const bool major = i % 6 == 0;
        pen.line({x, major ? 0.68F : 0.8F}, {x, 0.97F}, major ? 0.045F : 0.025F, paint);
        if (!major) continue;
        static constexpr std::array<std::string_view, 12> names{"N", "3",  "6",  "E", "12", "15",
                                                                "S", "21", "24", "W", "30", "33"};
        drawText(pen, names[static_cast<std::size_t>(i / 6)], {x, 0.36F}, 0.32F, paint, 0.17F);
    }
}

} // namespace demo
