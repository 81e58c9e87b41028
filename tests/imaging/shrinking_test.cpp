#include "imaging/block_decoder.hpp"
#include "imaging/resample.hpp"
#include "library_fixture.hpp"

#include <cmath>
#include <random>

namespace pelrath::test {
namespace {

/// That many times the same bytes.
std::string all(std::int64_t count, const std::string& pixel) {
    std::string bytes;
    for (std::int64_t i = 0; i < count; ++i) {
        bytes += bytesOf(pixel);
    }
    return bytes;
}

class Shrinking : public LibraryTest {
protected:
    /// A picture in the order of a TGA file's bytes.
    void load(const std::string& sides, const std::string& bytes,
              const std::string& depthAndOrigin = "2028") {
        std::uint32_t image = 0;
        EXPECT_TRUE(facade.loadImage(
            folder.write("a.tga", bytesOf("000002 9*00 " + sides + " " + depthAndOrigin) + bytes), image));
    }

    std::string scaled(std::int32_t width, std::int32_t height, std::int16_t filter) {
        EXPECT_TRUE(facade.scaleImage(width, height, filter) && chooseOutput(OutputFileType::Tga));
        EXPECT_TRUE(facade.saveImage(options.imageType, folder.file("scaled.tga"), true));
        return targaPixels(folder.read("scaled.tga"));
    }

    /// A level of the saved DDS file of a picture of 8 x 4.
    std::string levelOf(BlockFormat format, std::uint32_t level) {
        const std::uint32_t width = 8U >> level, height = std::max(4U >> level, 1U);
        const std::string blocks =
            folder.read("chain.dds")
                .substr(128 + static_cast<std::size_t>(bytesPerChain(format, 8, 4, level)));
        std::string texels(std::size_t{width} * height * 4, '\0');
        decodeLevel(format, std::as_bytes(std::span{blocks}), width, height,
                    std::as_writable_bytes(std::span{texels}));
        return texels;
    }

