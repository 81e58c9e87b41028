#include "imaging/block_decoder.hpp"
#include "imaging/memory_files.hpp"
#include "library_fixture.hpp"

namespace pelrath::test {
namespace {

struct Loading : LibraryTest {
    const std::string good = folder.write("good.tga", bytesOf("000002 9*00 w1 w1 1800 3*00"));

    /// With these words before the path.
    void expectRefused(const std::string& path, const std::string& code, const std::string& words = "") {
        std::uint32_t image = 0;
        EXPECT_FALSE(facade.loadImage(path, image));
        EXPECT_NE(image, 0U);
        const ShownBox box = boxes.take().at(0);
        EXPECT_TRUE(box.text.starts_with("ilLoadImage Error Number: " + code + " -> IL_")) << box;
        EXPECT_NE(box.text.find("\r\n\r\n" + words + path), std::string::npos) << box;
        EXPECT_EQ(images.readErrorCode(), 0);
        images.remove(image);
    }
};

TEST_F(Loading, ReadsOrRefusesEveryCaseAndLeavesNoImageBehind) {
    const std::uint32_t first = images.generate();
    images.remove(first);
    std::ifstream table{PELRATH_CASES};
    int cases = 0;
    for (std::string line; std::getline(table, line);) {
        if (line.empty() || line[0] == '#') continue;
        SCOPED_TRACE(line);
        ++cases;
        std::istringstream parts{line};
        std::string name, extension, bytes, outcome, bar;
        std::getline(parts, name, '|') >> extension >> bar;
        std::getline(std::getline(parts, bytes, '|') >> std::ws, outcome);
        const std::string path = folder.write("case." + extension, bytesOf(bytes));
        if (std::isdigit(static_cast<unsigned char>(outcome[0])) != 0) {
            expectRefused(path, outcome);
        } else {
            const bool hex = outcome[0] == '#';
            EXPECT_TRUE(pixelsOf(path) == (hex ? bytesOf(outcome.substr(1)) : pixels(outcome)));
        }
    }
    EXPECT_GT(cases, 80);
    EXPECT_EQ(images.generate(), first); // the library gives the ids of removed images out again
}

TEST_F(Loading, NeedsAFileWithAKnownExtension) {
    expectRefused(folder.file("missing.tga"), "1290", "File not found (");
    expectRefused(folder.write("picture.jpeg", "anything"), "0");
    expectRefused(folder.write("noextension", "anything"), "0");
    // Longer than any picture: known by its start before it is read.
    const std::string zeros = folder.write("zeros.bmp", "");
    std::filesystem::resize_file(zeros, 600'000'000);
    expectRefused(zeros, "1288");
}

TEST_F(Loading, DoesNotBelieveACallThatLeavesACode) {
    LibraryFunctions library = libraryWithCode();
    std::uint32_t image = 0;
    const auto expectCode = [&](const std::string& code) {
        EXPECT_FALSE((ImageLibraryFacade{boxes, options, library}.loadImage(good, image)));
        expectBox("ilLoadImage Error Number: " + code);
    };
    library.ilLoad = [](std::uint32_t type, const char* name) {
        return pendingCode = 1298, imageLibrary().ilLoad(type, name);
    };
    expectCode("1298 -> IL_FILE_READ_ERROR ");
    library.ilLoad = imageLibrary().ilLoad;
    library.ilGetInteger = [](std::uint32_t mode) { // another width
        return imageLibrary().ilGetInteger(mode) + (mode == 0x0DE4 ? 1 : 0);
    };
    expectCode("1284 -> IL_INTERNAL_ERROR ");
    library.ilBindImage = [](std::uint32_t given) { pendingCode = 1281, imageLibrary().ilBindImage(given); };
    expectCode("1281 -> IL_INVALID_ENUM ");
    library.ilGenImages = [](std::size_t count, std::uint32_t* made) {
        pendingCode = 1285, imageLibrary().ilGenImages(count, made);
    };
    expectCode("1285 -> IL_INVALID_VALUE ");
    const std::string farOff = bytesOf("424D 8*00 d2000000000 d40 d4 d4 w1 w24 d0 12*00 d0 d0");
    const ReadingFromMemory other{std::as_bytes(std::span{farOff})}; // there is one file in memory
    EXPECT_EQ(imageLibrary().ilLoad(0x0420, "a.bmp"), 0) << "its pixels are not in it";
    EXPECT_EQ(images.readErrorCode(), 1298);
    EXPECT_EQ(failureOf([&] { facade.loadImage(good, image); }).number(), 5);
}

TEST(BlockDecoder, RefusesWhatDoesNotFit) {
    const std::vector<std::byte> block(8);
    std::vector<std::byte> texels(20);
    EXPECT_THROW(decodeLevel(BlockFormat::Dxt1, block, 5, 1, texels), RuntimeError) << "two blocks";
    EXPECT_THROW(decodeLevel(BlockFormat::Dxt5, block, 1, 1, std::span{texels}.first(4)), RuntimeError);
    EXPECT_THROW(decodeLevel(BlockFormat::Dxt1, block, 4, 4, texels), RuntimeError) << "64 bytes";
    EXPECT_THROW(decodeLevel(BlockFormat::Dxt1, block, 0, 1, {}), RuntimeError);
}

} // namespace
} // namespace pelrath::test
