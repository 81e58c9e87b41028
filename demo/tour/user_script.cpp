#include "user_script.hpp"

#include <QTimer>

namespace pelrath::tour {

namespace {
constexpr int pause = 20;     // milliseconds between two steps
constexpr int patience = 500; // turns
} // namespace

UserScript& UserScript::then(std::function<void()> step) {
    steps_.push_back({{}, [step = std::move(step)] {
                          step();
                          return true;
                      }});
    return *this;
}

UserScript& UserScript::until(const QString& what, std::function<bool()> condition) {
    steps_.push_back({what, std::move(condition)});
    return *this;
}

void UserScript::start() {
    QTimer::singleShot(pause, this, [this] { turn(); });
}

void UserScript::turn() {
    if (finished() || !missed_.isEmpty()) return;
    const Step& step = steps_[next_];
    if (!step.what.isEmpty()) {
        if (step.act()) {
            ++next_;
            turns_ = 0;
        } else if (++turns_ > patience) {
            missed_ = step.what;
            if (onGivingUp) onGivingUp();
        }
        start();
        return;
    }
    // Before the step, which may not return until later steps have run.
    ++next_;
    start();
    (void)step.act();
}

} // namespace pelrath::tour
