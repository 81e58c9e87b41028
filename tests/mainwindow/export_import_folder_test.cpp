#include "main_harness.hpp"

namespace pelrath::test { namespace {

class ExportImportFolderTest : public testing::Test, protected MainHarness {};

TEST_F(ExportImportFolderTest, BrowsingSetsIt) {
    start();
    main.window.setHandle(7);
    session.exportImportFolder = "/kept";
    main.Text8.setText("/typed meanwhile");
    // What the picker answers, the folder in use, and what the box shows.
    const std::array<const char*, 3> cases[] = {{"", "/kept", "/typed meanwhile"}, {"/new", "/new", "/new"}, {"", "/new", "/new"}};
    for (const auto& [chosen, inUse, shown] : cases) {
        const std::string before = session.exportImportFolder;
        folderPicker.user = [chosen = chosen] { return FolderPicker::Choice{"name", chosen}; };
        main.cmdGetExtractInsertFolder.press();
        EXPECT_EQ(row(folderPicker.asked.title, folderPicker.asked.initialFolder), "Select Texture Set Root Path, " + before);
        EXPECT_EQ(row(folderPicker.asked.flags, folderPicker.asked.owner), row(0x7D, 7));
        EXPECT_EQ(row(session.exportImportFolder, main.Text8.text()), row(inUse, shown));
    }
}

TEST_F(ExportImportFolderTest, NotDuringARead) {
    start();
    pump.whilePending = [&] { main.cmdGetExtractInsertFolder.press(); };
    open(archiveOf({"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}));
    EXPECT_EQ(row(pump.pending > 0, folderPicker.shown, main.cmdGetExtractInsertFolder.enabled()), "true, 0, true");
}

}} // namespace pelrath::test
