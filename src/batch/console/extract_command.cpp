#include "batch/console/commands.hpp"

#include "archive/journal_record.hpp"
#include "batch/console/interruptions.hpp"
#include "batch/opened_archive.hpp"
#include "batch/worker.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/freed_memory.hpp"
#include "platform/posix/leftovers.hpp"
#include "platform/posix/sub_folders.hpp"
#include "platform/runtime_error.hpp"

#include <cerrno>

namespace pelrath::batch {

namespace {

void requireFolder(const std::string& folder) {
    if (folderExists(folder)) return;
    const int error = makeFolder(folder);
    if (error == 0) return;
    // What is missing is the folder above.
    throw makeSystemError(error == ENOENT ? ENOTDIR : error, "extract", folder);
}

} // namespace

int workOnTextures(const Arguments& arguments, const Console& console) {
    Session session;
    openArchive(session, arguments.archive);
    if (tablesChecksum(session.archive) != arguments.tables) {
        throw UnreadableArchive{arguments.archive + " has been changed meanwhile"};
    }
    session.programFolder = console.programFolder;
    keepFreedMemory();
    doJobs(session, arguments.extraction.overwrite, console.in, console.out);
    (void)session.programFolder.removeTemporaryFiles();
    return AllWell;
}

int extractTextures(const Arguments& arguments, const Console& console) {
    Session session;
    openArchive(session, arguments.archive);
    session.programFolder = console.programFolder;
    Telling telling{console, arguments.quiet, extractedLine};
    tellInterrupted(arguments.archive, console, telling);
    std::vector<std::string> unmatched;
    const std::vector<std::int16_t> textures = chosenTextures(session.archive, arguments.chosen, unmatched);
    requireFolder(arguments.extraction.folder);
    removeHiddenLeftovers(arguments.extraction.folder);
    const Plan plan = planExtraction(session, textures, arguments.extraction);
    const Report report =
        extractOnAllCores(session, plan, arguments.extraction.overwrite, console.executable, telling);
    const int exitCode = telling.conclude(report, "file(s) written");
    (void)session.programFolder.removeTemporaryFiles();
    return telling.missing(unmatched, arguments.archive, exitCode);
}

} // namespace pelrath::batch
