#include "desktop/background.hpp"

#include <QMetaObject>

#include <mutex>
#include <system_error>
#include <thread>

namespace pelrath::desktop {

// Belongs to the threads too: it outlives the object at its end.
struct Background::Way {
    std::mutex mutex;
    QObject* end = nullptr;

    void post(std::function<void()> function) {
        const std::lock_guard lock{mutex};
        if (end != nullptr) QMetaObject::invokeMethod(end, std::move(function), Qt::QueuedConnection);
    }
};

Background::Background() : way_(std::make_shared<Way>()) { way_->end = this; }

Background::~Background() {
    const std::lock_guard lock{way_->mutex};
    way_->end = nullptr;
}

void Background::run(std::function<void(const Post&)> work) {
    const auto task = [way = way_, work = std::move(work)] {
        work([&way](std::function<void()> function) { way->post(std::move(function)); });
    };
    try {
        std::thread{task}.detach();
    } catch (const std::system_error&) {
        task(); // no thread is to be had: better slow than never
    }
}

} // namespace pelrath::desktop
