#include "painters.hpp"

#include <cmath>

namespace pelrath::demo {

namespace {

const unsigned bars[] = {0xFFFFFF, 0xFFFF00, 0x00FFFF, 0x00FF00, 0xFF00FF, 0xFF0000, 0x0000FF, 0x000000};

/// The texels of the area take the colour as it is, alpha and all; the place is given in parts of the area.
void exact(Canvas& canvas, const QRectF& area, const std::function<Color(QPointF)>& color) {
    canvas.setCompositionMode(QPainter::CompositionMode_Source);
    canvas.texels(area, [&](QPointF p) {
        return color({(p.x() - area.left()) / area.width(), (p.y() - area.top()) / area.height()});
    });
    canvas.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

bool even(double at, double count) { return static_cast<int>(at * count) % 2 == 0; }

void cornerNames(Canvas& canvas, double inset, const QColor& color) {
    const char* const names[] = {"TL", "TR", "BL", "BR"};
    for (int i = 0; i < 4; ++i) {
        canvas.text({i % 2 == 0 ? inset : 1 - inset, i < 2 ? inset : 1 - inset}, 0.04, names[i], color);
    }
}

} // namespace

void colorCard(Canvas& canvas) {
    canvas.fillRect(canvas.all(), ink(0x808080));
    const auto strip = [&canvas](int row, const std::function<Color(QPointF)>& color) {
        exact(canvas, {0.125, 0.125 + 0.0625 * row, 0.75, row == 0 ? 0.125 : 0.046875}, color);
    };
    strip(0, [](QPointF p) { return rgb(bars[static_cast<int>(p.x() * 8)]); });
    const unsigned ends[] = {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF};
    for (int i = 0; i < 4; ++i) {
        strip(i + 2, [&](QPointF p) { return mix(rgb(0), rgb(ends[i]), p.x()); });
    }
    strip(6, [](QPointF p) { return lit(rgb(0xFFFFFF), std::floor(p.x() * 16) / 15); });
    strip(7, [](QPointF p) { return rgb(0xE08020, p.x()); });
    strip(8, [](QPointF p) { return rgb(0x2060C0, std::floor(p.x() * 8) / 7); });
    const QRectF square{0, 0.6875, 0.234375, 0.1875};
    exact(canvas, square.translated(0.125, 0),
          [](QPointF p) { return rgb(even(p.x(), 240) == even(p.y(), 192) ? 0x000000 : 0xFFFFFF); });
    exact(canvas, square.translated(0.3828125, 0),
          [](QPointF p) { return rgb(even(p.x(), 240) ? 0x000000 : 0xFFFFFF); });
    exact(canvas, square.translated(0.640625, 0), [](QPointF p) {
        return lit(rgb(0xFFFFFF),
                   0.5 + 0.5 * std::cos((std::pow(p.x() - 0.5, 2) * 1.56 + std::pow(p.y() - 0.5, 2)) * 300));
    });
    cornerNames(canvas, 0.055, ink(0x000000));
    canvas.text({0.5, 0.055}, 0.035, "UP", ink(0x000000));
    const double t = canvas.texel();
    canvas.setPen(QPen{ink(0xFF0000), 2 * t, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin});
    canvas.drawRect(canvas.all().adjusted(t, t, -t, -t));
}

void cutOutCard(Canvas& canvas) {
    canvas.setPen(QPen{ink(0xC03020), 0.02, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin});
    canvas.drawRect(QRectF{0.03, 0.03, 0.94, 0.94});
    canvas.disc({0.31, 0.33}, 0.15, ink(0x2E7DB0));
    canvas.fill(star({0.69, 0.33}, 0.18, 0.08, 7), ink(0xE0B030));
    canvas.ring({0.31, 0.69}, 0.12, 0.06, ink(0x3E9A50));
    for (int i = 0; i < 7; ++i) {
        canvas.line({0.54, 0.57 + 0.04 * i}, {0.84, 0.57 + 0.04 * i}, 0.003 + 0.003 * i, ink(0x1A1A1A));
    }
    cornerNames(canvas, 0.1, ink(0xF2F2F2));
}

void oddFrame(Canvas& canvas) {
    canvas.fillRect(canvas.all(),
                    blend({0, 0}, {canvas.right, canvas.bottom}, {ink(0x000000), ink(0xE6E6E6)}));
    const double t = canvas.texel();
    canvas.setRenderHint(QPainter::Antialiasing, false);
    canvas.fillRect(QRectF{0, 0, canvas.right, t}, ink(0x0000FF));
    canvas.fillRect(QRectF{0, canvas.bottom - t, canvas.right, t}, ink(0xFFFF00));
    canvas.fillRect(QRectF{0, 0, t, canvas.bottom}, ink(0xFF0000));
    canvas.fillRect(QRectF{canvas.right - t, 0, t, canvas.bottom}, ink(0x00FF00));
}

void alphaRamp(Canvas& canvas) {
    const double end = 1 - canvas.texel() / canvas.right;
    exact(canvas, canvas.all(),
          [&](QPointF p) { return rgb(bars[p.y() < 0.5 ? 1 : 2], (p.x() - (1 - end) / 2) / end); });
}

void chequer(Canvas& canvas) {
    const double count = 1 / canvas.texel();
    exact(canvas, canvas.all(), [&](QPointF p) {
        return rgb(even(p.x(), count * canvas.right) == even(p.y(), count * canvas.bottom) ? 0xFFFFFF
                                                                                           : 0x000000);
    });
}

void corners(Canvas& canvas) {
    exact(canvas, canvas.all(), [](QPointF p) {
        return mix(rgb(0x102848), rgb(0xF8D888), ((p.x() < 0.5 ? 0 : 1) + (p.y() < 0.5 ? 0 : 2)) / 3.0);
    });
}

} // namespace pelrath::demo
