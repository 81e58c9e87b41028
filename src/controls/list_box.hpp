#pragma once

#include "controls/control.hpp"
#include "controls/line_store.hpp"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pelrath {

/// A list of single-line texts. Rows count from 0. Its click is raised by every change of its selection,
/// whoever makes it: once a call here, and once when the only chosen row is deselected.
class ListBox : public Control {
public:
    enum class Choice { Single, Several };

    Signal<> click;
    Signal<> mouseDown;
    Signal<> mouseMove;

    explicit ListBox(Choice choice = Choice::Single) : choice_(choice) {}

    [[nodiscard]] Choice choice() const { return choice_; }
    [[nodiscard]] int count() const { return static_cast<int>(lines_.count()) + made_; }
    [[nodiscard]] std::string line(int row) const;

    void append(std::string_view line);
    /// Puts the text of a row in `line`'s place.
    using LineMaker = std::function<void(int row, std::string& line)>;
    /// An empty list's lines are made from now on, each whenever it is looked at, and appended by
    /// appendMade(): of ten thousands, hardly any ever is. Until the list is cleared.
    void setMaker(LineMaker maker) { maker_ = std::move(maker); }
    void appendMade();
    /// Removes every line. What was selected is gone with its line; that raises no click.
    void clear();

    /// The chosen row of a Single list, -1 when none is.
    [[nodiscard]] int selectedRow() const;
    /// The chosen row's text, empty when none is.
    [[nodiscard]] std::string selectedText() const;
    [[nodiscard]] bool isSelected(int row) const;
    /// Rows outside the list are ignored. In a Single list, selecting a row deselects the one chosen before.
    void setSelected(int row, bool selected);
    /// Makes [first, first + count) what is selected of a Several list, and nothing else.
    void selectOnly(int first, int count);

    /// The first row, from the top, whose text begins with `prefix` without regard to case; -1 if none. An
    /// empty prefix finds nothing.
    [[nodiscard]] int findPrefix(std::string_view prefix) const;

    /// For who shows it: counts every clear(), and every change of the selection.
    [[nodiscard]] std::uint64_t clearances() const { return clearances_; }
    [[nodiscard]] std::uint64_t selections() const { return selections_; }
    /// The selected rows as runs of [first, last], in order.
    struct Run {
        int first;
        int last;
        bool operator==(const Run&) const = default;
    };
    [[nodiscard]] const std::vector<Run>& selectedRuns() const { return runs_; }
    /// The user's choice of rows, as runs in order.
    void choose(std::vector<Run> runs);
    /// The user's press on a row of a Single list: chooses it, and is a click on the chosen row too. A row
    /// outside the list is ignored.
    void press(int row);

private:
    void upperCaseNewLines() const;
    [[nodiscard]] bool contains(int row) const { return row >= 0 && row < count(); }

    Choice choice_;
    LineStore lines_;
    LineMaker maker_;
    int made_ = 0;
    std::vector<Run> runs_;
    std::uint64_t clearances_ = 0;
    std::uint64_t selections_ = 0;
    mutable LineStore upperCased_; // kept in step by findPrefix() alone
};

} // namespace pelrath
