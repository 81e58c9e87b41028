#pragma once

#include "controls/list_box.hpp"
#include "controls/text_box.hpp"

namespace pelrath {

/// Choosing a texture by typing the start of its name. Row i of the name list and row i of the texture pane
/// are the same texture.
class IncrementalSearch {
public:
    struct Controls {
        TextBox& incrementalSearchText;
        ListBox& incrementalSearchList;
        ListBox& texturePane;
    };

    explicit IncrementalSearch(const Controls& controls);

private:
    void copyChosenName();
    void complete();
    void keyDown(KeyDown& key);
    void keyPress(char32_t key);
    void step(int rows);

    Controls c_;
    Connections connections_;
    /// A key was typed into the box since a Backspace last took a completion away.
    bool autoCompleteAllowed_ = false;
    /// The reaction to the box's change runs: its own edits of the box do not start it again.
    bool searchBusy_ = false;
    /// The box gets the chosen row's name: that row is its completion, whichever others begin like it.
    bool copyingChosenName_ = false;
};

} // namespace pelrath
