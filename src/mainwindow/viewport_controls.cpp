#include "mainwindow/viewport_controls.hpp"

#include <array>
#include <cstdint>

namespace pelrath {

namespace {

struct Background {
    std::uint32_t swatch; // 0x00BBGGRR
    std::uint32_t clear;  // 0xAARRGGBB
};

// black, grey, red, yellow, green, cyan, blue, magenta, white
constexpr std::array<Background, 9> backgrounds{{{0x000000, 0xFF000000},
                                                 {0x7F7F7F, 0xFF7F7F7F},
                                                 {0x0000FF, 0xFFFF0000},
                                                 {0x00FFFF, 0xFFFFFF00},
                                                 {0x00FF00, 0xFF00FF00},
                                                 {0xFFFF00, 0xFF00FFFF},
                                                 {0xFF0000, 0xFF0000FF},
                                                 {0xFF00FF, 0xFFFF00FF},
                                                 {0xFFFFFF, 0xFFFFFFFF}}};
static_assert(backgrounds.size() == backgroundColors);

} // namespace

ViewportControls::ViewportControls(const Controls& controls, Session& session, TextureViewer& viewer,
                                   WindowLayout& layout)
    : c_(controls), session_(session), viewer_(viewer), layout_(layout) {
    const auto on = [this](Signal<>& click, auto reaction) {
        connections_.push_back(click.connect(reaction));
    };
    on(c_.chkGraphicDisplay.click, [this] { chkGraphicDisplay_Click(); });
    for (std::size_t i = 0; i < c_.viewPortSize.size(); ++i) {
        on(c_.viewPortSize[i].click, [this, i] { viewPortSize_Click(i); });
    }
    for (std::size_t i = 0; i < c_.backViewportColor.size(); ++i) {
        on(c_.backViewportColor[i].click, [this, i] { backViewportColor_Click(static_cast<int>(i)); });
    }
    const std::array hidden{&c_.cmdShowTexture, &c_.cmdShowMask, &c_.cmdShowAlphaChannel};
    for (std::size_t i = 0; i < c_.cmdShow.size(); ++i) {
        const auto mode = static_cast<DisplayMode>(i);
        on(c_.cmdShow[i].click, [this, mode] { showMode(mode); });
        on(hidden.at(i)->click, [this, mode] { showMode(mode); });
    }
}

void ViewportControls::chkGraphicDisplay_Click() {
    switch (c_.chkGraphicDisplay.value()) {
    case CheckValue::Unchecked:
        session_.viewer.graphicDisplayOff = 1;
        viewer_.stopRendering();
        enableBackgroundColors(false);
        for (OptionButton& mode : c_.cmdShow) {
            mode.setEnabled(false);
        }
        c_.Label10.setTextColor(TextColor::Greyed);
        layout_.Form_Resize();
        break;
    case CheckValue::Checked:
        session_.viewer.graphicDisplayOff = 0;
        enableBackgroundColors(true);
        c_.cmdShow[0].setEnabled(true);
        c_.cmdShow[0].select();
        c_.cmdShow[1].setEnabled(true);
        c_.cmdShow[2].setEnabled(true);
        c_.Label10.setTextColor(TextColor::Normal);
        layout_.Form_Resize();
        c_.Timer1.setInterval(1);
        c_.Timer1.setEnabled(true);
        if (c_.texturePane.count() > 0) reselectCurrentRow();
        break;
    case CheckValue::Grey:
        break;
    }
}

void ViewportControls::viewPortSize_Click(std::size_t index) {
    if (!c_.viewPortSize[index].enabled()) return;
    const std::int32_t side = index == 0 ? 256 : 512;
    session_.viewer.viewPortWidth = side;
    session_.viewer.viewPortHeight = side;
    layout_.Form_Resize();
    if (session_.selectedTexture != 0) reselectCurrentRow();
}

void ViewportControls::resetViewportSize() {
    // Disabled, so that the selection below is not taken for the user's.
    for (OptionButton& size : c_.viewPortSize) {
        size.setEnabled(false);
    }
    session_.viewer.viewPortWidth = 512;
    session_.viewer.viewPortHeight = 512;
    c_.viewPortSize[1].select();
    if (session_.viewer.referenceWidth == 0) {
        session_.viewer.referenceWidth = static_cast<std::int16_t>(session_.viewer.viewPortWidth);
        session_.viewer.referenceHeight = static_cast<std::int16_t>(session_.viewer.viewPortHeight);
    }
    for (OptionButton& size : c_.viewPortSize) {
        size.setEnabled(true);
    }
}

void ViewportControls::paintSwatches() {
    for (std::size_t i = 0; i < backgrounds.size(); ++i) {
        c_.backViewportColor[i].setBackColor(backgrounds[i].swatch);
    }
    backViewportColor_Click(session_.viewer.viewPortColor);
}

void ViewportControls::backViewportColor_Click(int index) {
    if (index < 0 || index >= static_cast<int>(backgrounds.size())) return;
    const auto place = static_cast<std::size_t>(index);
    session_.viewer.clearColor = backgrounds[place].clear;
    session_.viewer.viewPortColor = static_cast<std::int16_t>(index);
    c_.backViewportColor[place].select();
}

void ViewportControls::enableBackgroundColors(bool enabled) {
    for (OptionButton& swatch : c_.backViewportColor) {
        swatch.setEnabled(enabled);
    }
}

void ViewportControls::reselectCurrentRow() {
    // Deselecting the row makes the chosen texture "none".
    const int row = session_.selectedTexture;
    c_.texturePane.setSelected(row, false);
    c_.texturePane.setSelected(row, true);
}

} // namespace pelrath
