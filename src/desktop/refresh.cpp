#include "desktop/refresh.hpp"

#include <QMetaObject>

#include <exception>
#include <utility>

namespace pelrath::desktop {

void Refresh::later(Binding& binding) {
    if (binding.queued) return;
    binding.queued = true;
    if (waiting_.empty()) {
        QMetaObject::invokeMethod(
            this, [this] { flush(); }, Qt::QueuedConnection);
    }
    waiting_.emplace_back(&binding);
}

void Refresh::flush() {
    while (!waiting_.empty()) {
        for (const QPointer<Binding>& binding : std::exchange(waiting_, {})) {
            if (binding) binding->push();
        }
    }
}

void Refresh::deliver(const std::function<void()>& reaction) {
    try {
        reaction();
    } catch (const std::exception& failure) {
        report_(failure.what()); // an exception must not pass through the event loop
    }
    flush();
}

} // namespace pelrath::desktop
