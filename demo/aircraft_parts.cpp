#include "aircraft_parts.hpp"

#include <array>

#include "marks.hpp"
#include "noise.hpp"

namespace demo {

namespace {

Color metalAt(Vec2 p, Color color, std::uint32_t seed) {
    const float cloud = fractalNoise(p * 5.0F, 4, seed);
    const float grain = fractalNoise({p.x * 20.0F, p.y * 160.0F}, 2, seed + 1U);
    return shaded(color, 0.72F + 0.3F * cloud + 0.25F * grain);
}

void paintMetal(Canvas& canvas, Color color, std::uint32_t seed) {
    const float side = real(std::min(canvas.width(), canvas.height()));
    canvas.paint([&](Vec2 p) { return metalAt(p * (1.0F / side), color, seed); });
}

Pen centred(Canvas& canvas) {
    const Pen pen(canvas);
    return pen.at({pen.right() / 2.0F, pen.bottom() / 2.0F}, 0.49F);
}

void addGrime(Canvas& canvas, std::uint32_t seed, float strength) {
    const float side = real(std::min(canvas.width(), canvas.height()));
    canvas.overlay([&](Vec2 pixel) {
        const Vec2 p = pixel * (1.0F / side);
        const float cloud = fractalNoise(p * 6.0F, 5, seed);
        const float runs = fractalNoise({p.x * 30.0F, p.y * 3.0F}, 3, seed + 1U);
        return withAlpha(rgb(0x1C1712),
                         strength * (smoothStep(0.48F, 0.75F, cloud) + 0.6F * smoothStep(0.5F, 0.75F, runs)));
    });
}

void drawCylinder(const Pen& pen) {
    pen.polygon(std::array<Vec2, 4>{Vec2{-0.11F, -0.26F}, {0.11F, -0.26F}, {0.15F, -0.72F}, {-0.15F, -0.72F}},
                rgb(0x2E3032));
    for (int i = 0; i < 16; ++i) {
        const float y = -0.28F - 0.028F * real(i);
        const float half = 0.12F + 0.0025F * real(i);
        pen.line({-half, y}, {half, y}, 0.012F, rgb(0x777B7D));
        pen.line({-half, y + 0.011F}, {half, y + 0.011F}, 0.008F, rgb(0x141516));
    }
    pen.ellipse({0.0F, -0.78F}, {0.17F, 0.09F}, rgb(0x5A5E60));
    for (const float x : {-0.1F, 0.1F}) {
        pen.disc({x, -0.8F}, 0.055F, rgb(0x8A8E8F));
        pen.disc({x, -0.8F}, 0.028F, rgb(0x3A3C3D));
        pen.line({x, -0.76F}, {x * 0.9F, -0.25F}, 0.026F, rgb(0xA6AAAB));
        pen.line({x + 0.005F, -0.76F}, {x * 0.9F + 0.005F, -0.25F}, 0.008F, rgb(0x35383A));
    }
    pen.line({0.0F, -0.7F}, {0.03F, -0.3F}, 0.012F, rgb(0xB08A3A));
}

} // namespace

void drawTyre(Canvas& canvas) {
    canvas.paint([](Vec2) { return rgb(0x1B1B1B); });
    const Pen pen = centred(canvas);
    pen.disc({}, 1.0F, rgb(0x232324));
    for (int i = 0; i < 12; ++i)
        pen.ring({}, 0.98F - 0.028F * real(i), 0.01F, grey(i % 2 == 0 ? 0.2F : 0.09F));
    pen.arc({}, 0.84F, 0.05F, 285.0F, 345.0F, grey(0.6F, 0.14F));
    pen.disc({}, 0.6F, rgb(0x0E0E0E));
    pen.disc({}, 0.57F, rgb(0x8D9294));
    pen.disc({}, 0.5F, rgb(0x6B7072));
    for (int i = 0; i < 10; ++i) {
        pen.disc(polar(36.0F * real(i), 0.37F), 0.075F, rgb(0x17181A));
        pen.disc(polar(36.0F * real(i) + 18.0F, 0.525F), 0.018F, rgb(0x3A3D3F));
    }
    pen.disc({}, 0.2F, rgb(0x9CA1A2));
    pen.ring({}, 0.2F, 0.02F, rgb(0x35383A));
    pen.disc({-0.03F, -0.03F}, 0.1F, rgb(0xB9BDBD));
    for (int i = 0; i < 6; ++i)
        pen.disc(polar(60.0F * real(i), 0.145F), 0.02F, rgb(0x303335));
    for (int i = 0; i < 11; ++i) {
        static constexpr std::string_view text = "24X7.7 8PLY";
        const float degrees = -40.0F + 8.0F * real(i);
        drawText(pen.at(polar(degrees, 0.73F), 1.0F, degrees), text.substr(static_cast<std::size_t>(i), 1),
                 {}, 0.075F, grey(0.36F));
    }
    addGrime(canvas, 3, 0.4F);
}

void drawTyreTread(Canvas& canvas) {
    const float side = real(std::min(canvas.width(), canvas.height()));
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pixel * (1.0F / side);
        const float across = std::abs(p.x - real(canvas.width()) / side / 2.0F);
        const float chevron = fraction(p.y * 8.0F + across * 5.0F);
        const float block = smoothStep(0.0F, 0.07F, chevron) * smoothStep(0.6F, 0.53F, chevron) *
                            smoothStep(0.02F, 0.04F, across);
        const float grain = fractalNoise(p * 60.0F, 3, 5);
        return shaded(mix(rgb(0x0F0F0F), rgb(0x3B3A38), block), 0.65F + 0.7F * grain);
    });
}

