#include "desktop/qt_file_watch.hpp"

namespace pelrath::desktop {

QtFileWatch::QtFileWatch() {
    constexpr int slowly = 2000; // milliseconds
    slow_.setInterval(slowly);
    connect(&slow_, &QTimer::timeout, this, [this] { tell(); });
    if (folders_.handle() < 0) return;
    notifier_.emplace(folders_.handle(), QSocketNotifier::Read);
    connect(&*notifier_, &QSocketNotifier::activated, this, [this] {
        if (folders_.taken()) tell();
        lookSlowly();
    });
}

void QtFileWatch::follow(const std::vector<std::string>& paths) {
    folders_.follow(paths);
    lookSlowly();
}

void QtFileWatch::tell() {
    if (happened) happened();
}

void QtFileWatch::lookSlowly() {
    if (folders_.isBlind() && !slow_.isActive()) slow_.start();
    if (!folders_.isBlind()) slow_.stop();
}

} // namespace pelrath::desktop
