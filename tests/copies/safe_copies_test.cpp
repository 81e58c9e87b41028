#include "archive/reader.hpp"
#include "archive_builder.hpp"
#include "copies/safe_copies.hpp"
#include "support/answering_desktop.hpp"
#include "support/recording_boxes.hpp"
#include "support/scripted_picker.hpp"
#include "support/temporary_folder.hpp"

namespace pelrath::copies {
namespace {

using namespace pelrath::test;

/// An archive of three textures, which hold these bytes.
std::string archiveOf(char one, char two, char three, const char* name = "three") {
    return ArchiveBuilder{CddsType::TypeCdds,
                          {{"one", "DXT1", {{4, 4, std::string(8, one)}, {2, 2, std::string(8, 'x')}}},
                           {"two", "DXT1", {{4, 4, std::string(8, two)}}},
                           {name, "DXT5", {{4, 4, std::string(16, three)}}}}}
        .build();
}

/// The window over the archive a.cdds, whose copies are in "copies", and the user in front of it.
struct SafeCopiesHarness {
    SafeCopiesHarness() {
        folder.makeFolder("copies");
        folder.makeFolder("program");
        session.programFolder = folder.file("program");
        session.settings.cddsBackupFolder = folder.file("copies");
        session.archivePath = folder.write("a.cdds", archiveOf('1', '2', '3'));
        const InputFile file{session.archivePath};
        session.archiveFile = ArchiveFile{file};
        session.archive = makeCatalogue(readArchive(file));
        // Others have their names, but for the last: the archive itself by another one.
        for (const char* name : {"b-0.cdds", "a-00.cdds", "a-x.cdds", "a-1-0.cdds", "a.cdds"}) {
            (void)folder.write(std::string{"copies/"} + name, archiveOf('?', '?', '?'));
        }
        std::filesystem::create_hard_link(folder.file("a.cdds"), folder.file("copies/a-9.cdds"));
    }
    void copy(int number, const std::string& bytes) {
        const std::string path = folder.write("copies/a-" + std::to_string(number) + ".cdds", bytes);
        std::filesystem::last_write_time(path, std::filesystem::file_time_type{std::chrono::hours{++copies}});
    }
    void show(const std::function<void()>& user) {
        windows.answer = user;
        window.show(owner);
    }
    [[nodiscard]] std::string listed() const {
        std::string text;
        for (int row = 0; row < window.lstCopies.count(); ++row) {
            const CopyRow& copy = window.lstCopies.row(row);
            text += std::to_string(copy.copy.number) + " " + wordsOf(copy.look) + "|";
        }
        return text;
    }

