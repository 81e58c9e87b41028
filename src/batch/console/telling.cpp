#include "batch/console/telling.hpp"

#include "platform/text.hpp"

#include <array>
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
    constexpr std::uint64_t megabyte = std::uint64_t{1} << 20;
    const auto megabytes = [](std::uint64_t bytes) { return std::to_string(bytes / megabyte); };
    showProgress(visibleText(what) +
                 (total == 0 ? "" : " " + megabytes(done) + " of " + megabytes(total) + " MB"));
}

void Telling::message(const std::string& text) {
    clear();
    console_.err << "pelrath-batch: " << text << ".\n" << std::flush;
}

void Telling::result(const std::string& text) {
    if (quiet_) return;
    clear();
    console_.out << text << '\n';
}

void Telling::reasons(const TextureReport& report) {
    const std::string name = report.texture < 0 ? "" : visibleText(report.name) + ": ";
    for (const FileReport& file : report.files) {
        if (file.message.empty() || (quiet_ && file.outcome == Outcome::LeftOut)) continue;
        message(name + (file.file.path.empty() ? "" : file.file.path + ": ") + file.message);
    }
    for (const std::string& remark : report.remarks) {
        message(name + remark);
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
    std::string counts = std::to_string(report.count(Outcome::Done)) + " " + doneWords;
    constexpr std::array others{std::pair{Outcome::LeftOut, "left out"},
                                std::pair{Outcome::Refused, "refused"}, std::pair{Outcome::Failed, "failed"},
                                std::pair{Outcome::NotReached, "not reached"}};
    for (const auto& [outcome, words] : others) {
        if (const std::size_t count = report.count(outcome); count > 0) {
            counts += ", " + std::to_string(count) + " " + words;
        }
    }
    if (!quiet_ || !report.allWell()) message((report.stopped ? "stopped: " : "") + counts);
    if (report.stopped) return Stopped;
    return report.allWell() ? AllWell : NotAll;
}

} // namespace pelrath::batch
