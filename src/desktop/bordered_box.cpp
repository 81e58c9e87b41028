#include "desktop/bordered_box.hpp"

#include "desktop/whole_frames.hpp"

#include <QPainter>
#include <QVBoxLayout>

namespace pelrath::desktop {

BorderedBox::BorderedBox(QWidget* parent) : QWidget(parent), inside_(new QWidget{this}) {
    auto* filling = new QVBoxLayout{this};
    filling->addWidget(inside_);
    filling->setSizeConstraint(QLayout::SetNoConstraint); // its model says how large it is
    setBorder(0);
}

void BorderedBox::setBorder(int pixels) { layout()->setContentsMargins(pixels, pixels, pixels, pixels); }

void BorderedBox::paintEvent(QPaintEvent* /*event*/) {
    if (layout()->contentsMargins().isNull()) return;
    QPainter painter{this};
    painter.setPen(palette().color(QPalette::Mid));
    drawFrame(painter, rect());
}

} // namespace pelrath::desktop
