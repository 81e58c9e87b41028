#include "desktop/swatch_button.hpp"

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
    painter.drawRect(rect().adjusted(2, 2, -3, -3));
    if (isChecked()) {
        painter.setPen(QPen{colors.color(isEnabled() ? QPalette::WindowText : QPalette::Mid), 1});
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    if (hasFocus()) {
        painter.setPen(QPen{colors.color(QPalette::Highlight), 2});
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}

} // namespace pelrath::desktop
