#include "imaging/block_decoder.hpp"
#include "library_fixture.hpp"

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

TEST_F(Shrinking, GivesEveryPixelItsShareWithEveryFilterButNearest) {
    for (std::int16_t filter = 0; filter < 9; ++filter) {
        for (const auto& [width, height] : {std::pair{4, 4}, {1, 1}, {3, 5}, {8, 1}, {7, 9}}) {
            SCOPED_TRACE(row(filter, width, height));
            const std::int32_t count = width * height;
            for (const std::int16_t asked : {filter, std::int16_t{9}}) { // beyond the list it stays
                load("w8 w8", checks);
                const bool even = difference(scaled(width, height, asked), all(count, "808080FF")) < 10;
                EXPECT_TRUE(width == 7 || even == (filter != 0));
            }
            load("w8 w8", all(64, "3180C8"), "1800");
            EXPECT_EQ(scaled(width, height, filter), all(count, "C88031FF"));
            load("w8 w8", all(64, "3180C840"));
            EXPECT_EQ(scaled(width, height, filter), all(count, "C8803140"));
            // What is clear adds no colour, whatever its own.
            load("w8 w8", all(32, "FFFFFF00 3180C8FF"));
            const std::string texels = scaled(width, height, filter);
            for (std::size_t i = 0; i < texels.size(); i += 4) {
                const std::string texel = texels.substr(i, 4);
                EXPECT_TRUE(texel[3] == 0 || difference(texel.substr(0, 3), bytesOf("C88031")) < 2) << i;
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
