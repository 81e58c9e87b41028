#include "archive_builder.hpp"
#include "platform/event_pump.hpp"
#include "several/edited_files.hpp"
#include "several/several_textures.hpp"
#include "support/answering_desktop.hpp"
#include "support/fake_watch.hpp"
#include "support/recording_boxes.hpp"
#include "support/temporary_folder.hpp"
#include "texture_bytes.hpp"

namespace pelrath::test {
namespace {

using several::SeveralTextures;

struct SmallScreen : Screen {
    [[nodiscard]] double twipsPerPixel() const override { return 15; }
    [[nodiscard]] double width() const override { return 12000; }
    [[nodiscard]] double height() const override { return 9000; }
    [[nodiscard]] double textWidth(std::string_view /*text*/) const override { return 0; }
};

struct CountingPump : EventPump {
    void processPending() override {}
    void waitForEvents() override {}
};

/// The window over the archive a.cdds, and a user in front of it. Files are in "files", safe copies in
/// "copies", the program's own in "program".
struct SeveralHarness {
    SeveralHarness() {
        for (const char* name : {"files", "copies", "program"}) {
            folder.makeFolder(name);
        }
        session.programFolder = folder.file("program");
        session.settings.cddsBackupFolder = folder.file("copies");
        session.archivePath = folder.write("a.cdds", ArchiveBuilder{CddsType::TypeCdds,
                                                                    {chainOf("wall.bmp", "DXT1", 8, 8),
                                                                     chainOf("a b.tga", "DXT5", 4, 4),
                                                                     chainOf("Wall_Top.bmp", "DXT1", 4, 4),
                                                                     {"odd.bmp", "ARGB", {}}}}
                                                         .build());
        const InputFile file{session.archivePath};
        session.archiveFile = ArchiveFile{file};
        session.archive = makeCatalogue(readArchive(file));
        owner.setBox({0, 0, 15000, 12000});
    }

    void show(const std::function<void()>& user) {
        windows.answer = user;
        window.show(owner, folder.file("files"));
    }
    /// Writes a file, and gives how many then count as saved by an editor.
    std::size_t save(const char* name, const std::string& bytes) {
        (void)folder.write(name, bytes);
        // The system's clock may stand still between two writes.
        std::filesystem::last_write_time(folder.file(name), clock += std::chrono::seconds{1});
        watch.happened();
        for (int i = 0; i < 3; ++i) {
            edited.settling.tick.emit(), edited.results.tick.emit();
        }
        return edited.saved().size();
    }
    /// The choices have rested.
    void rest() {
        if (window.rest.running()) window.rest.tick.emit();
    }
    void check(const char* names) {
        window.filter.setText(names);
        window.all.press();
        rest();
    }
    void runPlan() {
        rest();
        window.run.press();
    }
    void insertion() {
        window.direction[several::Insert].select();
        rest();
    }
    /// What is told, its lines between bars, paths from the folder on.
    [[nodiscard]] std::string told() const {
        std::string text = window.summary.caption();
        for (const several::ToldLine& line : *window.told.lines()) {
            text += (line.isProblem ? "|! " : "|") + line.text;
        }
        for (std::size_t at = 0; (at = text.find(folder.file(""), at)) != std::string::npos;) {
            text.erase(at, folder.file("").size());
        }
        return text;
    }

    TemporaryFolder folder;
    RecordingBoxes boxes;
    AnsweringWindows windows;
    bool stopAsked = false;
    SmallScreen screen;
    Session session;
    Window owner;
    CalledWatch watch;
    std::filesystem::file_time_type clock = std::filesystem::file_time_type::clock::now();
    ImmediateWork background;
    editing::WatchList edited{watch, background};
    InsertionRecovery recovery{boxes, session};
    std::string chosenFolder;
    std::optional<std::string> reportFile;
    SeveralTextures window{
        session,
        {boxes, windows, screen, recovery,
         [this](const std::string& /*title*/, const std::string& /*start*/) { return chosenFolder; },
         [](const std::function<void()>& work, const std::function<void()>& done) { work(), done(); },
         [this](const std::string& /*suggestion*/) { return reportFile; },
         [this] { edited.insertionBegins(); }, [this] { return stopAsked; }, "",
         [this](auto& run, auto& report) { tellEditedFiles(edited, session, run, report); }}};
};

TEST(SeveralTexturesWindow, ShowsWhatTheFilterMeansAndMarksThat) {
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"all without a filter", "", "wall.bmp a b.tga Wall_Top.bmp odd.bmp ", "4 of 4 checked"},
        {"a part, capitals or not", " WALL ", "wall.bmp Wall_Top.bmp ", "2 of 4 checked, 2 shown"},
        {"a pattern inside the name", "a*.b", "wall.bmp Wall_Top.bmp ", "2 of 4 checked, 2 shown"},
        {"one character", "a?b", "a b.tga ", "1 of 4 checked, 1 shown"},
        {"a name that there is not", "zz", "", "0 of 4 checked, 0 shown"},
    };
    for (const auto& [what, filter, names, marks] : cases) {
        SeveralHarness h;
        h.session.selectedTexture = 2;
        h.show([&] {
            EXPECT_EQ(row(h.window.textures.currentRow(), h.window.textures.checkedCount()), "2, 0");
            h.window.filter.setText(filter);
            h.window.all.press();
            std::string shown;
            for (int i = 0; i < h.window.textures.count(); ++i) {
                shown += h.window.textures.text(i, several::TextureList::Name) + " ";
            }
            EXPECT_EQ(row(shown, h.window.marks.caption()), row(names, marks)) << what;
        });
    }
}