void drawRadiatorGrille(Canvas& canvas) {
    const float side = real(std::min(canvas.width(), canvas.height()));
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pixel * (1.0F / side);
        const int row = floorInt(p.y * 44.0F);
        const Vec2 in{fraction(p.x * 26.0F + (row % 2 == 0 ? 0.0F : 0.5F)) - 0.5F,
                      fraction(p.y * 44.0F) - 0.5F};
        const float tube = std::max(std::abs(in.x) * 1.1F, std::abs(in.y) + std::abs(in.x) * 0.35F);
        const float wall = smoothStep(0.34F, 0.46F, tube);
        const Color brass = metalAt(p, rgb(0x9A7A42), 7);
        return mix(shaded(rgb(0x17120B), 0.6F + 0.9F * (in.y + 0.5F)), shaded(brass, 0.8F - 0.5F * in.y),
                   wall);
    });
    const Pen pen(canvas);
    pen.frame({0.0F, 0.0F}, {pen.right(), pen.bottom()}, 0.1F, rgb(0x54584A));
    pen.frame({0.05F, 0.05F}, {pen.right() - 0.05F, pen.bottom() - 0.05F}, 0.012F, rgb(0x1C1E18));
    for (int i = 0; i < 24; ++i) {
        const float t = (real(i) + 0.5F) / 24.0F;
        for (const float y : {0.025F, pen.bottom() - 0.025F})
            pen.disc({t * pen.right(), y}, 0.009F, rgb(0x8E937F));
        for (const float x : {0.025F, pen.right() - 0.025F})
            pen.disc({x, t * pen.bottom()}, 0.009F, rgb(0x8E937F));
    }
    addGrime(canvas, 8, 0.5F);
}

void drawEngineFront(Canvas& canvas) {
    canvas.paint([](Vec2) { return rgb(0x0C0C0C); });
    const Pen pen = centred(canvas);
    pen.disc({}, 0.99F, rgb(0x191A1B));
    for (int i = 0; i < 9; ++i)
        drawCylinder(pen.at({}, 0.93F, 40.0F * real(i) + 20.0F));
    for (int i = 0; i < 9; ++i)
        drawCylinder(pen.at({}, 1.05F, 40.0F * real(i)));
    pen.ring({}, 0.4F, 0.03F, rgb(0xB08A3A));
    pen.disc({}, 0.31F, rgb(0x6F7779));
    pen.disc({-0.02F, -0.02F}, 0.26F, rgb(0x8C9496));
    for (int i = 0; i < 18; ++i)
        pen.disc(polar(20.0F * real(i), 0.285F), 0.014F, rgb(0x2A2C2E));
    pen.disc({}, 0.13F, rgb(0x4A4E50));
    pen.disc({-0.015F, -0.015F}, 0.09F, rgb(0xB4B9BA));
    pen.ring({}, 0.96F, 0.06F, rgb(0x4A4F48));
    addGrime(canvas, 9, 0.4F);
}

