#include "batch/library_run.hpp"

#include "platform/runtime_error.hpp"

namespace pelrath::batch {

LibraryRun::~LibraryRun() {
    if (!use_.imageLibraryInitialised()) return;
    try {
        use_.shutDown();
    } catch (const RuntimeError&) { // all that was done with it is on the disk
    }
}

} // namespace pelrath::batch
