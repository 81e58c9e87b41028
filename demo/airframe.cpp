#include "airframe.hpp"

#include <array>

namespace demo {

Part::Part(const Pen& pen, std::span<const Vec2> outline)
    : pen_(pen), mask_(pen.canvas().width(), pen.canvas().height()) {
    const std::vector<Vec2> points = pen.toPixels(outline);
    mask_.addPolygon(points);
    low_ = high_ = points.front();
    for (const Vec2 p : points) {
        low_ = {std::min(low_.x, p.x), std::min(low_.y, p.y)};
        high_ = {std::max(high_.x, p.x), std::max(high_.y, p.y)};
    }
    pen.canvas().setClip(&mask_);
}

void Part::edge(std::span<const Vec2> outline) const {
    for (std::size_t i = 0; i < outline.size(); ++i) {
        pen_.line(outline[i], outline[(i + 1) % outline.size()], 2.0F * pen_.pixel(), grey(0.05F, 0.4F));
    }
}

Color Part::dirtAt(Vec2 p, Vec2 flow, float wear, std::uint32_t seed) {
    const float along = dot(p, flow);
    const float across = p.x * flow.y + p.y * flow.x;
    const float streak = fractalNoise({along * 7.0F, across * 130.0F}, 2, seed + 40U);
    const float cloud = fractalNoise(p * 9.0F, 3, seed + 41U);
    const float dirt =
        wear * (smoothStep(0.5F, 0.8F, streak) * 0.3F + smoothStep(0.5F, 0.75F, cloud) * 0.22F);
    const float bleach = wear * smoothStep(0.5F, 0.2F, cloud) * 0.2F;
    return dirt > bleach ? withAlpha(rgb(0x2A261F), dirt) : withAlpha(rgb(0xD8D4C4), bleach);
}

Color Part::chipAt(Vec2 p, float amount, std::uint32_t seed) {
    const float field = fractalNoise(p * 170.0F, 3, seed + 42U);
    const float reach = 0.78F - 0.23F * amount;
    return withAlpha(rgb(0xB4B8B8), 0.85F * smoothStep(reach, reach + 0.025F, field));
}

namespace {

// The root is a straight cut; its doubled corners keep the curve from rounding it.
constexpr std::array<Vec2, 12> wingKnots{{{0.0F, 0.0F},
                                          {0.0F, 0.0F},
                                          {0.3F, 0.012F},
                                          {0.62F, 0.045F},
                                          {0.84F, 0.095F},
                                          {0.96F, 0.165F},
                                          {0.995F, 0.235F},
                                          {0.94F, 0.30F},
                                          {0.72F, 0.365F},
                                          {0.38F, 0.41F},
                                          {0.0F, 0.425F},
                                          {0.0F, 0.425F}}};

// The point at the part `chord` (0 leading .. 1 trailing edge) of the wing `x` away from the root.
Vec2 onWing(float x, float chord) {
    const float taper = x * x;
    return {x, lerp(0.005F + 0.13F * taper, 0.425F - 0.115F * taper, chord)};
}

void drawWingPanels(const Pen& pen) {
    for (const float chord : {0.14F, 0.34F, 0.58F, 0.72F}) {
        for (int i = 0; i < 16; ++i) {
            const float x = real(i) / 16.0F;
            panelLine(pen, onWing(x, chord), onWing(x + 0.0625F, chord), 0.8F);
            rivetRow(pen, onWing(x, chord + 0.02F), onWing(x + 0.0625F, chord + 0.02F), 0.0115F);
        }
    }
    for (int i = 1; i < 15; ++i) {
        const float x = 0.066F * real(i);
        panelLine(pen, onWing(x, 0.0F), onWing(x, 0.72F), i % 3 == 0 ? 0.9F : 0.35F);
        rivetRow(pen, onWing(x + 0.006F, 0.0F), onWing(x + 0.006F, 0.72F), 0.0115F, 0.8F);
    }
}

void drawControlSurfaces(const Pen& pen) {
    const auto gap = [&](Vec2 a, Vec2 b) { pen.line(a, b, 3.0F * pen.pixel(), grey(0.04F, 0.75F)); };
    gap(onWing(0.04F, 0.74F), onWing(0.5F, 0.76F));
    gap(onWing(0.5F, 0.76F), onWing(0.9F, 0.78F));
    for (const float x : {0.04F, 0.5F, 0.9F})
        gap(onWing(x, 0.755F), onWing(x, 1.02F));
    hatch(pen, onWing(0.66F, 0.9F), onWing(0.76F, 0.97F));
    for (int i = 0; i < 10; ++i) {
        const float x = 0.53F + 0.04F * real(i);
        panelLine(pen, onWing(x, 0.79F), onWing(x, 1.0F), 0.35F);
    }
}

void drawGunBays(const Pen& pen, const SkinStyle& style, bool upper) {
    hatch(pen, onWing(0.27F, 0.18F), onWing(0.35F, 0.32F));
    hatch(pen, onWing(0.37F, 0.18F), onWing(0.45F, 0.32F));
    hatch(pen, onWing(0.29F, 0.4F), onWing(0.43F, 0.55F));
    for (const float x : {0.29F, 0.335F, 0.39F}) {
        pen.ellipse(onWing(x, 0.012F), {0.005F, 0.008F}, rgb(0x131313));
        pen.streak(onWing(x, 0.02F), onWing(x, upper ? 0.5F : 0.8F), 0.018F,
                   rgb(0x15120F, 0.6F * style.wear));
    }
}

void drawWheelWell(const Pen& pen) {
    pen.line({0.12F, 0.2F}, {0.36F, 0.16F}, 0.05F, rgb(0x1D1E1B));
    pen.disc({0.12F, 0.2F}, 0.062F, rgb(0x1D1E1B));
    pen.disc({0.12F, 0.2F}, 0.05F, rgb(0x262623));
    pen.ring({0.12F, 0.2F}, 0.03F, 0.006F, rgb(0x4A4B46));
    pen.disc({0.12F, 0.2F}, 0.014F, rgb(0x6A6B64));
    pen.line({0.16F, 0.193F}, {0.36F, 0.16F}, 0.016F, rgb(0x6A6D6A));
    pen.ring({0.12F, 0.2F}, 0.063F, 0.003F, grey(0.8F, 0.25F));
}

void drawWingFittings(const Pen& pen, const SkinStyle& style, bool upper, bool port) {
    if (!upper) {
        drawWheelWell(pen);
        hatch(pen, onWing(0.5F, 0.4F), onWing(0.57F, 0.52F));
        return;
    }
    for (int i = 0; i < 16; ++i) {
        const float y = 0.05F + 0.018F * real(i);
        pen.line({0.065F, y}, {0.065F, y + 0.01F}, 0.003F, withAlpha(style.codeColor, 0.6F));
    }
    pen.disc({0.17F, 0.1F}, 0.012F, rgb(0xA93226));
    pen.ring({0.17F, 0.1F}, 0.012F, 0.002F, rgb(0x201510));
    pen.glow({0.975F, 0.235F}, 0.02F, rgb(port ? 0xC23A2A : 0x2EA360));
}

} // namespace

void drawWing(const Pen& pen, const SkinStyle& style, bool upper, bool mirroredView) {
    const std::vector<Vec2> outline = closedCurve(wingKnots);
    const Part part(pen, outline);
    const std::uint32_t seed = style.scheme.seed + (upper ? 3U : 4U) + (mirroredView ? 7U : 0U);
    // The other half of the wing carries another stretch of the pattern.
    const float side = mirroredView ? 3.0F : 1.0F;
    part.coat([&](Vec2 p) {
        const Vec2 onAircraft = p * 0.55F + Vec2{side, 2.0F};
        return upper ? upperPaint(style.scheme, onAircraft) : lowerPaint(style.scheme, onAircraft);
    });
    part.coat([&](Vec2 p) {
        const float sheet = hashed(floorInt(p.x / 0.066F), floorInt(p.y / 0.11F), seed) - 0.5F;
        return grey(sheet > 0.0F ? 1.0F : 0.0F, 0.08F * std::abs(sheet));
    });
    drawInsignia(mirroredView ? pen.at({0.66F, 0.2F}).mirrored() : pen.at({0.66F, 0.2F}), {}, 0.115F,
                 style.insignia);
    drawWingPanels(pen);
    drawControlSurfaces(pen);
    drawGunBays(pen, style, upper);
    drawWingFittings(pen, style, upper, mirroredView);
    part.weather({0.0F, 1.0F}, style.wear, seed, [&](Vec2 p) {
        const float leading = 1.0F - smoothStep(0.0F, 0.05F, p.y - 0.13F * p.x * p.x);
        const float root = upper ? 1.0F - smoothStep(0.02F, 0.13F, p.x) : 0.0F;
        return std::max(leading, root);
    });
    part.coat([](Vec2 p) {
        const float chord = (p.y - 0.13F * p.x * p.x) / 0.42F;
        return grey(chord < 0.3F ? 1.0F : 0.0F, 0.16F * std::abs(chord - 0.3F));
    });
    part.edge(outline);
}

void drawTailplane(const Pen& pen, const SkinStyle& style, bool upper) {
    const std::array<Vec2, 10> knots{{{0.0F, 0.0F},
                                      {0.0F, 0.0F},
                                      {0.4F, 0.05F},
                                      {0.8F, 0.14F},
                                      {0.98F, 0.26F},
                                      {0.96F, 0.40F},
                                      {0.7F, 0.48F},
                                      {0.35F, 0.5F},
                                      {0.0F, 0.5F},
                                      {0.0F, 0.5F}}};
    const std::vector<Vec2> outline = closedCurve(knots);
    const Part part(pen, outline);
    part.coat([&](Vec2 p) {
        const Vec2 onAircraft = p * 0.2F + Vec2{5.0F, 1.0F};
        return upper ? upperPaint(style.scheme, onAircraft) : lowerPaint(style.scheme, onAircraft);
    });
    for (const float x : {0.2F, 0.4F, 0.6F, 0.8F}) {
        panelLine(pen, {x, 0.0F}, {x, 0.5F}, 0.5F);
        rivetRow(pen, {x + 0.02F, 0.0F}, {x + 0.02F, 0.3F}, 0.035F);
    }
    pen.line({0.0F, 0.3F}, {1.0F, 0.3F}, 3.0F * pen.pixel(), grey(0.04F, 0.7F));
    panelLine(pen, {0.0F, 0.14F}, {0.9F, 0.2F});
    hatch(pen, {0.3F, 0.42F}, {0.6F, 0.48F});
    part.weather({0.0F, 1.0F}, style.wear, style.scheme.seed + 11U,
                 [](Vec2 p) { return 1.0F - smoothStep(0.0F, 0.08F, p.y - 0.15F * p.x * p.x); });
    part.edge(outline);
}

} // namespace demo
