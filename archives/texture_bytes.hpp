#pragma once

#include "archive_builder.hpp"

#include <algorithm>
#include <cstdint>
#include <sstream>
#include <string>

/// What textures and image files hold, byte by byte, for whoever makes archives and pictures to try the
/// program with.
namespace pelrath {

/// A number in so many bytes, the lowest first.
inline std::string little(std::int64_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) {
        text += static_cast<char>(value >> (8 * i));
    }
    return text;
}

/// Bytes from words: hexadecimal ones, N*XX that repeats some, wN and dN for 16-bit and 32-bit little-endian
/// numbers.
inline std::string bytesOf(const std::string& notation) {
    std::string bytes;
    std::istringstream words{notation};
    for (std::string word; words >> word;) {
        const std::size_t star = word.find('*');
        const std::size_t times = star == std::string::npos ? 1 : std::stoul(word);
        if (word[0] == 'w' || word[0] == 'd') {
            bytes += little(std::stoll(word.substr(1)), word[0] == 'w' ? 2 : 4);
            continue;
        }
        std::string once;
        for (std::size_t i = star == std::string::npos ? 0 : star + 1; i < word.size(); i += 2) {
            once += static_cast<char>(std::stoi(word.substr(i, 2), nullptr, 16));
        }
        for (std::size_t i = 0; i < times; ++i) {
            bytes += once;
        }
    }
    return bytes;
}

/// A DDS file as short as readers take it: magic, sides and type in the header, and its blocks.
inline std::string ddsFile(const std::string& fourCC, std::uint32_t width, std::uint32_t height,
                           const std::string& blocks) {
    return "DDS " + std::string(8, '\0') + little(height, 4) + little(width, 4) + std::string(64, '\0') +
           fourCC + std::string(40, '\0') + blocks;
}

/// DXT1 blocks of one colour, given as 5-6-5.
inline std::string plainBlocks(std::uint32_t width, std::uint32_t height, std::uint16_t color) {
    std::string blocks;
    for (std::uint32_t i = 0; i < ((width + 3) / 4) * ((height + 3) / 4); ++i) {
        blocks += little(color, 8);
    }
    return blocks;
}

constexpr std::uint16_t yellow = 0xFFE0, blue = 0x001F; // 5-6-5

/// A texture with its whole chain: each level `top` in its upper half and `bottom` in its lower one as far as
/// its size lets it, in DXT5 with alpha 77 above and 255 below.
inline TexturePlan chainOf(const std::string& name, const std::string& type, std::int32_t width,
                           std::int32_t height, std::uint16_t top = yellow, std::uint16_t bottom = blue) {
    TexturePlan plan{name, type, {}};
    for (bool last = false; !last; width = std::max(1, width / 2), height = std::max(1, height / 2)) {
        std::string blocks;
        for (std::int32_t y = 0; y < height; y += 4) {
            std::int64_t colors = 0, alphas = 0;
            for (std::int32_t line = 0; line < 4; ++line) {
                const bool lower = 2 * (y + line) >= height;
                // The larger colour stands first: then there are four, and none transparent.
                colors |= std::int64_t{lower == (top >= bottom) ? 0x55 : 0} << (8 * line);
                alphas |= std::int64_t{lower ? 01111 : 0} << (12 * line);
            }
            const std::string alpha = little(77, 1) + little(255, 1) + little(alphas, 6);
            const std::string color =
                little(std::max(top, bottom), 2) + little(std::min(top, bottom), 2) + little(colors, 4);
            for (std::int32_t x = 0; x < width; x += 4) {
                blocks += (type == "DXT5" ? alpha : "") + color;
            }
        }
        plan.levels.push_back({width, height, blocks});
        last = width == 1 && height == 1;
    }
    return plan;
}

} // namespace pelrath
