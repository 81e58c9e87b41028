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
    void expectStored(FolderChoice& dialog, std::string& kept, const char* label, const char* title);
};

void Folders::expectStored(FolderChoice& dialog, std::string& kept, const char* label, const char* title) {
    EXPECT_EQ(row(dialog.window.caption(), dialog.Label1.caption()), "Form1, <selectFolder>");
    const auto type = [&](const std::string& text) { dialog.selectedFolder.setText(text); };
    const auto choose = [&](const char* path) { browse(dialog.cmdGetExtractInsertFolder, path); };
    const auto ok = [&] { dialog.cmdOK.press(); };
    const auto cancel = [&] { dialog.cmdCancel.press(); };
    const auto refused = [&] {
        ok();
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
              row("Folder Selection", label, 5500, 5000));
    EXPECT_EQ(asked(), row(title, "/old", 42, 0x7D));
}

TEST_F(Folders, EachDialogStoresItsOwn) {
    expectStored(main.frmGetBazarTempFolder, session.settings.bazarTempFolder,
                 "Bazar Temp Folder : ", "Select Bazar Temp folder");
    expectStored(main.frmGetCDDSBackupFolder, session.settings.cddsBackupFolder,
                 "CDDS Safe Copy Folder : ", "Select CDDS Safe Copy folder");
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
        EXPECT_EQ(asked(), row("Select Texture Set Root Path", initial, 42, 0x7D));
        EXPECT_EQ(row(session.exportImportFolder, main.Text8.text()), row(after, shown));
    }
}

} // namespace
} // namespace pelrath::test
