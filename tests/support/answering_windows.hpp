#pragma once

#include "controls/modal_windows.hpp"

#include <functional>

namespace pelrath::test {

/// Dialogs that the test answers.
class AnsweringWindows : public ModalWindows {
public:
    void showModal(Window& window) override {
        ++shown;
        if (answer) answer();
        window.unload(); // by its frame, unless the answer has done it
    }
    int shown = 0;
    std::function<void()> answer;
};

} // namespace pelrath::test
