#pragma once

#include "imaging/image_library_facade.hpp"
#include "imaging/library_images.hpp"
#include "support/recording_boxes.hpp"
#include "support/temporary_folder.hpp"

#include <map>

namespace pelrath::test {

/// The code that library functions of a test's own leave behind, to be read once.
inline std::uint32_t pendingCode;

/// The real library, except that its error stack holds what the test says.
inline LibraryFunctions libraryWithCode() {
    LibraryFunctions library = imageLibrary();
    library.ilGetError = [] { return std::exchange(pendingCode, 0U); };
    return library;
}

/// Pixels, four bytes each, from letters: see cases.txt.
inline std::string pixels(std::string_view letters) {
    const std::map<char, std::string> known{{'R', "FF0000FF"}, {'G', "00FF00FF"}, {'B', "0000FFFF"},
                                            {'W', "FFFFFFFF"}, {'K', "000000FF"}, {'h', "FFFFFF80"},
                                            {'.', "00000000"}, {'r', "FF000000"}, {'d', "555555FF"},
                                            {'l', "AAAAAAFF"}, {'n', "040104FF"}, {' ', ""}};
    std::string bytes;
    for (const char letter : letters) {
        bytes += bytesOf(known.at(letter));
    }
    return bytes;
}

/// The started library with a facade over it, and pictures as text: rows from the top, four bytes a pixel
/// (red, green, blue, alpha).
struct LibraryTest : testing::Test {
    LibraryTest() {
        facade.initImageLibrary();
        options.targaFirstRow = FirstRow::Top;
        facade.trace().setSink([this](const std::string& line) { lines.push_back(line); });
    }
    ~LibraryTest() override { images.shutDown(); }

    bool chooseOutput(OutputFileType type) {
        return facade.setSaveImageOptions(static_cast<std::int32_t>(type), options.imageType,
                                          options.extension);
    }

    /// Loads a file and answers its pixels by way of a saved TGA file, whose bytes are plain.
    std::string pixelsOf(const std::string& path) {
        std::uint32_t image = 0;
        const bool loaded = facade.loadImage(path, image);
        std::string pixels;
        if (loaded && chooseOutput(OutputFileType::Tga) &&
            facade.saveImage(options.imageType, folder.file("seen.tga"), true)) {
            pixels = targaPixels(folder.read("seen.tga"));
        }
        images.remove(image);
        return pixels;
    }

    /// The pixels of a TGA file of 32 bits without runs, from the top row.
    static std::string targaPixels(const std::string& file) {
        std::string pixels = file.substr(18, file.size() - 18 - 26); // between header and footer
        for (std::size_t i = 0; i < pixels.size(); i += 4) {
            std::swap(pixels[i], pixels[i + 2]);
        }
        return pixels;
    }

    /// One box with this text, and the words in what stands below it.
    void expectBox(const std::string& text, const std::string& words = "") {
        std::vector<ShownBox> shown = boxes.take();
        ASSERT_EQ(shown.size(), 1U);
        const std::string whole = shown[0].text + "\r\n\r\n";
        const std::size_t end = whole.find("\r\n\r\n");
        shown[0].text.resize(end);
        EXPECT_EQ(shown[0], (ShownBox{text, "Pelrath", BoxIcon::Critical, BoxButtons::Ok}));
        EXPECT_NE(whole.substr(end).find(words), std::string::npos) << whole;
    }

    /// The trace since the last call.
    void expectLines(const std::vector<std::string>& expected) {
        EXPECT_EQ(std::exchange(lines, {}), expected);
    }

    RecordingBoxes boxes;
    TemporaryFolder folder;
    SaveImageOptions options;
    ImageLibraryFacade facade{boxes, options};
    LibraryImages images;
    std::vector<std::string> lines;
};

} // namespace pelrath::test
