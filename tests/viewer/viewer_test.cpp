#include "mainwindow/viewer/texture_viewer.hpp"

#include "mainwindow/viewer/dds_probe.hpp"
#include "support/fake_device.hpp"
#include "support/recording_boxes.hpp"
#include "support/temporary_folder.hpp"

namespace pelrath::test {
namespace {

TEST(Probe, ReadsTheHeadAndTellsWhatIsNotOne) {
    const TemporaryFolder folder;
    std::string whole = ddsFile("DXT5", 256, 128, "");
    whole[24] = 7;
    whole[28] = 9;
    // Name, content, what is read, and the complaint behind the path.
    const std::tuple<const char*, std::string, ImageInfo, std::string> cases[] = {
        {"magic only", "DDS ", {}, ""},
        {"lower case", "dds and more", {}, " is not in DDS format."},
        {"short", "DD", {}, " is not in DDS format."},
        {"missing", "", {}, " not found."},
        {".", "", {}, " not found."},
        {"whole", whole, {256, 128, 7, 9}, ""},
    };
    for (const auto& [name, content, info, complaint] : cases) {
        RecordingBoxes boxes;
        const std::string path = content.empty() ? folder.file(name) : folder.write(name, content);
        ImageInfo read{1, 2, 3, 4};
        EXPECT_EQ(getImageInfo(path, read, boxes), complaint.empty()) << name;
        EXPECT_EQ(read, info) << name;
        if (!complaint.empty())
            boxes.expect({"Image File " + path + complaint, "getImageInfo", BoxIcon::Critical});
    }
}

struct ViewerTest : testing::Test {
    ViewerTest() {
        state.referenceWidth = state.referenceHeight = 512;
        state.clearColor = 0xFF102030;
        Label11.setVisible(false);
        for (std::size_t i = 0; i < cmdShow.size(); ++i) {
            clicks.push_back(
                cmdShow[i].click.connect([this, i] { state.displayMode = static_cast<DisplayMode>(i); }));
        }
    }
    std::string stage(const char* fourCC, std::uint32_t width, std::uint32_t height,
                      std::size_t dataSize) const {
        return folder.write("tmp.dds", ddsFile(fourCC, width, height, std::string(dataSize, '\0')));
    }
    [[nodiscard]] std::string modes() const {
        return row(cmdShow.selectedIndex(), cmdShow[1].enabled(), cmdShow[2].enabled());
    }

