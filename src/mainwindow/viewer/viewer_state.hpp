#pragma once

#include <cstdint>

namespace pelrath {

enum class DisplayMode : std::int16_t { Texture = 0, Mask = 1, AlphaChannel = 2 };

/// What the viewport's controls, the viewer and the window's life cycle share. One a process.
struct ViewerState {
    bool Running = false;    ///< the render loop runs
    bool d3dCreated = false; ///< the rendering device exists
    /// 1 while "Display" is unchecked.
    std::int16_t graphicDisplayOff = 0;
    DisplayMode displayMode = DisplayMode::Texture;
    std::uint32_t clearColor = 0; ///< background of every frame, 0xAARRGGBB
    bool alphaBlendOn = false;
    std::int32_t viewPortWidth = 512; ///< pixels, as the height
    std::int32_t viewPortHeight = 512;
    std::int16_t viewPortColor = 0; ///< index of the background colour, 0 to 8
    /// Pixels of the unscaled back buffer, for which quads are computed; 0 until the first viewport reset.
    std::int16_t referenceWidth = 0;
    std::int16_t referenceHeight = 0;
};

} // namespace pelrath
