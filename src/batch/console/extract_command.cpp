#include "batch/console/commands.hpp"

#include "archive/journal_record.hpp"
#include "batch/console/telling.hpp"
#include "batch/extraction.hpp"
#include "batch/opened_archive.hpp"
#include "batch/worker.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/freed_memory.hpp"
#include "platform/posix/leftovers.hpp"
#include "platform/posix/sub_folders.hpp"
#include "platform/runtime_error.hpp"

namespace pelrath::batch {

namespace {

void requireFolder(const std::string& folder) {
    if (folderExists(folder)) return;
    if (const int error = makeFolder(folder); error != 0) throw makeSystemError(error, "extract", folder);
}

std::string pathOf(const TextureReport& /*texture*/, const FileReport& file) { return file.file.path; }

Report extract(const Arguments& arguments, const Console& console, Session& session, const Plan& plan,
               Telling& telling) {
    const bool overwrite = arguments.extraction.overwrite;
    const bool alone = console.executable.empty() || plan.size() < 2 || !needsLibrary(plan);
    if (alone) return runExtraction(session, plan, overwrite, telling);
    WorkerStart start{console.executable,
                      {"work", "--tables", std::to_string(tablesChecksum(session.archive))}};
    if (overwrite) start.arguments.emplace_back("--overwrite");
    start.arguments.insert(start.arguments.end(), {"--", arguments.archive});
    return runExtractionInWorkers(start, plan, telling);
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
    Telling telling{console, arguments.quiet, pathOf};
    std::vector<std::string> unmatched;
    const std::vector<std::int16_t> textures = chosenTextures(session.archive, arguments.chosen, unmatched);
    requireFolder(arguments.extraction.folder);
    removeHiddenLeftovers(arguments.extraction.folder);
    const Plan plan = planExtraction(session, textures, arguments.extraction);
    const Report report = extract(arguments, console, session, plan, telling);
    const int exitCode = telling.conclude(report, "file(s) written");
    (void)session.programFolder.removeTemporaryFiles();
    return telling.missing(unmatched, arguments.archive, exitCode);
}

} // namespace pelrath::batch