    TemporaryFolder folder;
    ViewerState state;
    FakeSurface surface;
    ScriptedPump pump;
    RecordingBoxes boxes;
    Label Label11;
    OptionGroup<3> cmdShow;
    Connections clicks;
    TextureViewer viewer{{state, surface, pump, boxes, Label11, cmdShow}};
};

TEST_F(ViewerTest, TheFormatDecidesWhichModesThereAre) {
    viewer.createDirect3D();
    EXPECT_EQ(surface.size, (std::pair{512, 512}));
    cmdShow[1].select();
    viewer.showTexture(stage("DXT5", 8, 8, 64));
    EXPECT_EQ(modes(), "1, true, true");
    viewer.showTexture(stage("DXT1", 8, 8, 32));
    EXPECT_EQ(state.displayMode, DisplayMode::Texture);
    EXPECT_EQ(modes(), "0, false, false");
    viewer.showTexture(stage("DXT5", 8, 8, 64));
    EXPECT_EQ(modes(), "0, true, true");
    EXPECT_FALSE(Label11.visible());
}

TEST_F(ViewerTest, FilesThatCannotBeShownSayWhy) {
    viewer.createDirect3D();
    viewer.showTexture(stage("DXT1", 0, 8, 32));
    EXPECT_EQ(row(Label11.caption(), Label11.visible()), "Invalid DXT Format, true");
    viewer.showTexture(folder.file("none"));
    boxes.expect(" not found.");
    const std::string tail = "\r\nIt does not work. \r\nDLL error:";
    const std::pair<int, const char*> failures[] = {
        {-2005530516, "Error: -2005530516 . The method call is invalid."},
        {-2005532292, "Error: -2005532292 . Direct3D does not have enough display memory."},
        {-2005530518, "Error: -2005530518 . The queried technique is not supported by this device."},
        {-2005529767, "Error: -2005529767 . The data is invalid."},
        {57, ""}};
    for (const auto& [number, text] : failures) {
        surface.record.nextLoadFails = number;
        viewer.showTexture(stage("DXT1", 8, 8, 32));
        EXPECT_EQ(row(Label11.caption(), Label11.visible()), "File not found !, true");
        const ShownBox box = boxes.take().at(0);
        EXPECT_EQ(box, (ShownBox{box.text, "loadTextureFile Error", BoxIcon::Critical}));
        EXPECT_TRUE(number == 57 ? box.text.empty() : box.text.starts_with(text + tail)) << box.text;
    }
    const std::tuple<const char*, std::uint32_t, std::size_t, const char*> files[] = {
        {"DXT1", 8, 31, "-2005529767 . The data is invalid.\r\nIt holds too little data for 8 x 8 pixels"},
        {"DXT3", 8, 64, "no others can be shown. This is it. \r\nDLL error:"},
        {"DXT1", 0xFFFFFFFC, 32, "-2005529767 . The data is invalid.\r\nA texture cannot have -4 x 8 pixels"},
        {"DXT1", 20000, 64, "-2005530518 . The queried technique"}};
    for (const auto& [fourCC, width, size, reason] : files) {
        viewer.showTexture(stage(fourCC, width, 8, size), "This is it.");
        boxes.expect(reason);
    }
    EXPECT_TRUE(surface.record.loaded.empty());
}

TEST_F(ViewerTest, DrawsOnlyWhatIsNew) {
    state.Running = true; // as the loop sets it
    const auto mode = [this](DisplayMode m) { return [this, m] { state.displayMode = m; }; };
    pump.steps = {[this] { viewer.showTexture(stage("DXT5", 8, 8, 64)); },
                  [] {}, // an event that changes nothing
                  mode(DisplayMode::Mask),
                  mode(DisplayMode::AlphaChannel),
                  [this] { state.clearColor = 0xFFFFFFFF; },
                  [this] { surface.record.ready = false, state.clearColor = 0xFF000000; },
                  [this] { surface.record.ready = true; },
                  [this] { surface.record.scale = 1.5; },                  // on another screen
                  [this] { viewer.showTexture(stage("DXT5", 8, 8, 64)); }, // the same sides, another texture
                  [this] { viewer.stopRendering(); }};
    viewer.startRendering();
    const auto& frames = surface.record.frames;
    ASSERT_EQ(frames.size(), 8U);
    EXPECT_EQ(row(frames[0].texture, frames[1].quad[3].x), "0, 8");
    EXPECT_EQ(row(frames[5].scale, frames[6].scale), "1, 1.5");
    EXPECT_NE(frames[7].texture, frames[6].texture);
    const Blend opaque = frames[0].blend;
    const std::pair<std::uint32_t, Blend> expected[] = {{0xFF102030, opaque},
                                                        {0xFF102030, Blend::None},
                                                        {0xFF102030, Blend::Mask},
                                                        {0xFF102030, Blend::InverseBoth},
                                                        {0xFFFFFFFF, Blend::InverseBoth},
                                                        {0xFF000000, Blend::InverseBoth}};
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_EQ((std::pair{frames[i].clearColor, frames[i].blend}), expected[std::min<std::size_t>(i, 5)])
            << i;
    }
    EXPECT_FALSE(state.Running);
}

TEST_F(ViewerTest, AFailedFrameEndsTheLoopAndLeavesItsFlag) {
    const auto expectFailure = [this](const std::string& text) {
        viewer.startRendering();
        const ShownBox last = boxes.take().back();
        EXPECT_EQ(row(last.title, last.text, state.Running),
                  row("Render Error", "Error:" + text + " \r\nDLL error: 0", true));
    };
    surface.record.creationFails = true;
    expectFailure(" 91 . Unknown error.\r\nThere is no rendering device. no graphics All but the picture "
                  "works without one.");
    viewer.createDirect3D();
    boxes.expect({"An error occurred while creating Direct3D.", "ERROR!"});
    surface.record.creationFails = false; // it is tried again
    surface.record.nextFrameFails = -2005530516;
    expectFailure(" -2005530516 . The method call is invalid.\r\nIt does not work.");
    surface.record.nextFrameFails = -2005530520;
    expectFailure(" -2005530520 . Unknown error.\r\nIt does not work.");
    EXPECT_TRUE(state.d3dCreated);
}

TEST_F(ViewerTest, StoppingAndStartingInsideTheLoopGoesOnInIt) {
    int depth = 0;
    pump.steps = {[&] {
                      viewer.stopRendering();
                      ++depth, viewer.startRendering(), --depth; // returns at once: the loop below it goes on
                      state.clearColor = 1;
                  },
                  [&] {
                      EXPECT_EQ(depth, 0);
                      viewer.stopRendering();
                  }};
    viewer.startRendering();
    EXPECT_EQ(surface.record.frames.size(), 2U);
}

} // namespace
} // namespace pelrath::test
