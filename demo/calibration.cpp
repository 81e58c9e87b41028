#include "calibration.hpp"

#include <array>
#include <string>

#include "pen.hpp"

namespace demo {

namespace {

const std::array<Color, 8> bars{rgb(0xFFFFFF), rgb(0xFFFF00), rgb(0x00FFFF), rgb(0x00FF00),
                                rgb(0xFF00FF), rgb(0xFF0000), rgb(0x0000FF), rgb(0x000000)};

void drawCornerNames(const Pen& pen, float inset, Color color) {
    const float r = pen.right();
    const float b = pen.bottom();
    for (const auto& [name, at] : {std::pair{"TL", Vec2{inset, inset}},
                                   {"TR", Vec2{r - inset, inset}},
                                   {"BL", Vec2{inset, b - inset}},
                                   {"BR", Vec2{r - inset, b - inset}}}) {
        drawText(pen, name, at, 0.045F, color, 0.17F);
    }
}

// Sets texels without blending, so that their alpha is exact.
template <class Shader>
void fill(Canvas& canvas, Vec2 lo, Vec2 hi, Shader shader) {
    const Pen pen(canvas);
    const Vec2 from = pen.toPixels(lo);
    const Vec2 to = pen.toPixels(hi);
    for (int y = floorInt(from.y); y < std::min(canvas.height(), floorInt(to.y)); ++y) {
        for (int x = floorInt(from.x); x < std::min(canvas.width(), floorInt(to.x)); ++x) {
            const Vec2 part{(real(x) + 0.5F - from.x) / (to.x - from.x),
                            (real(y) + 0.5F - from.y) / (to.y - from.y)};
            canvas.at(x, y) = shader(part, x, y);
        }
    }
}

void drawGradients(Canvas& canvas) {
    for (int i = 0; i < 4; ++i) {
        const std::array<Color, 4> ends{rgb(0xFF0000), rgb(0x00FF00), rgb(0x0000FF), rgb(0xFFFFFF)};
        const float y = 0.26F + 0.05F * real(i);
        fill(canvas, {0.1F, y}, {0.9F, y + 0.045F},
             [&](Vec2 part, int, int) { return mix(grey(0.0F), ends[static_cast<std::size_t>(i)], part.x); });
    }
}

} // namespace

void drawColorCard(Canvas& canvas) {
    canvas.paint([](Vec2) { return grey(0.5F); });
    fill(canvas, {0.1F, 0.1F}, {0.9F, 0.24F},
         [](Vec2 part, int, int) { return bars[static_cast<std::size_t>(part.x * 7.99F)]; });
    drawGradients(canvas);
    fill(canvas, {0.1F, 0.48F}, {0.9F, 0.56F}, [](Vec2 part, int, int) { return rgb(0xE08020, part.x); });
    fill(canvas, {0.1F, 0.58F}, {0.9F, 0.66F},
         [](Vec2 part, int, int) { return rgb(0x2060C0, std::floor(part.x * 8.0F) / 7.0F); });
    fill(canvas, {0.1F, 0.68F}, {0.36F, 0.9F},
         [](Vec2, int x, int y) { return grey((x + y) % 2 == 0 ? 0.0F : 1.0F); });
    fill(canvas, {0.37F, 0.68F}, {0.63F, 0.9F},
         [](Vec2, int x, int) { return grey(x % 2 == 0 ? 0.0F : 1.0F); });
    fill(canvas, {0.64F, 0.68F}, {0.9F, 0.9F}, [](Vec2 part, int, int) {
        const Vec2 to{part.x - 0.5F, part.y - 0.5F};
        return grey(0.5F + 0.5F * std::cos(dot(to, to) * 420.0F));
    });
    const Pen pen(canvas);
    drawCornerNames(pen, 0.05F, grey(0.0F));
    drawText(pen, "UP", {0.5F, 0.05F}, 0.04F, grey(0.0F), 0.17F);
    pen.frame({0.0F, 0.0F}, {1.0F, 1.0F}, 2.0F * pen.pixel(), rgb(0xFF0000));
}

void drawGreyCard(Canvas& canvas) {
    canvas.paint([](Vec2) { return grey(0.5F); });
    const Pen pen(canvas);
    for (int i = 0; i < 16; ++i) {
        const float x = pen.right() * real(i) / 16.0F;
        pen.rect({x, 0.0F}, {x + pen.right() / 16.0F, 0.7F}, grey(real(i) / 15.0F));
    }
    drawText(pen, "0   GREY STEPS   15", {pen.right() / 2.0F, 0.85F}, 0.14F, grey(0.0F), 0.15F);
}

void drawCutOutCard(Canvas& canvas) {
    const Pen pen(canvas);
    pen.frame({0.03F, 0.03F}, {0.97F, 0.97F}, 0.02F, rgb(0xC03020));
    pen.disc({0.3F, 0.32F}, 0.16F, rgb(0x2E7DB0));
    pen.star({0.7F, 0.32F}, 0.19F, 0.075F, 5, rgb(0xE0B030));
    pen.ring({0.3F, 0.7F}, 0.13F, 0.06F, rgb(0x3E9A50));
    for (int i = 0; i < 7; ++i) {
        const float y = 0.56F + 0.045F * real(i);
        pen.line({0.54F, y}, {0.88F, y}, 0.002F + 0.003F * real(i), grey(0.1F));
    }
    drawCornerNames(pen, 0.09F, grey(0.95F));
}

void drawAlphaRamp(Canvas& canvas) {
    const Vec2 size{real(canvas.width()), real(canvas.height())};
    canvas.paint([=](Vec2 p) {
        const Color hue = bars[1 + static_cast<std::size_t>(p.y / size.y * 1.99F)];
        return withAlpha(hue, (p.x - 0.5F) / std::max(1.0F, size.x - 1.0F));
    });
}

void drawChequer(Canvas& canvas) {
    canvas.paint([](Vec2 p) { return grey((floorInt(p.x) + floorInt(p.y)) % 2 == 0 ? 1.0F : 0.0F); });
}

void drawFourCorners(Canvas& canvas) {
    const Vec2 middle{real(canvas.width()) / 2.0F, real(canvas.height()) / 2.0F};
    canvas.paint([=](Vec2 p) {
        const float step = (p.x < middle.x ? 0.0F : 1.0F) + (p.y < middle.y ? 0.0F : 2.0F);
        return mix(rgb(0x102848), rgb(0xF8D888), step / 3.0F);
    });
}

void drawRamp(Canvas& canvas) {
    const Vec2 size{real(canvas.width()), real(canvas.height())};
    canvas.paint([=](Vec2 p) {
        const float t = size.x > size.y ? p.x / size.x : p.y / size.y;
        return mix(rgb(0x102040), rgb(0xF0D080), t);
    });
}

void drawOnePixelFrame(Canvas& canvas) {
    const int right = canvas.width() - 1;
    const int bottom = canvas.height() - 1;
    canvas.paint([=](Vec2 p) {
        const int x = floorInt(p.x);
        const int y = floorInt(p.y);
        if (x == 0) return rgb(0xFF0000);
        if (x == right) return rgb(0x00FF00);
        if (y == 0) return rgb(0x0000FF);
        if (y == bottom) return rgb(0xFFFF00);
        return grey(p.x / real(right + 1) * 0.6F + p.y / real(bottom + 1) * 0.3F);
    });
}

} // namespace demo
