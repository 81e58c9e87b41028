#pragma once

#include "controls/check_box.hpp"
#include "controls/control.hpp"
#include "controls/list_box.hpp"
#include "controls/option_group.hpp"
#include "controls/timer.hpp"
#include "mainwindow/viewer/texture_viewer.hpp"
#include "mainwindow/window_layout.hpp"
#include "session/session.hpp"

namespace pelrath {

/// The controls that say how the viewer shows the chosen texture: display on or off, size, background, mode.
class ViewportControls {
public:
    struct Controls {
        CheckBox& chkGraphicDisplay;
        OptionGroup<2>& viewPortSize;
        Label& Label10;
        OptionGroup<9>& backViewportColor;
        OptionGroup<3>& cmdShow;
        CommandButton& cmdShowTexture;
        CommandButton& cmdShowMask;
        CommandButton& cmdShowAlphaChannel;
        ListBox& texturePane;
        Timer& Timer1;
    };

    ViewportControls(const Controls& controls, Session& session, TextureViewer& viewer, WindowLayout& layout);

    /// Back to 512 x 512, without a layout pass.
    void resetViewportSize();
    /// Gives the swatches their colours and chooses the stored one.
    void paintSwatches();
    /// Chooses the chosen row of the texture pane anew, which shows its texture again. Nothing without one.
    void reselectCurrentRow();

private:
    void chkGraphicDisplay_Click();
    void viewPortSize_Click(std::size_t index);
    void backViewportColor_Click(int index);
    void enableBackgroundColors(bool enabled);
    void showMode(DisplayMode mode) { session_.viewer.displayMode = mode; }

    Controls c_;
    Session& session_;
    TextureViewer& viewer_;
    WindowLayout& layout_;
    Connections connections_;
};

} // namespace pelrath
