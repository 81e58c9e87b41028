#include "desktop/mnemonics.hpp"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QShortcutEvent>

namespace pelrath::desktop {

Mnemonics::Mnemonics() { qApp->installEventFilter(this); }

bool Mnemonics::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent*>(event)->isAmbiguous()) return false;
    if (auto* button = qobject_cast<QAbstractButton*>(object)) {
        if (button->isCheckable()) button->setFocus(Qt::ShortcutFocusReason);
        button->click();
        return true;
    }
    const auto* label = qobject_cast<QLabel*>(object);
    auto* button = label == nullptr ? nullptr : qobject_cast<QAbstractButton*>(label->buddy());
    if (button == nullptr) return false;
    button->setFocus(Qt::ShortcutFocusReason);
    return true;
}

} // namespace pelrath::desktop
