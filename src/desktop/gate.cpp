#include "desktop/gate.hpp"

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

// Held down, Enter would start an operation over and over.
bool repeatsItself(const QEvent& event) {
    if (event.type() != QEvent::KeyPress) return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.isAutoRepeat() && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter);
}

} // namespace

Gate::Gate() { qApp->installEventFilter(this); }

Gate::Turn::Turn(Gate& gate, QDialog* dialog) : gate_(gate) {
    gate_.turns_.push_back({dialog, false});
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

bool Gate::eventFilter(QObject* object, QEvent* event) {
    if (!object->isWidgetType()) return false;
    return (isInput(*event) && !isQuiet()) || repeatsItself(*event);
}

} // namespace pelrath::desktop
