#pragma once

#include "controls/control.hpp"
#include "controls/modal_windows.hpp"
#include "controls/option_group.hpp"
#include "controls/text_box.hpp"
#include "controls/window.hpp"
#include "platform/screen.hpp"

#include <array>

namespace pelrath {

/// The terms that are accepted once, in English or French.
class Disclaimer {
public:
    /// `accepted` is set by the user's answer; closing the window by its frame leaves it as it was.
    Disclaimer(bool& accepted, const Screen& screen, ModalWindows& windows);

    /// Loads the dialog anew and returns when it has been closed.
    void show();

    Window window;
    TextBox Text2;                         // the letter
    TextBox Text1;                         // the commitment
    std::array<CommandButton, 2> Command1; // accept, refuse
    OptionGroup<2> Option1;                // French, English
    PictureBox Image1;                     // the picture at the left

private:
    void load();
    void Option1_Click(std::size_t index);
    void Command1_Click(std::size_t index);

    bool& accepted_;
    const Screen& screen_;
    ModalWindows& windows_;
    Connections connections_;
};

} // namespace pelrath
