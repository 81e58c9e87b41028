#include "skins.hpp"

#include <array>

#include "airframe.hpp"

namespace demo {

namespace {

void drawGearDoor(const Pen& pen, const SkinStyle& style) {
    const std::array<Vec2, 4> outline{{{0.0F, 0.0F}, {1.0F, 0.1F}, {1.0F, 0.45F}, {0.0F, 0.55F}}};
    const Part part(pen, outline);
    part.coat([&](Vec2 p) { return lowerPaint(style.scheme, p * 0.1F + Vec2{7.0F, 7.0F}); });
    hatch(pen, {0.1F, 0.12F}, {0.9F, 0.44F});
    rivetRow(pen, {0.05F, 0.08F}, {0.95F, 0.14F}, 0.07F);
    rivetRow(pen, {0.05F, 0.47F}, {0.95F, 0.42F}, 0.07F);
    part.weather({0.0F, 1.0F}, style.wear, style.scheme.seed + 60U, [](Vec2) { return 0.2F; });
    part.edge(outline);
}

void drawSpinnerDisc(const Pen& pen, const SkinStyle& style) {
    pen.disc({}, 1.0F, shaded(style.spinner, 0.8F));
    pen.disc({-0.15F, -0.15F}, 0.72F, style.spinner);
    pen.ring({}, 0.97F, 0.05F, grey(0.05F, 0.8F));
    for (int i = 0; i < 3; ++i)
        pen.ellipse(polar(120.0F * real(i), 0.66F), {0.16F, 0.16F}, rgb(0x151617));
    pen.disc({}, 0.08F, grey(0.1F));
}

SkinStyle temperate() {
    return {
        .scheme = {Pattern::Bands, rgb(0x4F553C), rgb(0x5B4A38), rgb(0x9FAAA6), 11},
        .insignia = Insignia::Rings,
        .code = "KV",
        .letter = "R",
        .serial = "R7413",
        .codeColor = rgb(0xA7ADA4),
        .spinner = rgb(0x8E9A8C),
        .band = rgb(0x9AA79C),
        .wear = 0.55F,
    };
}

SkinStyle desert() {
    return {
        .scheme = {Pattern::Bands, rgb(0xB59A6B), rgb(0x7B6143), rgb(0x7FA0B4), 23},
        .insignia = Insignia::Halves,
        .code = "GA",
        .letter = "S",
        .serial = "EK218",
        .codeColor = rgb(0xE3DDCA),
        .spinner = rgb(0x8E2B24),
        .radial = true,
        .sharkMouth = true,
        .wear = 0.9F,
    };
}

SkinStyle bareMetal() {
    return {
        .scheme = {Pattern::Metal, rgb(0xA5AAAD), rgb(0xC2C6C6), rgb(0xA5AAAD), 37},
        .insignia = Insignia::Star,
        .code = "5H",
        .letter = "B",
        .serial = "414906",
        .codeColor = rgb(0x1C1E20),
        .spinner = rgb(0xA63A2B),
        .band = rgb(0xD0A032),
        .wear = 0.35F,
    };
}

SkinStyle splinter() {
    return {
        .scheme = {Pattern::Splinter, rgb(0x55604F), rgb(0x3A423B), rgb(0x93A7AE), 41},
        .insignia = Insignia::Diamond,
        .code = "4",
        .letter = "<",
        .serial = "W1187",
        .codeColor = rgb(0xD8CFA8),
        .spinner = rgb(0xC9A52F),
        .band = rgb(0xC9A52F),
        .wear = 0.45F,
    };
}

SkinStyle mottled() {
    return {
        .scheme = {Pattern::Mottle, rgb(0x8F9A98), rgb(0x4B5450), rgb(0xA5B3B7), 53},
        .insignia = Insignia::Diamond,
        .code = "12",
        .letter = "-",
        .serial = "W4460",
        .codeColor = rgb(0x1A1B1C),
        .spinner = rgb(0x232F2A),
        .radial = true,
        .wear = 0.6F,
    };
}

SkinStyle winter() {
    return {
        .scheme = {Pattern::Whitewash, rgb(0x4E5A3D), rgb(0x2F362C), rgb(0x8FB0C6), 67},
        .insignia = Insignia::Star,
        .code = "27",
        .serial = "0935",
        .codeColor = rgb(0xA3261F),
        .spinner = rgb(0xA3261F),
        .wear = 0.8F,
    };
}

SkinStyle naval() {
    return {
        .scheme = {Pattern::Plain, rgb(0x33485C), rgb(0x33485C), rgb(0xB9BFBE), 71},
        .insignia = Insignia::Star,
        .code = "F",
        .letter = "18",
        .serial = "50214",
        .codeColor = rgb(0xDDDCD2),
        .spinner = rgb(0x1E2B38),
        .radial = true,
        .wear = 0.7F,
    };
}

SkinStyle night() {
    return {
        .scheme = {Pattern::Plain, rgb(0x26282A), rgb(0x26282A), rgb(0x1B1C1D), 83},
        .insignia = Insignia::Rings,
        .code = "ZJ",
        .letter = "N",
        .serial = "HB862",
        .codeColor = rgb(0x8E2F28),
        .spinner = rgb(0x1B1C1D),
        .wear = 0.75F,
    };
}

SkinStyle trainer() {
    return {
        .scheme = {Pattern::Plain, rgb(0xD3A02B), rgb(0xD3A02B), rgb(0xC6962A), 97},
        .insignia = Insignia::Rings,
        .code = "T",
        .letter = "6",
        .serial = "FT301",
        .codeColor = rgb(0x1C1E20),
        .spinner = rgb(0x1F3B63),
        .wear = 0.4F,
    };
}

SkinStyle styleOf(Skin skin) {
    switch (skin) {
    case Skin::Temperate:
        return temperate();
    case Skin::Desert:
        return desert();
    case Skin::BareMetal:
        return bareMetal();
    case Skin::Splinter:
        return splinter();
    case Skin::Mottled:
        return mottled();
    case Skin::Winter:
        return winter();
    case Skin::Naval:
        return naval();
    case Skin::Night:
        return night();
    case Skin::Trainer:
        return trainer();
    }
    return temperate();
}

void drawRegistrationMarks(const Pen& pen) {
    for (const Vec2 p : {Vec2{0.015F, 0.015F}, {0.985F, 0.015F}, {0.015F, 0.985F}, {0.985F, 0.985F}}) {
        pen.line({p.x - 0.01F, p.y}, {p.x + 0.01F, p.y}, 0.001F, grey(0.9F, 0.6F));
        pen.line({p.x, p.y - 0.01F}, {p.x, p.y + 0.01F}, 0.001F, grey(0.9F, 0.6F));
    }
}

} // namespace

void drawSkinSheet(Canvas& canvas, Skin skin) {
    const SkinStyle style = styleOf(skin);
    const Pen pen(canvas);
    drawRegistrationMarks(pen);
    drawFuselageSide(pen.at({0.03F, 0.195F}, 0.94F), style, false);
    drawFuselageSide(pen.at({0.97F, 0.45F}, 0.94F).mirrored(), style, true);
    drawWing(pen.at({0.505F, 0.555F}, 0.475F), style, true, false);
    drawWing(pen.at({0.495F, 0.555F}, 0.475F).mirrored(), style, true, true);
    drawWing(pen.at({0.505F, 0.775F}, 0.475F), style, false, false);
    drawWing(pen.at({0.495F, 0.775F}, 0.475F).mirrored(), style, false, true);
    for (const bool upper : {true, false}) {
        const float x = upper ? 0.19F : 0.8F;
        const float y = upper ? 0.03F : 0.27F;
        drawTailplane(pen.at({x + 0.003F, y}, 0.145F), style, upper);
        drawTailplane(pen.at({x - 0.003F, y}, 0.145F).mirrored(), style, upper);
    }
    drawGearDoor(pen.at({0.55F, 0.035F}, 0.1F), style);
    drawGearDoor(pen.at({0.78F, 0.035F}, 0.1F).mirrored(), style);
    drawSpinnerDisc(pen.at({0.44F, 0.05F}, 0.028F), style);
    drawSpinnerDisc(pen.at({0.51F, 0.05F}, 0.02F), style);
}

void drawFuselageSheet(Canvas& canvas, Skin skin) {
    const Pen pen(canvas);
    drawFuselageSide(pen.at({0.1F, 0.64F}, 3.85F), styleOf(skin), false);
}

void drawWingSheet(Canvas& canvas, Skin skin, bool upper) {
    const Pen pen(canvas);
    const float scale = pen.right() > 2.0F ? 0.48F * pen.right() : 0.9F;
    const float top = (1.0F - 0.425F * scale) / 2.0F;
    drawWing(pen.at({pen.right() / 2.0F + 0.01F, top}, scale), styleOf(skin), upper, false);
    drawWing(pen.at({pen.right() / 2.0F - 0.01F, top}, scale).mirrored(), styleOf(skin), upper, true);
}

} // namespace demo
