#pragma once

#include "controls/control.hpp"
#include "controls/option_group.hpp"
#include "mainwindow/viewer/device.hpp"
#include "mainwindow/viewer/viewer_state.hpp"
#include "mainwindow/viewer/viewport_surface.hpp"
#include "platform/event_pump.hpp"
#include "platform/message_boxes.hpp"

#include <memory>
#include <optional>
#include <string>

namespace pelrath {

/// What the viewer reaches beyond itself.
struct ViewerSurroundings {
    ViewerState& state;
    ViewportSurface& surface;
    EventPump& pump;
    MessageBoxes& boxes;
    Label& Label11;          ///< one-line status
    OptionGroup<3>& cmdShow; ///< the view modes
};

/// Shows one staged texture file in the viewport: probes, fits and loads it, and draws it until told to
/// stop. Reports its own failures.
class TextureViewer {
public:
    explicit TextureViewer(const ViewerSurroundings& surroundings) : world_(surroundings) {}

    /// True when there is a device afterwards. The back buffer is as large as the quads are computed for.
    bool createDirect3D();
    /// Runs the render loop; returns when it has ended.
    void startRendering();
    void stopRendering() { world_.state.Running = false; }
    /// Gives the device back. The loop must have been told to stop.
    void release();

    /// The staged file at `path` is what the next frame shows. A failure leaves the picture as it was, and
    /// its message ends with `origin`, a sentence.
    void showTexture(const std::string& path, const std::string& origin = {});
    /// The next frame shows the background alone.
    void showNothing() { quad_ = {}; }

private:
    bool loadTextureFile(const std::string& path, const std::string& origin);
    void offerModesOf(PixelFormat format);
    void showStatus(const std::string& caption);

    [[nodiscard]] std::string withoutDevice() const;
    void Render();
    /// Nothing when the viewport shows the picture already, or cannot take another yet.
    void drawFrame();
    [[nodiscard]] FramePicture pictureNow();

    ViewerSurroundings world_;
    std::unique_ptr<Device> device_;
    std::string whyNoDevice_;
    std::uint64_t texturesLoaded_ = 0;
    Blend blend_ = Blend::None;
    Quad quad_{};
    bool looping_ = false;
    std::optional<FramePicture> shown_; ///< what the viewport shows already
};

} // namespace pelrath
