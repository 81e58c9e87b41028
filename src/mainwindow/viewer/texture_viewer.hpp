#pragma once

#include "controls/control.hpp"
#include "controls/option_group.hpp"
#include "controls/signal.hpp"
#include "mainwindow/viewer/device.hpp"
#include "mainwindow/viewer/viewer_state.hpp"
#include "mainwindow/viewer/viewport_surface.hpp"
#include "platform/event_pump.hpp"
#include "platform/message_boxes.hpp"

#include <memory>
#include <optional>
#include <set>
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
    Signal<> emptied; ///< by showNothing()

    explicit TextureViewer(const ViewerSurroundings& surroundings) : world_(surroundings) {}

    /// True when there is a device afterwards. The back buffer is as large as the quads are computed for.
    bool createDirect3D();
    /// Runs the render loop; returns when it has ended.
    void startRendering();
    void stopRendering() { world_.state.Running = false; }
    /// Gives the device back. The loop must have been told to stop.
    void release();

    /// The staged file at `path` is what the next frame shows. A failure leaves the picture as it was, and
    /// its message ends with `origin`, a sentence. True when it is shown; its other images are gone then.
    bool showTexture(const std::string& path, const std::string& origin = {});
    /// The next frame shows the background alone.
    void showNothing();

    /// How the texture is looked at, in the viewport as it is.
    [[nodiscard]] Look& look();
    [[nodiscard]] bool hasImage(const ImageKey& key) const { return images_.contains(key); }
    /// An image of the texture beside level 0, which is there. Nothing without a device; fails as Device.
    void putImage(const ImageKey& key, const LevelImage& image);

private:
    bool loadTextureFile(const std::string& path, const std::string& origin);
    void offerModesOf(PixelFormat format);
    void showStatus(const std::string& caption);

    [[nodiscard]] std::string withoutDevice() const;
    void Render();
    /// Nothing when the viewport shows the picture already, or cannot take another yet.
    void drawFrame();
    [[nodiscard]] FramePicture pictureNow();
    /// The same picture, looked at otherwise than given.
    void lookCloser(FramePicture& picture) const;

    ViewerSurroundings world_;
    std::unique_ptr<Device> device_;
    std::string whyNoDevice_;
    std::uint64_t texturesLoaded_ = 0;
    Blend blend_ = Blend::None;
    Quad quad_{};
    std::uint32_t textureWidth_ = 1; ///< of level 0
    Look look_;
    std::set<ImageKey> images_;
    bool looping_ = false;
    std::optional<FramePicture> shown_; ///< what the viewport shows already
};

} // namespace pelrath
