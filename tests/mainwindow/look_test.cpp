#include "main_harness.hpp"

namespace pelrath::test {
namespace {

using enum LookCommand;

std::string texelBlocks(int blocks, std::uint16_t color) { // of one colour, DXT1
    std::string data;
    for (int i = 0; i < blocks; ++i) {
        data += little(color, 2) + little(0, 6);
    }
    return data;
}

struct CloserLook : testing::Test, MainHarness {
    CloserLook() {
        start();
        const std::string soft = little(0x40FF, 2) + little(0, 6); // alpha 255
        open({CddsType::TypeCdds,
              {{"skin.bmp",
                "DXT1",
                {{1024, 1024, texelBlocks(65536, 0xF800)},
                 {512, 512, ""},
                 {256, 256, texelBlocks(4096, 0x07E0)}}},
               {"a/b.tga", "DXT5", {{4, 4, soft + texelBlocks(1, 0x001F)}}}}});
    }
    // Runs the loop once and says what is drawn: the levels, and whether as given.
    std::string drawn() {
        pump.steps = {[] {}, [this] { main.chkGraphicDisplay.setChecked(false); }};
        main.Timer1.tick.emit();
        main.chkGraphicDisplay.setChecked(true);
        const FramePicture& frame = surface.record.frames.back();
        std::string text = frame.sheets.empty() ? "as given" : "";
        for (const Sheet& sheet : frame.sheets) {
            text += row(sheet.image.level, static_cast<int>(sheet.image.version), sheet.width) + "; ";
        }
        return text;
    }
    [[nodiscard]] std::string strip() const { return main.texelStrip.text(); }
    TextureLook& look = main.look();
};

TEST_F(CloserLook, AtLevelsAndScalesIsForOneTextureAndBeginsAsGiven) {
    EXPECT_EQ(strip(), "\r\nlevel 0  1:2    DXT1 nearest");
    look.pointAt({3, 0});
    EXPECT_EQ(strip(), "7,1         R255 G  0 B  0 A255 #FF0000FF\r\nlevel 0  1:2    DXT1 nearest");
    look.perform(SmallerLevel);
    EXPECT_EQ(drawn(), "2, 0, 256; ");
    EXPECT_EQ(strip(), "3,0         R  0 G255 B  0 A255 #00FF00FF\r\nlevel 2  1:1    DXT1 ");
    look.perform(ActualSize);
    look.perform(LargerLevel);
    EXPECT_EQ(strip().substr(strip().find('\n') + 1), "level 0  1:4    DXT1 nearest"); // the same part of it
    look.perform(AllLevels);
    look.perform(Averaged);
    EXPECT_EQ(row(look.isChecked(AllLevels).value(), look.isChecked(Nearest).value(), look.isEnabled(Before),
                  look.isEnabled(ClearTexels)),
              "true, false, false, true");
    main.viewPortSize[0].select(); // shows the texture once more
    EXPECT_EQ(drawn(), "0, 0, 256; 2, 0, 64; ");
    choose(1);
    EXPECT_EQ(drawn(), "as given");
    EXPECT_EQ(row(look.isChecked(Averaged).value(), look.isEnabled(ClearTexels)), "false, false");
    main.cmdReadCDDS.press();
    look.pointAt({0, 0});
    look.perform(ZoomIn);
    main.cmdReadCDDS.press(); // the same texture, of an archive that was read anew
    EXPECT_EQ(drawn(), "as given");
}

TEST_F(CloserLook, ThatCannotBeReadSaysWhyAndChangesNothing) {
    (void)folder.write("a.cdds", "another file");
    look.perform(SmallerLevel);
    EXPECT_NE(boxes.take().back().text.find("\"skin.bmp\" cannot be shown otherwise: "), std::string::npos);
    EXPECT_EQ(strip(), "\r\nlevel 0  1:2    DXT1 nearest");
    EXPECT_FALSE(look.picture());
    EXPECT_EQ(boxes.take().size(), 1U);
    look.pointAt({0, 0}); // no message for each move of the mouse
    EXPECT_EQ(strip(), "1,1         \r\nlevel 0  1:2    DXT1 nearest");
}

TEST_F(CloserLook, ComparesWithTheTextureBeforeAnInsertion) {
    main.Text8.setText(folder.path());
    main.cmdInsert.press(); // nothing is inserted
    main.activate();
    EXPECT_FALSE(look.isEnabled(Before));
    look.perform(ZoomIn);
    const std::string old = texelBlocks(1, 0x07E0);
    std::string bytes = folder.read("a.cdds");
    bytes.replace(bytes.find(old), 8, texelBlocks(1, 0x07C0)); // a little less green in one block of level 2
    const auto insert = [&] {                                  // as if the program had written it
        main.cmdInsert.press();
        (void)folder.write("a.cdds", bytes);
        session.archiveFile = ArchiveFile{InputFile{folder.file("a.cdds")}};
        main.activate();
    };
    insert();
    look.perform(SmallerLevel);
    look.perform(Fit);
    look.pointAt({3, 0});
    for (const auto& [command, expected] :
         {std::pair{Before, "R  0 G255 B  0 A255 #00FF00FF\r\nlevel 2  1:1    DXT1 before"},
          {Before, "R  0 G251 B  0 A255 #00FB00FF\r\nlevel 2  1:1    DXT1 "},
          {Difference, "R  0 G  4 B  0 A  0 #00040000\r\nlevel 2  1:1    DXT1 mean 0.00 largest 4"}}) {
        look.perform(command);
        EXPECT_EQ(strip(), "3,0         " + std::string{expected});
    }
    EXPECT_EQ(drawn(), "2, 2, 256; ");
    const auto picture = look.picture();
    EXPECT_EQ(row(picture->name, picture->picture.width, std::to_integer<int>(picture->picture.texels[1]),
                  std::to_integer<int>(picture->picture.texels[16 + 1]),
                  std::to_integer<int>(picture->picture.texels[16 + 3])),
              "skin, 256, 32, 0, 255"); // eight times as strong, and to be seen where it is pasted
    const std::string rest = texelBlocks(4095, 0x07E0);
    bytes.replace(bytes.find(rest), rest.size(), texelBlocks(4095, 0xF81F));
    insert();
    EXPECT_EQ(strip(),
              "3,0         R  0 G  0 B  0 A  0 #00000000\r\nlevel 2  1:1    DXT1 mean 191.2 largest 255");
    choose(1);
    EXPECT_FALSE(look.isEnabled(Difference));
    EXPECT_EQ(look.picture()->name, "texture"); // its own cannot be a file's
    choose(0);
    EXPECT_TRUE(look.isEnabled(Difference));
    bytes.replace(bytes.find("skin.bmp"), 4, "wing");
    (void)folder.write("a.cdds", bytes);
    main.cmdReadCDDS.press(); // another texture in its place
    EXPECT_FALSE(look.isEnabled(Difference));
}

TEST_F(CloserLook, OutlivesItsTexture) {
    choose(1);
    session.archive.textures.resize(1); // of a smaller archive in its place
    look.pointAt({0, 0});
    EXPECT_EQ(strip(), "0,0         \r\nlevel 0  1:1    DXT5 ");
    EXPECT_FALSE(look.picture());
    boxes.expect("\"a/b.tga\" cannot be shown otherwise: texture 2 is not among those read from ");
}

} // namespace
} // namespace pelrath::test
