#include <epoxy/gl.h> // before Qt's own declarations of OpenGL

#include "desktop/viewport_device.hpp"

#include "mainwindow/viewer/gl_renderer.hpp"

#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>

namespace pelrath::desktop {

namespace {

// May have OpenGL, but no windows that show it: a widget that tries to ends the program, and so can the very
// attempt to make a context.
constexpr QLatin1StringView offscreen{"offscreen"};

RuntimeError noOpenGl() {
    return deviceError(DeviceFailure::NotAvailable, "There is no OpenGL that windows can use here.");
}

class QtGlContext : public GlContext {
public:
    explicit QtGlContext(QPointer<ViewportWidget> widget) : widget_(std::move(widget)) {
        context_.setShareContext(QOpenGLContext::globalShareContext());
        if (!context_.create()) throw noOpenGl();
        surface_.setFormat(context_.format());
        surface_.create();
    }
    ~QtGlContext() override {
        if (widget_) widget_->show(0, 0, 0);
    }
    QtGlContext(const QtGlContext&) = delete;
    QtGlContext& operator=(const QtGlContext&) = delete;

    void makeCurrent() override {
        if (!context_.makeCurrent(&surface_)) {
            throw deviceError(
                DeviceFailure::DeviceLost,
                "The graphics driver has stopped working. Start the program again to see pictures.");
        }
    }
    void present(std::uint32_t texture, std::int32_t width, std::int32_t height) override {
        glFinish(); // the widget's context reads what this one has drawn
        if (widget_) widget_->show(texture, width, height);
    }
    [[nodiscard]] bool ready() const override { return !widget_ || widget_->ready(); }
    [[nodiscard]] double scale() const override { return widget_ ? widget_->devicePixelRatio() : 1; }

private:
    QOffscreenSurface surface_;
    QOpenGLContext context_;
    QPointer<ViewportWidget> widget_;
};

} // namespace

bool QtViewportSurface::usable() {
    const QOpenGLContext* const shared = QOpenGLContext::globalShareContext();
    return shared != nullptr && shared->isValid() && QGuiApplication::platformName() != offscreen;
}

void QtViewportSurface::prepare() {
    const bool inWindows = !qEnvironmentVariable("QT_QPA_PLATFORM").startsWith(offscreen);
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts, inWindows);
}

std::unique_ptr<Device> QtViewportSurface::createDevice(std::int32_t width, std::int32_t height) {
    if (!usable()) throw noOpenGl();
    return std::make_unique<GlRenderer>(std::make_unique<QtGlContext>(widget_), width, height);
}

} // namespace pelrath::desktop
