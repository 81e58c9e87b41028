#pragma once

#include "controls/check_box.hpp"
#include "controls/control.hpp"
#include "controls/drop_down_list.hpp"
#include "controls/text_box.hpp"
#include "controls/window.hpp"

#include <array>
#include <cstddef>

namespace pelrath::inspection {

/// The three pictures, from the left.
enum Panel : std::size_t { Before, After, Difference, Panels };

/// The controls of the window "Check", with their captions.
struct InspectionControls {
    InspectionControls();

    Window window;
    TextBox txtFindings;                // what is wrong and what is well
    Label lblLevel;                     // "Level :"
    DropDownList lstLevel;              // of which the pictures are
    CheckBox chkTransparency;           // a chequered ground shows behind what is transparent
    std::array<Label, Panels> lblPanel; // what each picture is
    PictureBox pictures;                // all three, side by side
    TextBox txtStrip;                   // the texel under the pointer, and how much the level changes
    CommandButton cmdClose;             // closes the window
};

/// Twips between two of the pictures.
inline constexpr double panelGap = 90;

/// Gives the controls their places, whatever the window's size: the pictures take what height is left.
void arrange(InspectionControls& controls);

} // namespace pelrath::inspection
