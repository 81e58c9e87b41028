#pragma once

#include "batch/report.hpp"
#include "session/session.hpp"

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

/// Extraction in several processes, because the image library serves one thread of a process. A job is a
/// texture: its index, how many files are to be written, and for each its level, its kind and its path. The
/// answer is for each of these files the number of its Outcome and the message. All are texts that end with a
/// zero byte.
namespace pelrath::batch {

[[nodiscard]] std::string encodeJob(const PlannedTexture& texture);

/// Puts an answer, which is read text by text, into the report on the job's texture. False where it ends too
/// early.
[[nodiscard]] bool decodeAnswer(const std::function<std::optional<std::string>()>& readText,
                                TextureReport& report);

/// Does the jobs that come in until there are no more.
void doJobs(Session& session, bool overwrite, std::istream& in, std::ostream& out);

/// How a worker is started.
struct WorkerStart {
    std::string executable;
    std::vector<std::string> arguments;
};

/// Extracts a plan with as many workers as there are cores. One that dies fails its texture; another takes
/// its place. What the watcher hears comes from several threads, one at a time.
[[nodiscard]] Report runExtractionInWorkers(const WorkerStart& start, const Plan& plan, RunWatcher& watcher);

/// Extracts a plan in workers where it has images of several textures, and in this process where it has not,
/// or where the path of pelrath-batch, whose processes they are, is empty.
[[nodiscard]] Report extractOnAllCores(Session& session, const Plan& plan, bool overwrite,
                                       const std::string& executable, RunWatcher& watcher);

} // namespace pelrath::batch
