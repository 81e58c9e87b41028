#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <optional>

namespace pelrath {

/// Work that a thread beside this one does. Threads that have ended other work lately are taken first: they
/// wait for some, and begin at once, where the system may let a new one wait several milliseconds for the
/// processor of whoever starts it while others rest.
class OtherThread {
public:
    /// `work` must live until its end. Nothing where no thread is to be had; `work` is not done then.
    [[nodiscard]] static std::optional<OtherThread> started(const std::function<void()>& work);

    /// Waits for the work's end.
    ~OtherThread();
    OtherThread(OtherThread&&) = default;
    OtherThread& operator=(OtherThread&&) = delete;
    OtherThread(const OtherThread&) = delete;
    OtherThread& operator=(const OtherThread&) = delete;

    /// Waits until then at most; answers whether the work has ended.
    [[nodiscard]] bool endsBefore(std::chrono::steady_clock::time_point then) const;
    /// Waits for the work's end, and raises what it raised. Called once.
    void end() { ended_.get(); }

private:
    explicit OtherThread(std::future<void> ended) : ended_(std::move(ended)) {}

    std::future<void> ended_;
};

} // namespace pelrath
