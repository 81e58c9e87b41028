#include "batch/console/interruptions.hpp"

#include "archive/recovery.hpp"
#include "batch/opened_archive.hpp"
#include "platform/runtime_error.hpp"

namespace pelrath::batch {

std::size_t tellInterrupted(const std::string& archive, const Console& console, Telling& telling) try {
    const InputFile file{archive};
    std::size_t count = 0;
    for (const std::string& folder : {console.programFolder, console.otherProgramFolder}) {
        for (const std::string& texture : interruptedInsertions(folder, file)) {
            telling.message(archive + ": the insertion of the texture \"" + texture +
                            "\" was interrupted, which leaves it half old and half new; an insert, or the "
                            "window's start, completes it");
            ++count;
        }
    }
    return count;
} catch (const RuntimeError& error) {
    throw UnreadableArchive{error.description()};
}

} // namespace pelrath::batch
