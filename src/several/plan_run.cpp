#include "several/plan_run.hpp"

#include "batch/insertion.hpp"
#include "batch/worker.hpp"
#include "platform/posix/leftovers.hpp"

#include <chrono>
#include <future>
#include <system_error>

namespace pelrath::several {

namespace {

constexpr std::chrono::milliseconds glance{30};

batch::Report perform(Session& session, const PlannedRun& run, RunProgress& progress) try {
    if (run.wish.insertion) {
        const std::string copies = run.wish.safeCopy ? run.wish.safeCopyFolder : "";
        return runInsertion(session, run.plan, run.wish.files, {copies, run.writeReadOnly, &progress},
                            progress);
    }
    removeHiddenLeftovers(run.wish.folder);
    return extractOnAllCores(session, run.plan, run.wish.extraction.overwrite, run.workerExecutable,
                             progress);
} catch (const std::exception& error) {
    batch::Report report;
    report.ended = error.what();
    return report;
}

} // namespace

batch::Report carryOut(Session& session, const PlannedRun& run, RunProgress& progress,
                       const std::function<void()>& wait) {
    const auto work = [&] { return perform(session, run, progress); };
    std::future<batch::Report> running;
    try {
        running = std::async(std::launch::async, work);
    } catch (const std::system_error&) {
        return work(); // no thread is to be had: better unpainted than not at all
    }
    while (running.wait_for(glance) != std::future_status::ready) {
        wait();
    }
    return running.get();
}

std::string summaryOf(const PlannedRun& run, const batch::Report& report) {
    return batch::countsOf(report, run.wish.insertion ? "file(s) inserted" : "file(s) written");
}

ToldLines linesOf(const PlannedRun& run, const batch::Report& report) {
    return linesOf(report, run.wish.insertion ? batch::insertedLine : batch::extractedLine);
}

std::string reportText(const std::string& archive, const PlannedRun& run, const batch::Report& report) {
    std::string text = (run.wish.insertion ? "Insertion into " : "Extraction from ") + archive + '\n' +
                       summaryOf(run, report) + ".\n\n";
    for (const ToldLine& line : linesOf(run, report)) {
        text += line.text + '\n';
    }
    return text;
}

} // namespace pelrath::several
