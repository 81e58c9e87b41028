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

} // namespace
} // namespace pelrath::test
