#include "platform/posix/other_thread.hpp"

#include "platform/posix/glib_owned.hpp"

#include <atomic>
#include <memory>
#include <utility>

namespace pelrath {

namespace {

/// Work that waits for a thread, held by the pool and by whoever started it.
struct Task {
    explicit Task(const std::function<void()>& theWork) : work(std::cref(theWork)) {}

    std::packaged_task<void()> work;
    std::atomic<bool> taken = false; ///< by a thread, or back
};
using SharedTask = std::shared_ptr<Task>;

void carryOut(gpointer task, gpointer /*unused*/) {
    const std::unique_ptr<SharedTask> held{static_cast<SharedTask*>(task)};
    if (!(*held)->taken.exchange(true)) (*held)->work();
}

/// Without an upper limit: work may start other work and wait for it.
GThreadPool* pool() {
    constexpr int unlimited = -1;
    static GThreadPool* const threads = g_thread_pool_new(carryOut, nullptr, unlimited, FALSE, nullptr);
    return threads;
}

} // namespace

std::optional<OtherThread> OtherThread::started(const std::function<void()>& work) {
    const auto task = std::make_shared<Task>(work);
    OtherThread thread{task->work.get_future()};
    auto held = std::make_unique<SharedTask>(task);
    GError* error = nullptr;
    const bool running = g_thread_pool_push(pool(), held.release(), &error) != FALSE;
    const GlibOwned<GError> why{error};
    // The pool keeps what it found no thread for.
    if (!running && !task->taken.exchange(true)) {
        thread.ended_ = {};
        return std::nullopt;
    }
    return thread;
}

OtherThread::~OtherThread() {
    if (ended_.valid()) ended_.wait();
}

bool OtherThread::endsBefore(std::chrono::steady_clock::time_point then) const {
    return ended_.wait_until(then) == std::future_status::ready;
}

} // namespace pelrath
