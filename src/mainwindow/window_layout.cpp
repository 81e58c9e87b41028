#include "mainwindow/window_layout.hpp"

#include <algorithm>
#include <cmath>

namespace pelrath {

namespace {

constexpr double scrollBarHeight = 250;
constexpr double scrollBarInset = 300; // the bar ends this far before the pane does
constexpr double outside = 30;         // borders of a pane's title and list lie just outside it
constexpr double twipsPerStep = 10;    // of a scroll bar
constexpr double counterGap = 50;
constexpr double sizesWidth = 3840; // of the viewport's sizes and their caption
constexpr double stripInset = 15;
constexpr double captionGap = 75; // between two captions side by side

std::int16_t rounded(double twips) { return static_cast<std::int16_t>(std::nearbyint(twips)); }

} // namespace

WindowLayout::WindowLayout(const Controls& controls, const ViewerState& state, const Screen& screen,
                           Splash& splash)
    : c_(controls), state_(state), screen_(screen), splash_(splash) {
    connections_.push_back(c_.window.resize.connect([this] { Form_Resize(); }));
    for (std::size_t i = 0; i < c_.HScroll.size(); ++i) {
        connections_.push_back(c_.HScroll[i].change.connect([this, i] { HScroll_Change(i); }));
    }
}

void WindowLayout::captureReferences() {
    margin_ = 100;
    paneTop_ = rounded(c_.Picture1[TexturePane].box().top);
    labelGap_ = rounded(2 * c_.Label5.box().height);
    chromeHeight_ = rounded(c_.window.frameHeight());
    viewportBorderWidth_ = static_cast<std::int16_t>(2 * c_.dynImage.border());
    viewportBorderHeight_ = viewportBorderWidth_;
}

void WindowLayout::Form_Resize() {
    if (margin_ == 0) captureReferences();
    if (!enforceSmallestSize()) return;
    if (state_.graphicDisplayOff == 0) {
        placeViewport();
    } else {
        hideViewport();
    }
    layoutListPane(TexturePane);
    layoutListPane(MipmapPane);
    placeCaptions();
}

bool WindowLayout::enforceSmallestSize() {
    const std::int16_t minWidth = rounded(c_.Text4.box().left + c_.Text4.box().width + 2 * margin_);
    const std::int16_t minHeight =
        rounded(twipsOfPixels(state_.viewPortHeight + viewportBorderHeight_) +
                c_.frameViewportSize.box().height + c_.Text9.box().top + chromeHeight_);
    if (c_.window.minimized()) return false;
    c_.window.setSmallestSize(minWidth, minHeight);
    // Each change runs a pass of its own, nested in this one.
    if (c_.window.box().width <= minWidth) c_.window.setSize(minWidth, c_.window.box().height);
    if (c_.window.box().height <= minHeight) c_.window.setSize(c_.window.box().width, minHeight);
    return true;
}

void WindowLayout::placeViewport() {
    const Box viewport{c_.Frame1.box().left, c_.Text9.box().top,
                       twipsOfPixels(viewportBorderWidth_ + state_.viewPortWidth),
                       twipsOfPixels(viewportBorderHeight_ + state_.viewPortHeight)};
    c_.dynImage.setBox(viewport);
    c_.dynImage.setVisible(true);
    c_.frameViewportSize.setVisible(true);
    c_.frameViewportSize.setBox(
        {viewport.left, viewport.top + viewport.height, viewport.width, c_.frameViewportSize.box().height});
    placeStrip();
    for (PictureBox& pane : c_.Picture1) {
        pane.setLeft(viewport.width + 2 * margin_);
    }
    splash_.layoutSplash(state_.viewPortWidth >= 512);
}

// Beside the sizes where there is room, below them elsewhere.
void WindowLayout::placeStrip() {
    const Box sizes = c_.frameViewportSize.box();
    if (sizes.width >= 2 * sizesWidth) {
        c_.texelStrip.setBox({sizes.left + sizesWidth, sizes.top + 4 * stripInset,
                              sizes.width - sizesWidth - stripInset, sizes.height - 5 * stripInset});
    } else {
        c_.texelStrip.setBox({sizes.left, sizes.top + sizes.height, sizes.width, sizes.height});
    }
    c_.texelStrip.setVisible(true);
}

void WindowLayout::hideViewport() {
    c_.SplashFrame.setVisible(false);
    c_.dynImage.setBox({c_.dynImage.box().left, c_.dynImage.box().top, 0, 0});
    c_.dynImage.setVisible(false);
    c_.frameViewportSize.setVisible(false);
    c_.texelStrip.setVisible(false);
    for (PictureBox& pane : c_.Picture1) {
        pane.setLeft(margin_);
    }
}

void WindowLayout::layoutListPane(std::size_t i) {
    PictureBox& pane = c_.Picture1[i];
    ScrollBar& bar = c_.HScroll[i];
    TextBox& title = c_.Text2[i];
    const Box window = c_.window.box();
    const double width = window.width - 2 * margin_ - pane.box().left;
    const double height = (window.height - (paneTop_ + labelGap_ + 250)) / 2 - margin_;
    pane.setBox({pane.box().left, pane.box().top, width, height});
    const Box upper = c_.Picture1[TexturePane].box();
    c_.Picture1[MipmapPane].setTop(upper.top + upper.height + labelGap_);

    title.setBox({-outside, -outside, width, title.box().height});
    bar.setWidth(width - scrollBarInset);
    const double beyond = screen_.textWidth(title.text()) - bar.box().width;
    bar.setVisible(beyond > 0);
    bar.setHeight(beyond > 0 ? scrollBarHeight : 0);
    if (beyond > 0) {
        bar.setRange(0, static_cast<int>(std::min(std::nearbyint(beyond / twipsPerStep), 32767.0)));
        bar.setSteps(50, 100);
    }
    bar.setTabStop(false);
    const double listHeight = height - bar.box().height - title.box().height;
    c_.Output[i].setBox({-outside, title.box().height - 10, width + 10, listHeight});
    bar.setTop(title.box().height + listHeight - 50);
    if (bar.visible() && bar.value() != 0) HScroll_Change(i); // what was scrolled stays scrolled
}

void WindowLayout::placeCaptions() {
    const Box upper = c_.Picture1[TexturePane].box();
    const Box lower = c_.Picture1[MipmapPane].box();
    c_.Label5.moveTo(lower.left, lower.top - c_.Label5.box().height);
    for (Label* caption : {&c_.Label8, &c_.Label4}) {
        caption->setLeft(lower.left);
    }
    for (Label* title : {&c_.Label4, &c_.Label5}) {
        title->setWidth(c_.Label6.box().left - captionGap - lower.left); // as far as the count's caption
    }
    for (Control* header :
         {static_cast<Control*>(&c_.Text9), static_cast<Control*>(&c_.Output[HeaderPane])}) {
        header->setLeft(lower.left);
        header->setWidth(lower.width);
    }
    c_.Label6.setHeight(c_.Label5.box().height);
    c_.Label7.setTop(lower.top - c_.Label5.box().height);
    c_.Text5.setTop(lower.top - c_.Text5.box().height - counterGap);
    c_.Label6.setTop(upper.top - c_.Label6.box().height);
    c_.Text7.setTop(upper.top - c_.Text7.box().height - counterGap);
}

void WindowLayout::HScroll_Change(std::size_t i) {
    const double paneWidth = c_.Picture1[i].box().width;
    const double width = c_.HScroll[i].value() * twipsPerStep + paneWidth;
    const double left = paneWidth - width - outside;
    c_.Output[i].setWidth(width);
    c_.Output[i].setLeft(left);
    c_.Text2[i].setLeft(left);
    c_.Text2[i].setWidth(width);
}

} // namespace pelrath
