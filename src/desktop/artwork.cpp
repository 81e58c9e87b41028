#include "desktop/artwork.hpp"

#include <QPainter>
#include <QPainterPath>

#include <array>
#include <cmath>

namespace pelrath::desktop {

namespace {

constexpr int artWidth = 512;
constexpr int artHeight = 428;

// A low-wing aeroplane from above, nose up, on a field of 200 x 200 around the origin.
QPainterPath aeroplane() {
    QPainterPath half; // the right one
    half.moveTo(0, -92);
    half.cubicTo(8, -90, 11, -74, 12, -40);
    half.lineTo(88, -22);
    half.cubicTo(98, -18, 98, -4, 90, 0);
    half.lineTo(13, 6);
    half.lineTo(7, 66);
    half.lineTo(34, 76);
    half.cubicTo(38, 80, 37, 88, 32, 89);
    half.lineTo(4, 87);
    half.lineTo(0, 96);
    half.closeSubpath();
    return half.united(QTransform::fromScale(-1, 1).map(half));
}

void paintSky(QPainter& painter) {
    QLinearGradient sky{0, 0, 0, artHeight};
    sky.setColorAt(0, QColor{26, 52, 84});
    sky.setColorAt(0.62, QColor{120, 160, 186});
    sky.setColorAt(0.78, QColor{232, 208, 170});
    sky.setColorAt(0.8, QColor{92, 104, 84});
    sky.setColorAt(1, QColor{44, 54, 42});
    painter.fillRect(0, 0, artWidth, artHeight, sky);
}

void paintFields(QPainter& painter) {
    constexpr std::array colors{0x5A6B46, 0x73774A, 0x4A5E44, 0x83814F, 0x3F5540};
    const double horizon = artHeight * 0.8;
    for (int row = 0; row < 5; ++row) {
        const double near = horizon + 88.0 * (row + 1) * (row + 1) / 25.0;
        const double far = horizon + 88.0 * row * row / 25.0;
        for (int column = -7; column <= 7; ++column) {
            const auto x = [](double line, double y) {
                return artWidth / 2.0 + line * (14 + (y - 342) * 1.9);
            };
            const QPolygonF field{{{x(column, far), far},
                                   {x(column + 1, far), far},
                                   {x(column + 1, near), near},
                                   {x(column, near), near}}};
            const auto pick = static_cast<std::size_t>((column * 3 + row * 2 + 40) % 5);
            painter.setBrush(QColor{static_cast<QRgb>(colors.at(pick))});
            painter.setPen(QPen{QColor{38, 48, 36, 120}, 0.8});
            painter.drawPolygon(field);
        }
    }
}

void paintClouds(QPainter& painter) {
    painter.setPen(Qt::NoPen);
    constexpr std::array<std::array<double, 3>, 9> puffs{{{70, 120, 46},
                                                          {110, 108, 58},
                                                          {160, 122, 44},
                                                          {392, 214, 40},
                                                          {430, 204, 52},
                                                          {474, 216, 40},
                                                          {300, 60, 28},
                                                          {330, 54, 36},
                                                          {362, 62, 26}}};
    for (const auto& [x, y, size] : puffs) {
        QRadialGradient puff{x, y, size};
        puff.setColorAt(0, QColor{255, 250, 240, 150});
        puff.setColorAt(1, QColor{255, 250, 240, 0});
        painter.setBrush(puff);
        painter.drawEllipse(QPointF{x, y}, size * 1.5, size * 0.55);
    }
}

// The skin's left half finished, its right half still the grid of its texels.
void paintAeroplane(QPainter& painter) {
    painter.save();
    painter.translate(262, 212);
    painter.rotate(38);
    painter.scale(1.62, 1.62);
    const QPainterPath shape = aeroplane();
    painter.setPen(QPen{QColor{24, 30, 28}, 1.1});
    painter.setBrush(QColor{94, 104, 78});
    painter.drawPath(shape);
    painter.setClipPath(shape);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor{66, 72, 60});
    for (const QPointF at : {QPointF{-62, -10}, QPointF{-20, 12}, QPointF{-6, -66}, QPointF{-24, 80}}) {
        painter.drawEllipse(at, 21, 13);
    }
    painter.fillRect(0, -100, 100, 200, QColor{226, 228, 220});
    painter.setPen(QPen{QColor{70, 110, 150, 170}, 0.45});
    for (int line = 0; line <= 96; line += 6) {
        painter.drawLine(QPointF(line, -100), QPointF(line, 100));
        painter.drawLine(QPointF(0, line - 96), QPointF(100, line - 96));
        painter.drawLine(QPointF(0, line), QPointF(100, line));
    }
    painter.setPen(Qt::NoPen);
    for (const auto& [radius, color] :
         {std::pair{11.0, QColor{236, 232, 220}}, {8.2, QColor{46, 74, 122}}, {3.6, QColor{214, 176, 62}}}) {
        painter.setBrush(color);
        painter.drawEllipse(QPointF{-62, -12}, radius, radius);
    }
    painter.setClipping(false);
    painter.setBrush(QColor{176, 206, 220, 220});
    painter.setPen(QPen{QColor{24, 30, 28}, 0.8});
    painter.drawRoundedRect(QRectF{-5.5, -30, 11, 28}, 5, 7);
    painter.restore();
}

void paintName(QPainter& painter) {
    QFont large = painter.font();
    large.setPixelSize(44);
    large.setWeight(QFont::Light);
    large.setLetterSpacing(QFont::AbsoluteSpacing, 7);
    painter.setFont(large);
    painter.setPen(QColor{250, 246, 236});
    painter.drawText(QRect{26, 18, 400, 60}, Qt::AlignLeft | Qt::AlignVCenter, "Pelrath");
}

} // namespace

