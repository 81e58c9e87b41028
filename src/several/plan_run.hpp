#pragma once

#include "several/planning.hpp"
#include "several/run_progress.hpp"

#include <functional>
#include <string>

namespace pelrath::several {

/// A plan of answer() that is to be carried out.
struct PlannedRun {
    Wish wish;
    batch::Plan plan;
    bool writeReadOnly = false;   ///< that has been agreed on
    std::string workerExecutable; ///< as for extractOnAllCores()
};

/// Carries it out on a thread of its own, which has the session meanwhile, and calls `wait` many times a
/// second until that ends. What fails as a whole is why the report ended.
[[nodiscard]] batch::Report carryOut(Session& session, const PlannedRun& run, RunProgress& progress,
                                     const std::function<void()>& wait);

/// A report as a text file has it.
[[nodiscard]] std::string reportText(const std::string& archive, const PlannedRun& run,
                                     const batch::Report& report);

/// "3 file(s) written, 1 failed", with these words or those of an insertion.
[[nodiscard]] std::string summaryOf(const PlannedRun& run, const batch::Report& report);
[[nodiscard]] ToldLines linesOf(const PlannedRun& run, const batch::Report& report);

} // namespace pelrath::several
