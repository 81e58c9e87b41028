#include "controls/list_box.hpp"

#include "platform/text.hpp"

#include <algorithm>

namespace pelrath {

namespace {

using Runs = std::vector<ListBox::Run>;

// The run that holds the row, or the first one behind it.
auto runAt(Runs& runs, int row) {
    return std::find_if(runs.begin(), runs.end(), [row](const ListBox::Run& run) { return run.last >= row; });
}

void addRow(Runs& runs, int row) {
    auto next = runAt(runs, row);
    next = runs.insert(next, {row, row});
    if (next + 1 != runs.end() && (next + 1)->first == row + 1) {
        next->last = (next + 1)->last;
        runs.erase(next + 1);
    }
    if (next != runs.begin() && (next - 1)->last == row - 1) {
        (next - 1)->last = next->last;
        runs.erase(next);
    }
}

void removeRow(Runs& runs, int row) {
    const auto run = runAt(runs, row);
    const ListBox::Run whole = *run;
    const auto rest = runs.erase(run);
    Runs pieces;
    if (whole.first < row) pieces.push_back({whole.first, row - 1});
    if (row < whole.last) pieces.push_back({row + 1, whole.last});
    runs.insert(rest, pieces.begin(), pieces.end());
}

} // namespace

std::string ListBox::line(int row) const {
    if (!maker_) return std::string{lines_.line(static_cast<std::size_t>(row))};
    std::string line;
    maker_(row, line);
    return line;
}

void ListBox::append(std::string_view line) {
    lines_.append(line);
    changed.emit();
}

void ListBox::appendMade() {
    ++made_;
    changed.emit();
}

void ListBox::clear() {
    lines_.clear();
    maker_ = nullptr;
    made_ = 0;
    upperCased_.clear();
    runs_.clear();
    ++clearances_;
    changed.emit();
}

int ListBox::selectedRow() const { return runs_.empty() ? -1 : runs_.front().first; }

std::string ListBox::selectedText() const { return runs_.empty() ? std::string{} : line(selectedRow()); }

bool ListBox::isSelected(int row) const {
    return std::any_of(runs_.begin(), runs_.end(),
                       [row](const Run& run) { return run.first <= row && row <= run.last; });
}

void ListBox::setSelected(int row, bool selected) {
    if (!contains(row) || isSelected(row) == selected) return;
    Runs runs = choice_ == Choice::Several ? runs_ : Runs{};
    if (selected) addRow(runs, row);
    if (!selected && choice_ == Choice::Several) removeRow(runs, row);
    choose(std::move(runs));
}

void ListBox::selectOnly(int first, int count) {
    const int from = std::max(first, 0);
    const int to = std::min(first + count, this->count()) - 1;
    choose(from <= to ? Runs{{from, to}} : Runs{});
}

void ListBox::choose(std::vector<Run> runs) {
    if (runs == runs_) return;
    runs_ = std::move(runs);
    ++selections_;
    changed.emit();
    click.emit();
}

void ListBox::press(int row) {
    if (!isSelected(row)) {
        setSelected(row, true);
    } else {
        click.emit();
    }
}

void ListBox::upperCaseNewLines() const {
    std::string line;
    for (int i = static_cast<int>(upperCased_.count()); i < count(); ++i) {
        if (maker_) {
            maker_(i, line);
        } else {
            line = lines_.line(static_cast<std::size_t>(i));
        }
        if (isAscii(line)) {
            upperCased_.append(line);
            makeUpperCase(upperCased_.lastLine());
        } else {
            upperCased_.append(upperCase(line));
        }
    }
}

int ListBox::findPrefix(std::string_view prefix) const {
    if (prefix.empty()) return -1;
    upperCaseNewLines();
    const std::string wanted = upperCase(prefix);
    for (std::size_t i = 0; i < upperCased_.count(); ++i) {
        if (upperCased_.line(i).starts_with(wanted)) return static_cast<int>(i);
    }
    return -1;
}

} // namespace pelrath
