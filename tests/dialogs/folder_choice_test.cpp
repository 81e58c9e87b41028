#include "dialogs/folder_choice.hpp"

#include "support/answering_desktop.hpp"
#include "support/recording_boxes.hpp"
#include "support/scripted_picker.hpp"

namespace pelrath::test {
namespace {

struct FolderChoiceTest : testing::Test {
    FolderChoiceTest() {
        over.setBox({1000, 2000, 9000, 6000});
        over.setHandle(42);
    }
    // Opens the dialog, lets the user do it, and says what is stored afterwards.
    std::string after(const std::function<void()>& user) {
        windows.answer = user;
        dialog.show();
        return folder;
    }
    void browse(const std::string& path) {
        picker.user = [path] { return FolderPicker::Choice{"name", path}; };
        dialog.cmdGetExtractInsertFolder.press();
    }

    std::string folder = "/old";
    Window over;
    ScriptedPicker picker;
    RecordingBoxes boxes;
    AnsweringWindows windows;
    FolderSelection folders{picker, over};
    FolderChoice dialog{FolderChoice::bazarTempTexts, folder, over, {folders, boxes, windows}};
};

TEST_F(FolderChoiceTest, TheTwoDialogsDifferInTheirTexts) {
    FolderChoice other{FolderChoice::cddsBackupTexts, folder, over, {folders, boxes, windows}};
    const std::tuple<FolderChoice*, const char*, const char*> cases[] = {
        {&dialog, "Bazar Temp Folder : ", "Select Bazar Temp folder"},
        {&other, "CDDS Safe Copy Folder : ", "Select CDDS Safe Copy folder"}};
    for (const auto& [d, label, instruction] : cases) {
        EXPECT_EQ(row(d->window.caption(), d->Label1.caption()), "Form1, <selectFolder>");
        windows.answer = [d = d] { d->cmdGetExtractInsertFolder.press(); };
        d->show();
        const Box& box = d->window.box();
        EXPECT_EQ(
            row(d->window.caption(), d->Label1.caption(), box.left + box.width / 2, box.top + box.height / 2),
            row("Folder Selection", label, 5500, 5000));
        EXPECT_EQ(row(picker.asked.title, picker.asked.initialFolder, picker.asked.owner, picker.asked.flags),
                  row(instruction, "/old", 42, 0x7D));
    }
    EXPECT_EQ(picker.shown, 2);
}

TEST_F(FolderChoiceTest, WhatIsStoredWhenItCloses) {
    const auto type = [this](const std::string& text) { dialog.selectedFolder.setText(text); };
    const auto refused = [this] {
        dialog.cmdOK.press();
        boxes.expect({"Invalid Folder. Please select another folder.", "Undefined folder"});
    };
    const std::tuple<std::function<void()>, const char*, const char*, bool> cases[] = {
        // the user's doing, the folder stored, what the box shows, whether that closed the dialog
        {[&] { dialog.cmdOK.press(); }, "/old", "/old", true},
        {[&] { type("no such/folder "), dialog.cmdOK.press(); }, "no such/folder ", "no such/folder ", true},
        {[&] { type("/typed"), dialog.cmdCancel.press(); }, "/old", "/typed", true},
        {[&] { type(""), dialog.cmdCancel.press(); }, "/old", "", true},
        {[&] { browse("/new"), dialog.cmdCancel.press(); }, "/new", "/new", true},
        {[&] { type(""), refused(); }, "", "", false},
        {[&] { browse("/new"); }, "/new", "/new", false},
        {[&] { browse("/new"), type("/typed"), dialog.cmdOK.press(); }, "/typed", "/typed", true},
        {[&] { browse("/new"), browse(""); }, "/new", "/new", false},
        {[&] { type("/typed"), browse(""); }, "/old", "/typed", false},
    };
    for (const auto& [user, stored, shown, closes] : cases) {
        folder = "/old";
        bool closed = false;
        EXPECT_EQ(after([&, user = user] {
                      EXPECT_EQ(dialog.selectedFolder.text(), "/old");
                      user();
                      closed = dialog.window.isUnloaded();
                  }),
                  stored);
        EXPECT_EQ(row(dialog.selectedFolder.text(), closed), row(shown, closes)) << stored;
    }
}

} // namespace
} // namespace pelrath::test
