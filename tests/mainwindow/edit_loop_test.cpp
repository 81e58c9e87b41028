#include "mainwindow/main_harness.hpp"
#include "texture_bytes.hpp"

namespace pelrath::test {
namespace {

struct EditLoopTest : testing::Test, MainHarness {
    EditLoopTest() {
        for (const char* name : {"out", "copies"}) {
            folder.makeFolder(name);
        }
        associations.executable = folder.write("editor", "");
        start();
        session.settings.cddsBackupFolder = folder.file("copies");
        open({CddsType::TypeCdds, {chainOf("a.tga", "DXT5", 8, 8), chainOf("b.bmp", "DXT1", 4, 4)}});
        main.Text8.setText(folder.file("out"));
    }
    using Steps = std::function<void(TextureExtractionInsertion&)>;
    void inDialog(CommandButton& command, const Steps& steps) {
        windows.answer = [&] { steps(main.transfer); };
        command.press();
        windows.answer = nullptr;
    }
    void extract(int texture, const Steps& steps) {
        choose(texture);
        inDialog(main.cmdExtract, [&](TextureExtractionInsertion& dialog) {
            steps(dialog);
            dialog.chkLaunchEditor.setChecked(true);
            dialog.cmdExtractInsert.press();
        });
        settle();
    }
    void settle() {
        watch.happened();
        for (int i = 0; i < 10; ++i) {
            if (main.editedFiles.settling.running()) main.editedFiles.settling.tick.emit();
            if (main.editedFiles.results.running()) main.editedFiles.results.tick.emit();
        }
    }
    void save(const std::string& name, const std::string& bytes) {
        (void)folder.write("out/" + name, bytes);
        std::filesystem::last_write_time(folder.file("out/" + name), clock += std::chrono::seconds{1});
        settle();
    }
    /// The same picture in other colours.
    [[nodiscard]] std::string repainted(const std::string& name) const {
        std::string bytes = folder.read("out/" + name);
        for (std::size_t i = name.ends_with("dds") ? 128 : 54; i < bytes.size() && i < 200; ++i) {
            bytes[i] = static_cast<char>(~bytes[i]);
        }
        return bytes;
    }
    /// Which levels of the texture the act changes, by their numbers.
    std::string changedBy(int texture, const std::function<void()>& act) {
        const std::string before = folder.read("a.cdds");
        act();
        const std::string after = folder.read("a.cdds");
        std::string changed;
        int number = 0;
        for (const MipmapRecord& level :
             session.archive.textures[static_cast<std::size_t>(texture)].mipmaps) {
            const auto at = static_cast<std::size_t>(level.dataOffset),
                       size = static_cast<std::size_t>(level.dataSize);
            if (before.compare(at, size, after, at, size) != 0) changed += std::to_string(number);
            ++number;
        }
        return changed;
    }
    std::string said() { return main.saveBar.strip.visible() ? main.saveBar.text.caption() : ""; }

