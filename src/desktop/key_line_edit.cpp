#include "desktop/key_line_edit.hpp"

#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>

namespace pelrath::desktop {

namespace {

KeyCode codeOf(int key) {
    switch (key) {
    case Qt::Key_Up:
        return KeyCode::Up;
    case Qt::Key_Down:
        return KeyCode::Down;
    default:
        return KeyCode::Other;
    }
}

} // namespace

void KeyLineEdit::follow(OnKeyDown keyDown, OnKeyPress keyPress) {
    keyDown_ = std::move(keyDown);
    keyPress_ = std::move(keyPress);
}

void KeyLineEdit::keyPressEvent(QKeyEvent* event) {
    const Qt::KeyboardModifiers held = event->modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
    KeyDown key{codeOf(event->key()), held != Qt::NoModifier, false};
    if (keyDown_) keyDown_(key);
    if (key.consumed) {
        event->accept();
        return;
    }
    // Delete types no character, though it carries one.
    const QList<uint> characters = event->key() == Qt::Key_Delete ? QList<uint>{} : event->text().toUcs4();
    for (const uint character : characters) {
        if (keyPress_) keyPress_(character);
    }
    QLineEdit::keyPressEvent(event);
}

void KeyLineEdit::inputMethodEvent(QInputMethodEvent* event) {
    if (keyDown_ && !event->commitString().isEmpty()) {
        KeyDown key;
        keyDown_(key);
        for (const uint character : event->commitString().toUcs4()) {
            keyPress_(character);
        }
    }
    QLineEdit::inputMethodEvent(event);
}

void KeyLineEdit::focusInEvent(QFocusEvent* event) {
    focusedByMouse_ = event->reason() == Qt::MouseFocusReason;
    QLineEdit::focusInEvent(event);
}

void KeyLineEdit::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    if (focusedByMouse_ && !hasSelectedText()) selectAll();
    focusedByMouse_ = false;
}

} // namespace pelrath::desktop
