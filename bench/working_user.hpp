#pragma once

#include "controls/modal_windows.hpp"
#include "platform/message_boxes.hpp"

#include <cstdlib>
#include <functional>
#include <iostream>

namespace pelrath::bench {

/// A failure ends the measurement: a figure of something that failed would be none.
class AbortingBoxes : public MessageBoxes {
public:
    BoxAnswer show(const std::string& text, const std::string& /*title*/, BoxIcon /*icon*/,
                   BoxButtons /*buttons*/) override {
        std::cerr << text << '\n';
        std::exit(1);
    }
};

/// The user of a dialog, at work while it is up.
class WorkingUser : public ModalWindows {
public:
    void showModal(Window& window) override {
        window.activated.emit();
        work();
        window.unload();
    }
    std::function<void()> work;
};

} // namespace pelrath::bench
