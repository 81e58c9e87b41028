#pragma once

#include "controls/control.hpp"

#include <array>
#include <cstddef>
#include <cstdint>

namespace pelrath {

/// One button of an option group. Its click is raised when it becomes selected, whoever selects it, enabled
/// or not; becoming deselected raises nothing.
class OptionButton : public CaptionedControl {
public:
    Signal<> click;
    Signal<> selecting; ///< for its group: it is about to become the selected one

    [[nodiscard]] bool selected() const { return selected_; }
    /// Background as 0x00BBGGRR; the default colour of the system while it was never set.
    [[nodiscard]] std::uint32_t backColor() const { return backColor_; }
    [[nodiscard]] bool hasBackColor() const { return hasBackColor_; }

    void select() {
        if (selected_) return;
        selecting.emit();
        assign(selected_, true);
        click.emit();
    }
    void deselect() { assign(selected_, false); }
    void setBackColor(std::uint32_t color) {
        const bool first = assign(hasBackColor_, true);
        if (!assign(backColor_, color) && first) changed.emit();
    }

private:
    bool selected_ = false;
    bool hasBackColor_ = false;
    std::uint32_t backColor_ = 0;
};

/// Option buttons of which at most one is selected, addressed by their index.
template <std::size_t N>
class OptionGroup {
public:
    OptionGroup() {
        for (std::size_t i = 0; i < N; ++i) {
            selecting_[i] = buttons_[i].selecting.connect([this, i] { deselectAllBut(i); });
        }
    }
    OptionGroup(const OptionGroup&) = delete;
    OptionGroup& operator=(const OptionGroup&) = delete;
    ~OptionGroup() = default;

    [[nodiscard]] OptionButton& operator[](std::size_t index) { return buttons_[index]; }
    [[nodiscard]] const OptionButton& operator[](std::size_t index) const { return buttons_[index]; }
    [[nodiscard]] auto begin() { return buttons_.begin(); }
    [[nodiscard]] auto end() { return buttons_.end(); }
    [[nodiscard]] static constexpr std::size_t size() { return N; }

    /// Index of the selected button, -1 when none is.
    [[nodiscard]] int selectedIndex() const {
        for (std::size_t i = 0; i < N; ++i) {
            if (buttons_[i].selected()) return static_cast<int>(i);
        }
        return -1;
    }

private:
    void deselectAllBut(std::size_t index) {
        for (std::size_t i = 0; i < N; ++i) {
            if (i != index) buttons_[i].deselect();
        }
    }

    std::array<OptionButton, N> buttons_;
    std::array<Connection, N> selecting_;
};

} // namespace pelrath
