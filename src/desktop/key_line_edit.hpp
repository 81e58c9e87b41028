#pragma once

#include "controls/text_box.hpp"

#include <QLineEdit>

#include <functional>

namespace pelrath::desktop {

/// A line edit whose keys are seen by someone else first. Clicking into it selects its text, as tabbing does:
/// what is typed next replaces it.
class KeyLineEdit : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

    using OnKeyDown = std::function<void(KeyDown&)>;
    using OnKeyPress = std::function<void(char32_t)>;

    void follow(OnKeyDown keyDown, OnKeyPress keyPress);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    OnKeyDown keyDown_;
    OnKeyPress keyPress_;
    bool focusedByMouse_ = false;
};

} // namespace pelrath::desktop
