#include "main_harness.hpp"

namespace pelrath::test {
namespace {

struct Picture : testing::Test, MainHarness {
    // Opens an archive of one texture, which has one level of 8 rows.
    void show(const char* type, int width, std::size_t dataSize) {
        open({CddsType::TypeCdds, {{"t", type, {{width, 8, std::string(dataSize, '\0')}}}}});
    }
    [[nodiscard]] std::string modes() const {
        return row(main.cmdShow.selectedIndex(), main.cmdShow[1].enabled(), main.cmdShow[2].enabled());
    }
    void display(bool on) { main.chkGraphicDisplay.setChecked(on); }
};

TEST_F(Picture, ItsFormatDecidesWhichModesThereAre) {
    start();
    EXPECT_EQ(surface.size, (std::pair{512, 512}));
    main.cmdShow[1].select();
    show("DXT5", 8, 64);
    EXPECT_EQ(modes(), "1, true, true");
    show("DXT1", 8, 32);
    EXPECT_EQ(session.viewer.displayMode, DisplayMode::Texture);
    EXPECT_EQ(modes(), "0, false, false");
    show("DXT5", 8, 64);
    EXPECT_EQ(modes(), "0, true, true");
    main.cmdShow[1].select();
    display(false), display(true);
    EXPECT_EQ(modes(), "0, true, true");
    EXPECT_FALSE(main.Label11.visible());
}

TEST_F(Picture, ThatCannotBeShownSaysWhy) {
    start();
    show("DXT1", 0, 32);
    EXPECT_EQ(row(main.Label11.caption(), main.Label11.visible()), "Invalid DXT Format, true");
    const std::string tail = "\r\nIt does not work. This is the texture \"t\" in " + folder.file("a.cdds");
    const std::pair<int, const char*> failures[] = {
        {-2005530516, "Error: -2005530516 . The method call is invalid."},
        {-2005532292, "Error: -2005532292 . Direct3D does not have enough display memory."},
        {-2005530518, "Error: -2005530518 . The queried technique is not supported by this device."},
        {-2005529767, "Error: -2005529767 . The data is invalid."},
        {57, ""}};
    for (const auto& [number, text] : failures) {
        surface.record.nextLoadFails = number;
        show("DXT1", 8, 32);
        EXPECT_EQ(row(main.Label11.caption(), main.Label11.visible()), "File not found !, true");
        const std::string full = text + tail + ". \r\nDLL error: 0";
        boxes.expect({number == 57 ? "" : full, "loadTextureFile Error", BoxIcon::Critical});
    }
    const std::tuple<int, std::size_t, const char*> levels[] = {
        {8, 31, "-2005529767 . The data is invalid.\r\nIt holds too little data for 8 x 8 pixels"},
        {-4, 32, "-2005529767 . The data is invalid.\r\nA texture cannot have -4 x 8 pixels"},
        {20000, 64, "-2005530518 . The queried technique"}};
    for (const auto& [width, size, reason] : levels) {
        show("DXT1", width, size);
        boxes.expect(reason);
    }
    EXPECT_TRUE(surface.record.loaded.empty());
}

TEST_F(Picture, IsDrawnWhenItIsNew) {
    start();
    main.backViewportColor[1].select();
    pump.steps = {[&] { show("DXT5", 8, 64); },
                  [] {}, // an event that changes nothing
                  [&] { main.cmdShow[1].select(); },
                  [&] { main.cmdShow[2].select(); },
                  [&] { main.backViewportColor[8].select(); },
                  [&] { surface.record.ready = false, main.backViewportColor[0].select(); },
                  [&] {
                      EXPECT_EQ(surface.record.frames.size(), 5U) << "nothing before it is ready";
                      surface.record.ready = true;
                  },
                  [&] { surface.record.scale = 1.5; }, // on another screen
                  [&] { show("DXT5", 8, 64); },        // the same sides, another texture
                  [&] { display(false); }};
    main.Timer1.tick.emit();
    const auto& frames = surface.record.frames;
    ASSERT_EQ(frames.size(), 8U);
    EXPECT_EQ(row(frames[0].texture, frames[1].quad[3].x), "0, 8");
    EXPECT_EQ(row(frames[5].scale, frames[6].scale), "1, 1.5");
    EXPECT_NE(frames[7].texture, frames[6].texture);
    const std::pair<std::uint32_t, Blend> expected[] = {
        {0xFF7F7F7F, frames[0].blend},    {0xFF7F7F7F, Blend::None},        {0xFF7F7F7F, Blend::Mask},
        {0xFF7F7F7F, Blend::InverseBoth}, {0xFFFFFFFF, Blend::InverseBoth}, {0xFF000000, Blend::InverseBoth}};
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_EQ((std::pair{frames[i].clearColor, frames[i].blend}), expected[std::min<std::size_t>(i, 5)])
            << i;
    }
    EXPECT_FALSE(session.viewer.Running);
}

TEST_F(Picture, ThatCannotBeDrawnEndsTheLoopAndLeavesItsFlag) {
    const auto expectFailure = [this](const std::string& text) {
        display(false), display(true);
        main.Timer1.tick.emit();
        const ShownBox last = boxes.take().back();
        EXPECT_EQ(row(last.title, last.text, session.viewer.Running),
                  row("Render Error", "Error:" + text + " \r\nDLL error: 0", true));
        main.Timer1.tick.emit(); // which starts no other one
    };
    const ShownBox noDevice{"An error occurred while creating Direct3D.", "ERROR!"};
    surface.record.creationFails = true;
    start();
    boxes.expect(noDevice);
    expectFailure(" 91 . Unknown error.\r\nThere is no rendering device. no graphics All but the picture "
                  "works without one.");
    surface.record.creationFails = false; // it is tried again
    surface.record.nextFrameFails = -2005530516;
    expectFailure(" -2005530516 . The method call is invalid.\r\nIt does not work.");
    surface.record.nextFrameFails = -2005530520;
    expectFailure(" -2005530520 . Unknown error.\r\nIt does not work.");
    EXPECT_TRUE(session.viewer.d3dCreated);
}

} // namespace
} // namespace pelrath::test