void drawExhaustStacks(Canvas& canvas) {
    paintMetal(canvas, rgb(0x565C50), 11);
    const Pen pen(canvas);
    const float step = pen.right() / 6.0F;
    for (int i = 0; i < 6; ++i) {
        const Pen pipe = pen.at({step * (real(i) + 0.18F), 0.5F});
        pipe.streak({0.3F, 0.05F}, {1.6F, 0.1F}, 0.5F, rgb(0x120F0C, 0.7F));
        pipe.line({0.0F, 0.0F}, {step * 0.52F, 0.05F}, 0.42F, rgb(0x2A1D16));
        pipe.line({0.02F, -0.05F}, {step * 0.5F, 0.0F}, 0.24F, rgb(0x6E4B36));
        pipe.line({0.02F, -0.1F}, {step * 0.48F, -0.05F}, 0.07F, rgb(0xA58A72));
        pipe.ellipse({step * 0.54F, 0.06F}, {0.1F, 0.2F}, rgb(0x0A0807));
        pipe.rect({-0.09F, -0.3F}, {0.0F, 0.3F}, rgb(0x3A3E38));
        for (const float y : {-0.25F, 0.25F})
            pipe.disc({-0.045F, y}, 0.03F, rgb(0x8B8F86));
    }
    rivetRow(pen, {0.02F, 0.06F}, {pen.right(), 0.06F}, 0.1F);
    rivetRow(pen, {0.02F, 0.94F}, {pen.right(), 0.94F}, 0.1F);
    addGrime(canvas, 12, 0.5F);
}

void drawCowling(Canvas& canvas) {
    paintMetal(canvas, rgb(0x4E5A48), 13);
    const Pen pen(canvas);
    const float w = pen.right();
    for (int i = 0; i < 5; ++i) {
        const float x = w * (0.1F + 0.2F * real(i));
        panelLine(pen, {x, 0.0F}, {x, 1.0F}, 1.3F);
        rivetRow(pen, {x + 0.014F, 0.0F}, {x + 0.014F, 1.0F}, 0.02F);
    }
    for (const float y : {0.22F, 0.78F})
        panelLine(pen, {0.0F, y}, {w, y}, 1.3F);
    for (int i = 0; i < 18; ++i) {
        for (const float y : {0.245F, 0.755F}) {
            const Vec2 at{w * (real(i) + 0.5F) / 18.0F, y};
            pen.disc(at, 0.011F, rgb(0x23281F));
            pen.disc(at, 0.008F, rgb(0x9A9F94));
            const Vec2 slot = polar(37.0F * real(i), 0.007F);
            pen.line(at - slot, at + slot, 0.003F, rgb(0x1A1C18));
        }
    }
    for (int i = 0; i < 9; ++i) {
        const float y = 0.36F + 0.035F * real(i);
        pen.taper({w * 0.72F, y}, {w * 0.86F, y}, 0.018F, 0.01F, rgb(0x161914));
        pen.line({w * 0.72F, y - 0.011F}, {w * 0.86F, y - 0.009F}, 0.004F, rgb(0x8F9A84));
    }
    drawEmblem(pen.at({w * 0.4F, 0.5F}, 0.17F));
    drawText(pen, "OIL 10 GAL", {w * 0.2F, 0.68F}, 0.03F, rgb(0xD8D2B8));
    for (int i = 0; i < 26; ++i) {
        const float x = w * hashed(i, 1, 14);
        pen.streak({x, 0.78F}, {x + 0.03F, 0.8F + 0.2F * hashed(i, 2, 14)}, 0.02F, rgb(0x17120C, 0.7F));
    }
    addGrime(canvas, 15, 0.35F);
}

