#include "mainwindow/viewer/quad.hpp"

#include <algorithm>

namespace pelrath {

Quad fitQuad(std::uint32_t width, std::uint32_t height, const ViewerState& state) {
    const double a = static_cast<double>(state.viewPortWidth) / width;
    const double b = static_cast<double>(state.viewPortHeight) / height;
    const auto scale = static_cast<float>(std::min({a, b, 1.0}));
    const auto quadWidth =
        static_cast<float>(static_cast<double>(scale) * width * state.referenceWidth / state.viewPortWidth);
    const auto quadHeight = static_cast<float>(static_cast<double>(scale) * height * state.referenceHeight /
                                               state.viewPortHeight);
    constexpr std::uint32_t white = 0xFFFFFFFF;
    return {ScreenVertex{0, 0, 0.5F, 1, white, 0, 0, 0}, ScreenVertex{quadWidth, 0, 0.5F, 1, white, 0, 1, 0},
            ScreenVertex{0, quadHeight, 0.5F, 1, white, 0, 0, 1},
            ScreenVertex{quadWidth, quadHeight, 0.5F, 1, white, 0, 1, 1}};
}

} // namespace pelrath
