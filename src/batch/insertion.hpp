#pragma once

#include "batch/insertion_plan.hpp"
#include "batch/writing.hpp"

namespace pelrath::batch {

/// Inserts what a plan of planInsertion() with the same wish says.
[[nodiscard]] Report runInsertion(Session& session, const Plan& plan, const InsertionWish& wish,
                                  const WritingTerms& terms, RunWatcher& watcher);

} // namespace pelrath::batch
