#include "desktop/bordered_box.hpp"

#include "desktop/whole_frames.hpp"

#include <QEvent>
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

void BorderedBox::showFocusOf(QWidget& view) {
    focused_ = &view;
    view.installEventFilter(this);
}

bool BorderedBox::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
    return false;
}

void BorderedBox::paintEvent(QPaintEvent* /*event*/) {
    if (layout()->contentsMargins().isNull()) return;
    QPainter painter{this};
    const bool focus = focused_ != nullptr && focused_->hasFocus();
    painter.setPen(palette().color(focus ? QPalette::Highlight : QPalette::Mid));
    drawFrame(painter, rect());
}

} // namespace pelrath::desktop
