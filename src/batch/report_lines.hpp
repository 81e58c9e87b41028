#pragma once

#include "batch/report.hpp"

#include <string>
#include <vector>

/// How plans and reports are put into words: lines without their full stop.
namespace pelrath::batch {

/// How a run's files are told once they are done.
using DoneLine = std::string (*)(const TextureReport& texture, const FileReport& file);

[[nodiscard]] std::string extractedLine(const TextureReport& texture, const FileReport& file);
[[nodiscard]] std::string insertedLine(const TextureReport& texture, const FileReport& file);

/// What was left out, refused or failed of a texture, and why; and its remarks.
[[nodiscard]] std::vector<std::string> reasonLines(const TextureReport& texture, bool leftOut = true);

/// The counts of a run, with these words for what is done: "3 file(s) written, 1 refused".
[[nodiscard]] std::string countsOf(const Report& report, const std::string& doneWords);

/// The report on a plan all of which went well.
[[nodiscard]] Report asIfDone(const Plan& plan);

/// "Copying a.cdds 3 of 12 MB": what a BusySign shows, in words.
[[nodiscard]] std::string busyLine(const std::string& what, std::uint64_t done, std::uint64_t total);

} // namespace pelrath::batch
