#pragma once

#include "mainwindow/viewer/look.hpp"
#include "mainwindow/viewer/quad.hpp"
#include "platform/runtime_error.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace pelrath {

/// The result codes that a device's failures carry; those of the interface that the viewer's messages were
/// made for.
enum class DeviceFailure : std::int32_t {
    InvalidCall = -2005530516,  ///< 0x8876086C
    OutOfMemory = -2005532292,  ///< 0x8876017C
    NotAvailable = -2005530518, ///< 0x8876086A
    InvalidData = -2005529767,  ///< 0x88760B59
    DeviceLost = -2005530520,   ///< 0x88760868
};

[[nodiscard]] inline RuntimeError deviceError(DeviceFailure failure, const std::string& description) {
    return {static_cast<int>(failure), "Device", description};
}

/// How the quad's pixels meet the background's.
enum class Blend {
    None,        ///< the texture's colour, whatever its alpha
    Mask,        ///< colour + background * (1 - alpha)
    InverseBoth, ///< colour * (1 - alpha) + background * alpha
};

/// Everything that a frame shows. Two equal frames are the same picture.
struct FramePicture {
    std::uint32_t clearColor = 0; ///< 0xAARRGGBB
    Blend blend = Blend::None;
    std::uint64_t texture = 0; ///< counts the textures loaded; 0: none yet
    Quad quad;
    double scale = 1; ///< pixels of the back buffer to one of those that the quad is given in
    /// Drawn in place of the quad where there are any; pixels of the back buffer.
    std::vector<Sheet> sheets{};
    Picks picks{};                 ///< of which the version is the sheets' own
    std::optional<Sheet> marker{}; ///< a place with a frame around it
    bool operator==(const FramePicture&) const = default;
};

enum class PixelFormat {
    Dxt1,
    Dxt5,
    Rgba ///< bytes of red, green, blue and alpha, rows from the top; no texture file's
};

/// One picture beside a texture's own.
struct LevelImage {
    PixelFormat format = PixelFormat::Dxt1;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::span<const std::byte> bytes; ///< exactly what format and sides need
};

/// What the viewer needs of a graphics device: one texture and its pictures, a back buffer, a few quads a
/// frame. Every failure leaves as a RuntimeError with a DeviceFailure for its number.
class Device {
public:
    virtual ~Device() = default;

    /// Loads the top level of a DDS file as the current texture, in the file's own format. The one before
    /// stays current when that fails. It is the image of level 0, and for now the only one.
    virtual void loadTexture(const std::string& path) = 0;
    /// Adds a picture of the current texture, or replaces it.
    virtual void putImage(const ImageKey& key, const LevelImage& image) = 0;
    /// Of the current texture.
    [[nodiscard]] virtual PixelFormat textureFormat() const = 0;

    /// True when a frame may follow the last one: the display has shown that.
    [[nodiscard]] virtual bool readyForFrame() const = 0;
    /// Pixels of the screen, along each side, to one of those that quads are given in. Changes when the
    /// viewport comes to another screen.
    [[nodiscard]] virtual double scale() const = 0;
    /// Clears the back buffer, draws the quad with the current texture (nearest texel of its top level), or
    /// the sheets with the images that are there, and puts the whole back buffer on the whole viewport.
    virtual void drawFrame(const FramePicture& picture) = 0;
};

} // namespace pelrath
