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

/// A ridged roof from above, light from the upper left.
void roof(Canvas& canvas, QPointF at, double degrees, QSizeF half, Dice& dice) {
    const unsigned colors[] = {0x8A4A36, 0x6E3C2E, 0x565A60, 0x9A5A40, 0x4A4844, 0x7C6A58};
    const Color color = lit(rgb(colors[static_cast<int>(dice(0, 5.99))]), dice(0.85, 1.15));
    const double w = half.width(), h = half.height();
    moved(canvas, at, 1, degrees, [&] {
        canvas.fillRect(QRectF{-w + 0.006, -h + 0.007, 2 * w, 2 * h}, ink(0x000000, 0.45));
        canvas.fillRect(QRectF{-w, -h, 2 * w, h}, ink(lit(color, 1.15)));
        canvas.fillRect(QRectF{-w, 0, 2 * w, h}, ink(lit(color, 0.72)));
        for (double y = -h; y < h; y += 0.005) {
            canvas.line({-w, y}, {w, y}, 0.0009, ink(0x000000, 0.3));
        }
        canvas.line({-w, 0}, {w, 0}, 0.002, ink(lit(color, 1.5)));
        canvas.fillRect(QRectF{w * 0.4, -h * 0.6, 0.006, 0.006}, ink(0x4A2E26));
    });
}

void road(Canvas& canvas, const QPainterPath& way, double width, unsigned color) {
    canvas.strokePath(
        way, QPen{ink(lit(rgb(color), 0.7)), width * 1.25, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin});
    canvas.strokePath(way, QPen{ink(color), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin});
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
    QPainterPath way{{-0.1, 0.3}}, lane{{0.52, 0.37}};
    way.cubicTo(0.3, 0.1, 0.4, 0.55, 1.1, 0.42);
    lane.cubicTo(0.5, 0.6, 0.7, 0.8, 0.62, 1.1);
    road(canvas, lane, 0.008, 0xA89A7C);
    road(canvas, way, 0.012, 0xA89A7C);
    for (int i = 0; i < 26; ++i) {
        const double t = dice(0.3, 0.75), side = dice(0, 1) < 0.5 ? -1 : 1;
        roof(canvas, way.pointAtPercent(t) + QPointF{0, side * dice(0.022, 0.045)}, dice(-20, 20),
             {dice(0.01, 0.018), 0.009}, dice);
    }
    for (int i = 0; i < 500; ++i) {
        const QPointF at = dice.within(canvas.all());
        if (noise(at * 5, 2, 13) > 0.55) treeTop(canvas, at, dice(0.005, 0.009), dice);
    }
}

void cityBlocks(Canvas& canvas) {
    ground({0x55534F, 0x66645F, 0x75726C, 0.25})(canvas);
    Dice dice{15};
    const double at[] = {0.02, 0.35, 0.73, 1.02};
    for (int block = 0; block < 9; ++block) {
        const double x = at[block % 3], y = at[block / 3];
        const QRectF area{x, y, at[block % 3 + 1] - x - 0.04, at[block / 3 + 1] - y - 0.04};
        canvas.fillRect(area, ink(0x9A968C));
        const QRectF yard = area.adjusted(0.06, 0.06, -0.06, -0.06);
        canvas.fillRect(yard, ink(0x5D6844));
        for (int i = 0; i < 12; ++i) {
            treeTop(canvas, dice.within(yard), dice(0.007, 0.013), dice);
        }
        for (const bool upright : {false, true}) {
            const double from = upright ? area.top() + 0.062 : area.left() + 0.008,
                         to = upright ? area.bottom() - 0.062 : area.right() - 0.008;
            const int houses = static_cast<int>((to - from) / 0.042);
            const double step = (to - from) / houses;
            for (int i = 0; i < 2 * houses; ++i) {
                const double along = from + step * (i / 2 + 0.5), half = dice(0.02, 0.025);
                const double near = (upright ? area.left() : area.top()) + 0.034,
                             far = (upright ? area.right() : area.bottom()) - 0.034;
                const double across = i % 2 == 0 ? near : far;
                roof(canvas, upright ? QPointF{across, along} : QPointF{along, across}, upright ? -90 : 0,
                     {step * 0.49, half}, dice);
            }
        }
    }
    for (const double street : {0.33, 0.71}) {
        for (double t = 0.02; t < 1; t += 0.03) {
            canvas.line({street, t}, {street, t + 0.014}, 0.0016, ink(0xD8D4C4, 0.7));
            treeTop(canvas, {t, street}, 0.008, dice);
        }
    }
}