TEST(SeveralTexturesWindow, PlansWhatIsChosenBeforeItIsDone) {
    using Act = void (*)(SeveralHarness&);
    const std::tuple<const char*, Act, bool, const char*> cases[] = {
        {"nothing is checked", [](auto& h) { h.check("zz"); }, false,
         "Please check the textures that are meant."},
        {"largest levels, one there already and one of no known type",
         [](auto& h) {
             (void)h.folder.write("files/a b-4x4.dds", "old");
             h.check("");
         },
         true,
         "2 file(s) to be written, 2 refused|! a b.tga: files/a b-4x4.dds: it is there already|"
         "! odd.bmp: it has no levels|files/wall-8x8.dds|files/Wall_Top-4x4.dds"},
        {"images, of which no chain can be",
         [](auto& h) {
             h.window.levels[several::LevelChain].select();
             h.window.kind[several::ImageFiles].select();
             h.check("wall.");
         },
         true, "1 file(s) to be written|files/wall-8x8.bmp"},
        {"a folder that is not there",
         [](auto& h) {
             h.chosenFolder = h.folder.file("none");
             h.window.chooseFolder.press();
             h.check("wall");
         },
         false, "There is no folder none."},
        {"an insertion of what the folder has, a stranger and a file of another kind",
         [](auto& h) {
             (void)h.folder.write("files/Wall_Top-2x2.dds", ddsFile("DXT1", 2, 2, plainBlocks(2, 2, blue)));
             (void)h.folder.write("files/no-8x8.dds", "");
             (void)h.folder.write("files/wall-8x8.bmp", "BM");
             h.insertion();
             h.check("wall.");
         },
         true,
         "1 file(s) to be inserted, 2 left out|wall.bmp: the folder has no such file of it|"
         "files/no-8x8.dds: no texture of the archive has a file of this name|"
         "Wall_Top.bmp, level 1: files/Wall_Top-2x2.dds"},
        {"an insertion whose safe copy has no folder",
         [](auto& h) {
             (void)h.folder.write("files/wall-1x1.dds", ddsFile("DXT1", 1, 1, plainBlocks(1, 1, blue)));
             h.insertion();
             h.window.safeCopyFolder.setText("");
             h.rest();
         },
         false,
         "Please choose a folder for the safe copy, or have none made.|wall.bmp, level 3: "
         "files/wall-1x1.dds"},
        {"the extraction again behind an insertion",
         [](auto& h) {
             h.check("wall.");
             h.insertion();
             h.window.direction[several::Extract].select();
             h.rest();
         },
         true, "1 file(s) to be written|files/wall-8x8.dds"},
    };
    for (const auto& [what, act, workable, told] : cases) {
        SeveralHarness h;
        h.show([&] {
            act(h);
            EXPECT_EQ(row(h.told(), h.window.run.enabled()), row(told, workable)) << what;
        });
    }
}

