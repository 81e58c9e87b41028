#include "batch/report_lines.hpp"

#include "platform/text.hpp"

#include <array>
#include <utility>

namespace pelrath::batch {

std::string extractedLine(const TextureReport& /*texture*/, const FileReport& file) { return file.file.path; }

std::string insertedLine(const TextureReport& texture, const FileReport& file) {
    const std::string level =
        file.file.level == wholeChain ? "all levels" : "level " + std::to_string(file.file.level);
    return visibleText(texture.name) + ", " + level + ": " + file.file.path;
}

std::vector<std::string> reasonLines(const TextureReport& texture, bool leftOut) {
    const std::string name = texture.texture < 0 ? "" : visibleText(texture.name) + ": ";
    std::vector<std::string> lines;
    for (const FileReport& file : texture.files) {
        if (file.message.empty() || (!leftOut && file.outcome == Outcome::LeftOut)) continue;
        lines.push_back(name + (file.file.path.empty() ? "" : file.file.path + ": ") + file.message);
    }
    for (const std::string& remark : texture.remarks) {
        lines.push_back(name + remark);
    }
    return lines;
}

std::string countsOf(const Report& report, const std::string& doneWords) {
    std::string counts = std::to_string(report.count(Outcome::Done)) + " " + doneWords;
    constexpr std::array others{std::pair{Outcome::LeftOut, "left out"},
                                std::pair{Outcome::Refused, "refused"}, std::pair{Outcome::Failed, "failed"},
                                std::pair{Outcome::NotReached, "not reached"}};
    for (const auto& [outcome, words] : others) {
        if (const std::size_t count = report.count(outcome); count > 0) {
            counts += ", " + std::to_string(count) + " " + words;
        }
    }
    return (report.stopped ? "stopped: " : "") + counts;
}

Report asIfDone(const Plan& plan) {
    Report report;
    for (const PlannedTexture& texture : plan) {
        report.textures.push_back(untried(texture));
        settle(report.textures.back(), Outcome::Done);
    }
    return report;
}

std::string busyLine(const std::string& what, std::uint64_t done, std::uint64_t total) {
    constexpr std::uint64_t megabyte = std::uint64_t{1} << 20;
    const auto megabytes = [](std::uint64_t bytes) { return std::to_string(bytes / megabyte); };
    return visibleText(what) + (total == 0 ? "" : " " + megabytes(done) + " of " + megabytes(total) + " MB");
}

} // namespace pelrath::batch
