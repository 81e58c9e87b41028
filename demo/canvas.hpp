#pragma once

#include <QPainter>
#include <QPainterPath>
#include <QVector4D>

#include <functional>
#include <random>

namespace pelrath::demo {

/// Red, green, blue and alpha from 0 to 1, not premultiplied.
using Color = QVector4D;
Color rgb(unsigned hex, double alpha = 1);
/// From a to b as t goes from 0 to 1, and no further.
Color mix(const Color& a, const Color& b, double t);
/// The colour, k times as bright.
Color lit(const Color& color, double k);
QColor ink(const Color& color);
inline QColor ink(unsigned hex, double alpha = 1) { return ink(rgb(hex, alpha)); }

/// Rises smoothly from 0 to 1 as x goes from `from` to `to`.
double rise(double from, double to, double x);
/// The point at `degrees` clockwise from above.
QPointF polar(double degrees, double radius);

/// Clouds between 0 and 1, of features one unit wide and ever smaller ones. With a period they repeat after
/// as many units, to the right and down.
double noise(QPointF at, int octaves, unsigned seed, int period = 0);

/// Where a point lies among cells that are about one unit wide.
struct Cell {
    double edge; ///< the way to the next cell, 0 on the border
    double id;   ///< the cell's own number from 0 to 1
};
Cell cell(QPointF at, unsigned seed, int period = 0);

/// The same numbers each time.
class Dice {
public:
    explicit Dice(unsigned seed) : engine_(seed) {}
    double operator()(double from, double to) {
        return from + (to - from) * static_cast<double>(engine_()) / 4294967295.0;
    }
    QPointF within(const QRectF& area) {
        return {(*this)(area.left(), area.right()), (*this)(area.top(), area.bottom())};
    }

private:
    std::mt19937 engine_;
};

/// Paints a texture. One unit is its shorter side, and the origin is its top left corner.
class Canvas : public QPainter {
public:
    explicit Canvas(QImage& image);

    const double right, bottom;
    [[nodiscard]] QRectF all() const { return {0, 0, right, bottom}; }
    /// The side of a texel, in the units of the moment.
    [[nodiscard]] double texel() const;

    /// Paints each texel of the area in the colour of its place.
    void texels(const QRectF& area, const std::function<Color(QPointF)>& color);
    /// Makes the area lighter and darker in clouds of the given size, by at most `strength`.
    void cloud(const QRectF& area, QSizeF size, double strength, unsigned seed);

    void fill(const QPainterPath& shape, const QBrush& brush) { fillPath(shape, brush); }
    void disc(QPointF centre, double radius, const QBrush& brush);
    void ring(QPointF centre, double radius, double width, const QColor& color);
    void line(QPointF from, QPointF to, double width, const QColor& color, Qt::PenCapStyle cap = Qt::FlatCap);
    void stroke(const QPainterPath& path, double width, const QColor& color);
    /// Colour that fades to nothing at the radius.
    void glow(QPointF centre, double radius, const QColor& color);
    /// A dot every `gap` from one end to the other.
    void rivets(QPointF from, QPointF to, double gap, double size, const QColor& color);
    /// Centred at the point, capitals as high as `height`; never mirrored.
    void text(QPointF centre, double height, const QString& words, const QColor& color, double stretch = 1);

private:
    QRect device_;
};

/// Paints with the canvas moved, scaled and turned, and puts it back.
void moved(Canvas& canvas, QPointF origin, double scale, double degrees, const std::function<void()>& paint);

/// The colours at equal distances.
QLinearGradient blend(QPointF from, QPointF to, std::initializer_list<QColor> colors);
/// Turned metal.
QConicalGradient brushed(QPointF centre, unsigned dark, unsigned light);
QPainterPath polygon(std::initializer_list<QPointF> points);
QPainterPath star(QPointF centre, double outer, double inner, int points);

} // namespace pelrath::demo
