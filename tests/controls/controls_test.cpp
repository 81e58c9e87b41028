#include "controls/check_box.hpp"
#include "controls/list_box.hpp"
#include "controls/option_group.hpp"
#include "controls/scroll_bar.hpp"
#include "controls/text_box.hpp"
#include "controls/window.hpp"
#include "support/values.hpp"

#include <functional>
#include <optional>

namespace pelrath::test {
namespace {

TEST(Signals, HandlersMayComeAndGoDuringAnEmission) {
    Signal<> signal;
    Log log;
    std::optional<Connection> second;
    Connection late;
    Connection first = signal.connect([&] {
        log.add("first");
        second.reset();
        late = signal.connect([&] { log.add("late"); });
    });
    second = signal.connect([&] { log.add("second"); });
    signal.emit();
    EXPECT_EQ(log.take(), "first");
    first.reset();
    signal.emit();
    EXPECT_EQ(log.take(), "late");
    first = Signal<>{}.connect([] {});
    first.reset(); // of a signal that is no more
}

TEST(Controls, ASetterThatChangesNothingDoesNothing) {
    CheckBox box;
    CommandButton button;
    TextBox text;
    ScrollBar bar;
    Window window;
    Log log;
    log.watch(box.changed, "box");
    log.watch(box.click, "click");
    log.watch(button.click, "press");
    log.watch(text.changed, "text");
    log.watch(text.change, "change");
    log.watch(bar.change, "scroll");
    log.watch(window.resize, "resize");
    const std::tuple<std::function<void()>, const char*> cases[] = {
        {[&] { box.setChecked(false); }, ""},
        {[&] { box.setChecked(true); }, "box click"},
        {[&] { box.setChecked(true); }, ""},
        {[&] { box.setValue(CheckValue::Grey); }, "box click"},
        {[&] { box.setEnabled(false); }, "box"},
        {[&] { box.setChecked(false); }, "box click"}, // disabled, and still
        {[&] { box.setVisible(true); }, ""},
        {[&] { button.setEnabled(false), button.press(); }, ""},
        {[&] { button.setEnabled(true), button.press(); }, "press"},
        {[&] { text.setText(""); }, ""},
        {[&] { text.setText("a"); }, "text change"},
        {[&] { text.edit("a", 1, 0); }, ""},
        {[&] { text.edit("ab", 2, 0); }, "change"}, // on the screen already
        {[&] { bar.setRange(0, 10); }, ""},
        {[&] { bar.setValue(50); }, "scroll"},
        {[&] { bar.setValue(10); }, ""},
        {[&] { bar.setRange(0, 4); }, "scroll"},
        {[&] { window.setSize(0, 0); }, ""},
        {[&] { window.setSize(3, 0); }, "resize"},
        {[&] { window.moveTo(3, 4); }, ""},
    };
    for (int number = 0; const auto& [act, happens] : cases) {
        act();
        EXPECT_EQ(log.take(), happens) << "case " << ++number;
    }
    EXPECT_EQ(bar.value(), 4);
}

TEST(OptionGroups, OnlyBecomingSelectedIsAClick) {
    OptionGroup<3> group;
    Log log;
    for (std::size_t i = 0; i < group.size(); ++i) {
        log.watch(group[i].click, std::to_string(i));
    }
    EXPECT_EQ(group.selectedIndex(), -1);
    group[1].select();
    group[1].select();
    group[2].setEnabled(false);
    group[2].select();
    EXPECT_EQ(row(log.take(), group.selectedIndex(), group[1].selected()), "1 2, 2, false");
    group[2].deselect();
    EXPECT_EQ(row(log.take(), group.selectedIndex()), ", -1");
}

TEST(TextBoxes, SelectionsCountCharacters) {
    TextBox box;
    box.setText("\u00E9t\u00E9.bmp");
    box.setSelection(2, 999);
    EXPECT_EQ(row(box.selectionStart(), box.selectionLength()), "2, 5");
    box.setSelection(20, 1);
    EXPECT_EQ(row(box.selectionStart(), box.selectionLength()), "7, 0");
    box.setText("new");
    EXPECT_EQ(box.selectionStart(), 0U);
}

// Ten rows. s3 selects row 3, d3 deselects it, p3 is the user's press on it, o3,2 selects 2 rows from 3 on
// and no other, c0 clears.
TEST(ListBoxes, SelectAndClick) {
    constexpr auto single = ListBox::Choice::Single;
    constexpr auto several = ListBox::Choice::Several;
    // In the end: the selected rows, the runs, the clicks.
    const std::tuple<const char*, ListBox::Choice, const char*, const char*> cases[] = {
        {"one replaces the other", single, "s3 s5", "5, 5-5 , 2"},
        {"again is nothing", single, "s3 s3", "3, 3-3 , 1"},
        {"deselecting the chosen", single, "s3 d3", ", , 2"},
        {"deselecting another", single, "s3 d4", "3, 3-3 , 1"},
        {"pressing chooses, and is a click again", single, "p3 p4 p4", "4, 4-4 , 3"},
        {"outside is nothing", single, "s10 s-1 p10 p-1", ", , 0"},
        {"runs join", several, "s3 s5 s4", "345, 3-5 , 3"},
        {"runs split", several, "o2,5 d4", "2356, 2-3 5-6 , 2"},
        {"runs shrink", several, "o2,3 d2 d4", "3, 3-3 , 3"},
        {"only replaces all", several, "o0,2 o8,99", "89, 8-9 , 2"},
        {"only nothing", several, "o1,2 o5,0", ", , 2"},
        {"only the same is nothing", several, "o1,2 o1,2", "12, 1-2 , 1"},
        {"clearing is no click", several, "o1,2 c0", ", , 1"},
    };
    for (const auto& [name, choice, acts, result] : cases) {
        ListBox list{choice};
        for (int i = 0; i < 10; ++i) {
            list.append(std::to_string(i));
        }
        int clicks = 0;
        const Connection counter = list.click.connect([&] { ++clicks; });
        std::istringstream words{acts};
        char act = ' ';
        for (int first = 0, count = 0; words >> act >> first;) {
            if (act == 's' || act == 'd') list.setSelected(first, act == 's');
            if (act == 'p') list.press(first);
            if (act == 'o' && words.ignore() >> count) list.selectOnly(first, count);
            if (act == 'c') list.clear();
        }
        std::string selected;
        for (int i = -1; i <= 10; ++i) {
            selected += list.isSelected(i) ? std::to_string(i) : "";
        }
        std::string runs;
        for (const auto& [first, last] : list.selectedRuns()) {
            runs += std::to_string(first) + "-" + std::to_string(last) + " ";
        }
        EXPECT_EQ(row(selected, runs, clicks), result) << name;
    }
}

TEST(ListBoxSearch, FindsTheFirstFromTheTop) {
    ListBox list;
    for (const char* line : {"Ab.bmp", "abc.bmp", "\u00C9tang", "", "zz"}) {
        list.append(line);
    }
    const std::pair<const char*, int> cases[] = {{"a", 0},  {"ABC", 1}, {"abc.bmpx", -1}, {"\u00E9T", 2},
                                                 {"e", -1}, {"z", 4},   {"", -1}};
    for (const auto& [prefix, found] : cases) {
        EXPECT_EQ(list.findPrefix(prefix), found) << prefix;
    }
    list.append("zap");
    EXPECT_EQ(list.findPrefix("za"), 5); // lines that came after a search
    list.clear();
    EXPECT_EQ(list.findPrefix("a"), -1);
}

} // namespace
} // namespace pelrath::test
