#pragma once

#include "controls/signal.hpp"

#include <string>

namespace pelrath {

/// Position inside the container and outer size, in twips (1/1440 inch).
struct Box {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    bool operator==(const Box&) const = default;
};

/// What every control has. A setter that changes nothing does nothing; one that does gives the change
/// notice, which says "look again" and is no event of the window.
class Control {
public:
    Signal<> changed;
    Signal<> focusRequested;

    Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    [[nodiscard]] bool enabled() const { return enabled_; }
    [[nodiscard]] bool visible() const { return visible_; }
    [[nodiscard]] bool tabStop() const { return tabStop_; }
    [[nodiscard]] const Box& box() const { return box_; }
    /// What a screen reader calls it, where no caption or label beside it says so.
    [[nodiscard]] const std::string& accessibleName() const { return accessibleName_; }

    /// The keyboard's input goes to it from now on.
    void focus() { focusRequested.emit(); }

    void setEnabled(bool enabled) { assign(enabled_, enabled); }
    void setVisible(bool visible) { assign(visible_, visible); }
    void setTabStop(bool tabStop) { assign(tabStop_, tabStop); }
    void setAccessibleName(std::string name) { assign(accessibleName_, std::move(name)); }

    void setBox(const Box& box) { assign(box_, box); }
    void setLeft(double left) { assign(box_.left, left); }
    void setTop(double top) { assign(box_.top, top); }
    void setWidth(double width) { assign(box_.width, width); }
    void setHeight(double height) { assign(box_.height, height); }
    void moveTo(double left, double top) { setBox({left, top, box_.width, box_.height}); }

protected:
    /// True when the value was another one, after the notice.
    template <class T>
    bool assign(T& field, T value) {
        if (field == value) return false;
        field = std::move(value);
        changed.emit();
        return true;
    }

private:
    bool enabled_ = true;
    bool visible_ = true;
    bool tabStop_ = true;
    Box box_;
    std::string accessibleName_;
};

/// A control with a text of its own on it.
class CaptionedControl : public Control {
public:
    [[nodiscard]] const std::string& caption() const { return caption_; }
    void setCaption(std::string caption) { assign(caption_, std::move(caption)); }

private:
    std::string caption_;
};

/// The system colour that a text is shown in.
enum class TextColor {
    Normal, ///< the system's button text
    Greyed, ///< the system's button shadow
};

class Label : public CaptionedControl {
public:
    [[nodiscard]] TextColor textColor() const { return textColor_; }
    void setTextColor(TextColor color) { assign(textColor_, color); }

private:
    TextColor textColor_ = TextColor::Normal;
};

/// A container with a border and, where its caption is not empty, a title.
class Frame : public CaptionedControl {};

/// A container, or a place where a picture is drawn, inside a border that belongs to its outer size.
class PictureBox : public Control {
public:
    /// Pixels on each side.
    [[nodiscard]] int border() const { return border_; }
    void setBorder(int pixels) { assign(border_, pixels); }

private:
    int border_ = 0;
};

class CommandButton : public CaptionedControl {
public:
    Signal<> click;

    /// What the user's press does; nothing while the button is disabled.
    void press() {
        if (enabled()) click.emit();
    }
};

} // namespace pelrath
