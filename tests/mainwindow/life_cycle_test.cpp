#include "main_harness.hpp"

#include <thread>

namespace pelrath::test {
namespace {

struct LifeCycleTest : testing::Test, MainHarness {
    [[nodiscard]] ApplicationSettings stored() const {
        ApplicationSettings settings;
        loadApplicationSettings(folder.file("Pelrath"), settings);
        return settings;
    }
};

TEST_F(LifeCycleTest, AnAcceptedFirstRunStoresThatAtOnce) {
    folder.remove("Pelrath.ini");
    windows.answer = [this] {
        Disclaimer& dialog = main.disclaimer;
        EXPECT_EQ(dialog.window.caption(), "Pelrath V1.0-1 - Disclaimer");
        EXPECT_EQ(dialog.window.box().left, (19200 - dialog.window.box().width) / 2);
        EXPECT_FALSE(has("Pelrath.ini"));
        for (const char* words :
             {"I accept, I refuse, Hi,\r\n\r\n, As a user", "J'accepte, Je refuse, Bonjour, En tant q"}) {
            EXPECT_EQ(row(dialog.Command1[0].caption(), dialog.Command1[1].caption(),
                          dialog.Text2.text().substr(0, 7), dialog.Text1.text().substr(0, 9)),
                      words);
            dialog.Option1[0].select();
        }
        dialog.Command1[0].press();
    };
    start();
    EXPECT_EQ(row(stored().firstTimeDone, main.window.caption()), "True, Pelrath V1.0-1");
    EXPECT_EQ(row(main.SplashFrame.visible(), main.chkGraphicDisplay.checked(), main.dynImage.visible(),
                  main.Timer1.running()),
              "true, true, false, true");
    windows.answer = nullptr;
    main.disclaimer.Option1[0].select();
    main.disclaimer.show(); // opens in English whatever was chosen last
    EXPECT_EQ(main.disclaimer.Option1.selectedIndex(), 1);
}

TEST_F(LifeCycleTest, ARefusalEndsTheProgramAndStoresTheDefaults) {
    // What was stored, and what is afterwards; a refusal by the button, or by the dialog's frame.
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"", "False", true}, {"firsttimedone=true\n", "true", false}, {"firsttimedone=1\n", "1", true}};
    for (const auto& [before, after, byButton] : cases) {
        MainHarness fresh;
        (void)fresh.folder.write("Pelrath.ini", std::string{"[Setup]\n"} + before);
        fresh.windows.answer = [&, byButton = byButton] {
            if (byButton) fresh.main.disclaimer.Command1[1].press();
        };
        fresh.main.load();
        fresh.main.activate(); // too late for anything
        EXPECT_EQ(row(fresh.windows.shown, fresh.main.window.isUnloaded(), fresh.surface.record.created),
                  "1, true, 0");
        const std::string ini = fresh.folder.read("Pelrath.ini");
        EXPECT_NE(ini.find(row("firsttimedone=") + after + "\n"), std::string::npos) << ini;
        EXPECT_NE(ini.find("ViewPortWidth=512\n"), std::string::npos) << ini;
    }
}

TEST_F(LifeCycleTest, StartTakesOverWhatIsStored) {
    (void)folder.write(
        "Pelrath.ini",
        "[Settings]\nMainTop=20\nMainLeft=-30000\nViewPortWidth=256\nViewPortHeight=256\nViewPortColor=2\n"
        "[Setup]\nextractionfolder=some/folder\nfirsttimedone=True \n");
    start();
    EXPECT_EQ(row(main.window.box().top, main.window.box().left, main.Text8.text()),
              "300, -450000, " + std::filesystem::current_path().string() + "/some/folder");
    EXPECT_EQ(
        row(session.viewer.viewPortWidth, main.viewPortSize.selectedIndex(), main.viewPortSize[0].enabled()),
        "512, 1, true");
    EXPECT_EQ(row(main.backViewportColor.selectedIndex(), session.viewer.clearColor),
              "2, 4294901760"); // 0xFFFF0000
    std::string swatches;
    for (const OptionButton& swatch : main.backViewportColor) {
        swatches += (std::ostringstream{} << std::hex << ' ' << swatch.backColor()).str();
    }
    EXPECT_EQ(swatches, " 0 7f7f7f ff ffff ff00 ffff00 ff0000 ff00ff ffffff"); // blue, green, red
    main.viewPortSize[0].select();
    session.exportImportFolder.clear(); // nothing in use: the stored one is kept
    main.queryUnload();
    const ApplicationSettings after = stored();
    EXPECT_EQ(row(after.mainTop, after.mainLeft, after.viewPortWidth, after.extractionFolder),
              "20, -30000, 256, some/folder");
}

