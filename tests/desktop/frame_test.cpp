#include "desktop/viewport_device.hpp"
#include "imaging/block_decoder.hpp"
#include "mainwindow/viewer/gl_renderer.hpp"
#include "support/look_acts.hpp"
#include "support/temporary_folder.hpp"

#include <cmath>
#include <random>

namespace pelrath::test {
namespace {

// Both texels where the pixel's centre lies between two.
std::vector<std::uint32_t> texels(double centre, double quadSide, std::uint32_t side) {
    const double at = centre * side / quadSide;
    const auto inside = [side](double texel) {
        return static_cast<std::uint32_t>(std::clamp(texel, 0.0, side - 1.0));
    };
    const double nearest = std::round(at);
    if (std::abs(at - nearest) < 1e-3) return {inside(nearest), inside(nearest - 1)};
    return {inside(std::floor(at))};
}

using Values = std::array<double, 4>;

Values valuesOf(const std::byte* texel) {
    Values values{};
    std::transform(texel, texel + 4, values.begin(), [](std::byte b) { return std::to_integer<int>(b); });
    return values;
}

// Whether a pixel is what the blend makes of a texel and of what lies behind it.
bool isBlend(const std::byte* pixel, const Values& texel, const Values& behind, Blend blend) {
    constexpr double tolerance = 3.2; // rounding of both decoders, and of the blend on top of it
    const double alpha = texel[3] / 255;
    for (std::size_t i = 0; i < 3; ++i) {
        const double above = texel[i], below = behind[i];
        const double both = blend == Blend::None   ? above
                            : blend == Blend::Mask ? above + below * (1 - alpha)
                                                   : above * (1 - alpha) + below * alpha;
        if (std::abs(std::min(both, 255.0) - std::to_integer<int>(pixel[i])) > tolerance) return false;
    }
    return pixel[3] == std::byte{255};
}

// The share of [0, side] texels that lies under each pixel, and what all of them come to.
Values average(const std::vector<std::byte>& level, const Sheet& sheet, const LevelSides& sides, double x,
               double y, bool cutOut) {
    const double across = sides.width / sheet.width, down = sides.height / sheet.height;
    const auto share = [](double from, double to, int at) {
        return std::max(0.0, std::min(to, at + 1.0) - std::max(from, double(at)));
    };
    Values sum{};
    double coloured = 0, all = 0;
    for (int v = int((y - 0.5) * down); v < std::min(sides.height, int((y + 0.5) * down) + 1); ++v) {
        const double rows = share((y - 0.5) * down, (y + 0.5) * down, v);
        for (int u = int((x - 0.5) * across); u < std::min(sides.width, int((x + 0.5) * across) + 1); ++u) {
            const double part = rows * share((x - 0.5) * across, (x + 0.5) * across, u);
            const Values texel = valuesOf(&level[std::size_t(v * sides.width + u) * 4]);
            const double seen = cutOut && texel[3] == 0 ? 0 : part;
            for (std::size_t i = 0; i < 3; ++i)
                sum[i] += seen * texel[i];
            sum[3] += part * texel[3], coloured += seen, all += part;
        }
    }
    for (std::size_t i = 0; i < 4; ++i)
        sum[i] /= std::max(i < 3 ? coloured : all, 1e-9);
    return sum;
}

struct Glance {
    const char* what;
    std::int32_t width, height;
    bool dxt5;
    Blend blend;
    const char* acts;
};

// Everything that can be picked, at scales, edges and sides that are awkward.
const Glance glances[] = {
    {"4:1, smaller than a block", 3, 2, false, Blend::None, "zoom 4 0 0"},
    {"32:1, moved", 40, 40, true, Blend::None, "zoom 32 300 9"},
    {"3:2, alpha blended", 500, 300, true, Blend::Mask, "steps 1 200 200"},
    {"3:4, every so manieth texel", 700, 37, false, Blend::None, "steps -1 0 0"},
    {"1:2, averaged, with clear texels", 512, 1024, false, Blend::None, "averaged zoom 0.5 0 0"},
    {"3:8, averaged, soft alpha", 300, 130, true, Blend::InverseBoth, "averaged zoom 0.375 0 0"},
    {"fitted, averaged", 700, 900, true, Blend::None, "averaged"},
    {"averaged has no part above 1:1", 9, 9, true, Blend::None, "averaged zoom 6 0 0"},
    {"red", 64, 64, true, Blend::Mask, "channel 1"},
    {"green", 64, 64, false, Blend::None, "channel 2"},
    {"blue", 64, 64, true, Blend::InverseBoth, "channel 3"},
    {"alpha on the ground", 64, 64, true, Blend::None, "channel 4 chequered"},
    {"soft alpha on the ground", 64, 64, true, Blend::Mask, "chequered"},
    {"the ground through clear texels", 64, 64, false, Blend::Mask, "channel 5 chequered"},
    {"a smaller level", 64, 20, true, Blend::None, "level 1 zoom 3 0 0"},
    {"all levels", 30, 20, true, Blend::None, "chain zoom 2 0 0"},
    {"tiled", 100, 60, true, Blend::None, "tiled zoom 3 0 0"},
    {"tiled, seams inside and between pixels", 37, 38, true, Blend::Mask, "tiled zoom 0.75 0 0"},
};

TEST(CloserLooks, EqualAPlainReferenceAtEveryPixel) {
    constexpr int side = 512;
    for (const Glance& glance : glances) {
        std::mt19937 random{static_cast<std::uint32_t>(glance.width)};
        const TemporaryFolder folder;
        desktop::QtViewportSurface surface;
        const auto device = surface.createDevice(side, side);
        Look look;
        const double fit = std::min({1.0, side / double(glance.width), side / double(glance.height)});
        look.setRoom({side, side, 1, fit});
        const LevelSides whole{0, glance.width, glance.height};
        const LevelSides half{1, (glance.width + 1) / 2, (glance.height + 1) / 2};
        std::vector<std::vector<std::byte>> decoded;
        for (const LevelSides& sides : {whole, half}) {
            const auto width = std::uint32_t(sides.width), height = std::uint32_t(sides.height);
            const BlockFormat format = glance.dxt5 ? BlockFormat::Dxt5 : BlockFormat::Dxt1;
            std::string blocks(bytesPerLevel(format, width, height), '\0');
            std::generate(blocks.begin(), blocks.end(), [&] { return static_cast<char>(random() & 0xFFU); });
            const auto bytes = std::as_bytes(std::span{blocks});
            decodeLevel(format, bytes, width, height, decoded.emplace_back(std::size_t{width} * height * 4));
            const char* type = glance.dxt5 ? "DXT5" : "DXT1";
            if (sides.level == 0)
                device->loadTexture(folder.write("t.dds", ddsFile(type, width, height, blocks)));
            else
                device->putImage({1, Version::Now}, {glance.dxt5 ? PixelFormat::Dxt5 : PixelFormat::Dxt1,
                                                     sides.width, sides.height, bytes});
        }
        look.begin({whole, half});
        act(look, glance.acts);
        const Picks& picks = look.picks;
        const bool blended = picks.channel == Channel::All || picks.channel == Channel::ClearTexels;
        const Blend blend = blended ? glance.blend : Blend::None;
        device->drawFrame({0xFF2060A0, blend, 1, {}, 1, look.sheets(), picks});
        const auto pixels = dynamic_cast<GlRenderer&>(*device).readBackBuffer();
        int wrong = 0;
        for (int i = 0; i < side * side; ++i) {
            const int field = i % side / 8 + i / side / 8;
            const double shade = field % 2 == 0 ? 153 : 102;
            const Values ground = picks.chequered ? Values{shade, shade, shade} : Values{0x20, 0x60, 0xA0};
            bool good = false, covered = false;
            for (const Sheet& sheet : look.sheets()) {
                const double x = i % side + 0.5 - sheet.left, y = i / side + 0.5 - sheet.top;
                const double inside = std::min({x, y, sheet.width - x, sheet.height - y});
                if (inside < -1e-3) continue;
                covered = covered || inside > 1e-3;
                const LevelSides& sides = sheet.image.level == 0 ? whole : half;
                const auto& level = decoded.at(std::size_t(sheet.image.level));
                std::vector<Values> candidates;
                if (picks.averaged && look.scale() < 1) {
                    candidates = {average(level, sheet, sides, x, y, !glance.dxt5)};
                } else {
                    for (const std::uint32_t u : texels(x, sheet.width, std::uint32_t(sides.width)))
                        for (const std::uint32_t v : texels(y, sheet.height, std::uint32_t(sides.height)))
                            candidates.push_back(valuesOf(&level[(v * std::size_t(sides.width) + u) * 4]));
                }
                for (Values values : candidates) {
                    const std::size_t channel = blended ? 0 : static_cast<std::size_t>(picks.channel) - 1;
                    if (!blended) values = {values[channel], values[channel], values[channel], 255};
                    good = good || isBlend(&pixels[std::size_t(i) * 4], values, ground, blend);
                }
            }
            good = good || (!covered && isBlend(&pixels[std::size_t(i) * 4], ground, ground, Blend::None));
            wrong += good ? 0 : 1;
        }
        EXPECT_EQ(wrong, 0) << glance.what;
    }
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
    const Values back{0x20, 0x60, 0xA0};
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
                for (const std::uint32_t u : texels(x + 0.5, scale * width, width)) {
                    for (const std::uint32_t v : texels(y + 0.5, scale * height, height)) {
                        const std::byte* texel = &decoded[(std::size_t{v} * width + u) * 4];
                        good = good || isBlend(pixel, valuesOf(texel), back, blend);
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
