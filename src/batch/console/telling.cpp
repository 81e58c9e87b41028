#include "batch/console/telling.hpp"

#include "platform/text.hpp"

#include <ostream>
#include <utility>

namespace pelrath::batch {

void Telling::showProgress(const std::string& text) {
    if (!console_.terminal) return;
    console_.err << "\r\x1B[K" << text << std::flush; // over the last one
    shown_ = true;
}

void Telling::clear() {
    if (std::exchange(shown_, false)) console_.err << "\r\x1B[K" << std::flush;
}

void Telling::begins(const std::string& texture, std::size_t number, std::size_t count) {
    showProgress(std::to_string(number) + "/" + std::to_string(count) + " " + visibleText(texture));
}

void Telling::show(const std::string& what, std::uint64_t done, std::uint64_t total) {
    showProgress(busyLine(what, done, total));
}

void Telling::message(const std::string& text) {
    clear();
    console_.err << "pelrath-batch: " << visibleText(text) << ".\n" << std::flush;
}

void Telling::result(const std::string& text) {
    if (quiet_) return;
    clear();
    console_.out << text << '\n';
}

void Telling::reasons(const TextureReport& report) {
    for (const std::string& line : reasonLines(report, !quiet_)) {
        message(line);
    }
}

void Telling::ended(const TextureReport& report) {
    for (const FileReport& file : report.files) {
        if (file.outcome == Outcome::Done) result(line_(report, file));
    }
    reasons(report);
}

int Telling::missing(const std::vector<std::string>& unmatched, const std::string& archive, int exitCode) {
    for (const std::string& pattern : unmatched) {
        message(pattern + ": " + archive + " has no such texture");
    }
    return exitCode == AllWell && !unmatched.empty() ? NotAll : exitCode;
}

int Telling::conclude(const Report& report, const std::string& doneWords) {
    if (!report.ended.empty()) message(report.ended);
    if (!quiet_ || !report.allWell()) message(countsOf(report, doneWords));
    if (report.stopped) return Stopped;
    return report.allWell() ? AllWell : NotAll;
}

} // namespace pelrath::batch