TEST_F(LifeCycleTest, AWornFileNeverKeepsItFromStartingNorIsItLost) {
    const std::string done = "[Setup]\nfirsttimedone=True\n", longest(std::size_t{1} << 20, ';');
    // The file, the complaint (null: none), where a folder stands instead of a file, saved by the close.
    const std::tuple<std::string, const char*, const char*, bool> cases[] = {
        {done + "extractionfolder=/no/such/folder\n[Settings]\nMainTop=abc\n", nullptr, "none", true},
        {done + "[Settings]\nViewPortColor=70000\n", "\"ViewPortColor\"", "none", true},
        {done + "[Settings]\nViewPortColor=9\nbazartempfolder=/b\n", "9 is none of", "none", true},
        {done + "[Settings]\nViewPortColor=-1\n", "stays as it is", "Pelrath.ini.bak", false},
        {done + "[Settings]\nViewPortWidth=99999\nViewPortColor=3\n", "\"ViewPortWidth\"", "none", true},
        {"\x01\xFF\xFE[[[]]=\n===\n[Setup]\nfirsttimedone=True", nullptr, "none", true},
        {done + longest, "Pelrath.ini is longer than", "none", false},
        {"", "cannot be read: Path/File access error (", "Pelrath.ini", false},
    };
    for (const auto& [ini, complaint, inTheWay, saved] : cases) {
        MainHarness fresh;
        (void)fresh.folder.write("Pelrath.ini", ini);
        fresh.folder.remove(inTheWay), fresh.folder.makeFolder(inTheWay);
        fresh.windows.answer = [&] { fresh.main.disclaimer.Command1[0].press(); };
        fresh.start();
        fresh.boxes.expect(complaint);
        EXPECT_TRUE(!fresh.main.window.isUnloaded() && fresh.main.SplashFrame.visible());
        EXPECT_EQ(row(fresh.session.settings.viewPortColor, fresh.session.settings.bazarTempFolder),
                  ini.ends_with("=/b\n") ? "0, /b" : "0, ");
        fresh.session.exportImportFolder = "/out";
        fresh.main.queryUnload();
        const std::string after = fresh.folder.read("Pelrath.ini");
        EXPECT_EQ(after.find("extractionfolder=/out") != std::string::npos, saved) << complaint;
        EXPECT_TRUE(saved || after == ini) << complaint;
        EXPECT_EQ(fresh.folder.read("Pelrath.ini.bak"), saved && complaint != nullptr ? ini : "");
    }
}