    const std::string checks =
        pixels("WKWKWKWK KWKWKWKW WKWKWKWK KWKWKWKW WKWKWKWK KWKWKWKW WKWKWKWK KWKWKWKW");
};

/// Box, triangle, bell and B spline are the B-splines of degree 0 to 3, here as sums of cut powers.
double kernel(int filter, double x) {
    const double a = std::abs(x), sinc = x == 0 ? 1 : std::sin(M_PI * x) / (M_PI * x);
    const double third = x == 0 ? 1 : std::sin(M_PI * x / 3) / (M_PI * x / 3);
    if (filter == 7) return a < 3 ? sinc * third : 0;
    if (filter == 8) {
        return a < 1   ? (7 * a * a * a - 12 * a * a + 16.0 / 3) / 6
               : a < 2 ? (-7.0 / 3 * a * a * a + 12 * a * a - 20 * a + 32.0 / 3) / 6
                       : 0;
    }
    const int degree = filter < 3 ? 1 : filter - 3;
    double sum = 0, binomial = 1;
    for (int k = 0; k <= degree + 1; ++k) {
        sum += binomial * std::pow(std::max(x + (degree + 1) / 2.0 - k, 0.0), degree);
        binomial *= -1.0 * (degree + 1 - k) / (k + 1);
    }
    return sum;
}

/// What a pixel of `from` along one side weighs in one of `to`.
double weight(int filter, std::uint32_t from, std::uint32_t to, std::uint32_t source, std::uint32_t target) {
    const double ratio = 1.0 * from / to, low = target * ratio, middle = low + ratio / 2;
    if (filter == 0 || from == to) return source == std::floor(middle) ? 1 : 0;
    if (filter == 3) return std::max(0.0, std::min(source + 1.0, low + ratio) - std::max(1.0 * source, low));
    return kernel(filter, (source + 0.5 - middle) / std::max(ratio, 1.0));
}

TEST(Resampling, GivesWhatTheDefinitionOfEachFilterGivesOfColourAndAlphaApart) {
    std::minstd_rand random{7};
    const std::pair<Sides, Sides> cases[] = {{{8, 8}, {4, 4}},      {{9, 5}, {1, 1}},  {{16, 7}, {5, 3}},
                                             {{5, 3}, {15, 13}},    {{6, 4}, {3, 11}}, {{7, 16}, {7, 4}},
                                             {{512, 512}, {3, 64}},  // which more than one core does
                                             {{25, 1024}, {18, 1}}}; // in strips
    for (const auto& [before, after] : cases) {
        for (std::size_t channels = 1; channels <= 4; ++channels) {
            std::vector<std::uint8_t> values(before.pixels() * channels), seen(after.pixels() * channels);
            std::generate(values.begin(), values.end(), random);
            for (int filter = 0; filter < 9; ++filter) {
                resample({before, 0, channels, true, values}, static_cast<ScaleFilter>(filter),
                         {after, 0, channels, true, seen});
                const auto expect = [&, from = before, to = after](std::uint32_t x, std::uint32_t y) {
                    std::array<double, 5> sums{};
                    for (std::uint32_t v = 0; v < from.height; ++v) {
                        const double down = weight(filter, from.height, to.height, v, y);
                        for (std::uint32_t u = 0; down != 0 && u < from.width; ++u) {
                            const double share = down * weight(filter, from.width, to.width, u, x);
                            for (std::size_t i = 0; i < channels; ++i) {
                                sums[i] += share * values[(v * from.width + u) * channels + i];
                            }
                            sums[4] += share;
                        }
                    }
                    for (std::size_t i = 0; i < channels; ++i) {
                        EXPECT_NEAR(seen[(y * to.width + x) * channels + i],
                                    std::clamp(sums[i] / sums[4], 0.0, 255.0), 0.6)
                            << row(filter, from.width, to.width, to.height, x, y);
                    }
                };
                for (const std::uint32_t y : {0U, after.height / 2, after.height - 1}) {
                    for (std::uint32_t x = 0; x < after.width; ++x) {
                        expect(x, y);
                    }
                }
            }
        }
    }
}

TEST_F(Shrinking, CountsTheColourOfClearTexelsUnlessTheyHaveNone) {
    for (std::int16_t filter = 0; filter < 10; ++filter) { // beyond the list it stays
        for (const OutputFileType type : {OutputFileType::DdsDxt1, OutputFileType::DdsDxt5}) {
            load("w8 w8", all(32, "FFFFFF00 3180C8FF"));
            ASSERT_TRUE(chooseOutput(type));
            const std::string texels = scaled(3, 1, filter);
            for (std::size_t i = 0; i < texels.size(); i += 4) {
                const std::string texel = texels.substr(i, 4);
                const bool own = difference(texel.substr(0, 3), bytesOf("C88031")) < 2;
                EXPECT_TRUE(filter == 0 || own == (type == OutputFileType::DdsDxt1)) << filter;
            }
        }
    }
}

TEST_F(Shrinking, WeighsAPixelAsEachFiltersFormulaSays) {
    // What one bright pixel, a third of an output pixel beside the middle of one, makes of five.
    const char* const rows[] = {"4040404040", "40556A4040", "40556A4040", "4040804040", "40556A4040",
                                "4056694140", "4058654340", "3A58743742", "3F566D3E40"};
    for (std::int16_t filter = 0; filter < 9; ++filter) {
        load("w24 w1", all(36, "40") + bytesOf("FFFFFF") + all(33, "40"), "1820");
        const std::string texels = scaled(8, 1, filter);
        std::string seen;
        for (std::size_t i = 2; i < 7; ++i) {
            seen += texels[i * 4];
        }
        EXPECT_EQ(seen, bytesOf(rows[filter])) << filter;
    }
}

TEST_F(Shrinking, KeepsThePictureUprightAndInPlace) {
    for (const char* origin : {"2008", "2028"}) {
        for (const std::int16_t filter : {std::int16_t{0}, std::int16_t{3}}) {
            load("w4 w4", pixels("RRGG RRGG BBWW BBWW"), origin);
            EXPECT_TRUE(scaled(2, 2, filter) ==
                        pixels(origin[2] == '2' ? "BG RW" : "RW BG")); // red and blue change places in a file
            EXPECT_TRUE(scaled(4, 4, filter) ==
                        pixels(origin[2] == '2' ? "BBGG BBGG RRWW RRWW" : "RRWW RRWW BBGG BBGG"));
        }
    }
    load("w2 w1", bytesOf("20406000 40608000"));
    EXPECT_EQ(scaled(1, 1, 3), bytesOf("70503000")) << "the mean of what is clear";
}

TEST_F(Shrinking, AveragesTheWholePictureIntoEachLevelOfAChain) {
    options.buildMipmaps = true;
    const std::string halves = pixels("BBBB RRRR"), purple = "800080FF", grey = "808080FF";
    // Origin, bytes, and what the second level and the two below it are to be.
    const std::tuple<const char*, std::string, std::string, std::string> pictures[] = {
        {"2028", pixels("RRRRRRRR RRRRRRRR BBBBBBBB BBBBBBBB"), halves, purple},
        {"2008", pixels("BBBBBBBB BBBBBBBB RRRRRRRR RRRRRRRR"), halves, purple},
        {"2028", checks.substr(128), all(8, grey), grey}};
    for (const auto& [origin, bytes, second, below] : pictures) {
        for (const auto& [type, format] : {std::pair{OutputFileType::DdsDxt1, BlockFormat::Dxt1},
                                           {OutputFileType::DdsDxt5, BlockFormat::Dxt5}}) {
            load("w8 w4", bytes, origin);
            ASSERT_TRUE(chooseOutput(type) &&
                        facade.saveImage(options.imageType, folder.file("chain.dds"), true));
            EXPECT_LE(difference(levelOf(format, 1), second), 5);
            EXPECT_LE(difference(levelOf(format, 2), all(2, below)), 5);
            EXPECT_LE(difference(levelOf(format, 3), all(1, below)), 5);
        }
    }
}

} // namespace
} // namespace pelrath::test