void runway(Canvas& canvas) {
    ground({0x77746C, 0x8A877E, 0x98958C, 0.2})(canvas);
    const double length = canvas.right;
    for (double x = 0; x < length; x += 0.25) {
        canvas.line({x, 0}, {x, 1}, 0.005, ink(0x2A2826, 0.5));
        canvas.line({0, x / length}, {length, x / length}, 0.005, ink(0x2A2826, 0.4));
    }
    Dice dice{20};
    for (int i = 0; i < 90; ++i) {
        const double x = dice(-0.3, length), y = (i % 2 == 0 ? 0.36 : 0.64) + dice(-0.06, 0.06);
        canvas.fillRect(
            QRectF{x, y, 0.7, 0.016},
            blend({x, y}, {x + 0.7, y}, {ink(0x1B1A19, 0), ink(0x1B1A19, 0.35), ink(0x1B1A19, 0)}));
    }
    for (double x = 1.9; x < length; x += 0.4) {
        canvas.fillRect(QRectF{x, 0.485, 0.24, 0.03}, ink(0xE6E3D6, 0.9));
    }
    for (int i = 0; i < 8; ++i) {
        canvas.fillRect(QRectF{0.1, 0.09 + 0.104 * i + (i > 3 ? 0.04 : 0), 0.6, 0.05}, ink(0xE6E3D6, 0.9));
    }
    moved(canvas, {1.2, 0.5}, 1, 90, [&] {
        canvas.text({-0.01, 0.16}, 0.26, "09", ink(0xE6E3D6, 0.9));
        canvas.text({0, -0.26}, 0.26, "L", ink(0xE6E3D6, 0.9));
    });
    for (const double y : {0.03, 0.97}) {
        canvas.line({0, y}, {length, y}, 0.016, ink(0xE6E3D6, 0.85));
    }
    canvas.texels(canvas.all(),
                  [](QPointF p) { return rgb(0x7E7B73, 0.8 * rise(0.58, 0.7, noise(p * 24, 4, 26))); });
}

void railway(Canvas& canvas) {
    ground({0x4E483E, 0x7E776A, 0xA39A8A, 0.25, 1, 0, 20, 0.4})(canvas);
    Dice dice{28};
    for (double y = 0.06; y < canvas.bottom; y += 0.2) {
        canvas.fillRect(QRectF{0.125, y + 0.01, 0.76, 0.095}, ink(0x000000, 0.4));
        canvas.fillRect(QRectF{0.12, y, 0.76, 0.09}, ink(lit(rgb(0x5A4636), dice(0.8, 1.2))));
        for (double grain = y + 0.012; grain < y + 0.09; grain += 0.018) {
            canvas.line({0.13, grain}, {0.87, grain}, 0.004, ink(0x0C0A08, 0.4));
        }
    }
    for (const double x : {0.29, 0.71}) {
        canvas.fillRect(QRectF{x - 0.01, 0, 0.06, canvas.bottom}, ink(0x000000, 0.4));
        canvas.fillRect(QRectF{x - 0.03, 0, 0.06, canvas.bottom},
                        blend({x - 0.03, 0}, {x + 0.03, 0},
                              {ink(0x4A3426), ink(0xC8CAC8), ink(0xC8CAC8), ink(0x4A3426)}));
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

void pine(Canvas& canvas) {
    Dice dice{41};
    canvas.fill(polygon({{0.485, 0.1}, {0.515, 0.1}, {0.54, 1.99}, {0.46, 1.99}}), ink(0x4A3828));
    for (int i = 0; i < 1500; ++i) {
        const double t = std::sqrt(i / 1500.0), reach = (0.03 + 0.4 * t) * (0.8 + 0.2 * std::cos(t * 52));
        const double x = dice(-1, 1);
        const QPointF at{0.5 + x * reach, 0.06 + 1.74 * t + 0.1 * std::abs(x) * t};
        const QColor color =
            ink(lit(mix(rgb(0x1C3424), rgb(0x4C6E46), dice(0, 1)), 0.85 - 0.3 * x + dice(-0.1, 0.2)));
        for (const double needle : {-0.05, 0.0, 0.05}) {
            canvas.line(at, at + QPointF{x * 0.07 + needle * 0.6, 0.05 - std::abs(needle) * 0.4}, 0.008,
                        color, Qt::RoundCap);
        }
    }
}

void grassTuft(Canvas& canvas) {
    Dice dice{42};
    for (int i = 0; i < 260; ++i) {
        const double x = dice(0.25, canvas.right - 0.25),
                     height = dice(0.35, 0.9) * (1 - 0.5 * std::abs(x / canvas.right * 2 - 1)),
                     lean = dice(-0.2, 0.2);
        QPainterPath blade{{x - 0.012, 1}};
        blade.quadTo({x, 1 - height * 0.6}, {x + lean, 1 - height});
        blade.quadTo({x + 0.014, 1 - height * 0.5}, {x + 0.014, 1});
        canvas.fill(
            blade, blend({x, 1}, {x, 1 - height},
                         {ink(lit(rgb(0x3E4A20), dice(0.7, 1.2))), ink(lit(rgb(0x8C9A4A), dice(0.7, 1.3)))}));
    }
}

} // namespace pelrath::demo
