#pragma once

#include "controls/control.hpp"
#include "controls/list_box.hpp"
#include "controls/scroll_bar.hpp"
#include "controls/text_box.hpp"
#include "controls/window.hpp"
#include "mainwindow/main_controls.hpp"
#include "mainwindow/splash.hpp"
#include "mainwindow/viewer/viewer_state.hpp"
#include "platform/screen.hpp"

#include <array>
#include <cstdint>

namespace pelrath {

/// Keeps the main window's controls in their places at every size. Lengths are twips unless they say
/// otherwise.
class WindowLayout {
public:
    struct Controls {
        Window& window;
        const Frame& Frame1;
        PictureBox& dynImage;
        Frame& frameViewportSize;
        TextBox& texelStrip;
        Frame& SplashFrame;
        Label& Label4;
        Label& Label5;
        Label& Label6;
        Label& Label7;
        Label& Label8;
        const TextBox& Text4;
        TextBox& Text5;
        TextBox& Text7;
        TextBox& Text9;
        std::array<TextBox, 2>& Text2;
        std::array<ListBox, 3>& Output;
        std::array<PictureBox, 2>& Picture1;
        std::array<ScrollBar, 2>& HScroll;
    };

    WindowLayout(const Controls& controls, const ViewerState& state, const Screen& screen, Splash& splash);

    /// The layout pass, run at every change of the window's size. Enforces the smallest size.
    void Form_Resize();
    /// Lays out the texture (0) or the mipmap pane (1).
    void layoutListPane(std::size_t index);

private:
    void captureReferences();
    /// False when the window is minimized.
    bool enforceSmallestSize();
    void placeViewport();
    void hideViewport();
    void placeStrip();
    void placeCaptions();
    void HScroll_Change(std::size_t index);
    [[nodiscard]] double twipsOfPixels(int pixels) const { return pixels * screen_.twipsPerPixel(); }

    Controls c_;
    const ViewerState& state_;
    const Screen& screen_;
    Splash& splash_;
    Connections connections_;

    // The references, taken once by the first pass. A margin that is not zero says that they are.
    std::int16_t margin_ = 0;
    std::int16_t paneTop_ = 0;
    std::int16_t labelGap_ = 0;
    std::int16_t chromeHeight_ = 0;
    std::int16_t viewportBorderWidth_ = 0;  // pixels
    std::int16_t viewportBorderHeight_ = 0; // pixels
};

} // namespace pelrath
