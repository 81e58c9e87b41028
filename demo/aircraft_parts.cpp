#include "painters.hpp"

#include <cmath>

namespace pelrath::demo {

void rivetedMetal(Canvas& canvas) {
    canvas.texels(canvas.all(), [](QPointF p) {
        return lit(rgb(0xB4B8BA),
                   0.86 + 0.16 * noise({p.x() * 4, p.y() * 128}, 3, 1, 4) + 0.12 * noise(p * 4, 4, 2, 4));
    });
    for (const double turn : {0, 90}) {
        moved(canvas, {0.5, 0.5}, 1, turn, [&] {
            for (const double at : {-0.375, 0.125}) {
                canvas.line({-0.5, at}, {0.5, at}, 0.005, ink(0x2A2C2D, 0.8));
                canvas.line({-0.5, at + 0.004}, {0.5, at + 0.004}, 0.003, ink(0xFFFFFF, 0.6));
                for (const double row : {at - 0.022, at + 0.026, at + 0.25}) {
                    canvas.rivets({-0.4863, row + 0.0015}, {0.5, row + 0.0015}, 0.03125, 0.013,
                                  ink(0x303334, 0.7));
                    canvas.rivets({-0.4875, row}, {0.5, row}, 0.03125, 0.011, ink(0xC9CDCE));
                }
            }
        });
    }
}

void radialEngine(Canvas& canvas) {
    const QPointF middle{0.5, 0.5};
    canvas.fillRect(canvas.all(), ink(0x0C0D0E));
    canvas.disc(middle, 0.5, ink(0x3A3F38));
    canvas.disc(middle, 0.47, ink(0x101112));
    for (int i = 0; i < 9; ++i) {
        moved(canvas, middle, 1, 40 * i, [&] {
            canvas.fillRect(
                QRectF{-0.085, -0.43, 0.17, 0.27},
                blend({-0.085, 0}, {0.085, 0}, {ink(0x16181A), ink(0x8A8F90), ink(0x4A4E4F), ink(0x121415)}));
            for (int fin = 0; fin < 13; ++fin) {
                canvas.fillRect(QRectF{-0.09, -0.42 + 0.02 * fin, 0.18, 0.008}, ink(0x0A0B0C, 0.75));
            }
            canvas.fillRect(QRectF{-0.05, -0.455, 0.1, 0.05}, ink(0x54585A));
            for (const double x : {-0.035, 0.035}) {
                canvas.line({x * 0.6, -0.15}, {x, -0.43}, 0.012, ink(0xA9ADAD), Qt::RoundCap);
                canvas.line({x * 0.6 - 0.003, -0.15}, {x - 0.003, -0.43}, 0.003, ink(0xF0F2F2));
                canvas.disc({x, -0.43}, 0.012, ink(0x2A2C2D));
            }
        });
    }
    canvas.ring(middle, 0.25, 0.012, ink(0xB98A3A));
    canvas.disc(middle, 0.19, brushed(middle, 0x4A4E50, 0xB4B8B8));
    canvas.ring(middle, 0.19, 0.008, ink(0x16181A));
    for (int i = 0; i < 18; ++i) {
        canvas.disc(middle + polar(20 * i, 0.165), 0.009, ink(0x2A2C2E));
        canvas.disc(middle + polar(20 * i, 0.165) - QPointF{0.002, 0.002}, 0.005, ink(0xB8BCBC));
    }
    canvas.disc(middle, 0.085, brushed(middle, 0x5A5E60, 0xD8DADA));
    canvas.disc(middle, 0.03, ink(0x1C1E20));
    canvas.cloud(canvas.all(), {0.1, 0.1}, 0.2, 3);
}

void wheel(Canvas& canvas) {
    const QPointF middle{0.5, 0.5};
    canvas.fillRect(canvas.all(), ink(0x2C2E2F));
    canvas.disc(middle, 0.49, ink(0x131414));
    for (int i = 0; i < 5; ++i) {
        canvas.ring(middle, 0.45 - 0.03 * i, 0.006, ink(0x2B2C2C));
    }
    canvas.disc(middle, 0.3, brushed(middle, 0x63686A, 0xC0C4C4));
    canvas.ring(middle, 0.3, 0.014, ink(0x0C0D0D));
    for (int i = 0; i < 8; ++i) {
        canvas.disc(middle + polar(45 * i, 0.19), 0.048, ink(0x1A1C1D));
        canvas.ring(middle + polar(45 * i, 0.19), 0.048, 0.006, ink(0xDDE0E0, 0.5));
    }
    canvas.disc(middle, 0.09, ink(0x4A4E50));
    canvas.disc(middle - QPointF{0.01, 0.01}, 0.07, ink(0x7C8284));
    canvas.line({0.5, 0.02}, {0.5, 0.2}, 0.014, ink(0xB8B23A, 0.8));
    canvas.cloud(canvas.all(), {0.15, 0.15}, 0.14, 4);
}

void propellerDisc(Canvas& canvas) {
    const QPointF middle{0.5, 0.5};
    canvas.texels(canvas.all(), [=](QPointF p) {
        const QPointF to = p - middle;
        const double r = std::hypot(to.x(), to.y()) * 2, turn = std::atan2(to.y(), to.x()) + 0.9 * r;
        const double blades = std::pow(0.5 + 0.5 * std::cos(3 * turn), 3);
        const double inside = rise(1, 0.985, r);
        const Color blade = mix(rgb(0x24272A), rgb(0xD8AE3C), rise(0.9, 0.93, r));
        Color color = mix(blade, rgb(0xBFC6CA), 0.25 * blades);
        color.setW(
            static_cast<float>(inside * (0.12 + 0.5 * blades * (1 - 0.5 * r) + 0.22 * rise(0.9, 0.93, r))));
        return color;
    });
    canvas.disc(middle, 0.05, ink(0x35393C, 0.9));
    canvas.disc(middle - QPointF{0.01, 0.01}, 0.03, ink(0x8A9094, 0.7));
}

void bulletHoles(Canvas& canvas) {
    Dice dice{7};
    for (int i = 0; i < 14; ++i) {
        const double radius = dice(0.014, 0.034);
        const QPointF at = dice.within({0.08, 0.08, 0.84, 0.84});
        canvas.glow(at, radius * 2.6, ink(0x14100C, 0.7));
        canvas.fill(star(at, radius * 1.7, radius * 0.9, 9), ink(0xD4D6D2));
        canvas.fill(star(at + QPointF{0.003, 0.003}, radius * 1.4, radius * 0.9, 9), ink(0x6E716E));
        canvas.disc(at, radius * 0.85, ink(0x050505));
    }
}

void tornPanel(Canvas& canvas) {
    canvas.texels(canvas.all(), [](QPointF p) {
        const QPointF to = p - QPointF{0.5, 0.5};
        const double far = std::hypot(to.x(), to.y());
        const double beyond = far - 0.17 - 0.22 * noise(to * 4 / far + QPointF{9, 9}, 4, 8);
        const Color paint =
            lit(rgb(0x5C6450), (0.85 + 0.3 * noise(p * 9, 4, 9)) * (1 - 0.65 * rise(0.2, 0.02, beyond)));
        return beyond < 0 ? Color{} : mix(rgb(0xBFC3C0), paint, rise(0.012, 0.02, beyond));
    });
    canvas.setCompositionMode(QPainter::CompositionMode_DestinationOver);
    for (const double x : {0.42, 0.6}) {
        canvas.fillRect(QRectF{x, 0.1, 0.035, 0.8}, ink(0x4A5844));
        canvas.fillRect(QRectF{x - 0.01, 0.1, 0.01, 0.8}, ink(0x86967A));
    }
    canvas.line({0.2, 0.7}, {0.8, 0.36}, 0.012, ink(0x7A3A2C));
    canvas.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    for (const int turn : {0, 90, 180, 270}) {
        moved(canvas, {0.5, 0.5}, 1, turn, [&] {
            canvas.line({-0.5, 0.44}, {0.5, 0.44}, 0.004, ink(0x14160F, 0.7));
            canvas.rivets({-0.49, 0.42}, {0.5, 0.42}, 0.03, 0.009, ink(0x22251A, 0.7));
        });
    }
}

void emblem(Canvas& canvas) {
    const QPointF middle{0.5, 0.5};
    canvas.disc(middle, 0.46, ink(0xD9A93A));
    canvas.disc(middle, 0.43, ink(0x16324A));
    for (int i = 0; i < 60; ++i) {
        const double t = i / 59.0;
        canvas.glow({0.2 + 0.36 * t, 0.78 - 0.34 * t + 0.06 * std::sin(t * 5)}, 0.02 + 0.07 * t,
                    ink(0xF2D58A, 0.16));
    }
    canvas.fill(star({0.6, 0.4}, 0.19, 0.07, 8), ink(0xF6E7B4));
    canvas.disc({0.6, 0.4}, 0.07, ink(0xFFFFFF));
    canvas.text({1.46, 0.37}, 0.2, "COMET", ink(0x7A2A1C));
    canvas.text({1.45, 0.36}, 0.2, "COMET", ink(0xE9B84A));
    canvas.text({1.45, 0.64}, 0.1, "OF THE NORTH", ink(0xEDE6D2), 0.9);
    canvas.line({1.05, 0.8}, {1.85, 0.8}, 0.02, ink(0xB5392C));
    canvas.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    canvas.texels(canvas.all(),
                  [](QPointF p) { return rgb(0, 0.8 * rise(0.66, 0.72, noise(p * 22, 4, 12))); });
}

void letterSheet(Canvas& canvas) {
    const char* const rows[] = {"ABCDEFGHI", "JKLMNOPQR", "STUVWXYZ0", "123456789"};
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 9; ++x) {
            const QPointF at{canvas.right * (x + 0.5) / 9, (y + 0.5) / 4};
            canvas.text(at, 0.15, QString{QChar{rows[y][x]}}, ink(0xE6E3D4), 0.9);
            canvas.save(); // the bridges of a stencil
            canvas.setCompositionMode(QPainter::CompositionMode_Clear);
            canvas.fillRect(QRectF{at.x() - 0.006, at.y() - 0.1, 0.012, 0.2}, Qt::black);
            canvas.restore();
        }
    }
}

