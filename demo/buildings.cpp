#include <array>
#include <string>

#include "materials.hpp"
#include "noise.hpp"
#include "pen.hpp"

namespace demo {

namespace {

// Dirt that runs down from the top and gathers at the foot.
void weatherFront(Canvas& canvas, std::uint32_t seed, float strength) {
    const float side = real(std::min(canvas.width(), canvas.height()));
    canvas.overlay([&](Vec2 pixel) {
        const Vec2 p = pixel * (1.0F / side);
        const float runs = fractalNoise({p.x * 26.0F, p.y * 2.0F}, 4, seed);
        const float cloud = fractalNoise(p * 5.0F, 4, seed + 1U);
        const float foot = smoothStep(0.8F, 1.0F, pixel.y / real(canvas.height()));
        const float dirt =
            0.5F * smoothStep(0.5F, 0.75F, runs) + 0.4F * smoothStep(0.5F, 0.8F, cloud) + 0.4F * foot;
        return withAlpha(rgb(0x241E17), strength * dirt);
    });
}

void drawWindow(const Pen& pen, Vec2 lo, Vec2 hi, int columns, int rows, Color bar) {
    const Vec2 margin{0.012F, 0.012F};
    pen.rect(lo - margin, hi + margin, bar);
    pen.rect(lo, hi, rgb(0x1C262B));
    const Vec2 size{(hi.x - lo.x) / real(columns), (hi.y - lo.y) / real(rows)};
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < columns; ++x) {
            const Vec2 corner{lo.x + size.x * real(x), lo.y + size.y * real(y)};
            const float own = hashed(x + floorInt(lo.x * 90.0F), y, 3);
            pen.rect(corner, corner + size, mix(rgb(0x1C262B), rgb(0x7C98A4), 0.15F + 0.5F * own * own));
            pen.polygon(std::array<Vec2, 3>{corner,
                                            Vec2{corner.x + size.x * 0.7F, corner.y},
                                            {corner.x, corner.y + size.y * 0.7F}},
                        rgb(0xC4D8E0, 0.2F));
        }
    }
    for (int x = 1; x < columns; ++x)
        pen.line({lo.x + size.x * real(x), lo.y}, {lo.x + size.x * real(x), hi.y}, 0.008F, bar);
    for (int y = 1; y < rows; ++y)
        pen.line({lo.x, lo.y + size.y * real(y)}, {hi.x, lo.y + size.y * real(y)}, 0.008F, bar);
    pen.line({lo.x - 0.02F, hi.y + 0.018F}, {hi.x + 0.02F, hi.y + 0.018F}, 0.014F, shaded(bar, 0.7F));
}

void drawShutter(const Pen& pen, Vec2 lo, Vec2 hi) {
    pen.rect(lo, hi, rgb(0x47604E));
    for (int i = 0; i < 12; ++i) {
        const float y = lerp(lo.y, hi.y, (real(i) + 0.5F) / 12.0F);
        pen.line({lo.x + 0.008F, y}, {hi.x - 0.008F, y}, 0.005F, rgb(0x26352B));
        pen.line({lo.x + 0.008F, y - 0.006F}, {hi.x - 0.008F, y - 0.006F}, 0.003F, rgb(0x6E8A74));
    }
    pen.frame(lo, hi, 0.008F, rgb(0x2C3D32));
}

void drawDoorLeaf(const Pen& pen, Vec2 lo, Vec2 hi, int number) {
    pen.rect(lo, hi, rgb(0x56614C));
    for (int i = 0; i < 12; ++i) {
        const float x = lerp(lo.x, hi.x, real(i) / 12.0F);
        pen.line({x, lo.y}, {x, hi.y}, 0.006F, rgb(0x3A4334));
        pen.line({x + 0.007F, lo.y}, {x + 0.007F, hi.y}, 0.005F, rgb(0x76816A));
    }
    drawWindow(pen, {lo.x + 0.06F, lo.y + 0.07F}, {hi.x - 0.06F, lo.y + 0.18F}, 4, 2, rgb(0x3A4334));
    for (const float t : {0.42F, 0.96F}) {
        const float y = lerp(lo.y, hi.y, t);
        pen.line({lo.x, y}, {hi.x, y}, 0.02F, rgb(0x434C3A));
        pen.line({lo.x, y - 0.006F}, {hi.x, y - 0.006F}, 0.004F, rgb(0x87917A));
    }
    drawText(pen, std::string(1, static_cast<char>('0' + number)), {(lo.x + hi.x) / 2.0F, 0.68F}, 0.14F,
             rgb(0xD9D4BE, 0.9F), 0.17F);
    pen.frame(lo, hi, 0.01F, rgb(0x23281F));
}

