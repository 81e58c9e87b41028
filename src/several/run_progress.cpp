#include "several/run_progress.hpp"

#include "batch/report_lines.hpp"
#include "platform/text.hpp"

namespace pelrath::several {

void RunProgress::stop() {
    const std::scoped_lock lock{mutex_};
    stopAsked_ = true;
}

RunProgress::State RunProgress::state() const {
    const std::scoped_lock lock{mutex_};
    State state = state_;
    if (stopAsked_) state.text = "Stopping behind this: " + state.text;
    return state;
}

bool RunProgress::stopIsAsked() {
    const std::scoped_lock lock{mutex_};
    return stopAsked_;
}

void RunProgress::begins(const std::string& texture, std::size_t number, std::size_t count) {
    const std::scoped_lock lock{mutex_};
    state_.text =
        "Texture " + std::to_string(number) + " of " + std::to_string(count) + ": " + visibleText(texture);
    state_.total = count;
}

void RunProgress::ended(const batch::TextureReport& /*report*/) {
    const std::scoped_lock lock{mutex_};
    ++state_.done;
}

void RunProgress::show(const std::string& what, std::uint64_t done, std::uint64_t total) {
    const std::scoped_lock lock{mutex_};
    state_.text = batch::busyLine(what, done, total);
}

} // namespace pelrath::several
