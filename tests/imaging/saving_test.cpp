#include "imaging/chain_encoder.hpp"
#include "imaging/level_encoder.hpp"
#include "imaging/memory_files.hpp"
#include "imaging/saved_file.hpp"
#include "library_fixture.hpp"

#include <numeric>
#include <random>
#include <sys/stat.h>

namespace pelrath::test {
namespace {

struct Saving : LibraryTest {
    Saving() {
        // 4 x 8, the upper half red, the lower one blue: no block of a DDS file needs to mix
        const std::string file =
            folder.write("source.tga", bytesOf("00000A 9*00 w4 w8 1820 8F 0000FF 8F FF0000"));
        EXPECT_TRUE(facade.loadImage(file, image));
        std::filesystem::remove(file);
    }

    bool save(OutputFileType type, const std::string& name, bool overwrite = true) {
        return chooseOutput(type) && facade.saveImage(options.imageType, folder.file(name), overwrite);
    }

    std::uint32_t image = 0;
};

TEST_F(Saving, WritesEachOutputWholeAndUpright) {
    // Name, type, mipmaps wanted, how the file begins, its length (0: not known beforehand), levels that a
    // DDS header declares.
    const std::tuple<const char*, OutputFileType, bool, std::string, std::size_t, std::int64_t> cases[] = {
        {"a.bmp", OutputFileType::Bmp, true, "BM", 54 + 8 * 12, 0},
        {"a.TGA", OutputFileType::Tga, false, bytesOf("000002"), 0, 0},
        {"a.jpg", OutputFileType::Jpg, false, bytesOf("FFD8"), 0, 0},
        {"a.dds", OutputFileType::DdsDxt1, false, "DDS ", 128 + 16, 1},
        {"b.dds", OutputFileType::DdsDxt1, true, "DDS ", 128 + 16 + 3 * 8, 4},
        {"c.dds", OutputFileType::DdsDxt5, true, "DDS ", 128 + 32 + 3 * 16, 4},
        // The image still has the chain of the save before.
        {"d.dds", OutputFileType::DdsDxt5, false, "DDS ", 128 + 32, 1},
        // The name is the texture's, the type is not the name's.
        {"texture.tga", OutputFileType::Bmp, false, "BM", 54 + 8 * 12, 0},
        {"texture", OutputFileType::Tga, false, bytesOf("000002"), 0, 0},
    };
    for (const auto& [name, type, mipmaps, start, length, levels] : cases) {
        options.buildMipmaps = mipmaps;
        ASSERT_TRUE(save(type, name)) << name;
        const std::string file = folder.read(name);
        EXPECT_TRUE(file.starts_with(start) && (length == 0 || file.size() == length))
            << name << ' ' << file.size();
        const Bytes cut = std::as_bytes(std::span{file}).first(file.size() - 1);
        EXPECT_FALSE(isWholeFile(options.imageType, {4, 8}, cut)) << name;
        if (levels == 0 || name[0] == 'd') continue;
        // What a reader of the header is told is what the library says of the same picture.
        EXPECT_TRUE(imageLibrary().ilSaveImage(folder.file("d.dds").c_str()));
        images.bind(image); // the library leaves the last level bound
        EXPECT_EQ(folder.read("d.dds").substr(0, 128), file.substr(0, 128)) << name;
    }
    EXPECT_EQ(folder.names().size(), std::size(cases));
    EXPECT_EQ(folder.read("d.dds").substr(28, 4), little(1, 4));
    EXPECT_EQ(folder.read("d.dds").substr(108, 4), little(0x1000, 4)) << "a texture and nothing more";
    for (const char* name : {"a.bmp", "a.TGA", "a.dds", "b.dds", "c.dds", "d.dds"}) {
        EXPECT_TRUE(pixelsOf(folder.file(name)) == pixels(std::string(16, 'R') + std::string(16, 'B')))
            << name;
    }
}

TEST_F(Saving, KeepsColoursAndAlphaApart) {
    // By how much the DDS file of a picture, given in the order of a TGA file's bytes, differs from it.
    const auto loss = [&](OutputFileType type, const std::string& sidesAndOrigin, const std::string& bytes) {
        const std::string tga = folder.write("a.tga", bytesOf("000002 9*00 " + sidesAndOrigin) + bytes);
        EXPECT_TRUE(facade.loadImage(tga, image) && save(type, "a.dds"));
        const std::string before = pixelsOf(tga);
        std::string after = pixelsOf(folder.file("a.dds"));
        for (std::size_t i = 0; i < before.size(); i += 4) {
            // DXT1 has no place for the colour of a clear texel.
            if (type == OutputFileType::DdsDxt1 && before[i + 3] == 0) after.replace(i, 3, before, i, 3);
        }
        return difference(before, after);
    };
    // Whole blocks, cut ones, and ones with clear texels; colours of one brightness.
    const std::pair<std::string, const char*> pictures[] = {
        {"w4 w4", "RRRB RBBB RRRB BBBR"},
        {"w4 w4", "RGRG GGRR RRGG RRRR"},
        {"w6 w3", "RBRBRB BBBRRR RBBBBR"},
        {"w1 w2", "RB"},
        {"w5 w6", "RBrBB BRrrB rBRRR BrRrB rRBRR Rrrrr"},
        {"w4 w4", ".... .... .... ...."},
    };
    for (const auto& [sides, letters] : pictures) {
        for (const char* origin : {" 2008", " 2028"}) {
            for (const OutputFileType type : {OutputFileType::DdsDxt1, OutputFileType::DdsDxt5}) {
                EXPECT_EQ(loss(type, sides + origin, pixels(letters)), 0) << letters << origin;
            }
        }
    }
    for (const auto& [start, step] : {std::pair{100, 1}, {60, 3}, {3, 36}}) {
        std::string ramp;
        for (int i = 0; i < 16; ++i) {
            ramp += "\xFF\xFF\xFF" + std::string(1, static_cast<char>(start + step * (i % 8)));
        }
        EXPECT_LE(loss(OutputFileType::DdsDxt5, "w4 w4 2028", ramp), 1) << start;
    }
}

TEST_F(Saving, LosesNothingOfWhatHasBeenDecodedOnce) {
    std::minstd_rand random;
    std::string blocks(std::size_t{1} << 16, '\0');
    std::generate(blocks.begin(), blocks.end(), [&random] { return static_cast<char>(random() >> 8); });
    for (std::size_t i = 0; i < blocks.size(); i += 8) { // end points close together, and texels alike
        if (i / 8 % 3 == 0)
            blocks.replace(i, 1, blocks, i + 1, 1).replace(i + 2, 2, blocks, i, 2), ++blocks[i + 2];
        if (i / 8 % 5 == 0) blocks.replace(i + 4, 2, blocks, i + 6, 2);
    }
    for (const auto& [code, height, type] :
         {std::tuple{"DXT1", 512, OutputFileType::DdsDxt1}, {"DXT5", 256, OutputFileType::DdsDxt5}}) {
        std::string file = ddsFile(code, 256, static_cast<std::uint32_t>(height), blocks);
        file.replace(4, 4, little(124, 4)).replace(76, 8, little(32, 4) + little(4, 4));
        const std::string before = pixelsOf(folder.write("any.dds", file));
        EXPECT_TRUE(facade.loadImage(folder.file("any.dds"), image) && save(type, "again.dds"));
        EXPECT_EQ(difference(pixelsOf(folder.file("again.dds")), before), 0) << code;
    }
}

TEST(LevelEncoder, KeepsAKnownCodingUnlessAnotherComesNearer) {
    std::minstd_rand random;
    std::vector<std::uint8_t> texels(64), decoded(64);
    std::array<int, 2> ties{};
    const auto coded = [&](Bytes known) {
        std::vector<std::byte> block(16);
        LevelEncoder{BlockFormat::Dxt5, {{4, 4}, 0, 4, true, texels}, known, block}.encodeAll();
        return block;
    };
    const auto loss = [&](Bytes block) {
        decodeLevel(BlockFormat::Dxt5, block, 4, 4, std::as_writable_bytes(std::span{decoded}));
        return std::inner_product(texels.begin(), texels.end(), decoded.begin(), 0, std::plus{},
                                  [](int a, int b) { return (a - b) * (a - b); });
    };
    for (int i = 0; i < 200; ++i) {
        for (std::size_t texel = 0; texel < texels.size();
             texel += 4) { // one channel: values half-way are many
            texels[texel] = random() % 64, texels[texel + 3] = random() % 32;
        }
        const std::vector<std::byte> best = coded({});
        for (const std::size_t at : {2U, 4U, 7U, 12U, 15U}) { // where texels choose an alpha or a colour
            for (unsigned bit = 1; bit < 256; bit *= 2) {
                std::vector<std::byte> known = best;
                known[at] ^= static_cast<std::byte>(bit);
                EXPECT_EQ(coded(known), loss(known) <= loss(best) ? known : best) << at;
                ties.at(at / 8) += static_cast<int>(loss(known) == loss(best));
            }
        }
    }
    EXPECT_GT(*std::ranges::min_element(ties), 2);
}

TEST(LevelEncoder, ComesAsNearAsTheBlocksThatANoisyPictureIsMadeOf) {
    constexpr std::uint32_t side = 64;
    constexpr std::size_t bytes = std::size_t{side} * side * 4;
    for (const char* kind : {"four colours", "three colours", "three colours and clear texels"}) {
        constexpr std::byte above{0x80}, none{};
        const bool four = kind == std::string{"four colours"}, cutOut = std::string{kind}.ends_with("texels");
        std::minstd_rand random;
        std::vector<std::byte> made(bytes / 8), coded(made.size());
        std::generate(made.begin(), made.end(), [&random] { return static_cast<std::byte>(random() >> 8); });
        for (std::size_t i = 0; i < made.size(); i += 8) { // the higher end first says four colours
            made[i + 1] = (made[i + 1] & std::byte{0x7F}) | (four ? above : none);
            made[i + 3] = (made[i + 3] & std::byte{0x7F}) | (four ? none : above);
            for (std::size_t texels = i + 4; !four && !cutOut && texels < i + 8; ++texels) {
                made[texels] &= ~(made[texels] << 1 & std::byte{0xAA}); // none is the clear entry
            }
        }
        std::vector<std::uint8_t> picture(bytes), decoded(bytes);
        const auto decode = [](const std::vector<std::byte>& blocks, std::vector<std::uint8_t>& texels) {
            decodeLevel(BlockFormat::Dxt1, blocks, side, side, std::as_writable_bytes(std::span{texels}));
        };
        decode(made, picture);
        for (std::size_t i = 0; i < bytes; ++i) {
            const int noisy = std::clamp(picture[i] + static_cast<int>(random() % 9) - 4, 0, 255);
            if (i % 4 != 3) picture[i] = static_cast<std::uint8_t>(noisy);
        }
        LevelEncoder{BlockFormat::Dxt1, {{side, side}, 0, 4, true, picture}, {}, coded}.encodeAll();
        const auto loss = [&](const std::vector<std::byte>& blocks) {
            decode(blocks, decoded);
            int sum = 0;
            for (std::size_t i = 0; i < bytes; ++i) {
                const bool counts = picture[i | 3] != 0 && i % 4 != 3;
                if (counts) sum += (picture[i] - decoded[i]) * (picture[i] - decoded[i]);
            }
            return sum;
        };
        EXPECT_LE(loss(coded), loss(made)) << kind;
    }
}

TEST(LevelEncoder, LeavesNoOtherTexelsClearAndNoColourOut) {
    // The texels of a picture four wide, a coding that is known of it, the squared loss.
    const std::tuple<const char*, const char*, const char*, int> cases[] = {
        {"a known coding hides a texel", "RRRR RRRR RRRR RRRR", "00F800F8 03000000", 0},
        {"a known coding shows a clear one", ".RRR RRRR RRRR RRRR", "00F800F8 00000000", 0},
        {"four colours in a block that is cut", "KdlW WldK", "", 0},
        {"one colour that three come nearest to", "nnnn nnnn nnnn nnnn", "", 16}};
    for (const auto& [what, letters, coding, loss] : cases) {
        const std::string wanted = pixels(letters), known = bytesOf(coding);
        std::string texels = wanted, block(8, '\0');
        const auto height = static_cast<std::uint32_t>(wanted.size() / 16);
        const Pixels level{
            {4, height}, 0, 4, true, {reinterpret_cast<std::uint8_t*>(texels.data()), texels.size()}};
        encodeChain(BlockFormat::Dxt1, {&level, 1}, std::as_bytes(std::span{known}),
                    std::as_writable_bytes(std::span{block}));
        decodeLevel(BlockFormat::Dxt1, std::as_bytes(std::span{block}), 4, height,
                    std::as_writable_bytes(std::span{texels}));
        const auto square = [](char a, char b) { return (a - b) * (a - b); };
        EXPECT_EQ(std::inner_product(texels.begin(), texels.end(), wanted.begin(), 0, std::plus{}, square),
                  loss)
            << what;
        std::array<std::byte, 16> tooLong{};
        EXPECT_EQ(failureOf([&] { encodeChain(BlockFormat::Dxt1, {&level, 1}, {}, tooLong); }).number(), 5);
    }
}

TEST_F(Saving, TracesItsSteps) {
    const std::string converted = "ilConvertImage done sucessfully.";
    const std::string saved = "ilSave done sucessfully.";
    options.buildMipmaps = true;
    ASSERT_TRUE(save(OutputFileType::DdsDxt5, "a.dds"));
    expectLines({"Setting DXT5 format done.", converted, "iluBuildMipmaps done.",
                 "ilEnable overwrite done sucessfully.", saved});
    ASSERT_TRUE(save(OutputFileType::Jpg, "a.jpg", false));
    expectLines({"Setting Jpg compression done.", converted, "ilDisable overwrite done sucessfully.", saved});
}

TEST_F(Saving, LeavesWhatIsThereWhereItMayNotOrCannotWrite) {
    const std::string taken = "ilSave Error Number: 1292 -> IL_FILE_ALREADY_EXISTS ",
                      failed = "ImageSave Error : ";
    std::filesystem::create_directory(folder.file("folder"));
    std::filesystem::permissions(folder.write("readonly", "before"), std::filesystem::perms::owner_read);
    static_cast<void>(folder.write("there", "before"));
    ASSERT_EQ(mkfifo(folder.file("pipe").c_str(), 0600), 0);
    const std::vector<std::string> names = folder.names();
    // Where, whether over what is there, the message and what it says of the place.
    const std::tuple<const char*, bool, std::string, const char*> cases[] = {
        {"gone/a", true, failed + "76 Path not found", "its folder is gone; please choose the folder again"},
        {"folder", true, failed + "75 Path/File access error", "a folder, or something else that is no file"},
        {"readonly", true, failed + "70 Permission denied", ""},
        {"there", true, failed + "6 Overflow", "beyond the length that files may have here"},
        {"there", false, taken, ""},
        {"pipe", false, taken, ""}}; // the library would open it to see whether it is there, and wait
    for (const auto& [name, overwrite, message, place] : cases) {
        EXPECT_FALSE((FullDisk{100}, save(OutputFileType::Bmp, name, overwrite)));
        const std::string text = boxes.take().at(0).text;
        EXPECT_TRUE(text.starts_with(message)) << text;
        EXPECT_NE(text.find(folder.file(name)), std::string::npos) << text;
        EXPECT_NE(text.find(place), std::string::npos) << text;
        EXPECT_EQ(images.readErrorCode(), 0);
    }
    EXPECT_EQ(lines.back(), taken);
    EXPECT_EQ(row(folder.read("there"), folder.read("readonly")), "before, before");
    EXPECT_EQ(folder.names(), names);
    EXPECT_TRUE(save(OutputFileType::Bmp, "there"));
    EXPECT_EQ(folder.read("there").size(), 54U + 8 * 12);
}

TEST_F(Saving, WritesTargaFilesOfKnownBytes) {
    // The alpha is claimed: without that, a picture that is clear all over would be taken for one without.
    const std::string red = "16*0000FFFF ", blue = "16*FF0000FF ",
                      end = bytesOf("8*00") + "TRUEVISION-XFILE.";
    for (const auto& [firstRow, expected] : {std::pair{FirstRow::Top, "2028 " + red + blue},
                                             std::pair{FirstRow::Bottom, "2008 " + blue + red}}) {
        options.targaFirstRow = firstRow;
        ASSERT_TRUE(save(OutputFileType::Tga, "a.tga"));
        EXPECT_EQ(folder.read("a.tga"), bytesOf("000002 9*00 w4 w8 " + expected) + end + '\0');
    }
}

TEST_F(Saving, ChecksTheQualityBeforeTheLibraryDoes) {
    for (const std::int32_t quality : {-1, 65536}) {
        options.jpgQuality = quality;
        EXPECT_FALSE(save(OutputFileType::Jpg, "a.jpg"));
        expectBox("ImageSave Error : 6 Overflow");
    }
    for (const std::int32_t quality : {0, 90, 100}) {
        options.jpgQuality = quality;
        EXPECT_TRUE(save(OutputFileType::Jpg, row(quality)));
    }
    EXPECT_LT(folder.read("0").size(), folder.read("90").size());
    EXPECT_LT(folder.read("90").size(), folder.read("100").size());
    const WritingToMemory other;
    EXPECT_FALSE(save(OutputFileType::Jpg, "a.jpg"));
    expectBox("ImageSave Error : 5 Invalid procedure call");
}

TEST_F(Saving, LeavesTheWholeChainToTheLibraryWhereALevelCannotBeSeen) {
    LibraryFunctions library = imageLibrary();
    library.ilActiveMipmap = [](std::uint32_t) { return std::uint8_t{0}; };
    options.buildMipmaps = chooseOutput(OutputFileType::DdsDxt1);
    ImageLibraryFacade blind{boxes, options, library};
    EXPECT_TRUE(blind.saveImage(options.imageType, folder.file("a.dds"), true));
    EXPECT_EQ(folder.read("a.dds").size(), 128U + 16 + 3 * 8);
}

TEST_F(Saving, DoesNotBelieveASaveThatIsNotWhole) {
    const auto comesMeanwhile = [](const char* name) {
        const std::uint8_t done = imageLibrary().ilSaveImage(name);
        std::ofstream{name} << "new";
        return done;
    };
    // How the library saves, the code that it leaves, and the message; null: none.
    const std::tuple<std::uint8_t (*)(const char*), std::uint32_t, const char*> cases[] = {
        {[](const char*) { return std::uint8_t{1}; }, 0, "ilSave Error Number: 1298 -> IL_FILE_READ_ERROR "},
        {imageLibrary().ilSaveImage, 1286, "ilSave Error Number: 1286 -> IL_ILLEGAL_OPERATION "},
        {[](const char*) { return std::uint8_t{0}; }, 0, nullptr},
        {comesMeanwhile, 0, "ilSave Error Number: 1292 -> IL_FILE_ALREADY_EXISTS "},
    };
    ASSERT_TRUE(chooseOutput(OutputFileType::Tga));
    for (const auto& [saveImage, code, box] : cases) {
        LibraryFunctions library = libraryWithCode();
        library.ilSaveImage = saveImage;
        pendingCode = code;
        ImageLibraryFacade failing{boxes, options, library};
        EXPECT_FALSE(failing.saveImage(options.imageType, folder.file("a.tga"), false)) << code;
        boxes.expect(box);
        EXPECT_EQ(folder.read("a.tga"), saveImage == std::get<0>(cases[3]) ? "new" : "");
    }
}

} // namespace
} // namespace pelrath::test