void drawSteelBox(Canvas& canvas, Color color, std::uint32_t seed) {
    const float side = real(std::min(canvas.width(), canvas.height()));
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pixel * (1.0F / side);
        const float rust = smoothStep(0.6F, 0.68F, fractalNoise(p * 7.0F, 5, seed));
        return shaded(mix(color, rgb(0x70432A), 0.8F * rust),
                      0.85F + 0.3F * fractalNoise(p * 40.0F, 2, seed + 1U));
    });
}

} // namespace

void drawHangarDoors(Canvas& canvas) {
    drawCorrugatedIron(canvas);
    const Pen pen(canvas);
    const float width = pen.right() / 4.0F;
    for (int i = 0; i < 4; ++i)
        drawDoorLeaf(pen, {width * real(i) + 0.008F, 0.24F}, {width * real(i + 1) - 0.008F, 1.0F}, i + 1);
    pen.rect({0.0F, 0.205F}, {pen.right(), 0.245F}, rgb(0x3B3F36));
    for (int i = 0; i < 32; ++i)
        pen.disc({pen.right() * (real(i) + 0.5F) / 32.0F, 0.225F}, 0.006F, rgb(0x6C7162));
    pen.rect({pen.right() / 2.0F - 0.34F, 0.04F}, {pen.right() / 2.0F + 0.34F, 0.17F}, rgb(0x23302A));
    pen.frame({pen.right() / 2.0F - 0.34F, 0.04F}, {pen.right() / 2.0F + 0.34F, 0.17F}, 0.008F,
              rgb(0xC9C3A8));
    drawText(pen, "HANGAR 2", {pen.right() / 2.0F, 0.105F}, 0.075F, rgb(0xE2DCC4), 0.16F);
    weatherFront(canvas, 31, 0.6F);
}

void drawHouseFront(Canvas& canvas) {
    drawBrick(canvas);
    const Pen pen(canvas);
    for (const float y : {0.14F, 0.6F}) {
        for (const float x : {0.22F, 0.78F}) {
            pen.rect({x - 0.09F, y - 0.045F}, {x + 0.09F, y - 0.012F}, rgb(0xA9A294));
            drawWindow(pen, {x - 0.08F, y}, {x + 0.08F, y + 0.22F}, 2, 3, rgb(0xD9D5C6));
            drawShutter(pen, {x - 0.18F, y - 0.01F}, {x - 0.1F, y + 0.23F});
            drawShutter(pen, {x + 0.1F, y - 0.01F}, {x + 0.18F, y + 0.23F});
        }
    }
    drawWindow(pen, {0.43F, 0.14F}, {0.57F, 0.36F}, 2, 3, rgb(0xD9D5C6));
    pen.rect({0.4F, 0.54F}, {0.6F, 1.0F}, rgb(0xA9A294));
    pen.rect({0.42F, 0.57F}, {0.58F, 0.99F}, rgb(0x3C2A20));
    for (const Vec2 at : {Vec2{0.435F, 0.68F}, {0.51F, 0.68F}, {0.435F, 0.84F}, {0.51F, 0.84F}}) {
        pen.frame(at, at + Vec2{0.055F, 0.12F}, 0.006F, rgb(0x5E4534));
    }
    drawWindow(pen, {0.435F, 0.585F}, {0.565F, 0.64F}, 3, 1, rgb(0x5E4534));
    pen.disc({0.568F, 0.8F}, 0.008F, rgb(0xC9A24A));
    pen.rect({0.37F, 0.975F}, {0.63F, 1.0F}, rgb(0x8F8A7E));
    weatherFront(canvas, 33, 0.5F);
}