TEST(SeveralTexturesWindow, ExtractsInsertsStopsAndReports) {
    SeveralHarness h;
    const std::string before = h.folder.read("a.cdds");
    h.show([&] {
        h.check("wall");
        h.window.run.press();
        EXPECT_EQ(h.told(), "2 file(s) written|files/wall-8x8.dds|files/Wall_Top-4x4.dds");
        EXPECT_EQ(row(h.window.run.visible(), h.window.folder.enabled()), "false, false");
        h.reportFile = h.folder.file("none/report.txt");
        h.window.saveReport.press();
        h.boxes.expect("The report cannot be saved: ");
        h.reportFile = h.folder.file("report.txt");
        h.window.saveReport.press();
        h.window.backToPlan.press();
        h.rest();
        EXPECT_EQ(row(h.window.run.visible(), h.window.run.enabled()), "true, false"); // they are there
        h.window.overwrite.setChecked(true);
        const Connection stopped = h.window.runBegins.connect([&] { h.stopAsked = true; });
        h.runPlan();
        EXPECT_EQ(h.told(), "stopped: 0 file(s) written, 2 not reached");
        h.stopAsked = false;
    });
    EXPECT_EQ(h.folder.read("report.txt"), "Extraction from " + h.session.archivePath +
                                               "\n2 file(s) written.\n\n" +
                                               h.folder.file("files/wall-8x8.dds") + "\n" +
                                               h.folder.file("files/Wall_Top-4x4.dds") + "\n");
    const char* const top = "files/Wall_Top-4x4.dds";
    const auto painted = [&](std::uint16_t colour) {
        return h.folder.read(top).substr(0, 128) + plainBlocks(4, 4, colour);
    };
    h.edited.add({{h.folder.file(top), ImageFileKind::Dds, 0},
                  h.session.archivePath,
                  2,
                  h.session.archive.textures[2]});
    EXPECT_EQ(h.save(top, painted(0x1234)), 1U);
    h.folder.permit("a.cdds", 0400);
    h.show([&] {
        h.insertion();
        EXPECT_EQ(h.window.marks.caption(), "2 of 4 checked");
        h.window.none.press();
        h.check("top");
        h.boxes.answer = BoxAnswer::Cancel;
        h.window.run.press();
        h.boxes.expect("Read Only");
        EXPECT_TRUE(h.folder.read("a.cdds") == before);
        h.boxes.answer = BoxAnswer::Ok;
        h.window.run.press();
        h.boxes.expect("Read Only");
        EXPECT_EQ(h.told(), "1 file(s) inserted|safe copy: copies/a-0.cdds|"
                            "Wall_Top.bmp, level 0: files/Wall_Top-4x4.dds");
        EXPECT_EQ(h.edited.saved().size(), 0U);
        EXPECT_EQ(h.save(top, painted(0x4321)), 1U);
    });
    h.show([&] {
        h.check("top");
        h.window.overwrite.setChecked(true);
        h.runPlan();
        EXPECT_EQ(row(h.told(), h.edited.saved().size()), "1 file(s) written|files/Wall_Top-4x4.dds, 0");
    });
    EXPECT_TRUE(h.folder.read("copies/a-0.cdds") == before);
    EXPECT_NO_THROW((void)h.session.archiveFile.open(h.session.archivePath, h.session.archive));
    EXPECT_EQ(row(h.folder.permitted("a.cdds"), h.folder.read("a.cdds") == before), "256, false");
    h.folder.remove("a.cdds");
    h.show([] { ADD_FAILURE() << "it opens without its archive"; });
    h.boxes.expect("has been removed or renamed");
}

TEST(SeveralTexturesWindow, RemembersItsChoicesWhereThatIsWanted) {
    SeveralHarness h;
    for (const bool wanted : {true, false}) {
        h.show([&] {
            h.window.remember.setChecked(wanted);
            h.window.kind[several::ImageFiles].select();
            h.window.levels[several::AllLevels].select();
            h.window.scaleFilter.select(7);
            h.window.folder.setText("/b c");
            h.window.overwrite.setChecked(true);
        });
        saveApplicationSettings(h.folder.file("s"), h.session.settings);
        EXPECT_NE(h.folder.read("s.ini").find("[Several]\nRemember=" + std::to_string(wanted) + "\n"),
                  std::string::npos);
        loadApplicationSettings(h.folder.file("s"), h.session.settings);
        h.show([&] {
            const auto& w = h.window;
            EXPECT_EQ(row(w.kind.selectedIndex(), w.levels.selectedIndex(), w.create.checked(),
                          w.scaleFilter.selectedRow(), w.folder.text() == h.folder.file("files"),
                          w.overwrite.checked(), w.remember.checked()),
                      wanted ? "1, 1, true, 7, false, true, true" : "0, 0, false, 2, true, false, false");
        });
    }
    for (const auto& [by, levels, overwrite] : {std::tuple{"1\nLevels=3\nOverwrite=1", 0, true},
                                                std::tuple{"0\nLevels=2\nOverwrite=1", 0, false}}) {
        (void)h.folder.write("s.ini", std::string{"[Several]\nRemember="} + by + "\n");
        loadApplicationSettings(h.folder.file("s"), h.session.settings);
        const SeveralChoices& kept = h.session.settings.several;
        EXPECT_EQ(row(kept.levels, kept.overwrite), row(levels, overwrite)) << by;
    }
}

} // namespace
} // namespace pelrath::test
