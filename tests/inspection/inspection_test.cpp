#include "inspection/inspection.hpp"
#include "transfer/transfer_harness.hpp"

namespace pelrath::inspection {
namespace {

using namespace pelrath::test;

const TexturePlan wall = chainOf("wall", "DXT1", 8, 8), smoke = chainOf("smoke", "DXT5", 8, 8),
                  argb{"a", "ARGB", {{1, 1, "1234"}}};

std::string chainData(const TexturePlan& plan) {
    std::string data;
    for (const LevelPlan& level : plan.levels) {
        data += level.data;
    }
    return data;
}

std::string bitmapOf(int side) {
    const std::string sides = " d" + std::to_string(side) + " d" + std::to_string(side);
    return "BM" + bytesOf("d0 d0 d54 d40" + sides + " w1 w24 d0 d0 d0 d0 d0 d0 " +
                          std::to_string(side * side) + "*1020F0");
}

/// A DDS file with a whole header, of data for so many levels.
std::string ddsOf(std::uint32_t side, std::uint32_t fourCC, const std::string& data,
                  std::uint32_t levels = 1) {
    DdsHeader header = ddsLevelHeader(side, side, 8, fourCC);
    header.mipmapCount = levels;
    return std::string{reinterpret_cast<const char*>(&header), sizeof header} + data;
}

struct Files {
    const char* name;
    std::string bytes;
};

TEST(Inspection, FindsInWordsWhatAnInsertionWouldDo) {
    const std::string tga = bytesOf("00 00 02 d0 00 w0 w0 w8 w8 18 20 64*10F020");
    struct {
        const char* what;
        const TexturePlan& texture;
        std::vector<Files> files;
        Steps steps;
        std::string findings;
    } const cases[]{
        {"a bitmap that fits",
         wall,
         {{"wall-8x8.bmp", bitmapOf(8)}},
         {images},
         "Well: out/wall-8x8.bmp has the level's 8 x 8 pixels.|Well: All 4 levels would be written.|"},
        {"one that is too large",
         wall,
         {{"wall-8x8.bmp", bitmapOf(16)}},
         {images, filter(7)},
         "To note: out/wall-8x8.bmp: 16 x 16 does not fit 8 x 8, and is not scaled. Please save it with 8 x 8 pixels, or it arrives scrambled.|Well: All 4 levels would be written.|"},
        {"one that is too small",
         wall,
         {{"wall-8x8.bmp", bitmapOf(4)}},
         {images},
         "Cannot be inserted: out/wall-8x8.bmp is too short: it gives less data than the texture has.|To note: out/wall-8x8.bmp: 4 x 4 does not fit 8 x 8, and is not scaled. Please save it with 8 x 8 pixels, or it arrives scrambled.|"},
        {"none at all",
         wall,
         {},
         {images},
         "Cannot be inserted: File not found (out/wall-8x8.bmp). Please extract it first, or choose the folder that holds it.|"},
        {"no picture",
         wall,
         {{"wall-8x8.bmp", "BM"}},
         {images},
         "Cannot be inserted: out/wall-8x8.bmp is not of the kind that its extension says, or is damaged; copy or save it anew.|"},
        {"one level of four",
         wall,
         {{"wall-4x4.bmp", bitmapOf(4)}},
         {images, single, mark(1)},
         "To note: 1 of 4 levels would be written. The others stay as they are, and are seen at other distances.|Well: out/wall-4x4.bmp has the level's 4 x 4 pixels.|"},
        {"no mark", wall, {}, {images, single, noLevel}, "Cannot be inserted: No mipmap selected.|"},
        {"lost alpha",
         smoke,
         {{"smoke-8x8.tga", tga}},
         {images},
         "To note: The transparency is lost: 32 texels of the largest level that is written become solid. The picture has no alpha channel.|Well: out/smoke-8x8.tga has the level's 8 x 8 pixels.|Well: All 4 levels would be written.|"},
        {"alpha that DXT1 has not",
         wall,
         {{"wall-8x8.dds", ddsOf(8, dxt5Code, smoke.levels[0].data)}},
         {ddsFiles, create},
         "To note: 32 texels become transparent, in a texture that is solid now.|To note: Soft alpha is lost: DXT1 knows clear and solid texels only, and 32 pixels of the picture are in between.|Well: out/wall-8x8.dds has the level's 8 x 8 pixels.|Well: All 4 levels would be written.|"},
        {"another type",
         wall,
         {{"wall-8x8.dds", ddsOf(8, dxt5Code, chainData(smoke), 4)}},
         {embedded},
         "To note: out/wall-8x8.dds is of the type DXT5, the texture DXT1. It is taken as it is, and arrives scrambled. \"Create\" would compress it anew.|Well: out/wall-8x8.dds has the level's 8 x 8 pixels.|Well: All 4 levels would be written.|"},
        {"one that ends in its header",
         wall,
         {{"wall-8x8.dds", ddsOf(8, dxt1Code, "").substr(0, 50)}},
         {},
         "Cannot be inserted: out/wall-8x8.dds is too short, so that nothing is written at all.|"},
        {"missing levels",
         wall,
         {{"wall-8x8.dds", ddsOf(8, dxt1Code, wall.levels[0].data)}},
         {},
         "Cannot be inserted: out/wall-8x8.dds is too short, so that nothing is written at all.|To note: out/wall-8x8.dds has 1 level, the texture 4. Levels are missing.|Well: out/wall-8x8.dds has the level's 8 x 8 pixels.|"},
        {"what the archive has",
         wall,
         {{"wall-8x8.dds", std::string(128, 'x') + chainData(wall)}},
         {},
         "To note: out/wall-8x8.dds is no DDS file. What is in it is taken as it is.|To note: The archive has this very data: nothing would change.|Well: All 4 levels would be written.|"},
        {"one file of four",
         wall,
         {{"wall-2x2.dds", ddsOf(2, dxt1Code, smoke.levels[2].data)}},
         {external},
         "To note: out/wall-8x8.dds is not there: level 0 stays as it is.|To note: out/wall-4x4.dds is not there: level 1 stays as it is.|To note: out/wall-1x1.dds is not there: level 3 stays as it is.|To note: 1 of 4 levels would be written. The others stay as they are, and are seen at other distances.|Well: out/wall-2x2.dds has the level's 2 x 2 pixels.|"},
        {"not into the archive",
         wall,
         {},
         {notIntoArchive},
         "Cannot be inserted: \"Insert Texture in CDDS file\" has no mark.|"},
        {"a type that nobody knows",
         argb,
         {},
         {},
         "Cannot be inserted: Textures of the type \"ARGB\" can be neither extracted nor inserted.|"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        TransferHarness h{{CddsType::TypeCdds, {c.texture}}};
        for (const Files& file : c.files) {
            (void)h.folder.write(std::string{"out/"} + file.name, file.bytes);
        }
        const std::string before = h.archive(), files = h.files(), own = h.files("program");
        InsertionCheck check;
        h.show(DialogMode::Insertion, [&] {
            h.act(c.steps);
            check = checkInsertion(h.session, h.dialog.choice(), nullptr);
            // Nothing is written.
            EXPECT_TRUE(h.archive() == before);
            EXPECT_EQ(row(h.files(), h.files("program"), h.files("copies")), row(files, own, ""));
            withoutSafeCopy(h.dialog);
            run(h.dialog);
        });
        (void)h.boxes.take();
        std::string text = textOf(check.findings);
        for (const auto& [old, by] : {std::pair{h.folder.file(""), ""}, {std::string{"\r\n"}, "|"}}) {
            for (std::size_t at = 0; (at = text.find(old, at)) != std::string::npos;) {
                text.replace(at, old.size(), by);
            }
        }
        EXPECT_EQ(text, c.findings);
        // What was shown is what is inserted then.
        std::string expected = before;
        for (const CheckedLevel& level : check.levels) {
            const auto at = static_cast<std::size_t>(
                h.chosen().mipmaps[static_cast<std::size_t>(level.level)].dataOffset);
            expected.replace(at, level.after.size(), reinterpret_cast<const char*>(level.after.data()),
                             level.after.size());
        }
        EXPECT_TRUE(h.archive() == expected);
    }
}

TEST(Inspection, ShowsWhatIsAndWhatWillBeOfEachLevel) {
    TransferHarness h{{CddsType::TypeCdds, {smoke}}};
    bool stop = false;
    Inspection window{h.session, h.dialog, {h.sign, [&stop] { return stop; }}};
    (void)h.folder.write("out/smoke-8x8.dds",
                         ddsOf(8, dxt5Code, chainData(chainOf("", "DXT5", 8, 8, blue, blue)), 4));
    int opened = 0;
    h.show(DialogMode::Insertion, [&] {
        if (++opened == 1) {
            for (const bool givenUp : {true, false}) { // however short it is
                stop = givenUp;
                h.dialog.cmdCheck.press();
            }
            return;
        }
        window.setRoom(64, 64, 1);
        window.zoomBy(20);
        EXPECT_EQ(row(window.lstLevel.lines().size(), window.sheet().width), "4, 256");
        window.fit();
        window.pointAt({1, 2});
        const std::string now = "now R255 G255 B  0 A 77   then R  0 G  0 B255 A 77   by R255 G255 B255 A  0";
        EXPECT_EQ(window.txtStrip.text(),
                  "1,2         " + now + "\r\nlevel 0     1:1    DXT5  mean error 95.62, largest 255");
        window.stepLevel(1);
        window.stepLevel(9);
        EXPECT_EQ(window.lstLevel.selectedRow(), 1);
        window.movePointed(0, 3);
        EXPECT_EQ(window.txtStrip.text().substr(0, 37), "1,3         now R  0 G  0 B255 A255  ");
        for (const Panel panel : {Before, After, Difference}) {
            EXPECT_EQ((*window.shown())[panel].width, 4);
        }
    });
    EXPECT_EQ(row(opened, h.dialog.optMipmaps[Embedded].selected(), window.shown().has_value()),
              "2, true, false");
}

} // namespace
} // namespace pelrath::inspection
