#include "canvas.hpp"

#include <algorithm>
#include <cmath>
#include <vector>

namespace pelrath::demo {

Color rgb(unsigned hex, double alpha) {
    const QColor color{QRgb{hex}};
    return {color.redF(), color.greenF(), color.blueF(), static_cast<float>(alpha)};
}

Color mix(const Color& a, const Color& b, double t) {
    return a + (b - a) * static_cast<float>(std::clamp(t, 0.0, 1.0));
}

Color lit(const Color& color, double k) { return {color.toVector3D() * static_cast<float>(k), color.w()}; }

QColor ink(const Color& color) {
    const auto part = [&color](int i) { return std::clamp(color[i], 0.0F, 1.0F); };
    return QColor::fromRgbF(part(0), part(1), part(2), part(3));
}

double rise(double from, double to, double x) {
    const double t = std::clamp((x - from) / (to - from), 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

QPointF polar(double degrees, double radius) {
    const double angle = degrees * M_PI / 180;
    return {radius * std::sin(angle), -radius * std::cos(angle)};
}

namespace {

constexpr int lattice = 256;

/// The random number of a point of the lattice, which repeats after `period`.
double random(int x, int y, unsigned seed, int period) {
    static const std::vector<float> numbers = [] {
        Dice dice{1};
        std::vector<float> drawn(lattice * lattice);
        std::generate(drawn.begin(), drawn.end(), [&dice] { return static_cast<float>(dice(0, 1)); });
        return drawn;
    }();
    if (period > 0) {
        x = (x % period + period) % period;
        y = (y % period + period) % period;
    }
    const unsigned at = static_cast<unsigned>(y) * lattice + static_cast<unsigned>(x) + seed * 7919U;
    return static_cast<double>(numbers[at % (lattice * lattice)]);
}

double smooth(QPointF at, unsigned seed, int period) {
    const double left = std::floor(at.x()), top = std::floor(at.y());
    const int x = static_cast<int>(left), y = static_cast<int>(top);
    double u = at.x() - left, v = at.y() - top;
    u *= u * (3 - 2 * u), v *= v * (3 - 2 * v);
    const double a = random(x, y, seed, period), b = random(x + 1, y, seed, period);
    const double c = random(x, y + 1, seed, period), d = random(x + 1, y + 1, seed, period);
    return a + (b - a) * u + (c - a + (a - b - c + d) * u) * v;
}

/// A channel as the byte that it is in an image.
QRgb byteOf(float channel) { return static_cast<QRgb>(std::clamp(channel, 0.0F, 1.0F) * 255 + 0.5F); }

} // namespace

double noise(QPointF at, int octaves, unsigned seed, int period) {
    double sum = 0, weight = 0, part = 1;
    for (int i = 0; i < octaves; ++i, part /= 2, at *= 2, period *= 2) {
        sum += part * smooth(at, seed + static_cast<unsigned>(i), period);
        weight += part;
    }
    return sum / weight;
}

Cell cell(QPointF at, unsigned seed, int period) {
    const int x = static_cast<int>(std::floor(at.x())), y = static_cast<int>(std::floor(at.y()));
    double first = 9, second = 9, id = 0;
    for (int j = y - 1; j <= y + 1; ++j) {
        for (int i = x - 1; i <= x + 1; ++i) {
            const double far = std::hypot(i + random(i, j, seed, period) - at.x(),
                                          j + random(i, j, seed + 1, period) - at.y());
            if (far < first) id = random(i, j, seed + 2, period);
            second = std::min(second, std::max(first, far));
            first = std::min(first, far);
        }
    }
    return {second - first, id};
}

Canvas::Canvas(QImage& image)
    : right(std::max(1.0, 1.0 * image.width() / image.height())),
      bottom(std::max(1.0, 1.0 * image.height() / image.width())), device_(image.rect()) {
    begin(&image);
    setRenderHints(Antialiasing | SmoothPixmapTransform);
    const double side = std::min(image.width(), image.height());
    scale(side, side);
    setPen(Qt::NoPen);
}

double Canvas::texel() const { return 1 / std::sqrt(std::abs(transform().determinant())); }

void Canvas::texels(const QRectF& area, const std::function<Color(QPointF)>& color) {
    const QRect touched = transform().mapRect(area).toAlignedRect() & device_;
    QImage layer{touched.size(), QImage::Format_ARGB32};
    const QTransform back = transform().inverted();
    for (int y = 0; y < touched.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(layer.scanLine(y));
        for (int x = 0; x < touched.width(); ++x) {
            const Color c = color(back.map(QPointF{touched.x() + x + 0.5, touched.y() + y + 0.5}));
            row[x] = byteOf(c.w()) << 24 | byteOf(c.x()) << 16 | byteOf(c.y()) << 8 | byteOf(c.z());
        }
    }
    save();
    resetTransform();
    drawImage(touched.topLeft(), layer);
    restore();
}

void Canvas::cloud(const QRectF& area, QSizeF size, double strength, unsigned seed) {
    texels(area, [=](QPointF p) {
        const double n = noise({p.x() / size.width(), p.y() / size.height()}, 4, seed) * 2 - 1;
        return rgb(n < 0 ? 0x000000 : 0xFFFFFF, std::min(1.0, std::abs(n) * 2) * strength);
    });
}

void Canvas::disc(QPointF centre, double radius, const QBrush& brush) {
    QPainterPath path;
    path.addEllipse(centre, radius, radius);
    fillPath(path, brush);
}

void Canvas::ring(QPointF centre, double radius, double width, const QColor& color) {
    QPainterPath path;
    path.addEllipse(centre, radius, radius);
    stroke(path, width, color);
}

void Canvas::line(QPointF from, QPointF to, double width, const QColor& color, Qt::PenCapStyle cap) {
    QPainterPath path{from};
    path.lineTo(to);
    strokePath(path, QPen{color, width, Qt::SolidLine, cap});
}

void Canvas::stroke(const QPainterPath& path, double width, const QColor& color) {
    strokePath(path, QPen{color, width});
}

void Canvas::glow(QPointF centre, double radius, const QColor& color) {
    QRadialGradient fading{centre, radius};
    QColor at = color;
    for (const double t : {0.0, 0.25, 0.5, 0.75, 1.0}) {
        at.setAlphaF(color.alphaF() * static_cast<float>(1 - rise(0, 1, t)));
        fading.setColorAt(t, at);
    }
    disc(centre, radius, fading);
}

void Canvas::rivets(QPointF from, QPointF to, double gap, double size, const QColor& color) {
    QPen pen{color, size, Qt::CustomDashLine, Qt::RoundCap};
    pen.setDashPattern({0.01, gap / size});
    QPainterPath path{from};
    path.lineTo(to);
    strokePath(path, pen);
}

void Canvas::text(QPointF centre, double height, const QString& words, const QColor& color, double stretch) {
    QFont font{"DejaVu Sans"};
    font.setBold(true);
    font.setPixelSize(100);
    font.setHintingPreference(QFont::PreferNoHinting);
    QPainterPath path;
    path.addText(0, 0, font, words);
    const double k = height / 73, side = transform().determinant() < 0 ? -1 : 1;
    save();
    translate(centre);
    scale(side * k * stretch, k);
    translate(-path.boundingRect().center().x(), 36.5);
    fillPath(path, color);
    restore();
}

void moved(Canvas& canvas, QPointF origin, double scale, double degrees, const std::function<void()>& paint) {
    canvas.save();
    canvas.translate(origin);
    canvas.rotate(degrees);
    canvas.scale(scale, std::abs(scale));
    paint();
    canvas.restore();
}

QLinearGradient blend(QPointF from, QPointF to, std::initializer_list<QColor> colors) {
    QLinearGradient brush{from, to};
    double at = 0;
    for (const QColor& color : colors) {
        brush.setColorAt(std::min(at, 1.0), color);
        at += 1.0 / static_cast<double>(colors.size() - 1);
    }
    return brush;
}

QConicalGradient brushed(QPointF centre, unsigned dark, unsigned light) {
    QConicalGradient brush{centre, 90};
    for (int i = 0; i <= 4; ++i) {
        brush.setColorAt(i / 4.0, ink(i % 2 == 0 ? light : dark));
    }
    return brush;
}

QPainterPath polygon(std::initializer_list<QPointF> points) {
    QPainterPath path;
    path.addPolygon(QPolygonF{QList<QPointF>{points}});
    path.closeSubpath();
    return path;
}

QPainterPath star(QPointF centre, double outer, double inner, int points) {
    QPolygonF outline;
    for (int i = 0; i < 2 * points; ++i) {
        outline << centre + polar(180.0 * i / points, i % 2 == 0 ? outer : inner);
    }
    QPainterPath path;
    path.addPolygon(outline);
    path.closeSubpath();
    return path;
}

} // namespace pelrath::demo