void drawControlTower(Canvas& canvas) {
    drawConcrete(canvas);
    const Pen pen(canvas);
    const float w = pen.right();
    drawWindow(pen, {0.06F * w, 0.08F}, {0.94F * w, 0.27F}, 12, 2, rgb(0x3E4A40));
    pen.rect({0.0F, 0.3F}, {w, 0.35F}, rgb(0x77756C));
    for (int i = 0; i <= 24; ++i)
        pen.line({w * real(i) / 24.0F, 0.3F}, {w * real(i) / 24.0F, 0.42F}, 0.006F, rgb(0x2D302C));
    for (const float y : {0.35F, 0.385F, 0.42F})
        pen.line({0.0F, y}, {w, y}, 0.008F, rgb(0x2D302C));
    for (int i = 0; i < 5; ++i) {
        const float x = w * (0.1F + 0.2F * real(i));
        if (i != 2) drawWindow(pen, {x - 0.09F, 0.56F}, {x + 0.09F, 0.78F}, 3, 3, rgb(0x3E4A40));
    }
    pen.rect({w / 2.0F - 0.09F, 0.58F}, {w / 2.0F + 0.09F, 1.0F}, rgb(0x3E4A40));
    pen.line({w / 2.0F, 0.58F}, {w / 2.0F, 1.0F}, 0.008F, rgb(0x20261F));
    drawText(pen, "WATCH OFFICE", {w / 2.0F, 0.5F}, 0.055F, rgb(0x2B2C2A, 0.85F), 0.17F);
    weatherFront(canvas, 35, 0.6F);
}

void drawAmmoCrate(Canvas& canvas) {
    drawWoodPlanks(canvas);
    canvas.overlay([](Vec2) { return rgb(0x4B5032, 0.72F); });
    const Pen pen(canvas);
    const float w = pen.right();
    for (const float x : {0.09F * w, 0.91F * w}) {
        pen.rect({x - 0.05F, 0.0F}, {x + 0.05F, 1.0F}, rgb(0x565B3A));
        pen.frame({x - 0.05F, 0.0F}, {x + 0.05F, 1.0F}, 0.008F, rgb(0x24271A));
        for (int i = 0; i < 6; ++i)
            pen.disc({x, 0.09F + 0.165F * real(i)}, 0.013F, rgb(0x8F9078));
    }
    drawText(pen, "AMMN BELTED", {w / 2.0F, 0.24F}, 0.085F, rgb(0xD8CF9E, 0.9F), 0.16F);
    drawText(pen, "CAL .50  265 RDS", {w / 2.0F, 0.44F}, 0.07F, rgb(0xD8CF9E, 0.9F), 0.16F);
    drawText(pen, "LOT 1172-4", {w / 2.0F, 0.6F}, 0.055F, rgb(0xD8CF9E, 0.85F), 0.16F);
    for (int i = 0; i < 5; ++i) {
        const Pen round = pen.at({w / 2.0F - 0.2F + 0.1F * real(i), 0.8F});
        round.rect({-0.02F, -0.02F}, {0.02F, 0.09F}, rgb(0xC49A3A));
        round.polygon(std::array<Vec2, 3>{Vec2{-0.02F, -0.02F}, {0.02F, -0.02F}, {0.0F, -0.09F}},
                      rgb(i == 2 ? 0xB03A2A : 0xA8764A));
    }
    weatherFront(canvas, 37, 0.6F);
}

void drawFuelDrum(Canvas& canvas) {
    drawSteelBox(canvas, rgb(0x6A7148), 41);
    const Pen pen(canvas);
    const float h = pen.bottom();
    for (const float t : {0.03F, 0.34F, 0.66F, 0.97F}) {
        pen.line({-0.1F, h * t + 0.02F}, {pen.right() + 0.1F, h * t + 0.02F}, 0.05F, grey(0.0F, 0.4F));
        pen.line({-0.1F, h * t}, {pen.right() + 0.1F, h * t}, 0.045F, rgb(0x747B52));
        pen.line({-0.1F, h * t - 0.012F}, {pen.right() + 0.1F, h * t - 0.012F}, 0.012F, rgb(0xA4AA84));
    }
    drawText(pen, "100 OCT", {pen.right() / 2.0F, h * 0.46F}, 0.11F, rgb(0xE0DABF, 0.9F), 0.17F);
    drawText(pen, "AVGAS", {pen.right() / 2.0F, h * 0.57F}, 0.11F, rgb(0xE0DABF, 0.9F), 0.17F);
    weatherFront(canvas, 43, 0.7F);
}

