#include "desktop/viewport_device.hpp"
#include "imaging/block_decoder.hpp"
#include "mainwindow/viewer/gl_renderer.hpp"
#include "support/temporary_folder.hpp"

#include <cmath>
#include <random>

namespace pelrath::test {
namespace {

// Both texels where the pixel's centre lies between two.
std::vector<std::uint32_t> texels(std::uint32_t pixel, double quadSide, std::uint32_t side) {
    const double at = (pixel + 0.5) * side / quadSide;
    const auto inside = [side](double texel) {
        return static_cast<std::uint32_t>(std::clamp(texel, 0.0, side - 1.0));
    };
    const double nearest = std::round(at);
    if (std::abs(at - nearest) < 1e-3) return {inside(nearest), inside(nearest - 1)};
    return {inside(std::floor(at))};
}

// Whether a pixel is what the blend makes of a texel and of what lies behind it.
bool isBlend(const std::byte* pixel, const std::byte* texel, const std::byte* behind, Blend blend) {
    constexpr double tolerance = 3.2; // rounding of both decoders, and of the blend on top of it
    const auto part = [](const std::byte* of, int i) { return double(std::to_integer<int>(of[i])); };
    const double alpha = part(texel, 3) / 255;
    for (int i = 0; i < 3; ++i) {
        const double above = part(texel, i), below = part(behind, i);
        const double both = blend == Blend::None   ? above
                            : blend == Blend::Mask ? above + below * (1 - alpha)
                                                   : above * (1 - alpha) + below * alpha;
        if (std::abs(std::min(both, 255.0) - part(pixel, i)) > tolerance) return false;
    }
    return pixel[3] == std::byte{255};
}

// Width, height, soft alpha, pixels of the screen to one of the layout.
using Size = std::tuple<std::uint32_t, std::uint32_t, bool, double>;
using Frames = testing::TestWithParam<Size>;

TEST_P(Frames, EqualTheBlendEquationsAtEveryPixel) {
    const auto& [width, height, dxt5, screenScale] = GetParam();
    std::mt19937 random{width * 31 + height};
    std::string blocks(std::size_t{(width + 3) / 4} * ((height + 3) / 4) * (dxt5 ? 16 : 8), '\0');
    std::generate(blocks.begin(), blocks.end(), [&] { return static_cast<char>(random() & 0xFFU); });
    const TemporaryFolder folder;
    desktop::QtViewportSurface surface;
    const auto device = surface.createDevice(512, 512);
    device->loadTexture(folder.write("t.dds", ddsFile(dxt5 ? "DXT5" : "DXT1", width, height, blocks)));
    std::vector<std::byte> decoded(std::size_t{width} * height * 4);
    decodeLevel(dxt5 ? BlockFormat::Dxt5 : BlockFormat::Dxt1, std::as_bytes(std::span{blocks}), width, height,
                decoded);
    const std::byte back[4] = {std::byte{0x20}, std::byte{0x60}, std::byte{0xA0}};
    ViewerState state;
    state.referenceWidth = state.referenceHeight = 512;
    const auto side = static_cast<std::uint32_t>(512 * screenScale);
    for (const unsigned shown : {0U, 1U, 2U, 3U, 4U, 5U}) {
        const std::int32_t viewport = shown < 3 ? 512 : 256;
        const Blend blend = std::array{Blend::None, Blend::Mask, Blend::InverseBoth}.at(shown % 3);
        state.viewPortWidth = state.viewPortHeight = viewport;
        const double scale =
            std::min({1.0, viewport / double(width), viewport / double(height)}) * side / viewport;
        device->drawFrame({0xFF2060A0, blend, 1, fitQuad(width, height, state), screenScale});
        const auto pixels = dynamic_cast<GlRenderer&>(*device).readBackBuffer();
        ASSERT_EQ(pixels.size(), std::size_t{side} * side * 4);
        int wrong = 0;
        for (std::uint32_t i = 0; i < side * side; ++i) {
            const std::byte* pixel = &pixels[std::size_t{i} * 4];
            const std::uint32_t x = i % side;
            const std::uint32_t y = i / side;
            // How far the pixel's centre lies inside; on the very edge it may fall to either side.
            const double inside = std::min(scale * width - x - 0.5, scale * height - y - 0.5);
            bool good = inside < 1e-3 && isBlend(pixel, back, back, Blend::None);
            if (inside > -1e-3) {
                for (const std::uint32_t u : texels(x, scale * width, width)) {
                    for (const std::uint32_t v : texels(y, scale * height, height)) {
                        const std::byte* texel = &decoded[(std::size_t{v} * width + u) * 4];
                        good = good || isBlend(pixel, texel, back, blend);
                    }
                }
            }
            wrong += good ? 0 : 1;
        }
        EXPECT_EQ(wrong, 0) << viewport << " mode " << static_cast<int>(blend);
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, Frames,
                         testing::Values(Size{1, 1, false, 1}, Size{2, 1, true, 1}, Size{3, 5, true, 1.5},
                                         Size{4, 4, false, 1}, Size{64, 32, true, 2}, Size{37, 53, false, 1},
                                         Size{300, 200, true, 1}, Size{512, 512, false, 1},
                                         Size{1024, 256, true, 1}, Size{1024, 512, true, 2},
                                         Size{700, 900, false, 1.25}, Size{600, 1024, false, 1},
                                         Size{1, 2048, true, 1.5}, Size{2048, 2048, false, 1}));

} // namespace
} // namespace pelrath::test
