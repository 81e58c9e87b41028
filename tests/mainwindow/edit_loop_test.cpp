#include "mainwindow/main_harness.hpp"
#include "texture_bytes.hpp"

namespace pelrath::test {
namespace {

/// Textures a, b and c of an open archive. Nothing ticks by itself.
struct EditLoopTest : testing::Test, MainHarness {
    using Step = std::function<void(TextureExtractionInsertion&)>;

    EditLoopTest() {
        folder.makeFolder("out"), folder.makeFolder("copies");
        associations.executable = folder.write("editor", "");
        start();
        session.settings.cddsBackupFolder = folder.file("copies");
        open({CddsType::TypeCdds,
              {chainOf("a.tga", "DXT5", 8, 8), chainOf("b.bmp", "DXT1", 4, 4),
               chainOf("c.tga", "DXT5", 4, 4)}});
        main.Text8.setText(folder.file("out"));
    }
    void inDialog(CommandButton& command, const Step& step) {
        windows.answer = [&] { step(main.transfer), main.transfer.cmdExtractInsert.press(); };
        command.press();
        windows.answer = nullptr;
        settle();
    }
    void extract(int texture, const Step& step) {
        choose(texture);
        inDialog(main.cmdExtract, [&](TextureExtractionInsertion& dialog) {
            dialog.chkLaunchEditor.setChecked(true);
            dialog.chkOverwriteExistingFiles.setChecked(true);
            step(dialog);
        });
    }
    void tick() {
        for (Timer* timer : {&main.editedFiles.settling, &main.editedFiles.results}) {
            if (timer->running()) timer->tick.emit();
        }
    }
    // The time that a file needs, and far more: nothing may go on for ever.
    void settle() {
        watch.happened();
        for (int i = 0; i < 10; ++i) {
            tick();
        }
        EXPECT_FALSE(main.editedFiles.settling.running() || main.editedFiles.results.running());
    }
    // The system's clock may stand still between two writes.
    void write(const std::string& name, const std::string& bytes) {
        (void)folder.write("out/" + name, bytes);
        std::filesystem::last_write_time(folder.file("out/" + name), clock += std::chrono::seconds{1});
    }
    /// The same picture in other colours, each time.
    [[nodiscard]] std::string repainted(const std::string& name) const {
        std::string bytes = folder.read("out/" + name);
        for (std::size_t i = name.ends_with("dds") ? 128 : 54; i < bytes.size() && i < 200; ++i) {
            bytes[i] = static_cast<char>(bytes[i] + 70);
        }
        return bytes;
    }
    void save(const std::string& name) { write(name, repainted(name)), settle(); }
    /// Which levels of the texture "Insert" changes, by their numbers.
    std::string changedByInsert(std::size_t texture) {
        const std::string before = folder.read("a.cdds");
        main.saveBar.insert.press();
        const std::string after = folder.read("a.cdds");
        std::string changed;
        for (int number = 0; const MipmapRecord& level : session.archive.textures[texture].mipmaps) {
            const auto at = static_cast<std::size_t>(level.dataOffset);
            const auto size = static_cast<std::size_t>(level.dataSize);
            if (before.compare(at, size, after, at, size) != 0) changed += std::to_string(number);
            ++number;
        }
        return changed;
    }
    std::string said() { return main.saveBar.strip.visible() ? main.saveBar.text.caption() : ""; }

