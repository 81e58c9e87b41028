#include "desktop/viewport_widget.hpp"

#include <QPainter>
#include <QScreen>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace pelrath::desktop {

namespace {

// Milliseconds between two refreshes, a little less rather than more.
int pause(const QScreen* screen) {
    const double rate = screen != nullptr && screen->refreshRate() > 1 ? screen->refreshRate() : 60;
    return static_cast<int>(1000.0 / rate);
}

} // namespace

ViewportWidget::ViewportWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent); // or what lies behind it would be painted first
    clock_.start();
}

void ViewportWidget::show(QImage picture) {
    picture_ = std::move(picture);
    ++pictures_;
    waiting_ = isVisible();
    painted_ = false;
    // Counted from the last one, whatever drawing this one took, or the rate would never be reached.
    due_ = std::max(due_ + pause(screen()), clock_.elapsed() + pause(screen()) / 2);
    update();
}

void ViewportWidget::becomeReady() {
    if (!waiting_ || !painted_) return;
    const qint64 left = due_ - clock_.elapsed();
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
