#include "imaging/long_work.hpp"

#include <algorithm>
#include <future>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace pelrath {

namespace {

using namespace std::chrono_literals;

constexpr auto quietTime = 40ms;
constexpr std::uint64_t manyPixels = std::uint64_t{1} << 20; // a few hundredths of a second in the library

/// Nothing where no thread is to be had.
std::optional<std::future<void>> started(const std::function<void()>& work) try {
    return std::async(std::launch::async, work);
} catch (const std::system_error&) {
    return std::nullopt;
}

} // namespace

void LongWork::showBy(BusySign* sign, std::string what) {
    if (std::exchange(shown_, false)) sign_->clear();
    sign_ = sign;
    shownFrom_ = std::this_thread::get_id();
    what_ = std::move(what);
    last_ = Clock::now();
}

void LongWork::run(std::uint64_t pixels, const std::function<void()>& work) {
    if (std::this_thread::get_id() != shownFrom_) return work();
    showInTime();
    std::optional<std::future<void>> running;
    if (sign_ != nullptr && pixels >= manyPixels) running = started(work);
    if (!running) return work();
    while (running->wait_until(last_ + quietTime) != std::future_status::ready) {
        showInTime();
    }
    running->get();
}

void LongWork::showInTime() {
    if (sign_ == nullptr || Clock::now() - last_ < quietTime) return;
    shown_ = true;
    sign_->show(what_, 0, 0);
    last_ = Clock::now();
}

void onAllCores(std::size_t count, std::size_t smallest,
                const std::function<void(std::size_t first, std::size_t end)>& work) {
    const std::size_t cores = std::max(std::thread::hardware_concurrency(), 1U);
    const std::size_t parts = std::clamp<std::size_t>(count / std::max<std::size_t>(smallest, 1), 1, cores);
    std::vector<std::future<void>> others; // each waits for its thread when it goes
    std::size_t first = 0;
    for (std::size_t part = 1; part < parts; ++part) {
        const std::size_t end = count * part / parts;
        auto other = started([&work, first, end] { work(first, end); });
        if (!other) break;
        others.push_back(std::move(*other));
        first = end;
    }
    work(first, count);
    for (std::future<void>& other : others) {
        other.get();
    }
}

} // namespace pelrath
