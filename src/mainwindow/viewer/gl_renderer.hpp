#pragma once

#include "mainwindow/viewer/device.hpp"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <vector>

namespace pelrath {

/// An OpenGL 3.3 core context of the viewer's own, and the way from it to the screen.
class GlContext {
public:
    virtual ~GlContext() = default;

    /// Fails with DeviceLost.
    virtual void makeCurrent() = 0;
    /// Puts a picture on the viewport, stretched over all of it: width * height pixels of red, green, blue
    /// and alpha bytes, top row first.
    virtual void present(std::span<const std::byte> pixels, std::int32_t width, std::int32_t height) = 0;
    /// True when the last picture presented has been shown.
    [[nodiscard]] virtual bool ready() const = 0;
    /// As Device has it.
    [[nodiscard]] virtual double scale() const = 0;
};

/// Draws with OpenGL into a back buffer of its own. Takes textures as they are compressed in their files.
class GlRenderer : public Device {
public:
    /// Fails where the context lacks what the renderer needs. Sizes are pixels, of the unscaled back buffer.
    GlRenderer(std::unique_ptr<GlContext> context, std::int32_t width, std::int32_t height);
    ~GlRenderer() override;
    GlRenderer(const GlRenderer&) = delete;
    GlRenderer& operator=(const GlRenderer&) = delete;

    void loadTexture(const std::string& path) override;
    void putImage(const ImageKey& key, const LevelImage& image) override;
    [[nodiscard]] PixelFormat textureFormat() const override { return format_; }
    [[nodiscard]] bool readyForFrame() const override { return context_->ready(); }
    [[nodiscard]] double scale() const override { return context_->scale(); }
    void drawFrame(const FramePicture& picture) override;

    /// The back buffer as it is: the pixels of the last frame's scale, of red, green, blue and alpha bytes,
    /// top row first.
    [[nodiscard]] std::vector<std::byte> readBackBuffer();

private:
    struct Sides {
        std::int32_t width;
        std::int32_t height;
    };
    GlRenderer(std::unique_ptr<GlContext> context, Sides sides);
    void makeBackBuffer();
    void sizeBackBuffer(double scale);
    /// A shader, and the places of its uniform values.
    struct Program {
        std::uint32_t id = 0;
        std::int32_t corners = -1;
        std::int32_t backSize = -1;
        std::int32_t origin = -1;
        std::int32_t extent = -1;
        std::int32_t shown = -1;
        std::int32_t cutOut = -1;
        std::int32_t square = -1;
        std::int32_t stored = -1;
    };
    [[nodiscard]] static Program makeProgram(const char* kind);

    struct Image {
        std::uint32_t texture = 0;
        PixelFormat format = PixelFormat::Dxt1;
        std::int32_t width = 0; ///< texels
        std::int32_t height = 0;
    };

    /// Averaged, at the scale of a sheet of these sides.
    struct Reduced {
        Image image;
        double width = 0;
        double height = 0;
    };

    void forgetImages();
    void forgetReduced();
    void keep(const ImageKey& key, const Image& image);
    [[nodiscard]] std::vector<Sheet> sheetsOf(const FramePicture& picture) const;
    void reduce(const Sheet& sheet);
    void drawInto(std::uint32_t target, std::int32_t width, std::int32_t height);
    /// `width` and `height` are what all of the image takes.
    void draw(const Program& program, const Image& image, const Sheet& place, double width, double height,
              Channel channel);
    void use(const Program& program) const;
    void drawGround(double scale);
    /// As far as `place` reaches.
    void drawSheet(const Sheet& sheet, const Sheet& place, const Picks& picks);
    void drawMarker(const Sheet& place) const;
    /// Runs the shader over a rectangle of the target, as far as that reaches.
    void fill(const Program& program, double left, double top, double right, double bottom) const;

    std::unique_ptr<GlContext> context_;
    const std::int32_t width_;
    const std::int32_t height_;
    std::int32_t backWidth_ = 0;
    std::int32_t backHeight_ = 0;
    PixelFormat format_ = PixelFormat::Dxt1;
    std::uint32_t backTexture_ = 0;
    std::uint32_t backBuffer_ = 0;
    std::uint32_t vertexArray_ = 0;
    Program nearest_;
    Program averaged_;
    Program ground_;
    std::uint32_t reduceBuffer_ = 0;
    std::uint32_t target_ = 0; ///< what is drawn into, and its sides
    std::int32_t targetWidth_ = 0;
    std::int32_t targetHeight_ = 0;
    std::map<ImageKey, Image> images_;
    std::map<ImageKey, Reduced> reduced_;
};

} // namespace pelrath
