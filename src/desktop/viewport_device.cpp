#include "desktop/viewport_device.hpp"

#include "mainwindow/viewer/gl_renderer.hpp"

#include <QGuiApplication>
#include <QImage>
#include <QOffscreenSurface>
#include <QOpenGLContext>

namespace pelrath::desktop {

namespace {

// May have OpenGL, but the very attempt to make a context can end the program.
constexpr QLatin1StringView offscreen{"offscreen"};

class QtGlContext : public GlContext {
public:
    explicit QtGlContext(QPointer<ViewportWidget> widget) : widget_(std::move(widget)) {
        if (QGuiApplication::platformName() == offscreen || !context_.create())
            throw deviceError(DeviceFailure::NotAvailable, "There is no OpenGL.");
        surface_.setFormat(context_.format());
        surface_.create();
    }
    ~QtGlContext() override {
        if (widget_) widget_->show({});
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
    void present(std::span<const std::byte> pixels, std::int32_t width, std::int32_t height) override {
        if (!widget_) return;
        const QImage drawn{reinterpret_cast<const uchar*>(pixels.data()), width, height,
                           QImage::Format_RGBX8888};
        widget_->show(drawn.convertToFormat(QImage::Format_RGB32)); // a copy, as windows are painted
    }
    [[nodiscard]] bool ready() const override { return !widget_ || widget_->ready(); }
    [[nodiscard]] double scale() const override { return widget_ ? widget_->devicePixelRatio() : 1; }

private:
    QOffscreenSurface surface_;
    QOpenGLContext context_;
    QPointer<ViewportWidget> widget_;
};

} // namespace

std::unique_ptr<Device> QtViewportSurface::createDevice(std::int32_t width, std::int32_t height) {
    return std::make_unique<GlRenderer>(std::make_unique<QtGlContext>(widget_), width, height);
}

} // namespace pelrath::desktop
