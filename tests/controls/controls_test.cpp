#include "controls/check_box.hpp"
#include "controls/check_list_box.hpp"
#include "controls/drop_down_list.hpp"
#include "controls/list_box.hpp"
#include "controls/option_group.hpp"
#include "controls/scroll_bar.hpp"
#include "controls/text_box.hpp"
#include "controls/timer.hpp"
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
    log.watch(signal, "next");
    signal.emit();
    EXPECT_EQ(log.take(), "late next");
    first = signal.connect([&] { log.add("once"), first.reset(), signal.emit(); });
    log.watch(signal, "behind it");
    signal.emit(); // the inner emission comes to those behind first
    EXPECT_EQ(log.take(), "late next once late next behind it behind it");
    first = Signal<>{}.connect([] {});
    first.reset(); // of a signal that is no more
}

TEST(Controls, ASetterThatChangesNothingDoesNothing) {
    CheckBox box;
    CommandButton button;
    TextBox text;
    ScrollBar bar;
    Window window;
    OptionGroup<3> group;
    Log log;
    log.watch(box.changed, "box");
    log.watch(box.click, "click");
    log.watch(button.click, "press");
    log.watch(text.changed, "text");
    log.watch(text.change, "change");
    log.watch(bar.change, "scroll");
    log.watch(window.resize, "resize");
    for (std::size_t i = 0; i < group.size(); ++i) {
        log.watch(group[i].click, "option " + std::to_string(i));
    }
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
        {[&] { group[1].select(), group[1].select(); }, "option 1"},
        {[&] { group[2].setEnabled(false), group[2].select(); }, "option 2"},
        {[&] { group[0].setEnabled(group[1].selected()), group[2].deselect(); }, ""},
    };
    for (int number = 0; const auto& [act, happens] : cases) {
        act();
        EXPECT_EQ(log.take(), happens) << "case " << ++number;
    }
    EXPECT_EQ(row(bar.value(), group[0].enabled(), group.selectedIndex()), "4, false, -1");
    text.setText("\u00E9t\u00E9.bmp");
    text.setSelection(20, 999);
    EXPECT_EQ(row(text.selectionStart(), text.selectionLength()), "7, 0"); // characters
    text.setSelection(2, 1);
    text.setText("new");
    EXPECT_EQ(text.selectionStart(), 0U);
}

TEST(Controls, BeginAnewWithEachFillingOrLoad) {
    CheckListBox marks;
    Log log;
    const Connection marked = marks.itemCheck.connect([&](int line) { log.add(row(line)); });
    marks.append("a"), marks.append("b"), marks.append("c");
    EXPECT_EQ(marks.lastCheckedRow(), -1);
    marks.setChecked(1, true), marks.setChecked(1, true), marks.setChecked(9, true);
    EXPECT_EQ(row(log.take(), marks.lastCheckedRow(), marks.checkedCount()), "1, 1, 1");
    DropDownList choice;
    choice.setLines({"a", "b"}), choice.select(1), choice.setLines({"c", "d"});
    EXPECT_EQ(choice.selectedRow(), -1);
    ListBox names;
    names.append("Old");
    EXPECT_EQ(row(names.findPrefix("OL"), names.findPrefix("")), "0, -1");
    names.clear(), names.append("New");
    EXPECT_EQ(row(names.findPrefix("o"), names.findPrefix("n")), "-1, 0");
    names.clear(), names.setMaker([](int at, std::string& line) { line = "Made " + std::to_string(at); });
    names.appendMade(), names.appendMade();
    EXPECT_EQ(row(names.count(), names.line(1), names.findPrefix("made 1")), "2, Made 1, 1");
    names.clear(), names.append("New");
    EXPECT_EQ(row(names.count(), names.line(0), names.findPrefix("made")), "1, New, -1");
    Timer timer;
    EXPECT_FALSE(timer.running()) << "without an interval";
    Window window;
    const Connection closing = window.queryUnload.connect([&] { log.add("closing"), window.unload(); });
    window.load(), window.unload(), window.unload();
    EXPECT_EQ(row(log.take(), window.isUnloaded()), "closing, true");
    window.load();
    EXPECT_FALSE(window.isUnloaded());
}

// The acts follow one another on lists of ten rows, one of which allows several to be chosen.
TEST(ListBoxes, ClickOnceForEachChangeOfWhatIsChosen) {
    ListBox one, several{ListBox::Choice::Several};
    Log log;
    for (ListBox* list : {&one, &several}) {
        for (int i = 0; i < 10; ++i) {
            list->append("row");
        }
        log.watch(list->click, "click");
    }
    // Whether it is a click, and the runs of rows that are chosen then.
    const std::tuple<std::function<void()>, const char*> cases[] = {
        {[&] { one.setSelected(3, true); }, "click 3-3"},
        {[&] { one.setSelected(5, true); }, "click 5-5"},
        {[&] { one.setSelected(5, true); }, " 5-5"},
        {[&] { one.setSelected(4, false); }, " 5-5"},
        {[&] { one.press(5); }, "click 5-5"},
        {[&] { one.press(4); }, "click 4-4"},
        {[&] { one.press(10), one.press(-1), one.setSelected(10, true), one.setSelected(-1, true); }, " 4-4"},
        {[&] { one.setSelected(4, false); }, "click"},
        {[&] { several.selectOnly(2, 5); }, "click 2-6"},
        {[&] { several.selectOnly(2, 5); }, " 2-6"},
        {[&] { several.setSelected(4, false); }, "click 2-3 5-6"},
        {[&] { several.setSelected(4, true); }, "click 2-6"},
        {[&] { several.setSelected(2, false); }, "click 3-6"},
        {[&] { several.setSelected(6, false); }, "click 3-5"},
        {[&] { several.selectOnly(8, 99); }, "click 8-9"},
        {[&] { several.setSelected(6, true); }, "click 6-6 8-9"},
        {[&] { several.selectOnly(5, 0); }, "click"},
        {[&] { several.selectOnly(0, 1); }, "click 0-0"},
        {[&] { several.clear(); }, ""},
    };
    for (int number = 0; const auto& [act, expected] : cases) {
        act();
        std::string result = log.take();
        for (const ListBox* list : {&one, &several}) {
            for (const auto& [first, last] : list->selectedRuns()) {
                result += " " + std::to_string(first) + "-" + std::to_string(last);
            }
        }
        EXPECT_EQ(result, expected) << "case " << ++number;
    }
}

} // namespace
} // namespace pelrath::test
