#pragma once

#include "desktop/viewport_widget.hpp"
#include "mainwindow/viewer/viewport_surface.hpp"

#include <QPointer>

namespace pelrath::desktop {

/// Gives the viewport an OpenGL device whose context is its own, so that it lives as long as the viewer
/// wants, whatever becomes of the window.
class QtViewportSurface : public ViewportSurface {
public:
    /// Where pictures go; none before this.
    void showOn(ViewportWidget& widget) { widget_ = &widget; }

    [[nodiscard]] std::unique_ptr<Device> createDevice(std::int32_t width, std::int32_t height) override;

private:
    QPointer<ViewportWidget> widget_;
};

} // namespace pelrath::desktop
