#pragma once

#include "controls/control.hpp"

#include <algorithm>

namespace pelrath {

/// A scroll bar. Its change is raised by every change of its value, scrolling by drag included.
class ScrollBar : public Control {
public:
    Signal<> change;

    [[nodiscard]] int value() const { return value_; }
    [[nodiscard]] int minimum() const { return minimum_; }
    [[nodiscard]] int maximum() const { return maximum_; }
    [[nodiscard]] int smallChange() const { return smallChange_; }
    [[nodiscard]] int largeChange() const { return largeChange_; }

    /// A value outside the new range moves to its nearer end.
    void setRange(int minimum, int maximum) {
        assign(minimum_, minimum);
        assign(maximum_, std::max(minimum, maximum));
        setValue(value_);
    }
    void setSteps(int smallChange, int largeChange) {
        assign(smallChange_, smallChange);
        assign(largeChange_, largeChange);
    }
    void setValue(int value) {
        if (assign(value_, std::clamp(value, minimum_, maximum_))) change.emit();
    }

private:
    int value_ = 0;
    int minimum_ = 0;
    int maximum_ = 32767;
    int smallChange_ = 1;
    int largeChange_ = 1;
};

} // namespace pelrath
