#include "batch/console/commands.hpp"

#include "batch/console/telling.hpp"
#include "batch/extraction.hpp"
#include "batch/opened_archive.hpp"
#include "platform/posix/files.hpp"
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

} // namespace

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
    const Report report = runExtraction(session, plan, arguments.extraction.overwrite, telling);
    const int exitCode = telling.conclude(report, "file(s) written");
    (void)session.programFolder.removeTemporaryFiles();
    return telling.missing(unmatched, arguments.archive, exitCode);
}

} // namespace pelrath::batch