void drawRivetedMetal(Canvas& canvas) {
    const float side = real(std::min(canvas.width(), canvas.height()));
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pixel * (1.0F / side);
        return metalAt(p, grey(0.66F + 0.12F * hashed(floorInt(p.x * 2.0F), floorInt(p.y * 4.0F), 16)), 17);
    });
    const Pen pen(canvas);
    for (int i = 0; i <= 4; ++i) {
        const float y = real(i) / 4.0F;
        panelLine(pen, {0.0F, y}, {1.0F, y}, 1.5F);
        rivetRow(pen, {0.0F, y + 0.02F}, {1.0F, y + 0.02F}, 0.02F, 1.6F);
        rivetRow(pen, {0.0F, y - 0.02F}, {1.0F, y - 0.02F}, 0.02F, 1.6F);
    }
    for (const float x : {0.0F, 0.5F, 1.0F}) {
        panelLine(pen, {x, 0.0F}, {x, 1.0F}, 1.5F);
        rivetRow(pen, {x + 0.02F, 0.0F}, {x + 0.02F, 1.0F}, 0.02F, 1.6F);
    }
}

void drawFabricRudder(Canvas& canvas) {
    const Pen pen(canvas);
    const float h = pen.bottom();
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pen.fromPixels(pixel);
        const float rib = fraction(p.y * 4.0F) - 0.5F;
        const float sag =
            1.0F + 0.14F * std::sin(rib * 2.0F * pi) * smoothStep(0.0F, 0.3F, 0.5F - std::abs(rib));
        const float weave = fractalNoise(p * 80.0F, 2, 18);
        const Color dope =
            p.y < 0.34F * h ? rgb(0x7E8A7A) : (p.y < 0.62F * h ? rgb(0xB9B29A) : rgb(0x6A4538));
        return shaded(dope, sag * (0.86F + 0.3F * weave));
    });
    for (int i = 0; i < floorInt(h * 4.0F); ++i) {
        const float y = (real(i) + 0.5F) / 4.0F;
        pen.line({0.0F, y}, {1.0F, y}, 0.022F, rgb(0x2E2B26, 0.35F));
        rivetRow(pen, {0.02F, y}, {0.98F, y}, 0.05F);
    }
    pen.frame({0.35F, 0.7F * h}, {0.98F, 0.86F * h}, 0.012F, grey(0.05F, 0.7F));
    drawInsignia(pen, {0.5F, 0.48F * h}, 0.34F, Insignia::Star);
    drawText(pen, "R7413", {0.5F, 0.66F * h}, 0.14F, rgb(0x1A1B1C), 0.17F);
    addGrime(canvas, 19, 0.35F);
}

void drawDropTank(Canvas& canvas) {
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pixel * (1.0F / real(canvas.height()));
        const float lit = 0.45F + 0.75F * std::sin(clamp01(p.y * 0.85F + 0.2F) * pi);
        return shaded(metalAt(p, rgb(0x9DA3A3), 21), lit);
    });
    const Pen pen(canvas);
    for (const float t : {0.12F, 0.34F, 0.66F, 0.88F}) {
        panelLine(pen, {t * pen.right(), 0.0F}, {t * pen.right(), 1.0F}, 1.5F);
        rivetRow(pen, {t * pen.right() + 0.03F, 0.0F}, {t * pen.right() + 0.03F, 1.0F}, 0.06F, 1.5F);
    }
    pen.rect({0.0F, 0.48F}, {pen.right(), 0.52F}, grey(0.1F, 0.4F));
    pen.disc({0.5F * pen.right(), 0.2F}, 0.07F, rgb(0x8E2B24));
    pen.disc({0.5F * pen.right(), 0.2F}, 0.04F, rgb(0xB8BCBC));
    drawText(pen, "75 GAL DROP TANK", {pen.right() / 2.0F, 0.7F}, 0.1F, rgb(0x1C1E20), 0.16F);
    addGrime(canvas, 22, 0.4F);
}

