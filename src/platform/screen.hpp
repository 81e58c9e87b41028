#pragma once

#include <string_view>

namespace pelrath {

/// What the layout must know of the screen in use. Lengths are twips (1/1440 inch).
class Screen {
public:
    virtual ~Screen() = default;

    /// Twips that one pixel takes, the same in both directions: 15 at 96 dots an inch.
    [[nodiscard]] virtual double twipsPerPixel() const = 0;

    /// Where it stands among the screens.
    [[nodiscard]] virtual double left() const { return 0; }
    [[nodiscard]] virtual double top() const { return 0; }
    [[nodiscard]] virtual double width() const = 0;
    [[nodiscard]] virtual double height() const = 0;

    /// Width of one line of text in the window's fixed-pitch font.
    [[nodiscard]] virtual double textWidth(std::string_view text) const = 0;
};

} // namespace pelrath
