#include "imaging/block_decoder.hpp"
#include "imaging/memory_files.hpp"
#include "library_fixture.hpp"

#include <cstdlib>

namespace pelrath::test {
namespace {

struct Loading : LibraryTest {
    /// Runs one of the image editors' own writers in the folder.
    void run(const std::string& command) const {
        const std::string line = "cd '" + folder.path() + "' && PATH=/usr/bin:$PATH && " + command;
        ASSERT_EQ(std::system(line.c_str()), 0) << command;
    }

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

TEST_F(Loading, ReadsOrRefusesEveryCase) {
    std::ifstream table{PELRATH_CASES};
    int cases = 0;
    for (std::string line; std::getline(table, line);) {
        if (line.empty() || line[0] == '#') continue;
        SCOPED_TRACE(line);
        ++cases;
        std::istringstream parts{line};
        std::string name, extension, bytes, outcome;
        for (std::string* part : {&name, &extension, &bytes, &outcome}) {
            std::getline(parts, *part, '|');
        }
        outcome.erase(0, 1);
        const std::string path = folder.write("case." + extension.substr(1, 3), bytesOf(bytes));
        if (std::isdigit(static_cast<unsigned char>(outcome[0])) != 0) {
            expectRefused(path, outcome);
        } else {
            const bool hex = outcome[0] == '#';
            EXPECT_TRUE(pixelsOf(path) == (hex ? bytesOf(outcome.substr(1)) : pixels(outcome)));
        }
    }
    EXPECT_GT(cases, 80);
}

TEST_F(Loading, ReadsWhatEditorsWrite) {
    // 7 x 5 pixels of few enough colours for any palette.
    std::string alpha, opaque;
    for (int i = 0; i < 35; ++i) {
        const int c = i * 5 % 13;
        const std::string color = little(c * 19, 1) + little(255 - c * 17, 1) + little(c * 53, 1);
        alpha += color + little(40 + c * 12, 1);
        opaque += color + '\xFF';
    }
    // Each with ImageMagick's words, which writes TGA rows in the order of the header only when told one.
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"5alpha.bmp", alpha, ""},
        {"4.bmp", alpha, "-define bmp:format=bmp4"},
        {"2.bmp", opaque, "-alpha off -define bmp:format=bmp2"},
        {"runs.bmp", opaque, "-alpha off -type palette -compress RLE -define bmp:format=bmp3"},
        {"bottom.tga", alpha, "-flip -orient BottomLeft"},
        {"runs.tga", alpha, "-orient TopLeft -compress RLE"},
        {"palette.tga", opaque, "-orient TopLeft -alpha off -type palette"},
    };
    for (const auto& [name, source, words] : cases) {
        static_cast<void>(folder.write("source", source));
        run("convert -size 7x5 -depth 8 rgba:source " + words + " " + name);
        EXPECT_TRUE(pixelsOf(folder.file(name)) == source) << name;
    }
}

TEST_F(Loading, NeedsAFileWithAKnownExtension) {
    expectRefused(folder.file("missing.tga"), "1290", "File not found (");
    expectRefused(folder.write("picture.jpeg", "anything"), "0");
    expectRefused(folder.write("noextension", "anything"), "0");
    run("convert -size 8x8 xc:white white.jpg && mv white.jpg white.JpG");
    EXPECT_EQ(pixelsOf(folder.file("white.JpG")), std::string(64 * 4, '\xFF'));
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
    library.ilBindImage = [](std::uint32_t given) { pendingCode = 1281, imageLibrary().ilBindImage(given); };
    expectCode("1281 -> IL_INVALID_ENUM ");
    library.ilGenImages = [](std::size_t count, std::uint32_t* made) {
        pendingCode = 1285, imageLibrary().ilGenImages(count, made);
    };
    expectCode("1285 -> IL_INVALID_VALUE ");
    const ReadingFromMemory other{{}}; // there is one file in memory
    EXPECT_EQ(failureOf([&] { facade.loadImage(good, image); }).number(), 5);
}

TEST_F(Loading, LeavesNoImageBehind) {
    const std::string bad = folder.write("bad.tga", bytesOf("000002 9*00 w9 w9 1800 3*00"));
    const std::uint32_t first = images.generate();
    images.remove(first);
    for (int i = 0; i < 40; ++i) {
        EXPECT_NE(pixelsOf(good), "");
        expectRefused(bad, "1298");
    }
    // The library gives the ids of removed images out again.
    EXPECT_EQ(images.generate(), first);
}

TEST(BlockDecoder, RefusesWhatDoesNotFit) {
    const std::string block(8, '\0');
    const auto bytes = std::as_bytes(std::span{block});
    const std::tuple<BlockFormat, std::uint32_t, std::uint32_t, std::size_t> cases[] = {
        {BlockFormat::Dxt1, 5, 1, 20},
        {BlockFormat::Dxt5, 1, 1, 4},
        {BlockFormat::Dxt1, 0, 1, 0},
        {BlockFormat::Dxt1, 1, 1, 8}};
    for (const auto& [format, width, height, room] : cases) {
        std::vector<std::byte> texels(room);
        EXPECT_THROW(decodeLevel(format, bytes, width, height, texels), RuntimeError) << width << ' ' << room;
    }
}

} // namespace
} // namespace pelrath::test
