#include "main_harness.hpp"

#include <sys/stat.h>

namespace pelrath::test {
namespace {

struct LifeCycleTest : testing::Test, MainHarness {
    [[nodiscard]] std::string stored(const std::string& key) const {
        const std::string ini = folder.read("Pelrath.ini");
        const std::size_t at = ini.find("\n" + key + "=");
        return at == std::string::npos
                   ? "missing"
                   : ini.substr(at + key.size() + 2, ini.find('\n', at + 1) - at - key.size() - 2);
    }
    void openThree() {
        start();
        open(archiveOf({"a", "b", "c"}));
    }
};

TEST_F(LifeCycleTest, AnAcceptedFirstRunStoresThatAtOnce) {
    std::filesystem::remove(folder.file("Pelrath.ini"));
    windows.answer = [this] {
        Disclaimer& dialog = main.disclaimer;
        const auto buttons = [&] { return row(dialog.Command1[0].caption(), dialog.Command1[1].caption()); };
        EXPECT_EQ(dialog.window.caption(), "Pelrath V1.0-1 - Disclaimer");
        EXPECT_EQ(dialog.window.box().left, (19200 - dialog.window.box().width) / 2);
        EXPECT_FALSE(has("Pelrath.ini"));
        const std::string english = dialog.Text2.text() + dialog.Text1.text();
        EXPECT_EQ(buttons() + ": " + english.substr(0, 7), "I accept, I refuse: Hi,\r\n\r\n");
        dialog.Option1[0].select();
        EXPECT_EQ(buttons() + ": " + dialog.Text2.text().substr(0, 12),
                  "J'accepte, Je refuse: Bonjour,\r\n\r\n");
        dialog.Option1[1].select();
        EXPECT_EQ(buttons() + dialog.Text2.text() + dialog.Text1.text(), "I accept, I refuse" + english);
        dialog.Command1[0].press();
    };
    start();
    EXPECT_EQ(row(stored("firsttimedone"), main.window.caption()), "True, Pelrath V1.0-1");
    EXPECT_EQ(row(main.SplashFrame.visible(), main.chkGraphicDisplay.checked(), main.dynImage.visible()),
              "true, true, false");
    EXPECT_TRUE(main.Timer1.running());
    windows.answer = nullptr;
    main.disclaimer.Option1[0].select();
    main.disclaimer.show(); // opens in English whatever was chosen last
    EXPECT_EQ(main.disclaimer.Option1.selectedIndex(), 1);
}

TEST_F(LifeCycleTest, ARefusalEndsTheProgramAndStoresTheDefaults) {
    for (const bool byButton : {true, false}) {
        MainHarness fresh;
        std::filesystem::remove(fresh.folder.file("Pelrath.ini"));
        fresh.windows.answer = [&] {
            if (byButton) fresh.main.disclaimer.Command1[1].press();
        };
        fresh.main.load();
        EXPECT_TRUE(fresh.main.window.isUnloaded());
        fresh.main.activate(); // too late for anything
        EXPECT_EQ(fresh.surface.record.created, 0);
        const std::string ini = fresh.folder.read("Pelrath.ini");
        EXPECT_TRUE(ini.find("ViewPortWidth=512\n") != std::string::npos &&
                    ini.ends_with("firsttimedone=False\n"))
            << ini;
    }
}

TEST_F(LifeCycleTest, OnlyTrueIsTrue) {
    for (const char* value : {"true", "TRUE", "1", "", "True "}) {
        MainHarness fresh;
        (void)fresh.folder.write("Pelrath.ini", std::string{"[Setup]\nfirsttimedone="} + value + "\n");
        fresh.main.load();
        EXPECT_EQ(fresh.windows.shown, std::string_view{value} == "True " ? 0 : 1) << value;
    }
}

TEST_F(LifeCycleTest, StartTakesOverWhatIsStored) {
    (void)folder.write(
        "Pelrath.ini",
        "[Settings]\nMainTop=20\nMainLeft=-30000\nViewPortWidth=256\nViewPortHeight=256\nViewPortColor=2\n"
        "[Setup]\nextractionfolder=some/folder\nfirsttimedone=True\n");
    start();
    EXPECT_EQ(row(main.window.box().top, main.window.box().left, main.Text8.text()),
              "300, -450000, " + std::filesystem::current_path().string() + "/some/folder");
    EXPECT_EQ(
        row(session.viewer.viewPortWidth, main.viewPortSize.selectedIndex(), main.viewPortSize[0].enabled()),
        "512, 1, true");
    EXPECT_EQ(row(main.backViewportColor.selectedIndex(), session.viewer.clearColor),
              "2, 4294901760"); // 0xFFFF0000
    EXPECT_EQ(main.backViewportColor[1].backColor(), 0x7F7F7FU);
    main.viewPortSize[0].select();
    session.exportImportFolder.clear(); // nothing in use: the stored one is kept
    main.queryUnload();
    EXPECT_EQ(row(stored("MainTop"), stored("MainLeft"), stored("ViewPortWidth"), stored("extractionfolder")),
              "20, -30000, 256, some/folder");
}

TEST_F(LifeCycleTest, AWornFileNeverKeepsItFromStartingNorIsItLost) {
    const std::string done = "[Setup]\nfirsttimedone=True\n", longest(std::size_t{1} << 20, ';');
    struct Case {
        std::string ini;
        const char* complaint; // null: none
        const char* folder;    // where a folder stands instead of a file
        bool saved;            // by the close
    } const cases[] = {
        {"[Settings]\nMainTop=abc\n" + done, nullptr, "none", true},
        {done + "extractionfolder=/no/such/folder\n", nullptr, "none", true},
        {done + "[Settings]\nViewPortColor=70000\n", "\"ViewPortColor\"", "none", true},
        {done + "[Settings]\nViewPortColor=9\nbazartempfolder=/b\n", "9 is none of", "none", true},
        {done + "[Settings]\nViewPortColor=-1\n", "stays as it is", "Pelrath.ini.bak", false},
        {done + "[Settings]\nMainTop=99999\n", "\"MainTop\"", "none", true},
        {"\x01\xFF\xFE[[[]]=\n===\n[Setup]\nfirsttimedone=True", nullptr, "none", true},
        {done + longest, "Pelrath.ini is longer than", "none", false},
        {"", "cannot be read: Path/File access error (", "Pelrath.ini", false},
    };
    for (const auto& [ini, complaint, inTheWay, saved] : cases) {
        MainHarness fresh;
        (void)fresh.folder.write("Pelrath.ini", ini);
        std::filesystem::remove(fresh.folder.file(inTheWay));
        std::filesystem::create_directory(fresh.folder.file(inTheWay));
        fresh.windows.answer = [&] { fresh.main.disclaimer.Command1[0].press(); };
        fresh.start();
        fresh.boxes.expect(complaint);
        EXPECT_TRUE(!fresh.main.window.isUnloaded() && fresh.main.SplashFrame.visible());
        const bool folderBehind = ini.find("=/b\n") != std::string::npos;
        EXPECT_EQ(row(fresh.session.settings.viewPortColor, fresh.session.settings.bazarTempFolder),
                  folderBehind ? "0, /b" : "0, ");
        fresh.session.exportImportFolder = "/out";
        fresh.main.queryUnload();
        const std::string after = fresh.folder.read("Pelrath.ini");
        EXPECT_EQ(after.find("extractionfolder=/out") != std::string::npos, saved) << complaint;
        EXPECT_TRUE(saved || after == ini) << complaint;
        EXPECT_EQ(fresh.folder.read("Pelrath.ini.bak"), saved && complaint != nullptr ? ini : "");
    }
}

TEST_F(LifeCycleTest, AReturnFromADialogShowsTheTextureAnew) {
    openThree();
    choose(2);
    main.viewPortSize[0].select();
    std::filesystem::remove(folder.file("tmp.dds"));
    Log log;
    log.watch(main.Output[TexturePane].click, "chosen");
    main.activate();
    EXPECT_EQ(log.take(), "chosen chosen"); // none, and again
    EXPECT_EQ(row(session.selectedTexture, has("tmp.dds"), main.viewPortSize.selectedIndex()), "2, true, 1");
    // For the size that is now shown; the splash does not return.
    EXPECT_EQ(row(main.dynImage.box().width, main.dynImage.visible(), main.SplashFrame.visible(),
                  surface.record.created),
              "7710, true, false, 1");
}

TEST_F(LifeCycleTest, ADeviceThatFailedIsTriedAgain) {
    surface.record.creationFails = true;
    start();
    main.activate();
    EXPECT_EQ(boxes.take().size(), 2U);
    surface.record.creationFails = false;
    main.activate();
    EXPECT_TRUE(session.viewer.d3dCreated);
}

TEST_F(LifeCycleTest, DisplayAndSizesFollowTheirControls) {
    openThree();
    const std::size_t loads = surface.record.loaded.size();
    main.viewPortSize[0].select(); // the first row is chosen: its quad stays
    EXPECT_EQ(surface.record.loaded.size(), loads);
    choose(1);
    main.viewPortSize[1].select();
    EXPECT_EQ(surface.record.loaded.size(), loads + 2);
    main.cmdShow[1].select();
    EXPECT_EQ(session.viewer.displayMode, DisplayMode::Mask);
    main.cmdShowAlphaChannel.press();
    EXPECT_EQ(session.viewer.displayMode, DisplayMode::AlphaChannel);

    session.viewer.Running = true;
    main.chkGraphicDisplay.setChecked(false);
    EXPECT_TRUE(!session.viewer.Running && main.Label10.textColor() == TextColor::Greyed);
    for (const OptionButton& swatch : main.backViewportColor) {
        EXPECT_FALSE(swatch.enabled());
    }
    EXPECT_FALSE(main.cmdShow[0].enabled() || main.cmdShow[1].enabled() || main.cmdShow[2].enabled());
    main.Timer1.setEnabled(false);
    main.chkGraphicDisplay.setChecked(true);
    EXPECT_TRUE(session.viewer.displayMode == DisplayMode::Texture &&
                main.Label10.textColor() == TextColor::Normal);
    EXPECT_EQ(row(main.Timer1.running(), main.Timer1.interval(), session.selectedTexture), "true, 1, 1");
    EXPECT_FALSE(main.cmdShow[1].enabled()); // a texture without soft alpha
    main.chkGraphicDisplay.setValue(CheckValue::Grey);
    EXPECT_EQ(session.viewer.graphicDisplayOff, 0);
}

TEST_F(LifeCycleTest, TheTimerStartsOneLoop) {
    start();
    pump.steps = {[this] { main.Timer1.tick.emit(); }, // runs already
                  [this] { main.queryUnload(); }};
    main.Timer1.tick.emit();
    EXPECT_EQ(
        row(main.Timer1.running(), surface.record.alive, session.viewer.d3dCreated, main.window.isUnloaded()),
        "false, 0, false, true");
}

TEST_F(LifeCycleTest, TheCloseCleansUp) {
    start();
    session.exportImportFolder = "/in/use";
    main.backViewportColor[4].select();
    for (const char* name : {"tmp.dds", "tmp1.dds"}) {
        ASSERT_EQ(chmod(folder.write(name, "x").c_str(), 0400), 0);
    }
    std::filesystem::create_directories(
        folder.file("tmp2.dds/full")); // cannot be deleted, which keeps nothing from ending
    std::vector<std::string> atTheEnd;
    const Connection end = main.window.unloaded.connect([&] { atTheEnd = folder.names(); });
    main.queryUnload();
    boxes.expect("tmp2.dds");
    EXPECT_EQ(atTheEnd, (std::vector<std::string>{"Pelrath.ini", "tmp2.dds"}));
    main.queryUnload();
    main.activate();
    EXPECT_EQ(row(stored("extractionfolder"), stored("ViewPortColor"), surface.record.alive,
                  surface.record.created),
              "/in/use, 4, 0, 1");
}

TEST_F(LifeCycleTest, SettingsThatCannotBeSavedAreTold) {
    start();
    std::filesystem::remove(folder.file("Pelrath.ini"));
    std::filesystem::create_directory(folder.file("Pelrath.ini")); // since the load
    main.queryUnload();
    boxes.expect("So they cannot be saved");
}

TEST_F(LifeCycleTest, APlaceBeyondTheNumbersStopsTheSaving) {
    start();
    main.window.moveTo(0, 32768 * 15.0);
    session.exportImportFolder = "/new";
    main.queryUnload();
    boxes.expect("\"MainTop\"");
    EXPECT_EQ(row(stored("extractionfolder"), main.window.isUnloaded()), "missing, true");
}

} // namespace
} // namespace pelrath::test