    std::filesystem::file_time_type clock = std::filesystem::file_time_type::clock::now();
};

void asImage(TextureExtractionInsertion& dialog) { dialog.optOutFileType[NativeFileType].select(); }

TEST_F(EditLoopTest, TellsWhatWasSavedOnceItIsWhole) {
    extract(2, asImage);
    const std::string name = "c-4x4.tga", told = name + " was saved", given = folder.read("out/" + name),
                      whole = repainted(name), half = whole.substr(0, 40);
    const auto writes = [&](const std::string& bytes) { return [&, bytes] { write(name, bytes); }; };
    const auto replaces = [&] {
        write("other", whole), std::filesystem::rename(folder.file("out/other"), folder.file("out/" + name));
    };
    const auto removes = [&] { folder.remove("out/" + name); };
    const auto ignores = [&] { main.saveBar.ignore.press(); };
    const auto inTheMiddle = [&] {
        write(name, half), watch.happened(), tick(), tick(), write(name, whole), tick();
    };
    const auto extracts = [&] { // for no editor
        extract(2, [](auto& dialog) { asImage(dialog), dialog.chkLaunchEditor.setChecked(false); });
    };
    const auto insertsTooEarly = [&] { // for what is saved meanwhile
        const Connection saves = main.transfer.ExtractSummary.change.connect([&] { write(name, whole); });
        inDialog(main.cmdInsert, asImage);
    };
    // What is done, one thing after another with time between them; what is said at the end.
    const std::tuple<const char*, std::vector<std::function<void()>>, std::string> cases[] = {
        {"nothing", {}, ""},
        {"saved", {writes(whole)}, told},
        {"saved twice", {writes(whole), [&] { save(name); }}, told},
        {"another file takes its place", {replaces}, told},
        {"half a file", {writes(half)}, ""},
        {"half a file, then the whole", {writes(half), writes(whole)}, told},
        {"still being written while it is looked at", {inTheMiddle}, told},
        {"a whole file, then half of one", {writes(whole), writes(half)}, ""},
        {"the same bytes", {writes(given)}, ""},
        {"taken back", {writes(whole), writes(given)}, ""},
        {"removed", {writes(whole), removes}, ""},
        {"removed and made again", {removes, writes(whole)}, told},
        {"saved while it is inserted", {insertsTooEarly}, told},
        {"extracted over what was saved", {writes(whole), extracts}, ""},
        {"extracted over what was ignored", {writes(whole), ignores, extracts}, ""},
        {"ignored and saved as it was", {writes(whole), ignores, writes(whole)}, ""},
        {"ignored and saved anew", {writes(whole), ignores, [&] { save(name); }}, told}};
    for (const auto& [what, acts, expected] : cases) {
        extracts();
        for (const auto& act : acts) {
            act(), settle();
        }
        EXPECT_EQ(said(), expected) << what;
    }
}

TEST_F(EditLoopTest, StepsThroughSeveralFilesAndKeepsToTheOneThatIsShown) {
    const char *const a = "a-8x8.tga", *const b = "b-4x4.bmp", *const c = "c-4x4.tga";
    editing::SaveBar& bar = main.saveBar;
    for (const int texture : {0, 1, 2}) {
        extract(texture, asImage);
    }
    // What is done, and what is said then.
    const std::tuple<std::function<void()>, const char*> steps[] = {
        {[&] { write(b, repainted(b)), watch.happened(), tick(); }, ""}, // it may go on changing
        {[&] { settle(); }, "b-4x4.bmp was saved"},
        {[&] { save(a), save(c); }, "b-4x4.bmp was saved (and 2 more)"},
        {[&] { bar.next.press(); }, "a-8x8.tga was saved (and 2 more)"},
        {[&] { save(b); }, "a-8x8.tga was saved (and 2 more)"},
        {[&] { session.archivePath += "x", bar.refresh(); }, ""},
        {[&] { save(c); }, ""},
        {[&] { session.archivePath.pop_back(), bar.refresh(); }, "b-4x4.bmp was saved (and 2 more)"},
        {[&] { session.archive.textures[1].name = "d", bar.refresh(); }, "a-8x8.tga was saved (and 1 more)"},
        {[&] { bar.previous.press(); }, "c-4x4.tga was saved (and 1 more)"},
        {[&] { bar.tell("Something."), bar.next.press(), bar.ignore.press(); }, "Something."},
        {[&] { bar.farewell.tick.emit(); }, "c-4x4.tga was saved (and 1 more)"},
        {[&] { bar.ignore.press(), bar.ignore.press(); }, ""}};
    for (std::size_t i = 0; i < std::size(steps); ++i) {
        std::get<0>(steps[i])();
        EXPECT_EQ(said(), std::get<1>(steps[i])) << "step " << i;
    }
}

TEST_F(EditLoopTest, InsertsAsTheTextureWasExtractedOrInsertedLast) {
    const auto smaller = [](auto& dialog) { asImage(dialog), dialog.List1.setChecked(1, true); };
    const auto chain = [](auto& dialog) { dialog.optMipmaps[Embedded].select(); };
    const auto oneLevel = [](auto& dialog) { asImage(dialog), dialog.optMipmaps[Single].select(); };
    // The texture and how it is extracted, whether the dialog then inserts it as one level first, the file,
    // the levels that "Insert" changes, and what is said; safe copies afterwards.
    const std::tuple<int, Step, bool, const char*, const char*, const char*, const char*> cases[] = {
        {0, smaller, false, "a-4x4.tga", "1", " (1 level, safe copy a-0.cdds)", "a-0.cdds"},
        {0, asImage, false, "a-8x8.tga", "0123", " (4 levels)", "a-0.cdds"},
        {1, chain, false, "b-4x4.dds", "012", " (3 levels)", "a-0.cdds"},
        {0, asImage, true, "a-8x8.tga", "0", " (1 level)", "a-0.cdds a-1.cdds"}};
    for (const auto& [texture, how, first, name, levels, told, copies] : cases) {
        extract(texture, how);
        save(name);
        extract(texture, [&how = how](auto& dialog) { // to be looked at in the editor once more
            how(dialog), dialog.chkOverwriteExistingFiles.setChecked(false);
        });
        EXPECT_EQ(said(), std::string{name} + " was saved");
        if (first) {
            inDialog(main.cmdInsert, oneLevel);
            EXPECT_EQ(said(), "");
            save(name);
        }
        choose(2);
        windows.answer = [&, &texture = texture] { // Look, which changes nothing
            EXPECT_EQ(row(main.transfer.Text1.text(), main.transfer.cmdExtractInsert.caption(),
                          main.transfer.optOutFileType[NativeFileType].selected(),
                          session.exportImportFolder),
                      row(session.archive.textures[static_cast<std::size_t>(texture)].name, "Insert",
                          texture == 0, folder.file("out")));
        };
        main.saveBar.look.press();
        choose(2);
        session.exportImportFolder = "/elsewhere";
        EXPECT_EQ(changedByInsert(static_cast<std::size_t>(texture)), levels) << name;
        EXPECT_EQ(said(), std::string{name} + " was inserted" + told);
        EXPECT_EQ(row(session.selectedTexture, session.exportImportFolder, folder.list("copies")),
                  row(texture, "/elsewhere", copies));
        main.saveBar.farewell.tick.emit();
        settle();
        EXPECT_EQ(said(), "");
    }
}

TEST_F(EditLoopTest, InsertsNothingThatTheUserWouldNotWant) {
    extract(0, asImage);
    const std::string name = "a-8x8.tga", whole = repainted(name);
    const std::string wide = std::string{whole}.replace(12, 4, std::string("\4\0\x10\0", 4));
    const auto cuts = [&] { (void)folder.write("out/" + name, whole.substr(0, 99)); };
    const auto noFolder = [&] { folder.remove("copies"), boxes.answer = BoxAnswer::Cancel; };
    // What was saved; what happens before the press; what is told; whether the bar still says so.
    const std::tuple<std::string, std::function<void()>, const char*, bool> cases[] = {
        {wide, [] {}, "has 4 x 16 pixels, and the texture 8 x 8", true},
        {whole + "x", cuts, "cannot be loaded at the moment", false},
        {whole, noFolder, "Select Cancel to insert nothing", true}};
    for (const auto& [bytes, before, told, stays] : cases) {
        write(name, bytes), settle();
        before();
        EXPECT_EQ(changedByInsert(0), "");
        boxes.expect(told);
        EXPECT_EQ(said(), stays ? name + " was saved" : "");
    }
    boxes.answer = BoxAnswer::Ok;
    EXPECT_EQ(changedByInsert(0), "0123");
    boxes.expect("Select Ok to insert a-8x8.tga without a safe copy");
}

} // namespace
} // namespace pelrath::test
