#include "desktop/viewport_widget.hpp"

#include <QPainter>
#include <QScreen>
#include <QTimer>

#include <utility>

namespace pelrath::desktop {

namespace {

// A little less than the time between two refreshes.
int pause(const QScreen* screen) {
    const double rate = screen != nullptr && screen->refreshRate() > 1 ? screen->refreshRate() : 60;
    return static_cast<int>(900.0 / rate);
}

} // namespace

ViewportWidget::ViewportWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent); // or what lies behind it would be painted first
}

void ViewportWidget::show(QImage picture) {
    picture_ = std::move(picture);
    ++pictures_;
    waiting_ = isVisible();
    painted_ = false;
    sinceShown_.start();
    update();
}

void ViewportWidget::becomeReady() {
    if (!waiting_ || !painted_) return;
    const qint64 left = pause(screen()) - sinceShown_.elapsed();
    if (left <= 0) {
        waiting_ = false;
    } else {
        QTimer::singleShot(static_cast<int>(left), Qt::PreciseTimer, this, [this] { becomeReady(); });
    }
}

void ViewportWidget::hideEvent(QHideEvent* event) {
    waiting_ = false;
    QWidget::hideEvent(event);
}

void ViewportWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter{this};
    if (picture_.isNull()) {
        painter.fillRect(rect(), palette().brush(QPalette::Window));
    } else {
        painter.drawImage(rect(), picture_); // pixel by pixel, nothing between them
    }
    if (std::exchange(painted_, true)) return;
    QMetaObject::invokeMethod(
        this, [this] { becomeReady(); }, Qt::QueuedConnection); // on the screen by then
}

} // namespace pelrath::desktop
