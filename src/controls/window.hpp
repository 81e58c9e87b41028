#pragma once

#include "controls/control.hpp"
#include "platform/scoped_flag.hpp"

#include <cstdint>

namespace pelrath {

/// A window as its model sees it: the box is its place on the screen and its outer size, frame included.
class Window : public CaptionedControl {
public:
    Signal<> resize;      ///< after every change of the outer size, whoever makes it
    Signal<> activated;   ///< it has become the program's active one: when shown, and behind another's close
    Signal<> queryUnload; ///< about to go, still shown; cannot be refused
    Signal<> unloaded;    ///< it is gone for good

    /// Its number in the window system, 0 while it has none.
    [[nodiscard]] std::uint32_t handle() const { return handle_; }
    [[nodiscard]] bool minimized() const { return minimized_; }
    [[nodiscard]] bool isUnloaded() const { return isUnloaded_; }
    /// Outer size less the size inside the frame.
    [[nodiscard]] double frameWidth() const { return frameWidth_; }
    [[nodiscard]] double frameHeight() const { return frameHeight_; }

    /// The size below which the layout does not hold; the window system keeps the user above it.
    [[nodiscard]] double smallestWidth() const { return smallestWidth_; }
    [[nodiscard]] double smallestHeight() const { return smallestHeight_; }

    void setSmallestSize(double width, double height) {
        assign(smallestWidth_, width);
        assign(smallestHeight_, height);
    }
    void setFrame(double width, double height) {
        frameWidth_ = width;
        frameHeight_ = height;
    }
    void setHandle(std::uint32_t handle) { handle_ = handle; }
    void setMinimized(bool minimized) { minimized_ = minimized; }
    void setSize(double width, double height) {
        const Box before = box();
        setBox({before.left, before.top, width, height});
        if (box() != before) resize.emit();
    }
    /// Between load() and its end.
    [[nodiscard]] bool isLoaded() const { return isLoaded_; }
    /// As before it was ever shown.
    void load() {
        isLoaded_ = true;
        isUnloaded_ = false;
        setVisible(true);
    }
    void unload() {
        if (isUnloaded_ || unloading_) return;
        {
            const ScopedFlag unloading{unloading_}; // a message of the last reactions is no way back in
            queryUnload.emit();
        }
        isLoaded_ = false;
        isUnloaded_ = true;
        setVisible(false);
        unloaded.emit();
    }

private:
    std::uint32_t handle_ = 0;
    bool minimized_ = false;
    bool isLoaded_ = false;
    bool isUnloaded_ = false;
    bool unloading_ = false;
    double frameWidth_ = 0;
    double frameHeight_ = 0;
    double smallestWidth_ = 0;
    double smallestHeight_ = 0;
};

} // namespace pelrath
