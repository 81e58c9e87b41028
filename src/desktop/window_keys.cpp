#include "desktop/window_keys.hpp"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QShortcut>

#include <algorithm>

namespace pelrath::desktop {

WindowKeys::WindowKeys(QWidget& window) : QObject(&window), window_(window) {
    for (QWidget* box : window.findChildren<QWidget*>()) {
        const bool typedInto =
            qobject_cast<QLineEdit*>(box) != nullptr || qobject_cast<QPlainTextEdit*>(box) != nullptr;
        if (typedInto) box->installEventFilter(this);
    }
}

void WindowKeys::add(const QKeySequence& key, std::function<void()> act) {
    keys_.push_back(key);
    connect(new QShortcut{key, &window_}, &QShortcut::activated, this, std::move(act));
}

// A box that wants a key for itself says so when it is asked.
bool WindowKeys::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() != QEvent::ShortcutOverride) return false;
    const QKeySequence pressed{static_cast<QKeyEvent*>(event)->keyCombination()};
    const bool ours = std::find(keys_.begin(), keys_.end(), pressed) != keys_.end();
    if (ours) event->ignore();
    return ours;
}

} // namespace pelrath::desktop
