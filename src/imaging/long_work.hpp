#pragma once

#include "platform/busy_sign.hpp"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <thread>

namespace pelrath {

/// Keeps a sign up while work goes on that cannot be interrupted, a call of the image library for one.
class LongWork {
public:
    /// From now on `sign` is shown with the words `what`; null: nothing is, and what has been is cleared.
    void showBy(BusySign* sign, std::string what = {});

    /// Runs `work` and returns at its end; what it raises leaves here. The sign is shown from this thread, at
    /// least ten times a second however often this is called. Work on many pixels runs on a thread of its own
    /// meanwhile, so that it must show no message; nothing else may use what it uses. Work that is begun
    /// inside other work is part of that.
    void run(std::uint64_t pixels, const std::function<void()>& work);

private:
    void showInTime();

    using Clock = std::chrono::steady_clock;
    BusySign* sign_ = nullptr;
    std::thread::id shownFrom_;
    std::string what_;
    bool shown_ = false;
    Clock::time_point last_;
};

/// Divides 0..count into parts of at least `smallest`, and lets each core work on one: `work(first, end)`.
/// What one raises leaves when all have ended.
void onAllCores(std::size_t count, std::size_t smallest,
                const std::function<void(std::size_t first, std::size_t end)>& work);

} // namespace pelrath
