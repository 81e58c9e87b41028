#pragma once

#include "controls/control.hpp"

namespace pelrath {

/// Ticks every `interval` milliseconds while it is enabled and the interval is not 0.
class Timer {
public:
    Signal<> changed;
    Signal<> tick;

    [[nodiscard]] bool enabled() const { return enabled_; }
    [[nodiscard]] int interval() const { return interval_; }
    [[nodiscard]] bool running() const { return enabled_ && interval_ > 0; }

    void setEnabled(bool enabled) {
        if (enabled == enabled_) return;
        enabled_ = enabled;
        changed.emit();
    }
    void setInterval(int milliseconds) {
        if (milliseconds == interval_) return;
        interval_ = milliseconds;
        changed.emit();
    }

private:
    bool enabled_ = true;
    int interval_ = 0;
};

} // namespace pelrath
