#include "mainwindow/main_harness.hpp"

namespace pelrath::test {
namespace {

class HandOff : public testing::Test, protected MainHarness {};

TEST_F(HandOff, OpensTheDialogOnceAllIsChosen) {
    start();
    (void)folder.write("file", "");
    std::filesystem::create_directory(folder.file("out"));
    const std::string wanted = folder.file("out");
    std::string caption;
    windows.answer = [&] { caption = main.transfer.window.caption(); };
    const auto pressed = [&](const std::string& path, CommandButton& button) {
        main.Text8.setText(path);
        windows.shown = 0, caption.clear();
        button.press();
        return row(windows.shown, caption, session.exportImportFolder);
    };
    session.exportImportFolder = "/before";
    EXPECT_EQ(pressed("", main.cmdExtract), "0, , /before");
    boxes.expect(
        {"Texture Path not selected. Please select a valid folder", "Pelrath - Folder not selected"});
    for (const char* name : {"gone", "file"}) {
        EXPECT_EQ(pressed(folder.file(name), main.cmdInsert), "0, , /before");
        boxes.expect({"Texture Path not found. Please select a valid folder", "Pelrath - Folder not found"});
    }
    EXPECT_EQ(session.mode, DialogMode::Insertion); // set before what was missed
    const ShownBox noTexture{"No Texture File Name selected. Please select one and try again.",
                             "Pelrath - Texture not selected"};
    EXPECT_EQ(pressed(wanted, main.cmdExtract), "0, , " + wanted);
    boxes.expect(noTexture);
    open(archiveOf({"wall.bmp", "roof.bmp"}));
    EXPECT_EQ(pressed(wanted, main.cmdExtract), "1, Texture Extraction, " + wanted);
    EXPECT_EQ(pressed(wanted, main.cmdInsert), "1, Texture Insertion, " + wanted);
    choose(1);
    const std::string before = std::filesystem::current_path();
    for (const auto& [typed, meant] :
         {std::pair{"out", wanted}, {"./out/../out", wanted}, {"~", std::string{std::getenv("HOME")}}}) {
        std::filesystem::current_path(folder.path());
        EXPECT_EQ(pressed(typed, main.cmdExtract) + main.Text8.text(),
                  "1, Texture Extraction, " + meant + meant);
    }
    std::filesystem::current_path(before);
    EXPECT_EQ(main.transfer.Text1.text(), "roof.bmp");
    main.Output[TexturePane].setSelected(1, false);
    EXPECT_EQ(pressed(wanted, main.cmdExtract), "0, , " + wanted);
    boxes.expect(noTexture);
    open(archiveOf({".bmp"}));
    EXPECT_EQ(pressed(wanted, main.cmdInsert), "0, , " + wanted);
    boxes.expect("The texture \".bmp\" has no name in front of its extension");
}

TEST_F(HandOff, BrowsingSetsTheFolder) {
    start();
    session.exportImportFolder = "/kept";
    main.Text8.setText("/typed meanwhile");
    const std::string tooLong = "/" + std::string(260, 'x');
    // What the picker answers, the folder in use, and what the box shows.
    const std::array<std::string, 3> cases[] = {
        {"", "/kept", "/typed meanwhile"}, {"/new", "/new", "/new"}, {"", tooLong, "/new"}};
    for (const auto& [chosen, inUse, shown] : cases) {
        if (inUse == tooLong) session.exportImportFolder = tooLong; // and so not in the tree
        const std::string before = inUse == tooLong ? "" : session.exportImportFolder;
        folderPicker.user = [chosen = chosen] { return FolderPicker::Choice{"name", chosen}; };
        main.cmdGetExtractInsertFolder.press();
        EXPECT_EQ(row(folderPicker.asked.title, folderPicker.asked.initialFolder),
                  "Select Texture Set Root Path, " + before);
        EXPECT_EQ(row(session.exportImportFolder, main.Text8.text()), row(inUse, shown));
    }
}

} // namespace
} // namespace pelrath::test
