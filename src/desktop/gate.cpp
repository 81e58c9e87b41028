#include "desktop/gate.hpp"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QKeyEvent>

#include <algorithm>

namespace pelrath::desktop {

namespace {

// What begins something. What ends it (a key or a button let go) passes: widgets would wait for it for ever,
// and the reaction that it leads to is refused by itself.
bool isInput(const QEvent& event) {
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::NativeGesture:
    case QEvent::TouchBegin:
    case QEvent::TabletPress:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

bool isKey(const QEvent& event) {
    return event.type() == QEvent::ShortcutOverride || event.type() == QEvent::KeyPress ||
           event.type() == QEvent::KeyRelease;
}

// What a key begins that is no editing of a text.
bool isCommand(const QObject& object, const QEvent& event) {
    if (event.type() == QEvent::Shortcut) return true;
    if (event.type() != QEvent::KeyPress) return false;
    const int key = static_cast<const QKeyEvent&>(event).key();
    if (key == Qt::Key_Space) return qobject_cast<const QAbstractButton*>(&object) != nullptr;
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

// A shortcut does not say whether its key is held down; the key that is offered before it does, unless the
// toolkit missed that the press was waiting behind the release.
void HeldKey::follow(const QKeyEvent& key) {
    constexpr quint64 noHand = 10; // milliseconds
    if (key.type() == QEvent::KeyRelease) {
        released_ = key.key();
        releasedAt_ = key.timestamp();
    } else {
        const bool again =
            key.key() == released_ && releasedAt_ != 0 && key.timestamp() - releasedAt_ < noHand;
        repeats_ = key.isAutoRepeat() || again;
    }
}

Gate::Gate() { qApp->installEventFilter(this); }

Gate::Turn::Turn(Gate& gate, QDialog* dialog) : gate_(gate) {
    gate_.turns_.push_back({dialog, false, dialog == nullptr});
    gate_.tellWaiting();
}

bool Gate::admits(const QWidget& view) const {
    return isQuiet() && (turns_.back().dialog == nullptr || turns_.back().dialog == view.window());
}

bool Gate::isIdle() const {
    return isQuiet() && std::all_of(turns_.begin(), turns_.end(),
                                    [](const Level& level) { return level.dialog == nullptr; });
}

void Gate::whenQuiet(QObject& who, std::function<void()> call) {
    waiting_.emplace_back(&who, std::move(call));
    if (isQuiet()) tellWaiting();
}

void Gate::tellWaiting() {
    if (waiting_.empty()) return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!isQuiet()) return;
            for (const auto& [who, call] : std::exchange(waiting_, {})) {
                if (who) call();
            }
        },
        Qt::QueuedConnection);
}

void Gate::dismissDialog() {
    auto* innermost = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (isQuiet() && innermost != nullptr) innermost->done(QDialog::Rejected);
}

void Gate::dropWaiting() {
    if (!shut_ && top().reacting) QCoreApplication::processEvents(QEventLoop::X11ExcludeTimers);
}

bool Gate::wishesStop(const QObject& object, const QEvent& event) const {
    // A mnemonic comes as the button's shortcut or, where the toolkit finds none, as a key.
    const bool pressed = event.type() == QEvent::MouseButtonPress || event.type() == QEvent::Shortcut;
    if (!pressed && event.type() != QEvent::KeyPress) return false;
    const QKeyCombination key =
        pressed ? QKeyCombination{} : static_cast<const QKeyEvent&>(event).keyCombination();
    const auto isMeant = [&](const QAbstractButton* button) {
        if (button == &object) return pressed || key == QKeyCombination{Qt::Key_Space};
        return !pressed && button->isVisible() && QKeySequence::mnemonic(button->text()) == QKeySequence{key};
    };
    return key == QKeyCombination{Qt::Key_Escape} || std::any_of(stoppers_.begin(), stoppers_.end(), isMeant);
}

bool Gate::eventFilter(QObject* object, QEvent* event) {
    if (isKey(*event)) key_.follow(static_cast<const QKeyEvent&>(*event));
    if (key_.repeats() && isCommand(*object, *event)) return true;
    if (event->type() == QEvent::Paint && object == top().dialog) top().seen = true;
    if (!isQuiet() && wishesStop(*object, *event)) stopWished_ = true;
    return object->isWidgetType() && isInput(*event) && (!isQuiet() || !top().seen);
}

} // namespace pelrath::desktop
