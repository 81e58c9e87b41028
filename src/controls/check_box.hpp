#pragma once

#include "controls/control.hpp"

namespace pelrath {

enum class CheckValue { Unchecked = 0, Checked = 1, Grey = 2 };

/// A check box. Its click is raised by every change of its value, whoever makes it, enabled or not.
class CheckBox : public CaptionedControl {
public:
    Signal<> click;

    [[nodiscard]] CheckValue value() const { return value_; }
    [[nodiscard]] bool checked() const { return value_ == CheckValue::Checked; }

    void setValue(CheckValue value) {
        if (assign(value_, value)) click.emit();
    }
    void setChecked(bool checked) { setValue(checked ? CheckValue::Checked : CheckValue::Unchecked); }

private:
    CheckValue value_ = CheckValue::Unchecked;
};

} // namespace pelrath
