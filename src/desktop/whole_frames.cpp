#include "desktop/whole_frames.hpp"

#include <QPainter>
#include <QStyleOptionFrame>

#include <algorithm>
#include <cmath>

namespace pelrath::desktop {

namespace {

// The edges are rounded, as they are where the painting of a widget is cut.
QRect pixelsOf(const QRect& place, const QTransform& toScreen) {
    const QRectF exact = toScreen.mapRect(QRectF{place});
    return {QPoint{qRound(exact.left()), qRound(exact.top())},
            QPoint{qRound(exact.right()) - 1, qRound(exact.bottom()) - 1}};
}

template <class Draw>
void drawWhole(QPainter& painter, const QRect& place, const Draw& draw) {
    const QTransform toScreen = painter.deviceTransform();
    const double scale = toScreen.m11();
    if (toScreen.type() > QTransform::TxScale || scale == std::floor(scale)) {
        draw(place);
        return;
    }
    painter.save();
    painter.setWorldTransform(toScreen.inverted(), true);
    const QRect pixels = pixelsOf(place, toScreen);
    const int lines = std::max(static_cast<int>(scale), 1); // more may not be free beside what lies inside
    for (int i = 0; i < lines; ++i) {
        draw(pixels.adjusted(i, i, -i, -i));
    }
    painter.restore();
}

} // namespace

void drawFrame(QPainter& painter, const QRect& place) {
    drawWhole(painter, place,
              [&painter](const QRect& line) { painter.drawRect(line.adjusted(0, 0, -1, -1)); });
}

void WholeFrames::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const {
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    if (element != PE_Frame || frame == nullptr) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    drawWhole(*painter, frame->rect, [&](const QRect& line) {
        QStyleOptionFrame placed = *frame;
        placed.rect = line;
        QProxyStyle::drawPrimitive(element, &placed, painter, widget);
    });
}

} // namespace pelrath::desktop
