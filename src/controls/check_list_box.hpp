#pragma once

#include "controls/control.hpp"
#include "controls/line_store.hpp"

#include <cstdint>
#include <string_view>
#include <vector>

namespace pelrath {

/// A list of single-line texts with a check mark each. Rows count from 0; rows outside the list are ignored.
class CheckListBox : public Control {
public:
    /// A check mark was set or taken away, whoever did it; it is as it now is.
    Signal<int> itemCheck;

    [[nodiscard]] int count() const { return static_cast<int>(lines_.count()); }
    [[nodiscard]] std::string_view line(int row) const { return lines_.line(static_cast<std::size_t>(row)); }
    [[nodiscard]] bool isChecked(int row) const {
        return contains(row) && checks_[static_cast<std::size_t>(row)];
    }
    [[nodiscard]] int checkedCount() const;
    /// -1 when nothing is checked.
    [[nodiscard]] int lastCheckedRow() const;
    /// The row that the keyboard acts on, -1 in an empty list and until one is made it.
    [[nodiscard]] int currentRow() const { return currentRow_; }

    /// Appends a line without a check mark.
    void append(std::string_view line);
    /// Removes every line; that raises nothing.
    void clear();
    void setChecked(int row, bool checked);
    void setCurrentRow(int row);

    /// For who shows it: counts every clear().
    [[nodiscard]] std::uint64_t clearances() const { return clearances_; }

private:
    [[nodiscard]] bool contains(int row) const { return row >= 0 && row < count(); }

    LineStore lines_;
    std::vector<bool> checks_;
    int currentRow_ = -1;
    std::uint64_t clearances_ = 0;
};

} // namespace pelrath
