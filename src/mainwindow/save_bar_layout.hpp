#pragma once

#include "controls/window.hpp"
#include "editing/save_bar.hpp"

namespace pelrath {

/// Finds the strip of the saved files a place where no control is: below the viewport's column, else in the
/// line of the viewer's status while that says nothing, or beside the header's caption where there is no
/// viewport. A window too small for any of these shows it over a corner.
class SaveBarLayout {
public:
    struct Controls {
        Window& window;
        Label& Label11;
        Label& Label8;
        Label& Label2;
        Control& viewport;
        Control& sizes;
        Control& texelStrip;
    };

    SaveBarLayout(const Controls& controls, editing::SaveBar& bar);

    void place();

private:
    [[nodiscard]] double bottomOfColumn() const;
    void placeIn(double left, double top, double width);
    void inOneLine();
    void inTwoLines();

    Controls c_;
    editing::SaveBar& bar_;
    Connections connections_;
};

} // namespace pelrath
