#pragma once

#include "controls/control.hpp"

#include <cstddef>
#include <string>

namespace pelrath {

/// Codes of the keys that reactions look at, and the modifiers held with them.
enum class KeyCode { Up = 38, Down = 40, Other = 0 };

struct KeyDown {
    KeyCode code = KeyCode::Other;
    bool modified = false; ///< Shift, Ctrl or Alt is held
    bool consumed = false; ///< set by a reaction: the key does nothing else
};

/// The character that Backspace types.
inline constexpr char32_t backspaceKey = 8;

/// A box of text. Its change is raised by every change of its text, whoever makes it. Positions and lengths
/// are characters.
class TextBox : public Control {
public:
    Signal<> change;
    Signal<KeyDown&> keyDown;
    Signal<char32_t> keyPress; ///< before the character acts on the text

    [[nodiscard]] const std::string& text() const { return text_; }
    [[nodiscard]] std::size_t selectionStart() const { return selectionStart_; }
    [[nodiscard]] std::size_t selectionLength() const { return selectionLength_; }
    /// Shown, but not for typing into.
    [[nodiscard]] bool locked() const { return locked_; }

    /// Puts the caret before the text, with nothing selected.
    void setText(std::string text);
    /// Beyond the end of the text means its end.
    void setSelection(std::size_t start, std::size_t length);
    void setLocked(bool locked) { assign(locked_, locked); }

    /// The user's editing: the text it led to, and the selection as it then is.
    void edit(std::string text, std::size_t start, std::size_t length);
    /// The user's moving of the caret; no notice, as it is shown already.
    void adoptSelection(std::size_t start, std::size_t length);

private:
    std::string text_;
    std::size_t selectionStart_ = 0;
    std::size_t selectionLength_ = 0;
    bool locked_ = false;
};

} // namespace pelrath
