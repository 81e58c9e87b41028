#include "mainwindow/save_bar_layout.hpp"

#include <algorithm>
#include <initializer_list>

namespace pelrath {

namespace {

// All in twips.
constexpr double gap = 60;
constexpr double inset = 105; // beside what is in the strip
constexpr double buttonWidth = 960;
constexpr double stepWidth = 300;
constexpr double buttonHeight = 360;
constexpr double oneLine = 420;
constexpr double lowLine = 375; // in the line of the status
constexpr double twoLines = 3 * gap + 2 * buttonHeight + 15;
constexpr double leastInOneLine = 7500; // shows enough of a file's name
constexpr double statusLineTop = 1125;

} // namespace

SaveBarLayout::SaveBarLayout(const Controls& controls, editing::SaveBar& bar) : c_(controls), bar_(bar) {
    connections_.push_back(c_.window.resize.connect([this] { place(); }));
    for (Control* neighbour : std::initializer_list<Control*>{&c_.Label11, &c_.Label8, &c_.viewport,
                                                              &c_.sizes, &c_.texelStrip, &bar_.previous}) {
        connections_.push_back(neighbour->changed.connect([this] { place(); }));
    }
    place();
}

double SaveBarLayout::bottomOfColumn() const {
    const auto bottomOf = [](const Control& control) { return control.box().top + control.box().height; };
    return std::max(bottomOf(c_.sizes), bottomOf(c_.texelStrip));
}

void SaveBarLayout::place() {
    const Box viewport = c_.viewport.box();
    const bool column = c_.sizes.visible();
    const double below = bottomOfColumn() + gap;
    const double inside = c_.window.box().height - c_.window.frameHeight();
    const double left = column ? viewport.left : c_.Label8.box().left + c_.Label8.box().width;
    const double width = column ? viewport.width : c_.Label2.box().left - left - gap;
    if (column && below + twoLines <= inside) {
        bar_.strip.setBox({left, below, width, twoLines});
    } else if (column && width >= leastInOneLine && below + oneLine <= inside) {
        bar_.strip.setBox({left, below, width, oneLine});
    } else if (!c_.Label11.visible() && width >= leastInOneLine) {
        bar_.strip.setBox({left, statusLineTop, width, lowLine});
    } else {
        const double wide = column ? width : leastInOneLine;
        bar_.strip.setBox({c_.Label8.box().left, inside - twoLines - gap, wide, twoLines});
        if (column) bar_.strip.moveTo(viewport.left, viewport.top + viewport.height - twoLines);
    }
    bar_.strip.box().height == twoLines ? inTwoLines() : inOneLine();
}

void SaveBarLayout::inOneLine() {
    const Box strip = bar_.strip.box();
    const double height = std::min(buttonHeight, strip.height - 30);
    const double top = (strip.height - height) / 2;
    double right = strip.width - top;
    const auto fromRight = [&](Control& control, double width) {
        right -= width;
        control.setBox({right, top, width, height});
        right -= gap;
    };
    for (CommandButton* button : {&bar_.ignore, &bar_.insert, &bar_.look}) {
        fromRight(*button, buttonWidth);
    }
    if (bar_.previous.visible()) {
        fromRight(bar_.next, stepWidth);
        fromRight(bar_.previous, stepWidth);
    }
    if (!bar_.look.visible()) right = strip.width - gap;
    bar_.text.setBox({inset, top, right - inset, height});
}

void SaveBarLayout::inTwoLines() {
    const Box strip = bar_.strip.box();
    const double line = 2 * gap + buttonHeight;
    bar_.text.setBox({inset, gap, strip.width - 2 * inset, buttonHeight});
    double left = inset;
    for (CommandButton* button : {&bar_.look, &bar_.insert, &bar_.ignore}) {
        button->setBox({left, line, buttonWidth, buttonHeight});
        left += buttonWidth + gap;
    }
    const double right = strip.width - inset - stepWidth;
    bar_.next.setBox({right, line, stepWidth, buttonHeight});
    bar_.previous.setBox({right - stepWidth, line, stepWidth, buttonHeight});
}

} // namespace pelrath
