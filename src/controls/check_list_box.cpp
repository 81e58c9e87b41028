#include "controls/check_list_box.hpp"

#include <algorithm>

namespace pelrath {

int CheckListBox::checkedCount() const {
    return static_cast<int>(std::count(checks_.begin(), checks_.end(), true));
}

int CheckListBox::lastCheckedRow() const {
    const auto last = std::find(checks_.rbegin(), checks_.rend(), true);
    return static_cast<int>(checks_.rend() - last) - 1;
}

void CheckListBox::append(std::string_view line) {
    lines_.append(line);
    checks_.push_back(false);
    changed.emit();
}

void CheckListBox::clear() {
    lines_.clear();
    checks_.clear();
    currentRow_ = -1;
    ++clearances_;
    changed.emit();
}

void CheckListBox::setChecked(int row, bool checked) {
    if (!contains(row) || isChecked(row) == checked) return;
    checks_[static_cast<std::size_t>(row)] = checked;
    changed.emit();
    itemCheck.emit(row);
}

void CheckListBox::setCurrentRow(int row) {
    if (contains(row)) assign(currentRow_, row);
}

} // namespace pelrath
