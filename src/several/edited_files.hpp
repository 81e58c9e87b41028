#pragma once

#include "editing/watch_list.hpp"
#include "several/plan_run.hpp"

namespace pelrath::several {

/// Tells the list of the files that editors have what a run over the session's archive did with them: what
/// it wrote nobody has saved, and what it inserted need not be inserted once more.
void tellEditedFiles(editing::WatchList& files, const Session& session, const PlannedRun& run,
                     const batch::Report& report);

} // namespace pelrath::several
