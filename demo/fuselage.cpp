#include <array>

#include "airframe.hpp"

namespace demo {

namespace {

constexpr std::array<Vec2, 27> pointedNose{
    {{0.0F, 0.0F},      {0.012F, -0.024F}, {0.05F, -0.046F}, {0.15F, -0.062F}, {0.26F, -0.068F},
     {0.345F, -0.071F}, {0.37F, -0.083F},  {0.4F, -0.108F},  {0.45F, -0.114F}, {0.5F, -0.1F},
     {0.56F, -0.081F},  {0.68F, -0.062F},  {0.8F, -0.047F},  {0.845F, -0.06F}, {0.875F, -0.12F},
     {0.905F, -0.158F}, {0.94F, -0.165F},  {0.968F, -0.14F}, {0.98F, -0.08F},  {0.978F, -0.02F},
     {0.955F, 0.012F},  {0.88F, 0.022F},   {0.72F, 0.045F},  {0.5F, 0.07F},    {0.3F, 0.08F},
     {0.12F, 0.066F},   {0.02F, 0.03F}}};

std::vector<Vec2> fuselageOutline(bool radial) {
    std::array<Vec2, 27> knots = pointedNose;
    if (radial) {
        for (Vec2& p : knots) {
            if (p.x < 0.3F) p.y *= lerp(1.75F, 1.0F, p.x / 0.3F);
        }
        knots[1] = {0.002F, -0.062F};
        knots[2] = {0.03F, -0.082F};
        knots[26] = {0.004F, 0.062F};
    }
    return closedCurve(knots);
}

void drawSpinner(const Pen& pen, const SkinStyle& style) {
    if (style.radial) {
        pen.rect({0.0F, -0.2F}, {0.022F, 0.2F}, style.spinner);
        panelLine(pen, {0.022F, -0.2F}, {0.022F, 0.2F});
        return;
    }
    pen.rect({0.0F, -0.1F}, {0.052F, 0.1F}, style.spinner);
    pen.ellipse({0.035F, 0.0F}, {0.009F, 0.014F}, rgb(0x18191A));
    pen.line({0.052F, -0.1F}, {0.052F, 0.1F}, 0.0025F, grey(0.05F, 0.8F));
}

void drawFrames(const Pen& pen) {
    for (int i = 0; i < 11; ++i) {
        const float x = 0.335F + 0.0525F * real(i);
        panelLine(pen, {x, -0.075F}, {x, 0.09F}, i % 2 == 0 ? 1.0F : 0.45F);
        rivetRow(pen, {x + 0.003F, -0.07F}, {x + 0.003F, 0.08F}, 0.0056F);
        rivetRow(pen, {x - 0.003F, -0.07F}, {x - 0.003F, 0.08F}, 0.0056F, 0.7F);
    }
    for (const float y : {-0.042F, -0.012F, 0.018F, 0.046F}) {
        panelLine(pen, {0.335F, y}, {0.87F, y * 0.6F - 0.006F}, 0.5F);
        rivetRow(pen, {0.335F, y + 0.004F}, {0.87F, y * 0.6F - 0.002F}, 0.0056F, 0.8F);
    }
}

void drawCowling(const Pen& pen, const SkinStyle& style) {
    panelLine(pen, {0.25F, -0.1F}, {0.25F, 0.1F}, 1.2F);
    panelLine(pen, {0.052F, -0.028F}, {0.335F, -0.034F});
    panelLine(pen, {0.052F, 0.024F}, {0.335F, 0.03F});
    panelLine(pen, {0.15F, 0.026F}, {0.15F, 0.1F});
    panelLine(pen, {0.16F, -0.1F}, {0.16F, -0.031F}, 0.7F);
    for (int i = 0; i < 14; ++i) {
        const float x = 0.062F + 0.0205F * real(i);
        for (const float y : {-0.0245F, 0.0205F}) {
            pen.disc({x, y - 0.01F * (x - 0.05F)}, 0.0017F, grey(0.06F, 0.7F));
            pen.disc({x + 0.0004F, y - 0.01F * (x - 0.05F) + 0.0004F}, 0.0007F, grey(0.8F, 0.5F));
        }
    }
    hatch(pen, {0.265F, -0.02F}, {0.322F, 0.018F});
    if (!style.radial) return;
    for (int i = 0; i < 9; ++i) {
        const float y = -0.075F + 0.019F * real(i);
        pen.line({0.235F, y}, {0.25F, y}, 0.0022F, grey(0.04F, 0.85F));
        panelLine(pen, {0.205F, y + 0.009F}, {0.25F, y + 0.009F}, 0.9F);
    }
}

void drawExhausts(const Pen& pen, const SkinStyle& style) {
    const float y = style.radial ? 0.045F : -0.036F;
    const float back = style.radial ? 0.25F : 0.2F;
    for (int i = 0; i < 6; ++i) {
        const float start = back + 0.012F * real(i) - 0.03F;
        pen.streak({start, y + 0.002F * real(i % 3)}, {start + 0.34F, y + 0.012F}, 0.036F,
                   rgb(0x14110E, 0.13F + 0.2F * style.wear));
    }
    pen.streak({back, y}, {back + 0.2F, y + 0.005F}, 0.022F, rgb(0x8A8273, 0.3F * style.wear));
    for (int i = 0; i < (style.radial ? 3 : 6); ++i) {
        const float x = back - 0.018F * real(i) - 0.012F;
        pen.line({x, y}, {x + 0.011F, y + 0.001F}, 0.0085F, rgb(0x1B1715));
        pen.line({x + 0.001F, y - 0.0015F}, {x + 0.009F, y - 0.001F}, 0.004F, rgb(0x6B4A36));
        pen.disc({x + 0.011F, y + 0.001F}, 0.0026F, rgb(0x0A0909));
    }
}

void drawCanopy(const Pen& pen) {
    const std::array<Vec2, 8> glass{{{0.352F, -0.0715F},
                                     {0.372F, -0.088F},
                                     {0.4F, -0.113F},
                                     {0.45F, -0.12F},
                                     {0.5F, -0.106F},
                                     {0.555F, -0.0815F},
                                     {0.53F, -0.066F},
                                     {0.38F, -0.066F}}};
    pen.polygon(glass, rgb(0x243642));
    pen.polygon(
        std::array<Vec2, 4>{Vec2{0.395F, -0.12F}, {0.425F, -0.12F}, {0.41F, -0.06F}, {0.385F, -0.06F}},
        rgb(0xBFD4DC, 0.28F));
    pen.polygon(
        std::array<Vec2, 4>{Vec2{0.475F, -0.12F}, {0.483F, -0.12F}, {0.469F, -0.06F}, {0.46F, -0.06F}},
        rgb(0xBFD4DC, 0.22F));
    const Color bar = rgb(0x3C3F38);
    for (const Vec2 at : {Vec2{0.385F, 0.402F}, {0.432F, 0.434F}, {0.478F, 0.476F}, {0.51F, 0.505F}}) {
        pen.line({at.x, -0.06F}, {at.y, -0.125F}, 0.0032F, bar);
    }
    pen.line({0.345F, -0.069F}, {0.57F, -0.069F}, 0.004F, bar);
    rivetRow(pen, {0.36F, -0.069F}, {0.55F, -0.069F}, 0.005F);
}

void drawTail(const Pen& pen, const SkinStyle& style) {
    pen.line({0.932F, -0.2F}, {0.926F, 0.05F}, 0.0024F, grey(0.04F, 0.8F));
    for (int i = 0; i < 7; ++i) {
        const float y = -0.145F + 0.021F * real(i);
        panelLine(pen, {0.931F, y}, {0.99F, y + 0.003F}, 0.4F);
    }
    hatch(pen, {0.956F, -0.09F}, {0.972F, -0.045F});
    for (const float y : {-0.125F, -0.085F, -0.05F}) {
        panelLine(pen, {0.85F, y}, {0.93F, y}, 0.7F);
        rivetRow(pen, {0.85F, y + 0.003F}, {0.93F, y + 0.003F}, 0.0056F);
    }
    panelLine(pen, {0.83F, -0.05F}, {0.93F, -0.03F});
    pen.ellipse({0.89F, -0.012F}, {0.04F, 0.008F}, grey(0.0F, 0.25F));
    drawFinFlash(pen, {0.893F, -0.118F}, {0.923F, -0.072F}, style.insignia);
}

void drawWingRoot(const Pen& pen) {
    const std::array<Vec2, 6> knots{{{0.27F, 0.058F},
                                     {0.33F, 0.042F},
                                     {0.43F, 0.04F},
                                     {0.54F, 0.054F},
                                     {0.47F, 0.062F},
                                     {0.34F, 0.064F}}};
    const std::vector<Vec2> root = closedCurve(knots);
    pen.polygon(root, grey(0.06F, 0.5F));
    const std::array<Vec2, 5> fillet{
        {{0.25F, 0.055F}, {0.33F, 0.026F}, {0.44F, 0.024F}, {0.53F, 0.042F}, {0.6F, 0.07F}}};
    panelLines(pen, fillet);
}

void drawStencils(const Pen& readable, const SkinStyle& style, bool mirroredView) {
    const auto x = [mirroredView](float at) { return mirroredView ? -at : at; };
    const Color ink = withAlpha(style.codeColor, 0.85F);
    drawText(readable, style.serial, {x(0.842F), -0.012F}, 0.0125F, ink);
    drawText(readable, "NO STEP", {x(0.47F), 0.033F}, 0.0055F, ink);
    drawText(readable, "100 OCT", {x(0.295F), -0.048F}, 0.006F, ink);
    drawText(readable, "LIFT HERE", {x(0.845F), 0.012F}, 0.0055F, ink);
    drawText(readable, "FIRST AID", {x(0.585F), 0.032F}, 0.0055F, ink);
    readable.rect({x(0.585F) - 0.004F, 0.038F}, {x(0.585F) + 0.004F, 0.046F}, rgb(0xA32A22));
    readable.disc({x(0.295F), -0.058F}, 0.004F, rgb(0xA93226));
}

void drawCodes(const Pen& readable, const SkinStyle& style, bool mirroredView) {
    const auto x = [mirroredView](float at) { return mirroredView ? -at : at; };
    drawInsignia(readable, {x(0.655F), -0.008F}, 0.04F, style.insignia);
    drawText(readable, style.code, {x(0.54F), -0.009F}, 0.054F, style.codeColor, 0.17F);
    drawText(readable, style.letter, {x(0.742F), -0.009F}, 0.054F, style.codeColor, 0.17F);
}

} // namespace

void drawFuselageSide(const Pen& pen, const SkinStyle& style, bool mirroredView) {
    const std::vector<Vec2> outline = fuselageOutline(style.radial);
    const Part part(pen, outline);
    const std::uint32_t seed = style.scheme.seed + (mirroredView ? 50U : 0U);
    const Vec2 shift{mirroredView ? 9.0F : 0.0F, 0.0F};
    part.coat([&](Vec2 p) {
        const float edge = 0.034F - 0.03F * smoothStep(0.5F, 1.0F, p.x);
        return sidePaint(style.scheme, p + shift, edge);
    });
    part.coat([&](Vec2 p) {
        const float sheet = hashed(floorInt((p.x - 0.335F) / 0.0525F), floorInt(p.y / 0.03F), seed) - 0.5F;
        return grey(sheet > 0.0F ? 1.0F : 0.0F, 0.08F * std::abs(sheet));
    });
    if (style.band.a > 0.0F) pen.rect({0.775F, -0.1F}, {0.8F, 0.1F}, style.band);
    drawFrames(pen);
    drawCowling(pen, style);
    drawSpinner(pen, style);
    drawWingRoot(pen);
    drawTail(pen, style);
    if (style.sharkMouth) drawSharkMouth(pen.at({0.055F, 0.02F}));
    const Pen readable = mirroredView ? pen.mirrored() : pen;
    drawCodes(readable, style, mirroredView);
    drawStencils(readable, style, mirroredView);
    part.weather({1.0F, 0.0F}, style.wear, seed, [](Vec2 p) {
        const float nose = 1.0F - smoothStep(0.05F, 0.12F, p.x);
        const float root = 1.0F - smoothStep(0.0F, 0.05F, length(p - Vec2{0.43F, 0.045F}));
        return std::max(0.6F * nose, 0.9F * root);
    });
    drawExhausts(pen, style);
    part.coat([](Vec2 p) {
        return p.y < -0.02F ? grey(1.0F, 1.2F * std::min(0.09F, -0.02F - p.y))
                            : grey(0.0F, 3.2F * std::min(0.1F, p.y + 0.02F));
    });
    drawCanopy(pen);
    part.edge(outline);
}

} // namespace demo
