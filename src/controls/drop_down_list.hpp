#pragma once

#include "controls/control.hpp"

#include <string>
#include <vector>

namespace pelrath {

/// A list of which one line is chosen and shown, the others when it is opened. Its click is raised by every
/// change of the choice, whoever makes it.
class DropDownList : public Control {
public:
    Signal<> click;

    [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }
    /// -1 when none is chosen.
    [[nodiscard]] int selectedRow() const { return selectedRow_; }

    /// Puts these lines in the place of all others, with none chosen; that raises nothing.
    void setLines(std::vector<std::string> lines) {
        lines_ = std::move(lines);
        selectedRow_ = -1;
        changed.emit();
    }
    /// Rows outside the list are ignored.
    void select(int row) {
        if (row >= 0 && row < static_cast<int>(lines_.size()) && assign(selectedRow_, row)) click.emit();
    }

private:
    std::vector<std::string> lines_;
    int selectedRow_ = -1;
};

} // namespace pelrath
