#include "imaging/long_work.hpp"

#include "platform/posix/other_thread.hpp"

#include <algorithm>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace pelrath {

namespace {

using namespace std::chrono_literals;

constexpr auto quietTime = 40ms;
constexpr std::uint64_t manyPixels = std::uint64_t{1} << 20; // a few hundredths of a second in the library

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
    if (sign_ == nullptr || pixels < manyPixels) return work();
    std::optional<OtherThread> running = OtherThread::started(work);
    if (!running) return work();
    while (!running->endsBefore(last_ + quietTime)) {
        showInTime();
    }
    running->end();
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
    std::vector<std::function<void()>> works;
    for (std::size_t part = 0; part < parts; ++part) {
        works.emplace_back(
            [&work, first = count * part / parts, end = count * (part + 1) / parts] { work(first, end); });
    }
    std::vector<OtherThread> others; // each waits for its end when it goes
    std::size_t begun = 1;
    for (; begun < parts; ++begun) {
        auto other = OtherThread::started(works[begun]);
        if (!other) break;
        others.push_back(std::move(*other));
    }
    works.front()();
    for (; begun < parts; ++begun) {
        works[begun]();
    }
    for (OtherThread& other : others) {
        other.end();
    }
}

} // namespace pelrath