    std::filesystem::file_time_type clock = std::filesystem::file_time_type::clock::now();
};

void asImage(TextureExtractionInsertion& dialog) { dialog.optOutFileType[NativeFileType].select(); }

TEST_F(EditLoopTest, InsertsAsTheTextureWasExtractedOrInsertedLast) {
    const auto smaller = [](TextureExtractionInsertion& dialog) {
        asImage(dialog), dialog.List1.setChecked(1, true);
    };
    const auto chain = [](TextureExtractionInsertion& dialog) { dialog.optMipmaps[Embedded].select(); };
    const auto oneLevel = [](TextureExtractionInsertion& dialog) {
        asImage(dialog);
        dialog.optMipmaps[Single].select();
        dialog.cmdExtractInsert.press();
    };
    // The texture and how it is extracted, whether the dialog then inserts it as one level first, the file,
    // the levels that "Insert" changes, and what is said; safe copies afterwards.
    const std::tuple<int, Steps, bool, const char*, const char*, const char*, const char*> cases[] = {
        {0, smaller, false, "a-4x4.tga", "1", " (1 level, safe copy a-0.cdds)", "a-0.cdds"},
        {0, asImage, false, "a-8x8.tga", "0123", " (4 levels)", "a-0.cdds"},
        {1, chain, false, "b-4x4.dds", "012", " (3 levels)", "a-0.cdds"},
        {0, asImage, true, "a-8x8.tga", "0", " (1 level)", "a-0.cdds a-1.cdds"}};
    for (const auto& [texture, how, first, name, levels, told, copies] : cases) {
        SCOPED_TRACE(name);
        folder.remove("out"), folder.makeFolder("out");
        extract(texture, how);
        EXPECT_EQ(said(), "");
        save(name, repainted(name));
        EXPECT_EQ(said(), std::string{name} + " was saved");
        if (first) {
            inDialog(main.cmdInsert, oneLevel);
            EXPECT_EQ(said(), "");
            save(name, repainted(name));
        }
        choose(1 - texture);
        session.exportImportFolder = "/elsewhere";
        EXPECT_EQ(changedBy(texture, [this] { main.saveBar.insert.press(); }), levels);
        EXPECT_EQ(said(), std::string{name} + " was inserted" + told);
        EXPECT_EQ(row(session.selectedTexture, session.exportImportFolder, folder.list("copies")),
                  row(texture, "/elsewhere", copies));
        main.saveBar.farewell.tick.emit();
        settle();
        EXPECT_EQ(said(), "");
    }
}

TEST_F(EditLoopTest, LooksInTheTexturesDialogWithEverythingChosen) {
    extract(0, asImage);
    save("a-8x8.tga", repainted("a-8x8.tga"));
    choose(1);
    windows.answer = [this] {
        const TextureExtractionInsertion& dialog = main.transfer;
        EXPECT_EQ(row(dialog.window.caption(), dialog.Text1.text(),
                      dialog.optOutFileType[NativeFileType].selected(), dialog.optMipmaps[Create].selected(),
                      dialog.chkSaveCdds.checked(), session.exportImportFolder),
                  "Texture Insertion, a.tga, true, true, true, " + folder.file("out"));
    };
    main.saveBar.look.press();
    EXPECT_EQ(said(), "a-8x8.tga was saved");
}

TEST_F(EditLoopTest, InsertsNothingThatTheUserWouldNotWant) {
    extract(0, asImage);
    const std::string whole = repainted("a-8x8.tga");
    const auto wide = [&] { return std::string{whole}.replace(12, 4, std::string("\4\0\x10\0", 4)); };
    const auto cuts = [&] { (void)folder.write("out/a-8x8.tga", whole.substr(0, 99)); };
    const auto noFolder = [&] { folder.remove("copies"), boxes.answer = BoxAnswer::Cancel; };
    // What was saved; what happens before the press; what is told; what the bar
    // says.
    const std::tuple<std::string, std::function<void()>, const char*, const char*> cases[] = {
        {wide(), [] {}, "has 4 x 16 pixels, and the texture 8 x 8", "a-8x8.tga was saved"},
        {whole + "x", cuts, "cannot be loaded at the moment", ""},
        {whole, noFolder, "Select Cancel to insert nothing", "a-8x8.tga was saved"}};
    for (const auto& [bytes, before, told, bar] : cases) {
        save("a-8x8.tga", bytes);
        EXPECT_EQ(said(), "a-8x8.tga was saved");
        before();
        EXPECT_EQ(changedBy(0, [this] { main.saveBar.insert.press(); }), "");
        boxes.expect(told);
        EXPECT_EQ(said(), bar);
    }
    boxes.answer = BoxAnswer::Ok;
    EXPECT_EQ(changedBy(0, [this] { main.saveBar.insert.press(); }), "0123");
    boxes.expect("Select Ok to insert a-8x8.tga without a safe copy");
}

} // namespace
} // namespace pelrath::test
