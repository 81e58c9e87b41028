#pragma once

#include "controls/check_list_box.hpp"
#include "controls/control.hpp"
#include "controls/text_box.hpp"
#include "controls/window.hpp"
#include "copies/copy_list.hpp"

namespace pelrath::copies {

/// The controls of the window "Safe Copies", with their captions.
struct SafeCopiesControls {
    SafeCopiesControls();

    Window window;
    Label lblFolder;          // "Folder :"
    TextBox txtFolder;        // where the copies are
    CommandButton cmdFolder;  // "..." beside it
    Label lblCopies;          // how many there are
    CopyList lstCopies;       // the newest first
    Label lblTextures;        // what is known about the chosen copy
    CheckListBox lstTextures; // its textures that differ, and which are put back
    CommandButton cmdAll;     // marks all
    CommandButton cmdNone;    // marks none
    TextBox txtSummary;       // what was done
    CommandButton cmdStop;    // gives up comparing, or putting back
    CommandButton cmdRestore; // puts back
    CommandButton cmdClose;   // closes the window
};

/// Gives the controls their places, whatever the window's size: the two lists share the height that is left.
void arrange(SafeCopiesControls& controls);

} // namespace pelrath::copies
