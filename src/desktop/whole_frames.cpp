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

// The style's own outlines are darker than the window, which black has no room for.
bool hidesOutlines(const QStyleOption& option) {
    constexpr int darkest = 20; // of 255
    return option.palette.color(QPalette::Window).lightness() < darkest;
}

// Whether outlines of the style are all but lost: what can be checked is to be seen while it is not.
bool isDark(const QStyleOption& option) {
    constexpr int dark = 100; // of 255
    return option.palette.color(QPalette::Window).lightness() < dark;
}

bool isMark(QStyle::PrimitiveElement element) {
    return element == QStyle::PE_IndicatorCheckBox || element == QStyle::PE_IndicatorItemViewItemCheck ||
           element == QStyle::PE_IndicatorRadioButton;
}

QColor between(const QColor& one, const QColor& other) {
    return {(one.red() + other.red()) / 2, (one.green() + other.green()) / 2,
            (one.blue() + other.blue()) / 2};
}

bool hasOutline(QStyle::PrimitiveElement element) {
    switch (element) {
    case QStyle::PE_Frame:
    case QStyle::PE_FrameLineEdit:
    case QStyle::PE_FrameGroupBox:
    case QStyle::PE_PanelButtonCommand:
        return true;
    default:
        return false;
    }
}

void drawOutline(QPainter& painter, const QStyleOption& option, bool round) {
    const QPalette& palette = option.palette;
    const QColor text = palette.color(QPalette::WindowText);
    const QColor usual = hidesOutlines(option) ? text : between(text, palette.color(QPalette::Window));
    painter.save();
    const bool focus = option.state.testFlag(QStyle::State_HasFocus);
    painter.setPen(focus ? palette.color(QPalette::Highlight) : usual);
    painter.setBrush(Qt::NoBrush);
    if (round) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.drawEllipse(QRectF{option.rect}.adjusted(0.5, 0.5, -0.5, -0.5));
    } else {
        drawFrame(painter, option.rect);
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
    } else {
        drawWhole(*painter, frame->rect, [&](const QRect& line) {
            QStyleOptionFrame placed = *frame;
            placed.rect = line;
            QProxyStyle::drawPrimitive(element, &placed, painter, widget);
        });
    }
    const bool lost = isMark(element) ? isDark(*option) : hasOutline(element) && hidesOutlines(*option);
    if (lost) drawOutline(*painter, *option, element == PE_IndicatorRadioButton);
}

void WholeFrames::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                     QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox && hidesOutlines(*option)) drawOutline(*painter, *option, false);
}

} // namespace pelrath::desktop