void dropTank(Canvas& canvas) {
    canvas.fillRect(canvas.all(),
                    blend({0, 0}, {0, 1}, {ink(0x4A5052), ink(0xE8ECEC), ink(0x9BA2A4), ink(0x24282A)}));
    for (const double x : {0.28, 0.75, 1.22}) {
        canvas.line({x, 0}, {x, 1}, 0.012, ink(0x1A1C1D, 0.7));
        canvas.rivets({x + 0.03, 0.02}, {x + 0.03, 1}, 0.045, 0.014, ink(0x1A1C1D, 0.6));
    }
    canvas.fillRect(QRectF{0.08, 0, 0.07, 1}, ink(0xB5392C));
    canvas.text({0.985, 0.42}, 0.07, "FUEL ONLY", ink(0xB5392C), 0.75);
    canvas.text({0.985, 0.56}, 0.045, "75 GALLONS", ink(0x1C1E20), 0.85);
    canvas.cloud(canvas.all(), {0.1, 0.5}, 0.16, 13);
}

void shadow(Canvas& canvas) {
    canvas.texels(canvas.all(), [](QPointF p) {
        const double x = std::abs(p.x() - 0.5), y = p.y();
        const auto oval = [](double u, double v, double size) { return (1 - std::hypot(u, v)) * size; };
        const double inside =
            std::max({oval(x / 0.06, (y - 0.52) / 0.42, 0.06), oval(x / 0.47, (y - 0.38) / 0.1, 0.1),
                      oval(x / 0.19, (y - 0.84) / 0.06, 0.06)});
        return rgb(0x050505, 0.75 * rise(-0.02, 0.02, inside));
    });
}

} // namespace pelrath::demo
