#include "imaging/bound_pixels.hpp"
#include "transfer/level_source.hpp"
#include "transfer_harness.hpp"

#include <random>

namespace pelrath::test {
namespace {

namespace fs = std::filesystem;

constexpr int losses = 8;     // of one compression, in a channel
constexpr int softened = 100; // of the two colours where they meet in a smaller level

// What is put back of levels one by one is replayed in fuzz/dialog_fuzz.cpp.
TEST(Insertion, PutsBackWhatWasExtractedByteForByteWhereverItLies) {
    const auto scatter = [](ArchiveBuilder& builder) {
        for (std::int32_t at = 4000; LevelPlan & level : builder.textures[1].levels) {
            level.at = at -= 300;
        }
    };
    const auto share = [](ArchiveBuilder& builder) {
        builder.textures[1].levels[0].at = 2000;
        builder.textures.push_back({"shared.tga", "DXT5", {builder.textures[1].levels[0]}});
    };
    const auto inFront = [](ArchiveBuilder& b) { b.order = ArchiveBuilder::Order::DataFirst; };
    const std::function<void(ArchiveBuilder&)> arrangements[] = {scatter, share, inFront};
    for (const CddsType type : {cdds, CddsType::Type0C}) {
        for (const auto& arrange : arrangements) {
            ArchiveBuilder builder{type, {chainOf("a", "DXT1", 8, 8), chainOf("wall", "DXT5", 12, 6)}};
            arrange(builder);
            for (const bool second : {false, true}) {
                TransferHarness h{builder};
                h.choose(second ? 1 : 0);
                const std::string before = h.archive();
                h.extract({embedded});
                // Other data in the levels' places, so that what is put back can be seen.
                const std::string blank = h.outside(before);
                h.rewrite(blank);
                EXPECT_EQ(h.insert({embedded}),
                          copyLine(0) + "out/" + h.files() + " inserted.|4 Mipmap(s) inserted.|");
                EXPECT_TRUE(h.archive() == before && h.folder.read("copies/a-0.cdds") == blank) << second;
            }
        }
    }
}

TEST(Insertion, TakesEveryLevelBackFromItsImage) {
    const std::tuple<const char*, const char*, int, int> cases[] = {
        {"DXT1", ".bmp", 16, 8}, {"DXT5", ".tga", 12, 6}, {"DXT5", ".tga", 7, 13}, {"DXT1", ".bmp", 1, 6}};
    for (const auto& [type, extension, width, height] : cases) {
        TransferHarness h{
            {cdds, {chainOf("wall", type, width, height), chainOf("next", type, 4, 4, blue, yellow)}}};
        const std::string before = h.archive();
        for (std::size_t i = 0; i < h.chosen().mipmaps.size(); ++i) {
            const Step level = mark(static_cast<int>(i));
            h.extract({images, level});
            h.rewrite(h.outside(before, i));
            const std::string name = h.files();
            EXPECT_EQ(h.insert({images, single, filter(0), withoutSafeCopy, level}),
                      noCopy + "out/" + name + "|1 mipmaps(s) inserted.");
            EXPECT_TRUE(name.ends_with(extension) && h.outside(h.archive(), i) == h.outside(before, i))
                << name;
            EXPECT_LE(h.difference(before, h.archive(), i), losses) << type << name;
            EXPECT_EQ(h.files(), name);
            fs::remove(h.folder.file("out/" + name));
        }
        EXPECT_EQ(h.files("program"), "tmp1.dds");
    }
}

TEST(Insertion, LeavesBlocksAloneThatAreNotEdited) {
    std::minstd_rand random;
    for (const auto& [type, size] : {std::pair{"DXT1", std::size_t{8}}, {"DXT5", std::size_t{16}}}) {
        TexturePlan wall = chainOf("wall", type, 20, 12);
        std::string& blocks = wall.levels[0].data;
        std::generate(blocks.begin(), blocks.end(), [&random] { return static_cast<char>(random() >> 8); });
        for (std::size_t i = size - 8; i < blocks.size();
             i += size) { // as a bitmap keeps them: none is clear
            blocks[i + 1] = static_cast<char>(blocks[i + 1] | 0x80);
            blocks[i + 3] = static_cast<char>(blocks[i + 3] & 0x7F);
        }
        TransferHarness h{{cdds, {wall}}};
        const std::string before = h.archive();
        h.extract({images, mark(0)});
        h.insert({images, single, mark(0)});
        EXPECT_TRUE(h.archive() == before) << type;
        h.insert({images, create});
        EXPECT_TRUE(h.levelOf(h.archive(), 0) == blocks) << type;
        std::string image = h.folder.read("out/" + h.files());
        image[image.size() / 2] = static_cast<char>(image[image.size() / 2] ^ 0x40);
        (void)h.folder.write("out/" + h.files(), image);
        h.insert({images, single, mark(0)});
        const std::string after = h.levelOf(h.archive(), 0);
        int changed = 0;
        for (std::size_t i = 0; i < blocks.size(); i += size) {
            changed += after.compare(i, size, blocks, i, size) != 0;
        }
        EXPECT_EQ(changed, 1) << type << ": one pixel was edited";
    }
}

TEST(Insertion, CreatesTheChainWithEachFilter) {
    for (const Step& kind : {Step{images}, Step{ddsFiles}}) {
        for (const char* type : {"DXT1", "DXT5"}) {
            TransferHarness h{{CddsType::Type0C,
                               {chainOf("wall", type, 16, 24), chainOf("next", type, 4, 4, blue, yellow)}}};
            const std::string before = h.archive();
            h.extract({kind});
            const std::string files = row(h.files(), h.files("program"));
            for (int index = 0; index < 9; ++index) {
                h.rewrite(h.outside(before));
                EXPECT_EQ(h.insert({kind, create, filter(index)}),
                          copyLine(index) + "out/" + h.files() + "|5 mipmaps(s) inserted.");
                EXPECT_TRUE(h.outside(h.archive()) == h.outside(before));
                // The two halves of a level stay apart only where each pixel lies in one of the level below.
                const bool sharp = index == 0 || index == 2 || index == 3;
                for (std::size_t i = 0; i < 3; ++i) {
                    EXPECT_LE(h.difference(before, h.archive(), i), sharp || i == 0 ? losses : softened)
                        << type << ' ' << index << ' ' << i;
                }
                EXPECT_EQ(h.levelOf(h.archive(), 4).find("####"), std::string::npos);
                EXPECT_EQ(row(h.files(), h.files("program")), files);
            }
        }
    }
}

TEST(Insertion, ScalesSmallLevelsAsFromTheWholePicture) {
    const TemporaryFolder folder;
    RecordingBoxes boxes;
    SaveImageOptions options;
    ImageLibraryFacade facade{boxes, options};
    const LibraryImages images;
    ImageLibraryUse use{facade, images};
    ASSERT_TRUE(use.start());
    std::minstd_rand random;
    std::string noise(std::size_t{512} * 512 * 4, '\0');
    std::generate(noise.begin(), noise.end(), [&] { return static_cast<char>(random()); });
    LoadedImage image{facade, images, folder.write("a.tga", bytesOf("000002 9*00 w512 w512 2028") + noise)};
    const auto scaled = [&](std::uint32_t from, std::int16_t filter) {
        ImageCopy copy{facade, images, from};
        EXPECT_TRUE(facade.scaleImage(8, 8, filter));
        const Pixels pixels = boundPixels(imageLibrary());
        return std::string(pixels.values.begin(), pixels.values.end());
    };
    images.bind(image.id());
    LevelSource source{{facade, images, options, use}, image.id()};
    EXPECT_EQ(source.imageFor(16, 8), image.id());
    const std::uint32_t small = source.imageFor(8, 8);
    EXPECT_NE(small, image.id());
    for (std::int16_t filter = 1; filter < 9; ++filter) {
        EXPECT_LE(difference(scaled(small, filter), scaled(image.id(), filter)), 1) << filter;
    }
}

} // namespace
} // namespace pelrath::test
