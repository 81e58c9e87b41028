#include "painters.hpp"

#include <cmath>

namespace pelrath::demo {

Painter ground(const Ground& kind) {
    return [kind](Canvas& canvas) {
        const int period = static_cast<int>(std::lround(1 / kind.size));
        canvas.texels(canvas.all(), [&, period](QPointF p) {
            const QPointF bent =
                p / kind.size + QPointF{noise(p * 4, 2, 3, 4), noise(p * 4, 2, 4, 4)} * kind.bend;
            double height = noise({bent.x(), bent.y() * kind.stretch}, 5, 1, period);
            if (kind.rows > 0)
                height =
                    0.45 * height + 0.55 * (0.5 + 0.5 * std::sin((p.x() + 0.004 * noise(p * 16, 2, 5, 16)) *
                                                                 kind.rows * 2 * M_PI));
            Color color = mix(mix(rgb(kind.low), rgb(kind.middle), rise(0.2, 0.5, height)), rgb(kind.high),
                              rise(0.45, 0.8, height));
            color = lit(color, 0.88 + 0.24 * noise(p * 128, 2, 2, 128));
            if (kind.cells == 0) return color;
            const Cell part =
                cell(p * kind.cells + QPointF{noise(p * 32, 2, 6, 32), noise(p * 32, 2, 7, 32)} * 0.3, 8,
                     kind.cells);
            return lit(color, (0.55 + 0.7 * part.id) * (0.45 + 0.55 * rise(0, kind.soft, part.edge)));
        });
    };
}

namespace {

void treeTop(Canvas& canvas, QPointF at, double radius, Dice& dice) {
    canvas.disc(at + QPointF{radius, radius} * 0.45, radius, ink(0x0A1008, 0.4));
    const Color leaf = mix(rgb(0x2A3E1E), rgb(0x56703A), dice(0, 1));
    canvas.disc(at, radius, ink(lit(leaf, 0.8)));
    for (int i = 0; i < 9; ++i) {
        const QPointF off = polar(dice(0, 360), radius * dice(0.1, 0.75));
        canvas.disc(at + off, radius * 0.34, ink(lit(leaf, 1 - 0.5 * (off.x() + off.y()) / radius)));
    }
}

} // namespace

void farmland(Canvas& canvas) {
    canvas.texels(canvas.all(), [](QPointF p) {
        const unsigned crops[] = {0x5E7038, 0xB59C54, 0x7A6244, 0x4C6430, 0x8E9448, 0xC7B06A, 0x6B7A40};
        const Cell parcel = cell({p.x() * 6 + noise(p * 3, 2, 7), p.y() * 5 + p.x() + noise(p * 3, 2, 8)}, 9);
        const double turn = parcel.id * 37, across = p.x() * std::cos(turn) + p.y() * std::sin(turn);
        const Color crop = lit(rgb(crops[static_cast<int>(parcel.id * 6.99)]),
                               0.82 + 0.12 * std::sin(across * 330) + 0.3 * noise(p * 18, 4, 5));
        const double ragged = parcel.edge + 0.03 * (noise(p * 60, 2, 10) - 0.5);
        return mix(lit(rgb(0x2C3A1E), 0.6 + 0.9 * noise(p * 90, 2, 11)), crop, rise(0.03, 0.05, ragged));
    });
    Dice dice{12};
    for (int i = 0; i < 500; ++i) {
        const QPointF at = dice.within(canvas.all());
        if (noise(at * 5, 2, 13) > 0.55) treeTop(canvas, at, dice(0.005, 0.009), dice);
    }
}

Painter tree(const Growth& kind) {
    return [kind](Canvas& canvas) {
        Dice dice{kind.seed};
        const auto foliage = [&](QPointF at, double size) {
            for (int i = 0; i < kind.leaves; ++i) {
                const QPointF off = polar(dice(0, 360), size * std::sqrt(dice(0, 1)));
                const double light = 0.75 - 0.9 * (off.x() + 1.6 * off.y()) / 3 / size + dice(-0.25, 0.25) -
                                     0.5 * (at.y() - 0.35);
                moved(canvas, at + off, 1, dice(0, 180), [&] {
                    canvas.setBrush(ink(lit(rgb(kind.leaf), light)));
                    canvas.drawEllipse(QPointF{}, 0.011, 0.0055);
                });
            }
        };
        const std::function<void(QPointF, double, double, double, int)> grow =
            [&](QPointF from, double angle, double length, double width, int forks) {
                const QPointF to = from + polar(angle, length);
                canvas.line(from, to, width, ink(lit(rgb(0x4A3A2C), dice(0.8, 1.25))), Qt::RoundCap);
                if (forks == 0) return;
                for (const double side : {-1.0, 1.0, 0.2}) {
                    grow(to, angle + side * kind.spread * dice(0.6, 1.3), length * dice(0.66, 0.84),
                         width * 0.62, forks - 1);
                }
                if (kind.leaves > 0 && forks <= 3) foliage(to, 0.075);
            };
        grow({0.5, 0.99}, 0, 0.25, 0.045, kind.leaves > 0 ? 5 : 7);
    };
}

} // namespace pelrath::demo
