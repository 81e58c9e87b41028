#include "main_harness.hpp"

namespace pelrath::test {
namespace {

struct Layout : testing::Test, MainHarness {
    Layout() {
        start();
        main.window.setSize(20000, 12000);
    }
};

// Left, top, width and height.
std::string placeOf(const Control& control) {
    const Box& box = control.box();
    return row(box.left, box.top, box.width, box.height);
}

// Viewport 514 pixels with its border, 7710 twips; panes from 7910 on; pane height
// (H - (2595 + 690 + 250)) / 2 - 100.
TEST_F(Layout, EverythingFollowsTheWindow) {
    const std::pair<const Control&, const char*> places[] = {
        {main.dynImage, "105, 1515, 7710, 7710"},
        {main.frameViewportSize, "105, 9225, 7710, 510"},
        {main.Picture1[0], "7910, 2595, 11890, 4132.5"},
        {main.Picture1[1], "7910, 7417.5, 11890, 4132.5"},
        {main.Text2[0], "-30, -30, 11890, 300"},
        {main.Output[0], "-30, 290, 11900, 3832.5"}, // no title, no scroll bar
        {main.Text9, "7910, 1515, 11890, 285"},
        {main.Output[2], "7910, 1785, 11890, 240"},
        {main.Label5, "7910, 7072.5, 4180, 345"},
        {main.SplashFrame, "105, 1515, 7680, 7710"},
        {main.SplashText[1], "3840, 0, 3840, 1290"},
        {main.SplashPicture, "0, 1290, 7680, 6420"},
    };
    for (const auto& [control, place] : places) {
        EXPECT_EQ(placeOf(control), place);
    }
    EXPECT_EQ(row(main.Label7.box().top, main.Text5.box().top, main.Label6.box().top, main.Text7.box().top),
              "7072.5, 7082.5, 2250, 2260");
    EXPECT_EQ(row(main.Label4.box().left, main.Label8.box().left), "7910, 7910");
    EXPECT_EQ(row(main.HScroll[0].visible(), main.HScroll[0].tabStop()), "false, false");
}

TEST_F(Layout, DisplayAndViewportSizeMoveThePanes) {
    const auto seen = [this] {
        return row(main.dynImage.visible(), main.frameViewportSize.visible(), main.SplashFrame.visible());
    };
    main.chkGraphicDisplay.setChecked(false);
    EXPECT_EQ(row(main.Picture1[0].box().left, main.Picture1[1].box().width, main.dynImage.box().width),
              "100, 19700, 0");
    EXPECT_EQ(seen(), "false, false, false");
    main.chkGraphicDisplay.setChecked(true);
    EXPECT_EQ(main.Picture1[0].box().left, 7910);
    EXPECT_EQ(seen(), "true, true, false");
    main.viewPortSize[0].select();
    EXPECT_EQ(placeOf(main.dynImage), "105, 1515, 3870, 3870");
    EXPECT_EQ(main.Picture1[1].box().left, 4070);
}

TEST_F(Layout, TheWindowHasASmallestSize) {
    int passes = 0;
    const Connection counter = main.window.resize.connect([&] { ++passes; });
    const auto size = [this] { return row(main.window.box().width, main.window.box().height); };
    main.window.setSize(1000, 1000);
    EXPECT_EQ(size(), "14825, 10085"); // 7710 + 510 + 1515 + 350
    EXPECT_EQ(passes, 3);              // the user's, and a nested one for each side
    main.viewPortSize[0].select();
    EXPECT_FALSE(main.SplashFrame.visible()); // it would not fit
    main.window.setSize(20000, 1000);
    EXPECT_EQ(size(), "20000, 6245"); // 3870 + 510 + 1515 + 350
    main.window.setMinimized(true);
    main.window.setSize(100, 100);
    EXPECT_EQ(size(), "100, 100");
}

TEST_F(Layout, AWideTitleScrolls) {
    open(archiveOf({"a.bmp"}));
    ScrollBar& bar = main.HScroll[0];
    const auto pane = [&] {
        return row(main.Output[0].box().left, main.Output[0].box().width, main.Text2[0].box().left,
                   main.Text2[0].box().width);
    };
    EXPECT_TRUE(bar.visible());
    EXPECT_EQ(placeOf(bar), "0, 3832.5, 11590, 250"); // 300 + 3582.5 - 50
    EXPECT_EQ(row(bar.maximum(), bar.smallChange(), bar.largeChange()),
              "1889, 50, 100"); // (254 * 120 - 11590) / 10
    EXPECT_EQ(main.Output[0].box().height, 3582.5);
    bar.setValue(100);
    EXPECT_EQ(pane(), "-1030, 12890, -1030, 12890");
    bar.setValue(bar.maximum());
    main.window.setSize(22000, 12000); // the bar's range shrinks
    EXPECT_EQ(row(bar.maximum(), bar.value()), "1689, 1689");
    EXPECT_EQ(row(main.Output[0].box().left, main.Text2[0].box().left), "-16920, -16920"); // -10 * 1689 - 30
    bar.setValue(0);
    EXPECT_EQ(main.Output[0].box().left, -30);
    EXPECT_EQ(row(main.HScroll[1].visible(), main.HScroll[1].box().height),
              "false, 0"); // a shorter title, a lower bar
}

} // namespace
} // namespace pelrath::test
