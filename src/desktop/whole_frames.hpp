#pragma once

#include <QProxyStyle>

class QPainter;

namespace pelrath::desktop {

/// Draws a line with the painter's pen, one pixel wide, just inside a place. Where the screen's scale is no
/// whole number it is drawn in pixels of the screen: one of the layout's may fall beside what its widget is
/// allowed to paint.
void drawFrame(QPainter& painter, const QRect& place);

/// The desktop's style, whose frames have all four sides at every scale, and are seen on black, too; marks on
/// every dark ground.
class WholeFrames : public QProxyStyle {
public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};

} // namespace pelrath::desktop
