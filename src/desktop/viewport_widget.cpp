#include <epoxy/gl.h> // before Qt's own declarations of OpenGL

#include "desktop/viewport_widget.hpp"

#include <QScreen>
#include <QTimer>

namespace pelrath::desktop {

namespace {

// A little less than the time between two refreshes: where there is vertical sync, that is what holds the
// frame back.
int pause(const QScreen* screen) {
    const double rate = screen != nullptr && screen->refreshRate() > 1 ? screen->refreshRate() : 60;
    return static_cast<int>(900.0 / rate);
}

} // namespace

ViewportWidget::ViewportWidget(QWidget* parent) : QOpenGLWidget(parent) {
    // A switched-off viewport has no size; a framebuffer of no size, made and made again, leaves Qt composing
    // the window with somebody else's texture.
    setMinimumSize(1, 1);
    connect(this, &QOpenGLWidget::frameSwapped, this, [this] {
        swapped_ = true;
        becomeReady();
    });
}

ViewportWidget::~ViewportWidget() {
    if (context() == nullptr) return;
    makeCurrent();
    glDeleteFramebuffers(1, &source_);
    doneCurrent();
}

void ViewportWidget::show(std::uint32_t texture, int width, int height) {
    texture_ = texture;
    width_ = width;
    height_ = height;
    waiting_ = isVisible();
    swapped_ = false;
    sinceShown_.start();
    update();
}

void ViewportWidget::becomeReady() {
    if (!waiting_ || !swapped_) return;
    const qint64 left = pause(screen()) - sinceShown_.elapsed();
    if (left <= 0) {
        waiting_ = false;
    } else {
        QTimer::singleShot(static_cast<int>(left), Qt::PreciseTimer, this, [this] { becomeReady(); });
    }
}

void ViewportWidget::hideEvent(QHideEvent* event) {
    waiting_ = false;
    QOpenGLWidget::hideEvent(event);
}

void ViewportWidget::initializeGL() { glGenFramebuffers(1, &source_); }

void ViewportWidget::paintGL() {
    if (texture_ == 0) {
        const QColor empty = palette().color(QPalette::Window);
        glClearColor(static_cast<float>(empty.redF()), static_cast<float>(empty.greenF()),
                     static_cast<float>(empty.blueF()), 1);
        glClear(GL_COLOR_BUFFER_BIT);
        return;
    }
    const QSize target = size() * devicePixelRatio();
    glBindFramebuffer(GL_READ_FRAMEBUFFER, source_);
    glFramebufferTexture2D(GL_READ_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture_, 0);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, defaultFramebufferObject());
    glBlitFramebuffer(0, 0, width_, height_, 0, 0, target.width(), target.height(), GL_COLOR_BUFFER_BIT,
                      GL_NEAREST);
    glBindFramebuffer(GL_FRAMEBUFFER, defaultFramebufferObject());
}

} // namespace pelrath::desktop