void drawShipSide(Canvas& canvas) {
    const float h = real(canvas.height());
    canvas.paint([&](Vec2 pixel) {
        const Vec2 p = pixel * (1.0F / h);
        const float dazzle = fraction(p.x * 0.9F + std::abs(fraction(p.x * 0.55F) - 0.5F) * p.y * 2.4F);
        const Color band = dazzle < 0.35F ? rgb(0x9AA2A6) : (dazzle < 0.62F ? rgb(0x38434E) : rgb(0x66757F));
        const Color hull = p.y > 0.82F ? rgb(0x6B2E26) : (p.y > 0.76F ? rgb(0x1C1E20) : band);
        const float rust = smoothStep(0.56F, 0.72F, fractalNoise({p.x * 22.0F, p.y * 1.8F}, 4, 45));
        return shaded(mix(hull, rgb(0x6F4329), 0.6F * rust), 0.85F + 0.3F * fractalNoise(p * 50.0F, 2, 46));
    });
    const Pen pen(canvas);
    for (int i = 0; i < floorInt(pen.right() / 0.16F); ++i) {
        const float x = 0.16F * real(i) + 0.08F;
        pen.disc({x, 0.2F}, 0.026F, rgb(0x8B9498));
        pen.disc({x, 0.2F}, 0.019F, rgb(0x12181C));
        pen.arc({x, 0.2F}, 0.014F, 0.005F, 280.0F, 350.0F, rgb(0xB8CCD4, 0.8F));
        if (i % 2 == 0) pen.streak({x, 0.225F}, {x, 0.5F}, 0.03F, rgb(0x6F4329, 0.7F));
    }
    for (int row = 0; row < 6; ++row)
        pen.line({0.0F, 0.17F * real(row) + 0.06F}, {pen.right(), 0.17F * real(row) + 0.06F}, 0.004F,
                 grey(0.05F, 0.5F));
    for (int i = 0; i < 9; ++i)
        drawText(pen, std::to_string(20 - 2 * i), {pen.right() - 0.12F, 0.4F + 0.065F * real(i)}, 0.035F,
                 rgb(0xE6E4DC, 0.9F), 0.17F);
}

void drawSignBoard(Canvas& canvas) {
    drawWoodPlanks(canvas);
    canvas.overlay([&](Vec2 p) {
        const float worn = fractalNoise(p * (14.0F / real(canvas.height())), 4, 47);
        return withAlpha(rgb(0xDAD5C4), 0.9F * smoothStep(0.62F, 0.54F, worn));
    });
    const Pen pen(canvas);
    const Color ink = rgb(0x1F2124);
    pen.frame({0.05F, 0.05F}, {pen.right() - 0.05F, pen.bottom() - 0.05F}, 0.022F, rgb(0x8E2B24));
    drawText(pen, "DISPERSAL 4", {pen.right() / 2.0F, 0.28F}, 0.15F, ink, 0.16F);
    drawText(pen, "NO SMOKING", {pen.right() / 2.0F, 0.55F}, 0.135F, rgb(0x8E2B24), 0.17F);
    drawText(pen, "<  READINESS HUT", {pen.right() / 2.0F, 0.78F}, 0.09F, ink, 0.15F);
}

void drawTruckGrille(Canvas& canvas) {
    drawSteelBox(canvas, rgb(0x4C5236), 49);
    const Pen pen(canvas);
    const float w = pen.right();
    pen.rect({0.3F * w, 0.1F}, {0.7F * w, 0.7F}, rgb(0x121310));
    for (int i = 0; i < 11; ++i) {
        const float x = w * (0.315F + 0.037F * real(i));
        pen.line({x, 0.11F}, {x, 0.69F}, 0.022F, rgb(0x565D3E));
        pen.line({x - 0.005F, 0.11F}, {x - 0.005F, 0.69F}, 0.006F, rgb(0x8A9068));
    }
    pen.frame({0.3F * w, 0.1F}, {0.7F * w, 0.7F}, 0.03F, rgb(0x454B31));
    for (const float x : {0.15F * w, 0.85F * w}) {
        pen.disc({x, 0.36F}, 0.145F, rgb(0x2C301F));
        pen.disc({x, 0.36F}, 0.125F, rgb(0xB9BCB0));
        pen.glow({x - 0.03F, 0.32F}, 0.11F, rgb(0xFBFBEF));
        for (int i = -3; i <= 3; ++i)
            pen.line({x + 0.035F * real(i), 0.26F}, {x + 0.035F * real(i), 0.46F}, 0.004F, grey(0.3F, 0.5F));
    }
    pen.rect({0.02F, 0.78F}, {w - 0.02F, 0.92F}, rgb(0x3A3F2A));
    pen.line({0.02F, 0.79F}, {w - 0.02F, 0.79F}, 0.012F, rgb(0x7A8060));
    pen.rect({0.06F * w, 0.81F}, {0.36F * w, 0.89F}, rgb(0x17180F));
    drawText(pen, "M 4471822", {0.21F * w, 0.85F}, 0.045F, rgb(0xE6E2D0), 0.16F);
    weatherFront(canvas, 51, 0.7F);
}

} // namespace demo
