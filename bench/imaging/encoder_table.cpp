#include "imaging/block_decoder.hpp"
#include "imaging/level_encoder.hpp"
#include "imaging/library_functions.hpp"

#include <IL/il.h>
#include <squish.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iomanip>
#include <iostream>
#include <string>
#include <unistd.h>
#include <vector>

#define STB_DXT_STATIC
#define STB_DXT_IMPLEMENTATION
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb/stb_dxt.h>
#pragma GCC diagnostic pop

// What encoders make of the pictures in a folder: how near they come, and how fast one core is.

namespace pelrath::bench {

namespace {

using Values = std::vector<std::uint8_t>;

struct Picture {
    std::string name;
    Sides sides;
    Values texels; ///< red, green, blue and alpha, from the top
    bool opaque;

    [[nodiscard]] Pixels pixels() const {
        return {
            sides, IL_RGBA, bytesPerTexel, true, {const_cast<std::uint8_t*>(texels.data()), texels.size()}};
    }
};

Picture pictureOf(const std::filesystem::path& file) {
    ILuint image = 0;
    ilGenImages(1, &image);
    ilBindImage(image);
    if (!ilLoad(IL_PNG, file.c_str()) || !ilConvertImage(IL_RGBA, IL_UNSIGNED_BYTE)) {
        std::cerr << "Cannot load " << file << '\n';
        std::exit(1);
    }
    const Pixels bound = boundPixels(imageLibrary());
    Picture picture{file.filename(), bound.sides, Values(bound.values.size()), true};
    const std::size_t row = bound.sides.width * bytesPerTexel;
    for (std::size_t y = 0; y < bound.sides.height; ++y) {
        const std::size_t from = bound.fromTop ? y : bound.sides.height - 1 - y;
        std::memcpy(&picture.texels[y * row], &bound.values[from * row], row);
    }
    ilDeleteImages(1, &image);
    for (std::size_t i = 3; i < picture.texels.size(); i += 4) {
        picture.opaque = picture.opaque && picture.texels[i] == 255;
    }
    return picture;
}

/// Soft slopes in one direction for each channel.
Picture gradient(int kind) {
    constexpr std::uint32_t side = 512;
    Picture picture{"gradient", {side, side}, {}, true};
    for (std::uint32_t y = 0; y < side; ++y) {
        for (std::uint32_t x = 0; x < side; ++x) {
            const std::uint32_t across = x * 255 / side, down = y * 255 / side;
            const auto value = [&](std::uint32_t from) { return static_cast<std::uint8_t>(from); };
            const std::uint32_t values[3][3] = {{across, across, across},
                                                {across, down, 255 - across},
                                                {60 + across / 4, 90 + (across + down) / 8, 140 + down / 4}};
            for (const std::uint32_t channel : values[kind]) {
                picture.texels.push_back(value(channel));
            }
            picture.texels.push_back(255);
        }
    }
    return picture;
}

double cpuSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

struct Sums {
    double colours = 0, counted = 0, alphas = 0, texels = 0, seconds = 0;
};

/// Adds what the blocks lose. Where DXT1 has texels clear, those with an alpha of at least 128 count.
void addLosses(const Picture& picture, BlockFormat format, const std::vector<std::byte>& blocks, Sums& sums) {
    Values decoded(picture.texels.size());
    decodeLevel(format, blocks, picture.sides.width, picture.sides.height,
                std::as_writable_bytes(std::span{decoded}));
    for (std::size_t i = 0; i < decoded.size(); i += 4) {
        const auto off = [&](std::size_t channel) {
            return static_cast<double>(decoded[i + channel]) - picture.texels[i + channel];
        };
        sums.alphas += off(3) * off(3);
        sums.texels += 1;
        if (format == BlockFormat::Dxt1 && picture.texels[i + 3] < 128) continue;
        sums.colours += off(0) * off(0) + off(1) * off(1) + off(2) * off(2);
        sums.counted += 3;
    }
}

/// Fills the blocks of a picture and says how long the compressing alone took.
using Encoder = std::function<double(const Picture&, BlockFormat, std::vector<std::byte>&)>;

double timed(const std::function<void()>& work) {
    const double start = cpuSeconds();
    work();
    return cpuSeconds() - start;
}

double ownEncoder(const Picture& picture, BlockFormat format, std::vector<std::byte>& blocks) {
    return timed([&] { LevelEncoder{format, picture.pixels(), {}, blocks}.encodeAll(); });
}

double library(const Picture& picture, BlockFormat format, std::vector<std::byte>& blocks) {
    const std::string file =
        std::filesystem::temp_directory_path() / ("pelrath-bench-" + std::to_string(getpid()) + ".dds");
    ILuint image = 0;
    ilGenImages(1, &image);
    ilBindImage(image);
    Values texels = picture.texels;
    ilTexImage(picture.sides.width, picture.sides.height, 1, 4, IL_RGBA, IL_UNSIGNED_BYTE, texels.data());
    ilRegisterOrigin(IL_ORIGIN_UPPER_LEFT);
    ilSetInteger(IL_DXTC_FORMAT, format == BlockFormat::Dxt1 ? IL_DXT1 : IL_DXT5);
    ilEnable(IL_FILE_OVERWRITE);
    const double seconds = timed([&] { ilSave(IL_DDS, file.c_str()); });
    std::ifstream in{file, std::ios::binary};
    in.seekg(128);
    in.read(reinterpret_cast<char*>(blocks.data()), static_cast<std::streamsize>(blocks.size()));
    ilDeleteImages(1, &image);
    std::filesystem::remove(file);
    return seconds;
}

double stb(const Picture& picture, BlockFormat format, std::vector<std::byte>& blocks) {
    return timed([&] {
        auto* out = reinterpret_cast<unsigned char*>(blocks.data());
        const bool alpha = format == BlockFormat::Dxt5;
        for (std::uint32_t top = 0; top < picture.sides.height; top += 4) {
            for (std::uint32_t left = 0; left < picture.sides.width; left += 4) {
                alignas(4) std::uint8_t block[64];
                for (std::uint32_t i = 0; i < 16; ++i) {
                    const std::uint32_t x = std::min(left + i % 4, picture.sides.width - 1);
                    const std::uint32_t y = std::min(top + i / 4, picture.sides.height - 1);
                    std::memcpy(block + std::size_t{4} * i,
                                &picture.texels[(std::size_t{y} * picture.sides.width + x) * 4], 4);
                }
                stb_compress_dxt_block(out, block, alpha ? 1 : 0, STB_DXT_HIGHQUAL);
                out += bytesPerBlock(format);
            }
        }
    });
}

double squishEncoder(const Picture& picture, BlockFormat format, std::vector<std::byte>& blocks) {
    const int flags =
        (format == BlockFormat::Dxt1 ? squish::kDxt1 : squish::kDxt5) | squish::kColourClusterFit;
    return timed([&] {
        squish::CompressImage(picture.texels.data(), static_cast<int>(picture.sides.width),
                              static_cast<int>(picture.sides.height), blocks.data(), flags);
    });
}

void table(const std::string& title, BlockFormat format, const std::vector<const Picture*>& pictures,
           bool withStb) {
    std::cout
        << "\n"
        << title << " (" << pictures.size() << " pictures)\n\n"
        << "| encoder | dB | alpha RMSE | Mpx/s | worst picture against squish, dB |\n|---|---|---|---|---|\n";
    std::vector<double> ofSquish;
    const std::pair<const char*, Encoder> encoders[] = {{"squish, cluster fit", squishEncoder},
                                                        {"this program", ownEncoder},
                                                        {"the library alone", library},
                                                        {"stb_dxt, high quality", stb}};
    for (const auto& [name, encode] : encoders) {
        if (!withStb && std::string{name}.starts_with("stb")) continue;
        Sums all;
        double worst = 99;
        for (std::size_t i = 0; i < pictures.size(); ++i) {
            const Picture& picture = *pictures[i];
            std::vector<std::byte> blocks(
                static_cast<std::size_t>(bytesPerLevel(format, picture.sides.width, picture.sides.height)));
            Sums sums;
            sums.seconds = encode(picture, format, blocks);
            addLosses(picture, format, blocks, sums);
            const double decibels = 10 * std::log10(255 * 255 / (std::max(sums.colours, 1.0) / sums.counted));
            if (ofSquish.size() < pictures.size()) ofSquish.push_back(decibels);
            worst = std::min(worst, decibels - ofSquish[i]);
            all.colours += sums.colours, all.counted += sums.counted, all.alphas += sums.alphas;
            all.texels += sums.texels, all.seconds += sums.seconds;
        }
        std::cout << std::fixed << std::setprecision(2) << "| " << name << " | "
                  << 10 * std::log10(255 * 255 / (all.colours / all.counted)) << " | "
                  << std::sqrt(all.alphas / all.texels) << " | " << std::setprecision(1)
                  << all.texels / 1e6 / all.seconds << " | " << std::setprecision(2) << worst << " |\n";
    }
}

} // namespace

void tables(const char* folder) {
    ilInit();
    std::vector<Picture> pictures;
    for (const auto& entry : std::filesystem::directory_iterator{folder}) {
        pictures.push_back(pictureOf(entry.path()));
    }
    std::ranges::sort(pictures, {}, &Picture::name);
    const auto those = [&pictures](bool opaque) {
        std::vector<const Picture*> chosen;
        for (const Picture& picture : pictures) {
            if (picture.opaque == opaque) chosen.push_back(&picture);
        }
        return chosen;
    };
    const std::vector<Picture> gradients{gradient(0), gradient(1), gradient(2)};
    table("DXT1, opaque", BlockFormat::Dxt1, those(true), true);
    table("DXT1, gradients", BlockFormat::Dxt1, {&gradients[0], &gradients[1], &gradients[2]}, true);
    table("DXT1, with clear texels", BlockFormat::Dxt1, those(false), false);
    table("DXT5", BlockFormat::Dxt5, those(false), true);
}

} // namespace pelrath::bench

int main(int count, char* arguments[]) {
    if (count != 2) {
        std::cerr << "encoder-table FOLDER-OF-PNG-PICTURES\n";
        return 2;
    }
    pelrath::bench::tables(arguments[1]);
}
