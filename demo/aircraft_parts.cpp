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
}

} // namespace pelrath::demo