void drawBombSide(Canvas& canvas) {
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pixel * (1.0F / real(canvas.height()));
        const float lit = 0.35F + 0.9F * std::sin(clamp01(p.y * 0.9F + 0.1F) * pi);
        return shaded(metalAt(p, rgb(0x565B3C), 23), lit);
    });
    const Pen pen(canvas);
    const float w = pen.right();
    for (const float t : {0.06F, 0.1F, 0.72F})
        pen.rect({t * w, 0.0F}, {(t + 0.02F) * w, 1.0F}, rgb(0xD0A032, 0.9F));
    pen.line({0.8F * w, 0.0F}, {0.8F * w, 1.0F}, 0.03F, grey(0.04F, 0.8F));
    for (const float t : {0.35F, 0.55F}) {
        pen.ring({t * w, 0.1F}, 0.07F, 0.035F, rgb(0x2A2C22));
    }
    drawText(pen, "G.P. 500 LB", {0.42F * w, 0.55F}, 0.09F, rgb(0xD8CF9E), 0.16F);
    addGrime(canvas, 24, 0.5F);
}

void drawDamagedPanel(Canvas& canvas) {
    drawRivetedMetal(canvas);
    canvas.overlay([](Vec2) { return rgb(0x4F553C, 0.8F); });
    const Pen pen(canvas);
    for (int y = 0; y < canvas.height(); ++y) {
        for (int x = 0; x < canvas.width(); ++x) {
            const Vec2 p = pen.fromPixels({real(x) + 0.5F, real(y) + 0.5F}) - Vec2{0.5F, 0.5F};
            const float turn = std::atan2(p.y, p.x);
            const float jag = fractalNoise({std::cos(turn) * 3.0F, std::sin(turn) * 3.0F}, 4, 25);
            const float edge = length(p) - 0.1F - 0.34F * jag;
            Color& texel = canvas.at(x, y);
            texel = mix(texel, rgb(0x15120F), 0.8F * smoothStep(0.16F, 0.02F, edge));
            texel = mix(texel, rgb(0xB9BDBC), smoothStep(0.012F, 0.004F, edge));
            texel.a = edge < 0.0F ? 0.0F : 1.0F;
        }
    }
    for (const float t : {0.36F, 0.62F}) {
        pen.line({t, 0.2F}, {t + 0.02F, 0.8F}, 0.03F, rgb(0x6C7A58));
        pen.line({t - 0.008F, 0.2F}, {t + 0.012F, 0.8F}, 0.006F, rgb(0xA0AC88));
    }
}

void drawNoseArt(Canvas& canvas) {
    const Pen pen(canvas);
    drawEmblem(pen.at({0.22F * pen.right(), 0.5F}, 0.42F));
    drawText(pen, "LADY", {0.72F * pen.right(), 0.3F}, 0.24F, rgb(0x2A1D14), 0.26F);
    drawText(pen, "LADY", {0.72F * pen.right(), 0.3F}, 0.24F, rgb(0xF0C654), 0.15F);
    drawText(pen, "LANTERN", {0.72F * pen.right(), 0.62F}, 0.145F, rgb(0x2A1D14), 0.26F);
    drawText(pen, "LANTERN", {0.72F * pen.right(), 0.62F}, 0.145F, rgb(0xE8E2D0), 0.15F);
    for (int i = 0; i < 7; ++i) {
        const Vec2 at{pen.right() * (0.55F + 0.055F * real(i)), 0.86F};
        pen.star(at, 0.05F, 0.02F, 5, rgb(0xC9453A));
    }
}

void drawCodeLetters(Canvas& canvas) {
    const Pen pen(canvas);
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    for (int i = 0; i < 36; ++i) {
        const Vec2 at{(real(i % 9) + 0.5F) / 9.0F * pen.right(), (real(i / 9) + 0.5F) / 4.0F * pen.bottom()};
        drawText(pen, letters.substr(static_cast<std::size_t>(i), 1), at, 0.135F, rgb(0xE6E3D4), 0.17F);
    }
}

} // namespace demo
