#pragma once

#include "mainwindow/viewer/viewer_state.hpp"

#include <array>
#include <cstdint>

namespace pelrath {

/// A corner in pixels of an unscaled back buffer, counted from its top left.
struct ScreenVertex {
    float x = 0;
    float y = 0;
    float z = 0;
    float rhw = 0;
    std::uint32_t diffuse = 0;  ///< 0xAARRGGBB
    std::uint32_t specular = 0; ///< 0xAARRGGBB
    float tu = 0;
    float tv = 0;
    bool operator==(const ScreenVertex&) const = default;
};
inline constexpr std::int32_t vertexStride = 32;
static_assert(sizeof(ScreenVertex) == vertexStride);

/// Top left, top right, bottom left, bottom right: a strip of two triangles. All zeros draws nothing.
using Quad = std::array<ScreenVertex, 4>;

/// The quad of a texture of width x height pixels (neither 0) at the viewport's top left corner: as large as
/// the viewport allows, never larger than the texture itself.
[[nodiscard]] Quad fitQuad(std::uint32_t width, std::uint32_t height, const ViewerState& state);

} // namespace pelrath
