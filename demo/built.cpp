#include "painters.hpp"

#include <cmath>

namespace pelrath::demo {

namespace {

/// The bright and dark of a piece that stands out of its surroundings.
void bevel(Canvas& canvas, const QRectF& area, double width, bool out) {
    const QColor bright = ink(0xFFFFFF, 0.3), dark = ink(0x000000, 0.45);
    canvas.fillRect(QRectF{area.topLeft(), QSizeF{area.width(), width}}, out ? bright : dark);
    canvas.fillRect(QRectF{area.topLeft(), QSizeF{width, area.height()}}, out ? bright : dark);
    canvas.fillRect(QRectF{area.left(), area.bottom() - width, area.width(), width}, out ? dark : bright);
    canvas.fillRect(QRectF{area.right() - width, area.top(), width, area.height()}, out ? dark : bright);
}

void window(Canvas& canvas, const QRectF& area, int columns, int rows, unsigned frame) {
    canvas.fillRect(area.adjusted(-0.012, -0.012, 0.012, 0.016), ink(frame));
    bevel(canvas, area.adjusted(-0.012, -0.012, 0.012, 0.016), 0.004, true);
    for (int i = 0; i < columns * rows; ++i) {
        const QSizeF pane{area.width() / columns, area.height() / rows};
        const QRectF glass{area.left() + pane.width() * (i % columns) + 0.004,
                           area.top() + pane.height() * (i / columns) + 0.004, pane.width() - 0.008,
                           pane.height() - 0.008};
        canvas.fillRect(glass, blend(glass.topLeft(), glass.bottomRight(),
                                     {ink(0x7FA0B0), ink(0x2A4250), ink(0x1A2A34)}));
        bevel(canvas, glass, 0.003, false);
    }
}

} // namespace

Painter courses(const Courses& kind) {
    return [kind](Canvas& canvas) {
        canvas.texels(canvas.all(), [&](QPointF p) {
            const double hang = kind.round * kind.height;
            for (int down = kind.round > 0 ? 0 : 1; down < 2; ++down) { // the upper row covers the lower one
                const double row = std::floor(p.y() / kind.height) - 1 + down;
                const double x = p.x() / kind.width + std::fmod(row + 2, 2) * 0.5, column = std::floor(x);
                const double side = std::min(x - column, column + 1 - x) * kind.width;
                const double bow = hang * std::sqrt(std::max(0.0, 1 - std::pow(2 * (x - column) - 1, 2)));
                const double above = p.y() - row * kind.height,
                             below = kind.height + bow - (kind.round > 0 ? 0.2 * hang : 0) - above;
                if (below < 0 && down == 0) continue;
                const double id = noise({std::fmod(column, std::round(1 / kind.width)) + 0.5, row * 3 + 0.5},
                                        1, 3),
                             inside = std::min(side, std::min(kind.round > 0 ? 1 : above, below));
                const double grain = noise({p.x() / kind.width * 6, p.y() / kind.height * 9}, 4, 4);
                const double light =
                    0.78 + 0.4 * grain + 0.25 * rise(0.03, 0, above) - 0.2 * rise(0.03, 0, below);
                const Color piece = lit(mix(rgb(kind.low), rgb(kind.high), id), light);
                return mix(lit(rgb(kind.joint), 0.7 + 0.6 * noise(p * 90, 2, 5)), piece,
                           rise(kind.gap * 0.4, kind.gap, inside + 0.004 * (grain - 0.5)));
            }
            return rgb(kind.joint);
        });
    };
}

void houseFront(Canvas& canvas) {
    courses({0xB9B0A0, 0x7E3A2A, 0xA85A42, 1 / 16.0, 1 / 32.0, 0.006})(canvas);
    canvas.fillRect(QRectF{0, 0.485, 1, 0.03}, ink(0xCFC6B4));
    bevel(canvas, {0, 0.485, 1, 0.03}, 0.004, true);
    for (int i = 0; i < 6; ++i) {
        const QRectF area{0.11 + 0.33 * (i % 3), i < 3 ? 0.12 : 0.6, 0.12, 0.24};
        if (i == 4) continue;
        canvas.fillRect(area.adjusted(-0.02, -0.055, 0.02, -0.012), ink(0xCFC6B4));
        window(canvas, area, 2, 3, 0xE9E4D6);
        for (const double x : {area.left() - 0.085, area.right() + 0.015}) {
            const QRectF shutter{x, area.top() - 0.01, 0.07, 0.262};
            canvas.fillRect(shutter, ink(0x2E5A44));
            for (double y = shutter.top() + 0.015; y < shutter.bottom() - 0.012; y += 0.014) {
                canvas.fillRect(QRectF{x + 0.01, y, 0.05, 0.005}, ink(0x16302A));
            }
            bevel(canvas, shutter, 0.004, true);
        }
    }
    canvas.fillRect(QRectF{0.4, 0.57, 0.2, 0.43}, ink(0xCFC6B4));
    canvas.fillRect(QRectF{0.42, 0.6, 0.16, 0.4},
                    blend({0.42, 0}, {0.58, 0}, {ink(0x6A3A24), ink(0x4A2618)}));
    window(canvas, {0.445, 0.625, 0.11, 0.07}, 3, 1, 0x5A301E);
    for (int i = 0; i < 4; ++i) {
        bevel(canvas, {0.44 + 0.065 * (i % 2), 0.73 + 0.125 * (i / 2), 0.055, 0.105}, 0.004, false);
    }
    canvas.disc({0.565, 0.83}, 0.009, ink(0xD9A93A));
    canvas.cloud(canvas.all(), {0.12, 0.5}, 0.16, 6);
}

void warningStripes(Canvas& canvas) {
    canvas.fillRect(canvas.all(), ink(0xE8B62E));
    for (double x = -1; x < canvas.right; x += 0.5) {
        canvas.fill(polygon({{x, 1}, {x + 1, 0}, {x + 1.25, 0}, {x + 0.25, 1}}), ink(0x17181A));
    }
    canvas.cloud(canvas.all(), {0.2, 0.2}, 0.3, 10);
}

void chainLink(Canvas& canvas) {
    for (const double slope : {1, -1}) {
        for (int i = -9; i <= 17; ++i) {
            const QPointF from{i / 8.0, 0}, to{i / 8.0 + slope, 1};
            canvas.line(from + QPointF{0.005, 0.005}, to + QPointF{0.005, 0.005}, 0.018, ink(0x4A4E4C));
            canvas.line(from, to, 0.012, ink(0xC4CAC8));
        }
    }
}

} // namespace pelrath::demo
