#include "desktop/swatch_button.hpp"

#include "desktop/whole_frames.hpp"

#include <QPainter>

namespace pelrath::desktop {

void SwatchButton::setColor(const QColor& color) {
    color_ = color;
    update();
}

void SwatchButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter{this};
    const QPalette& colors = palette();
    QColor fill = color_;
    if (!isEnabled()) fill.setAlphaF(0.25F);
    painter.fillRect(rect().adjusted(3, 3, -3, -3), fill);
    painter.setPen(colors.color(QPalette::Mid));
    drawFrame(painter, rect().adjusted(2, 2, -2, -2));
    if (isChecked()) {
        painter.setPen(QPen{colors.color(isEnabled() ? QPalette::WindowText : QPalette::Mid), 1});
        drawFrame(painter, rect());
    }
    if (hasFocus()) {
        painter.setPen(QPen{colors.color(QPalette::Highlight), 2});
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}

} // namespace pelrath::desktop