TEST_F(LifeCycleTest, AReturnFromADialogShowsTheTextureAnew) {
    surface.record.creationFails = true;
    start();
    boxes.expect("An error occurred while creating Direct3D.");
    surface.record.creationFails = false; // it is tried again
    main.activate();
    open(archiveOf({"a", "b", "c"}));
    choose(2);
    main.viewPortSize[0].select();
    folder.remove("tmp.dds");
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

TEST_F(LifeCycleTest, DisplayAndSizesFollowTheirControls) {
    start();
    open(archiveOf({"a", "b", "c"}));
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
    folder.remove("tmp.dds");
    choose(2);
    EXPECT_FALSE(has("tmp.dds")) << "nothing is staged that is not shown";
    choose(1);
    EXPECT_TRUE(!session.viewer.Running && main.Label10.textColor() == TextColor::Greyed);
    for (const OptionButton& swatch : main.backViewportColor) {
        EXPECT_FALSE(swatch.enabled());
    }
    EXPECT_FALSE(main.cmdShow[0].enabled());
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
    bool inside = false;
    pump.steps = {[this] { main.Timer1.tick.emit(); }, // runs already
                  [&] {
                      main.chkGraphicDisplay.setChecked(false);
                      main.chkGraphicDisplay.setChecked(true);
                      inside = true, main.Timer1.tick.emit(), inside = false; // the loop below goes on
                      main.backViewportColor[1].select();
                  },
                  [&] {
                      EXPECT_FALSE(inside);
                      main.queryUnload();
                  }};
    main.Timer1.tick.emit();
    EXPECT_EQ(surface.record.frames.size(), 2U);
    EXPECT_EQ(
        row(main.Timer1.running(), surface.record.alive, session.viewer.d3dCreated, main.window.isUnloaded()),
        "false, 0, false, true");
}

TEST_F(LifeCycleTest, TheStartClearsUpBehindAProgramThatDied) {
    for (const std::string name : {"out/", "copies/", "bazar/", ""}) {
        folder.makeFolder(name);
        for (const char* left : {".pelrath-abcdef", "wall-4x4_tmppelrath.dds", "tmp2.dds"}) {
            if (name.empty() || std::string_view{left} != "tmp2.dds") (void)folder.write(name + left, "x");
        }
    }
    (void)temporary.write("~pelrath-abcdef.bmp", "");
    (void)folder.write("Pelrath.ini",
                       "[Settings]\nbazartempfolder=" + folder.file("bazar") +
                           "\ncddsbackupfolder=" + folder.file("copies") +
                           "\n[Setup]\nfirsttimedone=True\nextractionfolder=" + folder.file("out") + "\n");
    start();
    EXPECT_EQ(folder.list() + temporary.list(), "Pelrath.ini bazar copies out");
    const auto left = [this] { return folder.list("out") + folder.list("copies") + folder.list("bazar"); };
    for (int i = 0; i < 1000 && !left().empty(); ++i) { // done behind the start
        std::this_thread::sleep_for(std::chrono::milliseconds{10});
    }
    EXPECT_EQ(left(), "");
}

TEST_F(LifeCycleTest, TheCloseCleansUp) {
    start();
    session.exportImportFolder = "/in/use";
    main.backViewportColor[4].select();
    for (const char* name : {"tmp.dds", "tmp1.dds"}) {
        (void)folder.write(name, "x");
        folder.permit(name, 0400);
    }
    folder.makeFolder("tmp2.dds/full"); // cannot be deleted, which keeps nothing from ending
    std::string atTheEnd;
    const Connection end = main.window.unloaded.connect([&] { atTheEnd = folder.list(); });
    main.queryUnload();
    boxes.expect("tmp2.dds");
    EXPECT_EQ(atTheEnd, "Pelrath.ini tmp2.dds");
    main.queryUnload();
    main.activate();
    EXPECT_EQ(row(stored().extractionFolder, stored().viewPortColor, surface.record.alive,
                  surface.record.created, main.Timer1.running()),
              "/in/use, 4, 0, 1, false");
}

TEST_F(LifeCycleTest, SettingsThatCannotBeSavedAreTold) {
    start();
    main.window.moveTo(32768 * 15.0, 75); // beyond the numbers that the file takes
    session.exportImportFolder = "/new";
    main.queryUnload();
    boxes.expect("\"MainLeft\"");
    EXPECT_EQ(row(stored().mainTop, stored().extractionFolder, main.window.isUnloaded()), "5, , true");
    MainHarness other;
    other.start();
    other.folder.remove("Pelrath.ini"), other.folder.makeFolder("Pelrath.ini"); // since the load
    other.main.queryUnload();
    other.boxes.expect("So they cannot be saved");
}

} // namespace
} // namespace pelrath::test
