#include "painters.hpp"

#include <cmath>

namespace pelrath::demo {

namespace {

/// The paint of the upper side at a place of the sheet, one unit being the length of the aircraft.
Color upperPaint(const Livery& livery, QPointF p) {
    const Color dark = rgb(livery.dark), light = rgb(livery.light);

    switch (livery.pattern) {
    case Livery::Bands:
        return mix(dark, light, rise(0.49, 0.505, noise({p.x() * 9 + p.y() * 6, p.y() * 6}, 2, 11)));
    case Livery::Splinter: {
        const double a = std::fmod(p.x() * 4.1 + p.y() * 2.3 + 8, 1),
                     b = std::fmod(p.x() * 2.7 - p.y() * 5.1 + 8, 1);
        return (a < 0.42) != (b < 0.5) ? dark : light;
    }
    case Livery::Whitewash:
        return mix(rgb(0xE4E6E2), mix(dark, light, rise(0.48, 0.5, noise(p * 6, 2, 11))),
                   rise(0.5, 0.62, noise({p.x() * 10, p.y() * 26}, 4, 31)));
    case Livery::Metal:
        return mix(dark, light,
                   0.4 * noise(p * 60, 2, 5) + 0.8 * noise({p.x() * 3, p.y() * 160}, 2, 41) - 0.2);
    default:
        return mix(dark, light, noise(p * 9, 4, 51));
    }
}

void mark(Canvas& canvas, const Livery& livery, QPointF at, double radius) {
    const QColor outer = ink(livery.outer), inner = ink(livery.inner), pale = ink(0xE9E4D4);
    switch (livery.mark) {
    case Livery::Rings:
        canvas.disc(at, radius, outer);
        canvas.disc(at, radius * 0.7, pale);
        canvas.disc(at, radius * 0.36, inner);
        break;
    case Livery::Diamond:
        canvas.fill(star(at, radius * 1.1, radius * 0.78, 2), outer);
        canvas.fill(star(at, radius * 0.85, radius * 0.6, 2), pale);
        canvas.fill(star(at, radius * 0.5, radius * 0.36, 2), inner);
        break;
    case Livery::Star:
        canvas.disc(at, radius, outer);
        canvas.fill(star(at, radius * 0.95, radius * 0.3, 4), pale);
        canvas.disc(at, radius * 0.2, inner);
        break;
    case Livery::Halves:
        canvas.disc(at, radius, outer);
        canvas.setBrush(inner);
        canvas.drawPie(QRectF{at - QPointF{radius, radius}, at + QPointF{radius, radius}}, 16 * 45, 16 * 180);
        canvas.setBrush(Qt::NoBrush);
        canvas.ring(at, radius * 0.95, radius * 0.1, pale);
        break;
    }
}

/// A joint of two sheets, riveted on both sides.
void seam(Canvas& canvas, QPointF from, QPointF to) {
    const double t = canvas.texel();
    const QPointF along = (to - from) / std::hypot(to.x() - from.x(), to.y() - from.y());
    const QPointF across{-along.y(), along.x()};
    canvas.line(from + across * t, to + across * t, t, ink(0xFFFFFF, 0.16));
    canvas.line(from, to, 1.2 * t, ink(0x0C0E0E, 0.55));
    for (const double side : {-0.006, 0.006}) {
        canvas.rivets(from + across * side, to + across * side, 0.0075, 0.0016, ink(0x0C0E0E, 0.4));
    }
}

void hatch(Canvas& canvas, const QRectF& area) {
    QPainterPath path;
    path.addRoundedRect(area, 0.004, 0.004);
    canvas.stroke(path, 0.0012, ink(0x0C0E0E, 0.55));
    const QRectF in = area.adjusted(0.004, 0.004, -0.004, -0.004);
    canvas.rivets(in.topLeft(), in.topRight(), 0.01, 0.0018, ink(0x101212, 0.5));
    canvas.rivets(in.bottomLeft(), in.bottomRight(), 0.01, 0.0018, ink(0x101212, 0.5));
}

/// What the weather did: dirt along the wind, faded paint, and bare metal where it was rubbed off.
void weather(Canvas& canvas, const QRectF& area, QSizeF streaks, double wear,
             const std::function<double(QPointF)>& rubbed) {
    canvas.cloud(area, streaks, 0.05 + 0.09 * wear, 61);
    canvas.cloud(area, {0.12, 0.12}, 0.08, 62);
    canvas.texels(area, [&](QPointF p) {
        const double chips = noise(p * 170, 2, 63) + 0.3 * (noise(p * 14, 2, 64) - 0.5);
        return rgb(0xC4C8C6, 0.85 * rise(0.0, 0.03, chips - 1.03 + 0.42 * wear * rubbed(p)));
    });
}

/// Paints inside of the shape, and its edge.
void part(Canvas& canvas, const QPainterPath& shape, const std::function<void(const QRectF&)>& paint) {
    canvas.save();
    canvas.setClipPath(shape, Qt::IntersectClip);
    paint(shape.boundingRect());
    canvas.restore();
    canvas.stroke(shape, 0.0016, ink(0x141616, 0.9));
}

QPainterPath fuselageShape() {
    QPainterPath path{{0, 0}};
    path.cubicTo(0.005, -0.03, 0.03, -0.046, 0.055, -0.05);
    path.cubicTo(0.18, -0.074, 0.27, -0.078, 0.335, -0.082);
    path.cubicTo(0.45, -0.092, 0.56, -0.088, 0.63, -0.076);
    path.cubicTo(0.72, -0.062, 0.79, -0.05, 0.835, -0.055);
    path.cubicTo(0.868, -0.06, 0.873, -0.176, 0.925, -0.182);
    path.cubicTo(0.968, -0.184, 0.985, -0.13, 0.985, -0.07);
    path.cubicTo(0.985, -0.03, 0.97, -0.006, 0.94, 0.0);
    path.cubicTo(0.78, 0.03, 0.62, 0.066, 0.45, 0.08);
    path.cubicTo(0.3, 0.088, 0.14, 0.078, 0.055, 0.052);
    path.cubicTo(0.03, 0.046, 0.005, 0.03, 0, 0);
    return path;
}

QPainterPath canopyShape() {
    QPainterPath path{{0.33, -0.08}};
    path.cubicTo(0.36, -0.115, 0.39, -0.13, 0.43, -0.13);
    path.cubicTo(0.5, -0.13, 0.54, -0.105, 0.6, -0.082);
    path.closeSubpath();
    return path;
}

void canopy(Canvas& canvas) {
    part(canvas, canopyShape(), [&](const QRectF& area) {
        canvas.fillRect(
            area, blend(area.topLeft(), area.bottomLeft(), {ink(0x6E8794), ink(0x2E4450), ink(0x16242C)}));
        canvas.fill(polygon({{0.40, -0.14}, {0.43, -0.14}, {0.40, -0.07}, {0.37, -0.07}}),
                    ink(0xFFFFFF, 0.2));
        canvas.fill(polygon({{0.49, -0.14}, {0.5, -0.14}, {0.47, -0.07}, {0.46, -0.07}}),
                    ink(0xFFFFFF, 0.14));
        for (const double x : {0.375, 0.44, 0.51}) {
            canvas.line({x, -0.14}, {x - 0.012, -0.07}, 0.005, ink(0x20282A));
        }
    });
}

void exhausts(Canvas& canvas) {
    for (int i = 0; i < 6; ++i) {
        const QRectF stub{0.11 + 0.019 * i, -0.038, 0.014, 0.011};
        QPainterPath path;
        path.addRoundedRect(stub, 0.005, 0.005);
        canvas.fill(path, blend(stub.topLeft(), stub.bottomLeft(), {ink(0xA08068), ink(0x241A16)}));
        canvas.fill(
            polygon({{0.16, -0.033}, {0.5, -0.05 + 0.003 * i}, {0.5, -0.012 - 0.003 * i}, {0.16, -0.028}}),
            blend({0.16, 0}, {0.5, 0}, {ink(0x0C0A09, 0.22), ink(0x0C0A09, 0)}));
    }
}

/// From the spinner at (0, 0) to the rudder at x = 1.
void fuselage(Canvas& canvas, const Livery& livery) {
    const bool metal = livery.pattern == Livery::Metal;
    part(canvas, fuselageShape(), [&](const QRectF& area) {
        canvas.texels(area, [&](QPointF p) {
            const double edge = 0.03 - 0.045 * rise(0.4, 1, p.x()) + 0.003 * (noise(p * 30, 2, 71) - 0.5);
            return mix(upperPaint(livery, p), rgb(livery.below), rise(edge - 0.002, edge + 0.002, p.y()));
        });
        canvas.fillRect(
            area, blend({0, -0.09}, {0, 0.085},
                        {ink(0xFFFFFF, 0.16), ink(0xFFFFFF, 0), ink(0x000000, 0.1), ink(0x000000, 0.32)}));
        if (metal)
            canvas.fill(polygon({{0.055, -0.1}, {0.33, -0.1}, {0.33, -0.066}, {0.055, -0.034}}),
                        ink(0x3C4238));
        canvas.fillRect(QRectF{0.79, -0.1, 0.022, 0.2}, ink(livery.trim, 0.9));
        canvas.fillRect(QRectF{0, -0.1, 0.055, 0.2}, ink(livery.trim));
        for (const double x : {0.055, 0.13, 0.22, 0.33, 0.4, 0.47, 0.55, 0.63, 0.7, 0.77, 0.835}) {
            seam(canvas, {x, -0.2}, {x, 0.1});
        }
        seam(canvas, {0.055, -0.018}, {0.33, -0.012});
        seam(canvas, {0.055, 0.028}, {0.835, 0.006});
        seam(canvas, {0.33, -0.045}, {0.835, -0.028});
        seam(canvas, {0.937, -0.2}, {0.937, 0.1});
        hatch(canvas, {0.245, -0.055, 0.06, 0.03});
        hatch(canvas, {0.415, 0.032, 0.045, 0.028});
        hatch(canvas, {0.715, -0.03, 0.03, 0.026});
        mark(canvas, livery, {0.6, -0.018}, 0.04);
        canvas.text({0.49, -0.024}, 0.042, QString{livery.code}.left(2), ink(livery.letters), 0.85);
        canvas.text({0.7, -0.03}, 0.042, QString{livery.code}.mid(2), ink(livery.letters), 0.85);
        canvas.fillRect(QRectF{0.895, -0.135, 0.032, 0.04}, ink(livery.outer));
        canvas.fillRect(QRectF{0.906, -0.135, 0.01, 0.04}, ink(0xE9E4D4));
        canvas.text({0.875, -0.028}, 0.009, "P-4107", ink(livery.letters));
        canvas.text({0.275, 0.005}, 0.006, "FUEL 87", ink(0xE8D9B0, 0.9));
        canvas.disc({0.275, -0.008}, 0.006, ink(0xB5392C));
        canvas.text({0.437, 0.067}, 0.005, "NO STEP", ink(0xE8D9B0, 0.85));
        canvas.text({0.73, 0.006}, 0.005, "FIRST AID", ink(0xE8D9B0, 0.9));
        canvas.text({0.86, 0.008}, 0.005, "LIFT HERE", ink(0xE8D9B0, 0.85));
        weather(canvas, area, {0.3, 0.012}, livery.wear,
                [](QPointF p) { return rise(0.2, 0, p.x()) + 0.8 * rise(0.05, 0, std::abs(p.x() - 0.42)); });
        exhausts(canvas);
    });
    canopy(canvas);
}

/// The right half of a wing or tailplane, from its root at x = 0 to its tip at x = 1, the leading edge above.
void wing(Canvas& canvas, const Livery& livery, bool upper, bool tail = false) {
    QPainterPath shape{{0, 0.01}};
    shape.lineTo(0.08, 0);
    shape.cubicTo(0.5, 0, 1, 0.02, 1, 0.18);
    shape.cubicTo(1, 0.3, 0.65, 0.39, 0.3, 0.41);
    shape.lineTo(0, 0.42);
    shape.closeSubpath();
    part(canvas, shape, [&](const QRectF& area) {
        canvas.texels(area, [&](QPointF p) {
            return upper ? upperPaint(livery, p * 0.5 + QPointF{2.3, 1.7})
                         : mix(rgb(livery.below), lit(rgb(livery.below), 0.9), noise(p * 5, 4, 72));
        });
        canvas.fillRect(
            area, blend({0, 0}, {0, 0.42},
                        {ink(0xFFFFFF, 0.18), ink(0xFFFFFF, 0), ink(0x000000, 0.06), ink(0x000000, 0.2)}));
        for (const double x : {0.09, 0.2, 0.31, 0.42, 0.53, 0.64, 0.75, 0.86}) {
            seam(canvas, {x, 0}, {x, 0.42});
        }
        seam(canvas, {0, 0.1}, {1, 0.14});
        seam(canvas, {0, 0.22}, {1, 0.2});
        const QPainterPath flaps = polygon({{0.02, 0.335}, {0.45, 0.32}, {0.45, 0.45}, {0.02, 0.45}});
        const QPainterPath aileron = polygon({{0.47, 0.318}, {0.88, 0.245}, {0.9, 0.45}, {0.47, 0.45}});
        canvas.stroke(flaps, 0.004, ink(0x141616, 0.8));
        canvas.stroke(aileron, 0.004, ink(0x141616, 0.8));
        hatch(canvas, {0.33, 0.125, 0.08, 0.07});
        hatch(canvas, {0.44, 0.125, 0.08, 0.07});
        for (const double x : {0.36, 0.4, 0.44}) {
            canvas.disc({x, 0.012}, 0.008, ink(0x0C0D0D));
        }
        if (upper && !tail) {
            canvas.rivets({0.03, 0.05}, {0.03, 0.31}, 0.02, 0.006, ink(0xB5392C, 0.8));
            canvas.text({0.16, 0.275}, 0.012, "NO STEP", ink(0xE8D9B0, 0.8));
            canvas.disc({0.14, 0.06}, 0.012, ink(0xB5392C));
            canvas.disc({0.975, 0.16}, 0.012, ink(0x3E9A5C));
        } else if (!tail) {
            canvas.line({0.2, 0.17}, {0.42, 0.13}, 0.05, ink(0x141513), Qt::RoundCap);
            canvas.line({0.2, 0.17}, {0.42, 0.13}, 0.018, ink(0x6E7372), Qt::RoundCap);
            canvas.disc({0.17, 0.175}, 0.075, ink(0x141513));
            canvas.disc({0.17, 0.175}, 0.055, ink(0x2A2C2B));
            canvas.disc({0.17, 0.175}, 0.026, ink(0x7C8180));
        }
        if (!tail) mark(canvas, livery, {0.68, 0.19}, 0.1);
        weather(canvas, area, {0.02, 0.4}, livery.wear, [&](QPointF p) {
            return rise(0.07, 0, p.y() - 0.09 * p.x() * p.x()) + (upper ? 0.9 * rise(0.12, 0, p.x()) : 0);
        });
    });
}

void bothHalves(Canvas& canvas, QPointF middle, double scale, const std::function<void()>& half) {
    moved(canvas, middle + QPointF{0.004, 0}, scale, 0, half);
    moved(canvas, middle - QPointF{0.004, 0}, -scale, 0, half);
}

} // namespace

Painter skinSheet(const Livery& livery) {
    return [livery](Canvas& canvas) {
        moved(canvas, {0.025, 0.2}, 0.95, 0, [&] { fuselage(canvas, livery); });
        moved(canvas, {0.975, 0.445}, -0.95, 0, [&] { fuselage(canvas, livery); });
        bothHalves(canvas, {0.5, 0.555}, 0.475, [&] { wing(canvas, livery, true); });
        bothHalves(canvas, {0.5, 0.78}, 0.475, [&] { wing(canvas, livery, false); });
        bothHalves(canvas, {0.2, 0.025}, 0.16, [&] { wing(canvas, livery, true, true); });
        bothHalves(canvas, {0.8, 0.265}, 0.16, [&] { wing(canvas, livery, false, true); });
    };
}

} // namespace pelrath::demo
