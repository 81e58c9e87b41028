#include "desktop/refresh.hpp"

#include <QMetaObject>
#include <QWidget>

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

bool Refresh::act(const QWidget& view, const std::function<void()>& reaction) {
    if (gate_.admits(view)) {
        deliver(reaction);
        return true;
    }
    for (Binding* binding : view.window()->findChildren<Binding*>()) {
        later(*binding);
    }
    return false;
}

bool Refresh::operate(const QWidget& view, const std::function<void()>& command) {
    return act(view, [this, &command] {
        command();
        flush();
        gate_.dropWaiting();
    });
}

void Refresh::deliver(const std::function<void()>& reaction) {
    const Gate::Reaction reacting{gate_};
    try {
        reaction();
    } catch (const std::exception& failure) {
        report_(failure.what()); // an exception must not pass through the event loop
    }
    flush();
}

} // namespace pelrath::desktop