QIcon programIcon() {
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
        QPixmap pixmap{side, side};
        pixmap.fill(Qt::transparent);
        QPainter painter{&pixmap};
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(side / 200.0, side / 200.0);
        painter.translate(100, 100);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor{52, 92, 128});
        painter.drawRoundedRect(-98, -98, 196, 196, 36, 36);
        painter.rotate(38);
        painter.setBrush(QColor{240, 238, 226});
        painter.drawPath(aeroplane());
        icon.addPixmap(pixmap);
    }
    return icon;
}

void SplashArt::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter{this};
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(width() / double{artWidth}, height() / double{artHeight});
    paintSky(painter);
    paintFields(painter);
    paintClouds(painter);
    paintAeroplane(painter);
    paintName(painter);
}

void DisclaimerArt::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter{this};
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient paper{0, 0, 0, static_cast<double>(height())};
    paper.setColorAt(0, QColor{30, 62, 96});
    paper.setColorAt(1, QColor{58, 100, 134});
    painter.fillRect(rect(), paper);
    // A drawing-board sheet: the aeroplane as its builder drew it.
    painter.setPen(QPen{QColor{255, 255, 255, 28}, 1});
    for (int line = 12; line < std::max(width(), height()); line += 12) {
        painter.drawLine(line, 0, line, height());
        painter.drawLine(0, line, width(), line);
    }
    painter.translate(width() / 2.0, height() / 2.0);
    const double scale = width() / 215.0;
    painter.scale(scale, scale);
    painter.setPen(QPen{QColor{236, 244, 248}, 1.2});
    painter.setBrush(QColor{255, 255, 255, 26});
    painter.drawPath(aeroplane());
    QPen thin{QColor{236, 244, 248, 150}, 0.6};
    painter.setPen(thin);
    for (const double x : {-92.0, 0.0, 92.0}) {
        painter.drawLine(QPointF{x, -112}, QPointF{x, 118});
    }
    thin.setDashPattern({6, 3, 1, 3});
    painter.setPen(thin);
    painter.drawLine(QPointF{-100, -11}, QPointF{100, -11});
    painter.drawLine(QPointF{-100, 108}, QPointF{100, 108});
    for (const double x : {-46.0, 46.0}) {
        painter.drawEllipse(QPointF{x, -12}, 11, 11);
        painter.drawEllipse(QPointF{x, -12}, 5, 5);
    }
}

} // namespace pelrath::desktop
