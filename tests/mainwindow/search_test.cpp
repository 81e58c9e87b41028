#include "main_harness.hpp"

namespace pelrath::test {
namespace {

// How box, names and pane go on from what the user does is replayed beside a reference, in
// fuzz/search_fuzz.cpp.
TEST(Search, GoesThroughTheWindowsOwnBoxNamesAndPane) {
    MainHarness h;
    h.start();
    h.open(archiveOf({"first.bmp", "ABC.bmp", "abd.bmp", "  lead.tga", "dup", "dup"}));
    TextBox& box = h.main.incrementalSearchText;
    ListBox& names = h.main.incrementalSearchList;
    const auto state = [&] {
        EXPECT_EQ(h.main.Output[TexturePane].selectedRow(), h.session.selectedTexture);
        return row(box.text(), box.selectionStart(), names.selectedRow(), h.session.selectedTexture);
    };
    box.edit("", 0, 0);
    names.setSelected(4, true); // no key was typed: the texture stays
    EXPECT_EQ(row(box.text(), names.selectedRow(), h.session.selectedTexture), "dup, 4, 0");
    h.type(U"\b");
    box.edit("", 0, 0);
    h.type(U"le");
    EXPECT_EQ(state(), "lead.tga, 2, 3, 3");
    EXPECT_TRUE(h.press(KeyCode::Down) && !h.press(KeyCode::Down, true));
    EXPECT_EQ(state(), "dup, 3, 4, 4");
    for (Signal<>* event : {&names.mouseDown, &names.mouseMove}) {
        box.edit("zz", 2, 0);
        event->emit();
        EXPECT_EQ(box.text(), "dup");
    }
    h.main.Output[TexturePane].press(5);
    h.main.activate();
    h.main.viewPortSize[0].select();
    EXPECT_EQ(state(), "dup, 3, 5, 5"); // the row that was pressed, though another begins like it
    h.open(archiveOf({"z", "lease"}));
    box.edit("", 0, 0);
    h.type(U"le");
    EXPECT_EQ(state(), "lease, 2, 1, 1"); // of the archive that is open
}

} // namespace
} // namespace pelrath::test
