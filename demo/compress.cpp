#include "compress.hpp"

#include <array>
#include <cstring> // the block compressor needs it

#define STB_DXT_STATIC
#define STB_DXT_IMPLEMENTATION
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb/stb_dxt.h>
#pragma GCC diagnostic pop

namespace demo {

namespace {

using Texel = std::array<std::uint8_t, 4>;
using Block = std::array<Texel, 16>;

Texel toTexel(const Color& c) { return {toByte(c.r), toByte(c.g), toByte(c.b), toByte(c.a)}; }

// A block that reaches over the right or bottom edge repeats the last column or row.
Block gather(const Canvas& picture, int left, int top) {
    Block block;
    for (int i = 0; i < 16; ++i) {
        const int x = std::min(left + i % 4, picture.width() - 1);
        const int y = std::min(top + i / 4, picture.height() - 1);
        block[static_cast<std::size_t>(i)] = toTexel(picture.at(x, y));
    }
    return block;
}

bool isTransparent(const Texel& texel) { return texel[3] < 128; }

int distance(const Texel& a, const Texel& b) {
    int sum = 0;
    for (std::size_t i = 0; i < 3; ++i)
        sum += (a[i] - b[i]) * (a[i] - b[i]);
    return sum;
}

std::uint16_t to565(const Texel& texel) {
    const int value =
        (texel[0] * 31 + 127) / 255 << 11 | (texel[1] * 63 + 127) / 255 << 5 | (texel[2] * 31 + 127) / 255;
    return static_cast<std::uint16_t>(value);
}

Texel from565(std::uint16_t value) {
    const int r = value >> 11;
    const int g = value >> 5 & 63;
    const int b = value & 31;
    const auto byte = [](int v) { return static_cast<std::uint8_t>(v); };
    return {byte(r << 3 | r >> 2), byte(g << 2 | g >> 4), byte(b << 3 | b >> 2), 255};
}

struct Ends {
    Texel a{};
    Texel b{};
};

// The two visible texels whose colours lie farthest apart.
Ends farthest(const Block& block) {
    Ends ends;
    int best = -1;
    for (const Texel& a : block) {
        if (isTransparent(a)) continue;
        for (const Texel& b : block) {
            if (isTransparent(b) || distance(a, b) <= best) continue;
            best = distance(a, b);
            ends = {a, b};
        }
    }
    return ends;
}

// With the first end not above the second, DXT1 has one colour between them and index 3 is transparent.
std::array<std::uint8_t, 8> encodeCutOut(const Block& block) {
    const Ends ends = farthest(block);
    const std::uint16_t low = std::min(to565(ends.a), to565(ends.b));
    const std::uint16_t high = std::max(to565(ends.a), to565(ends.b));
    std::array<Texel, 3> palette{from565(low), from565(high), Texel{}};
    for (std::size_t i = 0; i < 3; ++i) {
        palette[2][i] = static_cast<std::uint8_t>((palette[0][i] + palette[1][i]) / 2);
    }
    std::uint32_t indices = 0;
    for (std::size_t i = 0; i < 16; ++i) {
        std::uint32_t index = 3;
        if (!isTransparent(block[i])) {
            const auto nearest = std::min_element(palette.begin(), palette.end(), [&](auto& x, auto& y) {
                return distance(x, block[i]) < distance(y, block[i]);
            });
            index = static_cast<std::uint32_t>(nearest - palette.begin());
        }
        indices |= index << 2 * i;
    }
    const auto byte = [](std::uint32_t v) { return static_cast<std::uint8_t>(v & 255U); };
    return {byte(low),     byte(low >> 8U),     byte(high),           byte(high >> 8U),
            byte(indices), byte(indices >> 8U), byte(indices >> 16U), byte(indices >> 24U)};
}

void appendDxt1(const Block& block, std::vector<std::uint8_t>& data) {
    std::array<std::uint8_t, 8> code{};
    if (std::any_of(block.begin(), block.end(), isTransparent)) {
        code = encodeCutOut(block);
    } else {
        stb_compress_dxt_block(code.data(), block.front().data(), 0, STB_DXT_HIGHQUAL);
    }
    data.insert(data.end(), code.begin(), code.end());
}

void appendDxt5(const Block& block, std::vector<std::uint8_t>& data) {
    std::array<std::uint8_t, 16> code{};
    stb_compress_dxt_block(code.data(), block.front().data(), 1, STB_DXT_HIGHQUAL);
    data.insert(data.end(), code.begin(), code.end());
}

void appendTexels(const Canvas& picture, std::vector<std::uint8_t>& data) {
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const Texel t = toTexel(picture.at(x, y));
            data.insert(data.end(), {t[2], t[1], t[0], t[3]});
        }
    }
}

} // namespace

Level encodeLevel(const Canvas& picture, Encoding encoding) {
    Level level{picture.width(), picture.height(), {}};
    if (encoding == Encoding::Argb) {
        appendTexels(picture, level.data);
        return level;
    }
    for (int y = 0; y < picture.height(); y += 4) {
        for (int x = 0; x < picture.width(); x += 4) {
            const Block block = gather(picture, x, y);
            if (encoding == Encoding::Dxt1) {
                appendDxt1(block, level.data);
            } else {
                appendDxt5(block, level.data);
            }
        }
    }
    return level;
}

} // namespace demo
