#include "main_harness.hpp"

namespace pelrath::test {
namespace {

struct Folders : testing::Test, MainHarness {
    Folders() {
        start();
        main.window.setHandle(42);
        main.transfer.window.setBox({1000, 2000, 9000, 6000});
    }
    void browse(CommandButton& button, const std::string& chosen) {
        folderPicker.user = [chosen] { return FolderPicker::Choice{"name", chosen}; };
        button.press();
    }
    // What the picker was last asked for.
    [[nodiscard]] std::string asked() const {
        return row(folderPicker.asked.title, folderPicker.asked.initialFolder, folderPicker.asked.owner,
                   folderPicker.asked.flags);
    }
};

TEST_F(Folders, EachDialogStoresItsOwn) {
    FolderChoice& dialog = main.frmGetBazarTempFolder;
    std::string& kept = session.settings.bazarTempFolder;
    EXPECT_EQ(row(dialog.window.caption(), dialog.Label1.caption()), "Form1, <selectFolder>");
    const auto type = [&](const std::string& text) { dialog.selectedFolder.setText(text); };
    const auto choose = [&](const char* path) { browse(dialog.cmdGetExtractInsertFolder, path); };
    const auto ok = [&] { dialog.cmdOK.press(); };
    const auto cancel = [&] { dialog.cmdCancel.press(); };
    Log log;
    log.watch(dialog.selectedFolder.focusRequested, "to be typed anew");
    const auto refused = [&] {
        ok();
        EXPECT_EQ(log.take(), "to be typed anew");
        boxes.expect({"Invalid Folder. Please select another folder.", "Undefined folder"});
    };
    // The user's doing, the folder stored, what the box shows, whether that closed the dialog.
    const std::tuple<std::function<void()>, const char*, const char*, bool> cases[] = {
        {[&] { ok(); }, "/old", "/old", true},
        {[&] { type("no such/folder "), ok(); }, "no such/folder ", "no such/folder ", true},
        {[&] { type("/typed"), cancel(); }, "/old", "/typed", true},
        {[&] { type(""), cancel(); }, "/old", "", true},
        {[&] { type(""), refused(); }, "", "", false},
        {[&] { choose("/new"), cancel(); }, "/new", "/new", true},
        {[&] { choose("/new"); }, "/new", "/new", false},
        {[&] { choose("/new"), type("/typed"), ok(); }, "/typed", "/typed", true},
        {[&] { choose("/new"), choose(""); }, "/new", "/new", false},
        {[&] { type("/typed"), choose(""); }, "/old", "/typed", false},
    };
    for (const auto& [user, stored, shown, closes] : cases) {
        kept = "/old";
        bool closed = false;
        windows.answer = [&, user = user] {
            EXPECT_EQ(dialog.selectedFolder.text(), "/old");
            user();
            closed = dialog.window.isUnloaded();
        };
        dialog.show();
        EXPECT_EQ(row(kept, dialog.selectedFolder.text(), closed), row(stored, shown, closes));
    }
    const Box& box = dialog.window.box();
    EXPECT_EQ(row(dialog.window.caption(), dialog.Label1.caption(), box.left + box.width / 2,
                  box.top + box.height / 2),
              "Folder Selection, Bazar Temp Folder : , 5500, 5000");
    EXPECT_EQ(asked(), "Select Bazar Temp folder, /old, 42, 125");
    windows.answer = [&] {
        main.frmGetCDDSBackupFolder.show(); // open already
        browse(main.frmGetCDDSBackupFolder.cmdGetExtractInsertFolder, "/safe");
    };
    main.frmGetCDDSBackupFolder.show();
    EXPECT_EQ(row(asked(), session.settings.cddsBackupFolder, main.frmGetCDDSBackupFolder.Label1.caption()),
              "Select CDDS Safe Copy folder, , 42, 125, /safe, CDDS Safe Copy Folder : ");
}

TEST_F(Folders, BrowsingSetsTheOneOfExportsAndImports) {
    main.Text8.setText("/typed meanwhile");
    const std::string tooLong = "/" + std::string(260, 'x');
    // The folder in use, the one that the picker begins with, its answer, the folder then, what the box
    // shows.
    const std::array<std::string, 5> cases[] = {{"/kept", "/kept", "", "/kept", "/typed meanwhile"},
                                                {"/kept", "/kept", "/new", "/new", "/new"},
                                                {tooLong, "", "", tooLong, "/new"}}; // not in the tree
    for (const auto& [before, initial, chosen, after, shown] : cases) {
        session.exportImportFolder = before;
        browse(main.cmdGetExtractInsertFolder, chosen);
        EXPECT_EQ(asked(), row("Select Texture Set Root Path", initial, 42, 125));
        EXPECT_EQ(row(session.exportImportFolder, main.Text8.text()), row(after, shown));
    }
}

TEST_F(Folders, AreCheckedBeforeTheDialogOfATextureOpens) {
    (void)folder.write("file", "");
    folder.makeFolder("out");
    const std::string wanted = folder.file("out");
    std::string caption;
    windows.answer = [&] { caption = main.transfer.window.caption(); };
    // What opens, and the folder in use then.
    const auto pressed = [&](const std::string& path, CommandButton& button) {
        main.Text8.setText(path);
        caption.clear();
        button.press();
        return row(caption, session.exportImportFolder);
    };
    session.exportImportFolder = "/before";
    EXPECT_EQ(pressed("", main.cmdExtract), ", /before");
    boxes.expect(
        {"Texture Path not selected. Please select a valid folder", "Pelrath - Folder not selected"});
    for (const char* name : {"gone", "file"}) {
        EXPECT_EQ(pressed(folder.file(name), main.cmdInsert), ", /before");
        boxes.expect({"Texture Path not found. Please select a valid folder", "Pelrath - Folder not found"});
    }
    EXPECT_EQ(session.mode, DialogMode::Insertion); // set before what was missed
    const ShownBox noTexture{"No Texture File Name selected. Please select one and try again.",
                             "Pelrath - Texture not selected"};
    EXPECT_EQ(pressed(wanted, main.cmdExtract), ", " + wanted);
    boxes.expect(noTexture);
    open(archiveOf({"wall.bmp", ".bmp"}));
    EXPECT_EQ(pressed(wanted, main.cmdInsert), "Texture Insertion, " + wanted);
    EXPECT_EQ(main.transfer.Text1.text(), "wall.bmp");
    const std::string before = std::filesystem::current_path();
    for (const auto& [typed, meant] :
         {std::pair{"./out/../out", wanted}, {"~", std::string{std::getenv("HOME")}}}) {
        std::filesystem::current_path(folder.path());
        EXPECT_EQ(pressed(typed, main.cmdExtract) + main.Text8.text(),
                  "Texture Extraction, " + meant + meant);
    }
    std::filesystem::current_path(before);
    choose(1);
    EXPECT_EQ(pressed(wanted, main.cmdInsert), ", " + wanted);
    boxes.expect("The texture \".bmp\" has no name in front of its extension");
    main.Output[TexturePane].setSelected(1, false);
    EXPECT_EQ(pressed(wanted, main.cmdExtract), ", " + wanted);
    boxes.expect(noTexture);
}

} // namespace
} // namespace pelrath::test
