#include "main_harness.hpp"

namespace pelrath::test {
namespace {

struct Search : testing::Test, MainHarness {
    Search() {
        start();
        open(archiveOf(
            {"first.bmp", "ABC.bmp", "abd.bmp", "  lead.tga", "hull.bmp", "hull", "r\xE9servoir.tga"}));
        emptyBox(); // of the first texture's name
    }
    void emptyBox() { box.edit("", 0, 0); }
    // The box's text, what of it is selected, and the chosen row.
    std::string state() { return row(box.text(), box.selectionStart(), box.selectionLength(), chosen()); }
    // The three that never disagree.
    int chosen() {
        EXPECT_EQ(main.Output[TexturePane].selectedRow(), session.selectedTexture);
        EXPECT_EQ(main.incrementalSearchList.selectedRow(), session.selectedTexture);
        return session.selectedTexture;
    }
    TextBox& box = main.incrementalSearchText;
    ListBox& names = main.incrementalSearchList;
};

TEST_F(Search, TypingCompletes) {
    const std::pair<std::u32string, const char*> cases[] = {
        {U"ab", "ABC.bmp, 2, 5, 1"},
        {U"abd", "abd.bmp, 3, 4, 2"},
        {U"le", "lead.tga, 2, 6, 3"},
        {U"l\b", ", 0, 0, 3"},           // the completion goes, and the character before it
        {U"hull.b\b", "hull., 5, 0, 4"}, // nothing completes after a Backspace
        {U"hull.b\b\b", "hull, 4, 0, 4"},
        {U"f\bf", "first.bmp, 1, 8, 0"},
        {U"r", "r\u00E9servoir.tga, 1, 12, 6"},
        {U"abdx", "abdx, 4, 0, 2"}, // what nothing begins with stays as typed
        {U"abdx\b", "abd, 3, 0, 2"},
    };
    for (const auto& [keys, expected] : cases) {
        emptyBox();
        type(keys);
        EXPECT_EQ(state(), expected);
    }
    emptyBox();
    type(U"ab");
    emptyBox(); // chooses nothing
    EXPECT_EQ(state(), ", 0, 0, 1");
}

TEST_F(Search, NothingCompletesBeforeAKey) {
    box.edit("abd", 3, 0); // from a menu
    EXPECT_EQ(state(), "abd, 3, 0, 0");
    names.setSelected(4, true);
    EXPECT_EQ(row(box.text(), session.selectedTexture), "hull.bmp, 0");
    box.keyPress.emit(22); // Ctrl+V: pasting completes like typing
    box.edit("ABD", 3, 0);
    EXPECT_EQ(state(), "abd.bmp, 3, 4, 2");
    box.edit("R\u00C9S", 3, 0);
    EXPECT_EQ(state(), "r\u00E9servoir.tga, 3, 10, 6");
}

TEST_F(Search, ArrowsStepThroughTheTextures) {
    EXPECT_TRUE(press(KeyCode::Up)); // at the first already
    EXPECT_EQ(chosen(), 0);
    EXPECT_FALSE(press(KeyCode::Down, true) || press(KeyCode::Other));
    EXPECT_EQ(chosen(), 0);
    for (int i = 0; i < 9; ++i) {
        EXPECT_TRUE(press(KeyCode::Down));
    }
    EXPECT_EQ(row(box.text(), chosen()), "r\u00E9servoir.tga, 6");
    emptyBox();
    type(U"a");
    press(KeyCode::Down);
    EXPECT_EQ(chosen(), 2);
}

TEST_F(Search, ARowThatTheUserChoseStaysChosenWhicheverOthersBeginLikeIt) {
    const std::vector<std::string> texts{"hull.bmp", "hull", "HULL", "hull", "dup", "z", "dup", "", "hu"};
    open(archiveOf(texts));
    emptyBox();
    type(U"h");
    EXPECT_EQ(state(), "hull.bmp, 1, 7, 0");
    int showings = 0;
    const Connection counter = main.Output[TexturePane].click.connect([&] { ++showings; });
    const std::pair<const char*, std::function<void(int)>> ways[] = {
        {"arrow keys",
         [this](int wanted) {
             while (chosen() != wanted)
                 press(wanted > chosen() ? KeyCode::Down : KeyCode::Up);
         }},
        {"pane", [this](int wanted) { main.Output[TexturePane].press(wanted); }},
        {"name list", [this](int wanted) { names.press(wanted); }},
    };
    for (const auto& [way, chooseRow] : ways) {
        for (const int wanted : {1, 2, 3, 1, 4, 6, 7, 8, 5, 6, 4, 3, 0}) {
            const int steps = std::string_view{way} == "arrow keys" ? std::abs(wanted - chosen()) : 1;
            showings = 0;
            chooseRow(wanted);
            EXPECT_EQ(row(box.text(), chosen()), row(texts.at(static_cast<std::size_t>(wanted)), wanted))
                << way;
            EXPECT_EQ(showings, steps) << way << ": no other texture on the way";
        }
    }
    choose(6);
    names.mouseMove.emit();
    main.activate();
    main.viewPortSize[0].select();
    EXPECT_EQ(row(box.text(), chosen()), "dup, 6");

    choose(3);
    type(U"\b");
    EXPECT_EQ(state(), "hul, 3, 0, 3");
    type(U"l");
    EXPECT_EQ(state(), "hull.bmp, 4, 4, 0"); // the first from the top, as ever
    type(U"x");
    EXPECT_EQ(state(), "hullx, 5, 0, 0");
    names.mouseMove.emit();
    EXPECT_EQ(state(), "hull.bmp, 8, 0, 0");
}

TEST_F(Search, TheListGivesItsNameToTheBox) {
    type(U"ab");
    for (Signal<>* event : {&names.mouseDown, &names.mouseMove}) {
        box.edit("zz", 2, 0);
        event->emit();
        EXPECT_EQ(box.text(), "ABC.bmp");
    }
    names.setSelected(2, true); // a key was typed before: it chooses the texture too
    EXPECT_EQ(chosen(), 2);
    open(archiveOf({})); // without a name, typing stays what it is
    type(U"ab\bc");
    EXPECT_TRUE(press(KeyCode::Down));
    names.mouseMove.emit();
    EXPECT_EQ(state(), "ac, 2, 0, -1");
}

} // namespace
} // namespace pelrath::test