    TemporaryFolder folder;
    Session session;
    RecordingBoxes boxes;
    AnsweringWindows windows;
    ScriptedPicker picker;
    RecordingSign sign;
    Window owner;
    FolderSelection folders{picker, owner};
    InsertionRecovery recovery{boxes, session};
    int copies = 0, begun = 0, asked = 0, stopAt = 99;
    bool stopInCopy = false;
    bool stopIsAsked() {
        if (folder.read("copies/a-1.cdds").empty()) return stopInCopy && ++asked > 1;
        return ++begun >= stopAt;
    }
    std::function<void(std::function<void()>)> run = [](const auto& work) { work(); };
    SafeCopies window{session,
                      {boxes, windows, folders, recovery, sign,
                       [this](const auto& work) { run([=] { work([](const auto& posted) { posted(); }); }); },
                       [this] { return stopIsAsked(); }, [](auto) { return "then"; },
                       [](auto) { return ""; }}};
};

TEST(SafeCopies, AreListedWithWhatDiffersFromNow) {
    SafeCopiesHarness h;
    h.copy(4, archiveOf('1', '2', '3'));
    h.copy(3, archiveOf('x', '2', 'x'));
    h.copy(0, archiveOf('1', '2', '3', "drei"));
    h.copy(2, "rubbish");
    const std::string known = "2 cannot be compared|0 of another archive|3 2 textures: one, three|4 nothing|";
    h.show([&] { EXPECT_EQ(h.listed(), known); });
    h.show([&] { // what is in the way goes
        h.copy(2, archiveOf('1', '2', '3'));
        h.window.cmdRestore.press();
        EXPECT_EQ(h.listed().substr(0, 10), "2 nothing|");
    });
    EXPECT_EQ(h.boxes.take().size(), 1U);
    h.copy(2, "rubbish");

    // What does not answer is given up, and what it says later is not heard.
    std::vector<std::function<void()>> late;
    h.run = [&](const auto& work) { late.push_back(work); };
    h.show([&] {
        late.front()(); // the folder
        EXPECT_EQ(h.listed(), "2 comparing, 0 %|0 waiting|3 waiting|4 waiting|");
        h.window.lstCopies.choose(2);
        EXPECT_EQ(h.listed(), "2 waiting|0 waiting|3 comparing, 0 %|4 waiting|");
        late.back()();
        EXPECT_EQ(h.listed(), "2 comparing, 0 %|0 waiting|3 2 textures: one, three|4 waiting|");
        EXPECT_TRUE(h.window.cmdStop.enabled());
        const std::string stopped = "2 not compared|0 not compared|3 2 textures: one, three|4 not compared|";
        h.window.cmdStop.press();
        EXPECT_EQ(h.listed(), stopped);
        late.back()();
        EXPECT_EQ(h.listed(), stopped);
    });
    h.run = [](const auto& work) { work(); };
    for (const auto& [folder, caption] :
         {std::pair{"/none", "cannot be read"}, {"", "has been chosen yet"}}) {
        h.session.settings.cddsBackupFolder = folder;
        h.show([&] { EXPECT_NE(h.window.lblCopies.caption().find(caption), std::string::npos) << folder; });
    }
    h.picker.user = [&] { return FolderPicker::Choice{"", h.folder.file("copies")}; };
    h.show([&] {
        h.window.cmdFolder.press();
        EXPECT_EQ(h.listed(), known);
    });
    EXPECT_EQ(h.session.settings.cddsBackupFolder, h.folder.file("copies"));
}

TEST(SafeCopies, LeadBack) {
    const std::string now = archiveOf('1', '2', '3'), then = archiveOf('x', '2', 'x');
    using Act = void (*)(SafeCopiesHarness&);
    const Act nothing = [](SafeCopiesHarness&) {};
    struct {
        const char* what;
        Act before;
        const char* box; ///< null: none
        std::string archive;
        const char* summary;
    } const cases[]{
        {"all that differs", nothing, "Put the whole archive back as it is in @/copies/a-0.cdds, made then?",
         then, "Safe copy done as @/copies/a-1.cdds|2 textures put back from @/copies/a-0.cdds|"},
        {"one without a mark", [](SafeCopiesHarness& h) { h.window.lstTextures.setChecked(0, false); },
         "Put 1 texture back as in", archiveOf('1', '2', 'x'),
         "Safe copy done as @/copies/a-1.cdds|1 texture put back from @/copies/a-0.cdds|"},
        {"no mark at all", [](SafeCopiesHarness& h) { h.window.cmdNone.press(); }, nullptr, now, ""},
        {"the answer is no", [](SafeCopiesHarness& h) { h.boxes.answer = BoxAnswer::Cancel; }, "?", now, ""},
        {"the copy never answers",
         [](SafeCopiesHarness& h) {
             h.run = [](const auto&) {};
             h.stopInCopy = true;
         },
         "?", now, "Not restored: stopped before @/copies/a-0.cdds could be read.|"},
        {"stopped in the copy", [](SafeCopiesHarness& h) { h.stopInCopy = true; }, "?", now,
         "0 textures put back from @/copies/a-0.cdds|Stopped: 2 textures left as they are.|"},
        {"stopped behind the copy", [](SafeCopiesHarness& h) { h.stopAt = 1; }, "?", now,
         "Safe copy done as @/copies/a-1.cdds|0 textures put back from @/copies/a-0.cdds|"
         "Stopped: 2 textures left as they are.|"},
        {"stopped behind the first", [](SafeCopiesHarness& h) { h.stopAt = 2; }, "?",
         archiveOf('x', '2', '3'),
         "Safe copy done as @/copies/a-1.cdds|1 texture put back from @/copies/a-0.cdds|"
         "Stopped: 1 texture left as they are.|"},
        {"a read-only archive", [](SafeCopiesHarness& h) { h.folder.permit("a.cdds", 0444); },
         "It is made writable for this", then,
         "Safe copy done as @/copies/a-1.cdds|2 textures put back from @/copies/a-0.cdds|"},
        {"the copy has become another's",
         [](SafeCopiesHarness& h) { h.copy(0, archiveOf('x', '2', 'x', "drei")); }, "?", now,
         "Not restored: @/copies/a-0.cdds is no copy of @/a.cdds: its tables are others.|"},
        {"the copy has been written anew", [](SafeCopiesHarness& h) { h.copy(0, archiveOf('x', 'y', 'x')); },
         "?", now, "Not restored: @/copies/a-0.cdds has been changed since it was listed.|"},
        {"another's copy is chosen",
         [](SafeCopiesHarness& h) {
             h.copy(5, archiveOf('x', '2', 'x', "drei"));
             h.picker.user = [&h] { return FolderPicker::Choice{"", h.folder.file("copies")}; };
             h.window.cmdFolder.press();
         },
         "Please choose another copy, or open the archive that this one was made of.", now, ""},
        {"no place for the safe copy",
         [](SafeCopiesHarness& h) { h.session.settings.cddsBackupFolder = h.folder.file("none"); }, "?", now,
         "Not restored: nothing was written: Path not found (@/none).|"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        SafeCopiesHarness h;
        const auto shortened = [&](std::string text) {
            for (const auto& [old, by] : {std::pair{h.folder.path(), "@"}, {std::string{"\r\n"}, "|"}}) {
                for (std::size_t at = 0; (at = text.find(old, at)) != std::string::npos;) {
                    text.replace(at, old.size(), by);
                }
            }
            return text;
        };
        h.copy(0, then);
        std::string box;
        h.show([&] {
            c.before(h);
            h.window.cmdRestore.press();
            for (const ShownBox& shown : h.boxes.take()) {
                box += shortened(shown.text);
            }
        });
        EXPECT_TRUE(c.box == nullptr ? box.empty() : box.find(c.box) != std::string::npos) << box;
        EXPECT_EQ(shortened(h.window.txtSummary.text()), c.summary);
        EXPECT_TRUE(h.folder.read("a.cdds") == c.archive);
        const bool copied = std::string{c.summary}.starts_with("Safe copy");
        EXPECT_TRUE(h.folder.read("copies/a-1.cdds") == (copied ? now : ""));
        EXPECT_EQ(h.folder.permitted("a.cdds") & 0222U, c.box != nullptr && *c.box == 'I' ? 0U : 0200U);
        // The session knows the file as it is.
        EXPECT_NO_THROW((void)h.session.archiveFile.open(h.session.archivePath, h.session.archive));
    }
}

} // namespace
} // namespace pelrath::copies
